#pragma once

#include <chrono>
#include <string>

namespace hierfit::program {

/// Whether the terminal can do no more than print (TERM=dumb).
bool IsDumbTerminal();

/// One line on standard error that tells how far something is, while that is a terminal. It is gone at the end.
class ProgressLine {
  public:
    enum class Begin {
        AtOnce,
        Late,  ///< a second after this was made: what takes less time tells nothing
    };

    explicit ProgressLine(Begin begin);
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine() { Erase(); }

    /// Shows a text in the place of the one before, unless that has just been shown.
    void Show(const std::string& text);

    void Erase();

  private:
    using Clock = std::chrono::steady_clock;

    bool fIsTerminal;
    bool fIsDrawn = false;
    Clock::time_point fNext;
};

}  // namespace hierfit::program
