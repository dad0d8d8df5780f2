#pragma once

#include <string>

/// The paper: A4 with margins of an inch, upright or turned. Lengths are twentieths of a point.
namespace hierfit::report::docx {

enum class Page : bool { Upright, Turned };

inline constexpr int kShortSide = 11906;
inline constexpr int kLongSide = 16838;
inline constexpr int kMargin = 1440;

/// Room for what a page holds.
constexpr int WidthOf(Page page) { return (page == Page::Turned ? kLongSide : kShortSide) - 2 * kMargin; }
constexpr int HeightOf(Page page) { return WidthOf(page == Page::Turned ? Page::Upright : Page::Turned); }

/// The properties of the section that ends here.
void AppendSection(std::string& out, Page page);

}  // namespace hierfit::report::docx
