#include "host/plausible/figures/Columns.h"

#include "host/framework/SimpleArray.h"

namespace hierfit::plausible {

void Column::Read(const xml::Document& document, xml::Document::Node parent) {
    fvTokens.clear();
    const xml::Document::Node array = document.FirstChild(parent, "Array");
    if (array != xml::Document::kNone) framework::SplitSimpleArray(document.Text(array), fvTokens);
}

}  // namespace hierfit::plausible
