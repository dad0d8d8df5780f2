#include <csignal>
#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "Check.h"
#include "Commands.h"
#include "List.h"
#include "StandardError.h"
#include "TemporaryFile.h"
#include "batch/Batch.h"

namespace hierfit::program {

namespace {

void Print(std::FILE* stream, const std::string& text) { std::fwrite(text.data(), 1, text.size(), stream); }

int RunCommandLine(int argumentCount, const char* const* arguments) {
    const Command command = ParseCommandLine(argumentCount, arguments);
    if (const auto* report = std::get_if<ReportCommand>(&command)) return Run(*report);
    if (const auto* render = std::get_if<RenderCommand>(&command)) return Run(*render);
    if (const auto* check = std::get_if<CheckCommand>(&command)) return Run(*check);
    if (const auto* list = std::get_if<ListCommand>(&command)) return Run(*list);
    if (const auto* batch = std::get_if<BatchCommand>(&command)) return Run(*batch);
    const Explanation& explanation = std::get<Explanation>(command);
    Print(explanation.fIsError ? stderr : stdout, explanation.fText);
    return explanation.fIsError ? kWrongUsage : kWritten;
}

}  // namespace

int Main(int argumentCount, const char* const* arguments) {
    // A closed pipe and a limit of file size are told by the operation that writes.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    TemporaryFile::RemoveAtSignals();
    try {
        return RunCommandLine(argumentCount, arguments);
    } catch (const std::bad_alloc&) {
        PrintShortMemory();
        return kUnreadable;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "hierfit: %s\n", error.what());
        return kUnreadable;
    }
}

}  // namespace hierfit::program

int main(int argumentCount, char** arguments) { return hierfit::program::Main(argumentCount, arguments); }
