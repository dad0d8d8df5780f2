#pragma once

#include <string_view>

/// What begins every part of the file.
namespace hierfit::report::docx {

inline constexpr std::string_view kXmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

/// The names of elements and relations, as attributes of a part's first element.
inline constexpr std::string_view kMainNamespace =
    " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"";
inline constexpr std::string_view kRelationNamespace =
    " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"";

}  // namespace hierfit::report::docx
