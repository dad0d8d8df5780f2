#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::session {

/// Which source texts and keys an output document shows to its reader, and the words of its messages.
class ShownTexts {
  public:
    explicit ShownTexts(const document::Document& document);

    bool HasKey(const std::string& key) const { return fKeys.contains(key); }

    /// Whether one of the document's messages holds these words.
    bool HasMessageWith(std::string_view words) const;

  private:
    void Visit(const std::list<document::Item>& items);
    void Visit(const document::Heading& heading);
    void Visit(const document::Table& table);
    void Visit(const document::Chart&) {}
    void Visit(const document::Message& message);
    void Visit(const std::list<document::Member>& members);
    void Visit(const document::Text& text);
    void Visit(const std::vector<document::Text>& texts);

    std::unordered_set<std::string> fKeys;
    std::vector<std::string_view> fvMessages;
};

}  // namespace hierfit::session
