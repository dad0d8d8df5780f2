#include "program/files/ProgressLine.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace hierfit::program {

namespace {

constexpr std::chrono::milliseconds kBetween{100};
constexpr std::chrono::seconds kLate{1};

}  // namespace

bool IsDumbTerminal() {
    const char* name = std::getenv("TERM");
    return name && std::string_view(name) == "dumb";
}

ProgressLine::ProgressLine(Begin begin)
    : fIsTerminal(isatty(STDERR_FILENO) == 1 && !IsDumbTerminal()),
      fNext(Clock::now() + (begin == Begin::Late ? kLate : Clock::duration::zero())) {}

void ProgressLine::Show(const std::string& text) {
    const auto now = Clock::now();
    if (!fIsTerminal || now < fNext) return;
    fmt::print(stderr, "\r\x1b[K{}", text);
    fIsDrawn = true;
    fNext = now + kBetween;
}

void ProgressLine::Erase() {
    if (!std::exchange(fIsDrawn, false)) return;
    fmt::print(stderr, "\r\x1b[K");
    fNext = Clock::now();
}

}  // namespace hierfit::program
