#include <csignal>
#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "Check.h"
#include "Commands.h"
#include "List.h"
#include "Version.h"
#include "batch/Batch.h"
#include "program/arguments/CommandLine.h"
#include "program/files/OutputFile.h"
#include "program/files/StandardError.h"
#include "program/files/TemporaryFile.h"

namespace hierfit::program {

namespace {

int Tell(const Explanation& explanation) {
    if (!explanation.fIsError) return Conclude(WriteOutput("-", explanation.fText));
    std::fwrite(explanation.fText.data(), 1, explanation.fText.size(), stderr);
    return kWrongUsage;
}

int RunCommandLine(int argumentCount, const char* const* arguments) {
    const Command command = ParseCommandLine(argumentCount, arguments);
    if (const auto* report = std::get_if<ReportCommand>(&command)) return Run(*report);
    if (const auto* render = std::get_if<RenderCommand>(&command)) return Run(*render);
    if (const auto* check = std::get_if<CheckCommand>(&command)) return Run(*check);
    if (const auto* list = std::get_if<ListCommand>(&command)) return Run(*list);
    if (const auto* batch = std::get_if<BatchCommand>(&command)) return Run(*batch);
    if (const auto* version = std::get_if<VersionCommand>(&command)) return Run(*version);
    return Tell(std::get<Explanation>(command));
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
        PrintError(error.what());
        return kUnreadable;
    }
}

}  // namespace hierfit::program

int main(int argumentCount, char** arguments) { return hierfit::program::Main(argumentCount, arguments); }
