#include "Process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <stdexcept>

namespace bench {

namespace {

constexpr double kKilobytes = 1024;  // of a megabyte

/// Standard output and error of the program lead nowhere.
class NoOutput {
  public:
    NoOutput() {
        posix_spawn_file_actions_init(&fActions);
        for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO}) {
            posix_spawn_file_actions_addopen(&fActions, descriptor, "/dev/null", O_WRONLY, 0);
        }
    }
    ~NoOutput() { posix_spawn_file_actions_destroy(&fActions); }
    NoOutput(const NoOutput&) = delete;
    NoOutput& operator=(const NoOutput&) = delete;

    const posix_spawn_file_actions_t* Get() const { return &fActions; }

  private:
    posix_spawn_file_actions_t fActions{};
};

double ToMilliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

std::vector<char*> MakeArguments(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    return arguments;
}

}  // namespace

Usage RunProcess(const std::vector<std::string>& command) {
    const NoOutput output;
    const std::vector<char*> arguments = MakeArguments(command);
    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    if (posix_spawnp(&process, arguments.front(), output.Get(), nullptr, arguments.data(), environ) != 0) {
        throw std::runtime_error(command.front() + " cannot be started");
    }
    int status = 0;
    rusage usage{};
    if (wait4(process, &status, 0, &usage) != process || status != 0) {
        throw std::runtime_error(command.front() + " failed");
    }
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    return {wall.count(), ToMilliseconds(usage.ru_utime) + ToMilliseconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / kKilobytes};
}

}  // namespace bench
