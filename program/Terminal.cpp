#include "Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "program/files/ProgressLine.h"

namespace hierfit::program {

namespace {

/// Columns and lines, 0 where they are not known.
struct winsize SizeOfTerminal() {
    struct winsize size {};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size : winsize{};
}

/// NO_COLOR counts when it is set and not empty (no-color.org).
bool IsColorForbidden() {
    const char* value = std::getenv("NO_COLOR");
    return (value && !std::string_view(value).empty()) || IsDumbTerminal();
}

}  // namespace

report::TextOptions ChooseTextOptions(const OutputOptions& output, bool isTerminal) {
    const Color color = output.fColor;
    const bool colored = color == Color::Always || (color == Color::Auto && isTerminal && !IsColorForbidden());
    return {isTerminal ? SizeOfTerminal().ws_col : 0, colored, output.fHasChartValues};
}

bool IsLongerThanScreen(std::string_view text) {
    const int lines = SizeOfTerminal().ws_row;
    return lines > 0 && std::ranges::count(text, '\n') >= lines;
}

}  // namespace hierfit::program
