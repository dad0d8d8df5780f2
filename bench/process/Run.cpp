// Times programs from start to exit, each in turn, round after round:
//
//     bench_run [ROUNDS] -- COMMAND... [-- COMMAND...]...
//
// Prints a line for each command: in milliseconds the median and quartiles of the time on the wall and the median of
// the processor's time, both medians as multiples of the first command's, and the memory of the largest run in MB.

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <exception>
#include <string_view>

#include "Process.h"

namespace {

constexpr int kDefaultRounds = 200;

struct Program {
    std::vector<std::string> fvCommand;
    std::vector<double> fvWall;
    std::vector<double> fvProcessor;
    double fMemory = 0;

    std::string Describe() const {
        std::string words;
        for (const std::string& argument : fvCommand) words.append(words.empty() ? "" : " ").append(argument);
        return words;
    }
};

struct Task {
    int fRounds = kDefaultRounds;
    std::vector<Program> fvPrograms;
};

/// No programs where the arguments are not understood.
Task ParseArguments(int count, char** arguments) {
    Task task;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--") {
            task.fvPrograms.emplace_back();
        } else if (!task.fvPrograms.empty()) {
            task.fvPrograms.back().fvCommand.emplace_back(argument);
        } else if (std::from_chars(argument.begin(), argument.end(), task.fRounds).ec != std::errc() ||
                   task.fRounds < 1) {
            return {};
        }
    }
    const auto isEmpty = [](const Program& program) { return program.fvCommand.empty(); };
    if (std::any_of(task.fvPrograms.begin(), task.fvPrograms.end(), isEmpty)) return {};
    return task;
}

void RunRounds(Task& task) {
    for (Program& program : task.fvPrograms)
        bench::RunProcess(program.fvCommand);  // the files are in memory from here on
    for (int round = 0; round < task.fRounds; ++round) {
        for (Program& program : task.fvPrograms) {
            const bench::Usage usage = bench::RunProcess(program.fvCommand);
            program.fvWall.push_back(usage.fWall);
            program.fvProcessor.push_back(usage.fProcessor);
            program.fMemory = std::max(program.fMemory, usage.fMemory);
        }
    }
}

/// The value below which a share of the values lies, which must be sorted.
double Quantile(const std::vector<double>& sorted, double share) {
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

void Print(Task& task) {
    fmt::print("{:>8} {:>8} {:>8} {:>8}  {:>6} {:>6} {:>7}\n", "wall", "25%", "75%", "cpu", "wall", "cpu", "MB");
    for (Program& program : task.fvPrograms) {
        std::sort(program.fvWall.begin(), program.fvWall.end());
        std::sort(program.fvProcessor.begin(), program.fvProcessor.end());
        const Program& unit = task.fvPrograms.front();
        const double wall = Quantile(program.fvWall, 0.5);
        const double processor = Quantile(program.fvProcessor, 0.5);
        fmt::print("{:8.3f} {:8.3f} {:8.3f} {:8.3f}  x{:5.2f} x{:5.2f} {:7.1f}  {}\n", wall,
                   Quantile(program.fvWall, 0.25), Quantile(program.fvWall, 0.75), processor,
                   wall / Quantile(unit.fvWall, 0.5), processor / Quantile(unit.fvProcessor, 0.5), program.fMemory,
                   program.Describe());
    }
}

}  // namespace

int main(int count, char** arguments) {
    Task task = ParseArguments(count, arguments);
    if (task.fvPrograms.empty()) {
        fmt::print(stderr, "usage: bench_run [ROUNDS] -- COMMAND... [-- COMMAND...]...\n");
        return 1;
    }
    try {
        RunRounds(task);
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_run: {}\n", error.what());
        return 1;
    }
    Print(task);
    return 0;
}
