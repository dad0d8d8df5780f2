#pragma once

#include <deque>
#include <memory>

#include "host/SDOMXMLWrapper.h"
#include "host/xml/Document.h"

namespace hierfit::framework {

/// A parsed document and all elements and iterators that were handed out of it. They stay where they are until the pool
/// goes. It belongs to the wrapper that loaded the document.
class XmlPool {
  public:
    explicit XmlPool(std::shared_ptr<const xml::Document> document) : fpDocument(std::move(document)) {}

    const xml::Document& GetDocument() const { return *fpDocument; }

    SDOMXMLWrapper* NewElement(unsigned node) { return &fElements.emplace_back(this, node).fWrapper; }
    SDOMXMLIterator* NewIterator(unsigned node) { return &fIterators.emplace_back(this, node).fIterator; }

  private:
    struct Element {
        Element(XmlPool* pool, unsigned node) : fWrapper(pool, node) {}
        SDOMXMLWrapper fWrapper;
    };
    struct Iterator {
        Iterator(XmlPool* pool, unsigned node) : fIterator(pool, node) {}
        SDOMXMLIterator fIterator;
    };

    std::shared_ptr<const xml::Document> fpDocument;
    std::deque<Element> fElements;
    std::deque<Iterator> fIterators;
};

}  // namespace hierfit::framework
