#include "host/pivot/HeadingBuilder.h"

namespace hierfit::pivot {

document::Heading& HeadingBuilder::AddHeading(const document::Text& title) {
    fItems.push_back({document::Heading{title, {}}});
    return std::get<document::Heading>(fItems.back().fContent);
}

document::Table& HeadingBuilder::AddTable(const document::Text& title, const document::Text& subtype, bool flag) {
    document::Table table{};
    table.fTitle = title;
    table.fSubtype = subtype;
    table.fFlag = flag;
    fItems.push_back({std::move(table)});
    return std::get<document::Table>(fItems.back().fContent);
}

}  // namespace hierfit::pivot
