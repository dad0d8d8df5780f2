#include "program/batch/Batch.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "host/unicode/Excerpt.h"
#include "program/Rendering.h"
#include "program/batch/EarlierReports.h"
#include "program/batch/Interrupt.h"
#include "program/batch/ModelReport.h"
#include "program/batch/Models.h"
#include "program/batch/Progress.h"
#include "program/files/ExitStatus.h"
#include "program/files/OutputFile.h"
#include "program/files/StandardError.h"
#include "report/formats/Files.h"
#include "report/index/IndexPage.h"

namespace hierfit::program {

namespace {

constexpr const char* kProducer = "hierfit " HIERFIT_VERSION;

/// Why no report can be written into a folder, which is made if need be.
std::optional<FileError> PrepareFolder(const std::string& directory) {
    const std::string name = unicode::Excerpt(directory, kMostOfText);
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (error) return FileError{name + ": " + error.message()};
    if (access(directory.c_str(), W_OK | X_OK) != 0) return FileError{name + ": " + std::strerror(errno)};
    return {};
}

std::variant<BatchSettings, report::RenderError> MakeSettings(const BatchCommand& command) {
    BatchSettings settings{command.fOutput.fFile, command.fOutput.fFormat.value_or(Format::Html), command.fSettings,
                           MakeRenderSettings(command.fOutput, false)};
    if (auto error = report::FindMissing(settings.fFormat, settings.fRender)) return *std::move(error);
    return settings;
}

struct Task {
    std::size_t fModel;
    Work fWork;
};

/// What is to be done. Models whose reports are there already have their results at once.
std::vector<Task> ListTasks(const std::vector<BatchModel>& models, const BatchSettings& settings, bool isForced,
                            Progress& progress) {
    const EarlierReports earlier(settings.fDirectory, report::ExtentOf(settings.fFormat) == report::Extent::Folder);
    std::vector<Task> tasks;
    for (std::size_t model = 0; model < models.size(); ++model) {
        const Work work = isForced ? Work::Report : earlier.WorkFor(models[model]);
        if (work == Work::Nothing) {
            progress.Take(model, earlier.Find(models[model]));
        } else {
            tasks.push_back({model, work});
        }
    }
    return tasks;
}

/// Works on so many models at a time, or as many as there can be threads for, until all are done, the program is asked
/// to end, or a part of it is missing, which no other model would find. What a result cannot tell is thrown.
void DoAll(const std::vector<BatchModel>& models, const std::vector<Task>& tasks, const BatchSettings& settings,
           std::size_t jobs, Progress& progress) {
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> isStopped = false;
    const auto workOn = [&] {
        while (!isStopped && !IsInterrupted()) {
            const std::size_t at = next++;
            if (at >= tasks.size()) return;
            const auto& [model, kind] = tasks[at];
            BatchResult result = MakeModelReport(models[model], kind, settings);
            const auto* failure = std::get_if<BatchFailure>(&result);
            if (failure && failure->fStatus == kMissingPart) isStopped = true;
            progress.Take(model, std::move(result));
        }
    };
    std::mutex mutex;
    std::exception_ptr thrown;
    const auto work = [&] {
        try {
            workOn();
        } catch (...) {
            isStopped = true;
            const std::lock_guard lock(mutex);
            thrown = std::current_exception();
        }
    };
    {
        std::vector<std::jthread> threads;
        try {
            while (threads.size() + 1 < std::min(jobs, tasks.size())) threads.emplace_back(work);
        } catch (const std::exception&) {  // those that there are do it all
        }
        work();
    }
    if (thrown) std::rethrow_exception(thrown);
}

struct Outcome {
    int fStatus = kWritten;
    report::Index fIndex;
};

/// What became of the models; those that were not reached are in no list.
Outcome Gather(const std::vector<BatchModel>& models, const std::vector<std::optional<BatchResult>>& results) {
    Outcome outcome;
    outcome.fIndex.fProducer = kProducer;
    for (std::size_t model = 0; model < models.size(); ++model) {
        if (!results[model]) continue;
        if (const auto* failure = std::get_if<BatchFailure>(&*results[model])) {
            outcome.fIndex.fvFailures.push_back({models[model].fPath, failure->fReason});
            outcome.fStatus = std::max<int>(outcome.fStatus, failure->fStatus);
        } else {
            outcome.fIndex.fvModels.push_back(std::get<report::IndexedModel>(*results[model]));
        }
    }
    return outcome;
}

int Fail(int status, const std::string& text) {
    PrintError(text);
    return status;
}

Outcome MakeReports(const std::vector<BatchModel>& models, const BatchSettings& settings, const BatchCommand& command) {
    Progress progress(models.size());
    const std::vector<Task> tasks = ListTasks(models, settings, command.fIsForced, progress);
    const auto jobs = static_cast<std::size_t>(command.fJobs);
    DoAll(models, tasks, settings, jobs > 0 ? jobs : std::max(std::thread::hardware_concurrency(), 1U), progress);
    progress.TellRest();
    return Gather(models, progress.Results());
}

}  // namespace

int Run(const BatchCommand& command) {
    if (command.fvFolders.empty() && isatty(STDIN_FILENO) == 1) {
        return Fail(kWrongUsage, "no folder is named; give them as arguments or list them on standard input");
    }
    auto folders = command.fvFolders.empty() ? ReadFolderList() : command.fvFolders;
    if (const auto* error = std::get_if<FileError>(&folders)) return Fail(kUnreadable, error->fText);
    const auto prepared = MakeSettings(command);
    if (const auto* error = std::get_if<report::RenderError>(&prepared)) {
        return Fail(StatusOf(error->fFault), error->fText);
    }
    const auto& settings = std::get<BatchSettings>(prepared);
    if (const auto error = PrepareFolder(settings.fDirectory)) return Fail(kUnwritable, error->fText);
    const std::vector<BatchModel> models = ListModels(std::get<std::vector<std::string>>(std::move(folders)),
                                                      settings.fDirectory, report::EndingOf(settings.fFormat));
    NoteInterrupts();
    const Outcome outcome = MakeReports(models, settings, command);
    if (outcome.fStatus == kMissingPart) return kMissingPart;
    const std::string page = report::MakeIndexPage(outcome.fIndex, settings.fRender.fHtml);
    const std::string path = (std::filesystem::path(settings.fDirectory) / kIndexName).string();
    const int status = std::max(outcome.fStatus, Conclude(WriteOutput(path, page)));
    if (IsInterrupted()) EndByInterrupt();
    return status;
}

}  // namespace hierfit::program
