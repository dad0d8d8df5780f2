#pragma once

#include <list>

#include "host/document/Document.h"

namespace hierfit::context {
class RunContext;
}

namespace hierfit::pivot {

/// Adds items under one heading of the output document, or at its root. The items stand in the document, which must
/// outlive the builder, as must the run.
class HeadingBuilder {
  public:
    HeadingBuilder(context::RunContext& context, std::list<document::Item>& items) : fContext(context), fItems(items) {}

    context::RunContext& GetContext() { return fContext; }
    std::list<document::Item>& GetItems() { return fItems; }

    document::Heading& AddHeading(const document::Text& title);
    document::Table& AddTable(const document::Text& title, const document::Text& subtype, bool flag);

  private:
    context::RunContext& fContext;
    std::list<document::Item>& fItems;
};

}  // namespace hierfit::pivot
