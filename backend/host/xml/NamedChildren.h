#pragma once

#include <iterator>
#include <string_view>

#include "host/xml/Document.h"

namespace hierfit::xml {

/// The children of one name below an element, in their order; none below kNone. The document must outlive it.
class NamedChildren {
  public:
    class Iterator {
      public:
        Iterator(const Document& document, Document::Node node) : fpDocument(&document), fNode(node) {}

        Document::Node operator*() const { return fNode; }
        Iterator& operator++() {
            fNode = fpDocument->NextOfName(fNode);
            return *this;
        }
        bool operator==(std::default_sentinel_t) const { return fNode == Document::kNone; }

      private:
        const Document* fpDocument;
        Document::Node fNode;
    };

    NamedChildren(const Document& document, Document::Node parent, std::string_view name)
        : fDocument(document), fFirst(parent == Document::kNone ? parent : document.FirstChild(parent, name)) {}

    Iterator begin() const { return {fDocument, fFirst}; }
    std::default_sentinel_t end() const { return {}; }

  private:
    const Document& fDocument;
    Document::Node fFirst;
};

}  // namespace hierfit::xml
