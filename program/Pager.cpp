#include "Pager.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "Terminal.h"
#include "program/files/Descriptor.h"
#include "program/files/OutputFile.h"
#include "program/files/ProgressLine.h"

namespace hierfit::program {

namespace {

constexpr const char* kShell = "/bin/sh";
constexpr const char* kLess = "less";

// What the shell answers when there is no such command, or it is none.
constexpr int kNotRunnable = 126;
constexpr int kNotFound = 127;

std::string_view ReadEnvironment(const char* name, std::string_view otherwise) {
    const char* value = std::getenv(name);
    return value ? value : otherwise;
}

bool IsOnPath(const std::string& command) {
    std::string_view rest = ReadEnvironment("PATH", "/usr/bin:/bin");
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (end > 0 && access((std::string(rest.substr(0, end)) + "/" + command).c_str(), X_OK) == 0) return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

/// While the pager has the terminal, an interrupt is the pager's to answer.
class InterruptsIgnored {
  public:
    InterruptsIgnored() : fInterrupt(std::signal(SIGINT, SIG_IGN)), fQuit(std::signal(SIGQUIT, SIG_IGN)) {}
    InterruptsIgnored(const InterruptsIgnored&) = delete;
    InterruptsIgnored& operator=(const InterruptsIgnored&) = delete;
    ~InterruptsIgnored() {
        std::signal(SIGINT, fInterrupt);
        std::signal(SIGQUIT, fQuit);
    }

  private:
    using Handler = void (*)(int);
    Handler fInterrupt;
    Handler fQuit;
};

/// How a command is started: with a pipe as its standard input, and the signals as they are for any command.
class Start {
  public:
    explicit Start(int input) {
        posix_spawn_file_actions_init(&fActions);
        posix_spawn_file_actions_adddup2(&fActions, input, STDIN_FILENO);
        posix_spawnattr_init(&fAttributes);
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : {SIGPIPE, SIGXFSZ, SIGINT, SIGQUIT}) sigaddset(&signals, signal);
        posix_spawnattr_setsigdefault(&fAttributes, &signals);
        posix_spawnattr_setflags(&fAttributes, POSIX_SPAWN_SETSIGDEF);
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;
    ~Start() {
        posix_spawn_file_actions_destroy(&fActions);
        posix_spawnattr_destroy(&fAttributes);
    }

    std::optional<pid_t> Run(std::string command) const {
        std::string shell = "sh";
        std::string option = "-c";
        const std::array<char*, 4> arguments{shell.data(), option.data(), command.data(), nullptr};
        pid_t child = 0;
        const int failure = posix_spawn(&child, kShell, &fActions, &fAttributes, arguments.data(), environ);
        return failure == 0 ? std::optional(child) : std::nullopt;
    }

  private:
    posix_spawn_file_actions_t fActions;
    posix_spawnattr_t fAttributes;
};

int WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    return status;
}

}  // namespace

std::optional<std::string> FindPager() {
    const std::string_view usual = !IsDumbTerminal() && IsOnPath(kLess) ? kLess : "";
    const std::string_view pager = ReadEnvironment("HIERFIT_PAGER", ReadEnvironment("PAGER", usual));
    if (pager.empty() || pager == "cat") return {};
    return std::string(pager);
}

bool ShowWithPager(const std::string& pager, std::string_view text) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    Descriptor input(ends[0]);
    Descriptor output(ends[1]);
    // It ends at once where all fits the screen, shows colours, and leaves the text on the screen, which is UTF-8.
    setenv("LESS", "FRX", 0);
    setenv("LESSCHARSET", "utf-8", 0);
    const InterruptsIgnored ignored;
    const std::optional<pid_t> child = Start(input.Get()).Run(pager);
    if (!child) return false;
    input.Close();
    WriteAll(output.Get(), text);
    output.Close();
    const int status = WaitFor(*child);
    const int exit = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    return exit != kNotRunnable && exit != kNotFound;
}

std::optional<FileError> WriteForReader(const std::string& text, bool hasPager) {
    if (hasPager && isatty(STDOUT_FILENO) == 1 && IsLongerThanScreen(text)) {
        const std::optional<std::string> pager = FindPager();
        if (pager && ShowWithPager(*pager, text)) return {};
    }
    return WriteOutput("-", text);
}

}  // namespace hierfit::program
