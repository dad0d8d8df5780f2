#include "Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace hierfit::program {

namespace {

int WidthOfTerminal() {
    struct winsize size {};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

/// NO_COLOR counts when it is set and not empty (no-color.org).
bool IsColorForbidden() {
    const char* value = std::getenv("NO_COLOR");
    return value && !std::string_view(value).empty();
}

}  // namespace

report::TextOptions ChooseTextOptions(Color color, bool isTerminal) {
    const bool colored = color == Color::Always || (color == Color::Auto && isTerminal && !IsColorForbidden());
    return {isTerminal ? WidthOfTerminal() : 0, colored};
}

}  // namespace hierfit::program
