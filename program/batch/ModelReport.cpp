#include "program/batch/ModelReport.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <new>
#include <utility>
#include <vector>

#include "host/unicode/Excerpt.h"
#include "program/ReportFiles.h"
#include "program/documents/Documents.h"
#include "program/files/StandardError.h"
#include "report/formats/Render.h"

namespace hierfit::program {

namespace {

constexpr int kError = 3;

/// The first line is the reason; what follows shows the place in the document.
std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

std::string Behind(const BatchModel& model, const std::string& reason) {
    return unicode::Excerpt(model.fPath, kMostOfText) + ": " + FirstLine(reason);
}

BatchFailure DescribeFailure(const BatchModel& model, const ModelRun& run) {
    const std::vector<document::Diagnostic>& diagnostics = run.fResult.fDocument.fvDiagnostics;
    if (run.fResult.fOutcome == session::Outcome::NotSetUp) return {kMissingPart, diagnostics.front().fText};
    auto told = std::ranges::find_if(diagnostics, [](const auto& each) { return each.fLevel >= kError; });
    if (told == diagnostics.end()) told = diagnostics.begin();
    document::Diagnostic diagnostic = *told;
    diagnostic.fText = FirstLine(diagnostic.fText);
    std::string text = DescribeDiagnostic(diagnostic, run.fvPaths);
    return {kUnreadable, diagnostic.fPlace ? std::move(text) : Behind(model, text)};
}

BatchFailure DescribeFailure(const BatchModel& model, const report::RenderError& error) {
    // What was asked for is right for other models.
    const bool isModel = error.fFault == report::RenderFault::Usage;
    return {isModel ? kUnreadable : kUnwritable, Behind(model, error.fText)};
}

std::optional<BatchFailure> WriteModel(const BatchModel& model, document::Document& document,
                                       const BatchSettings& settings) {
    const std::string path = (std::filesystem::path(settings.fDirectory) / model.fReport).string();
    if (const auto error = report::Prepare(document, settings.fFormat, settings.fRender)) {
        return DescribeFailure(model, *error);
    }
    const std::vector<WriteFailure> failures = WriteReport(document, settings.fFormat, settings.fRender, path, nullptr);
    if (!failures.empty()) return BatchFailure{failures.front().fStatus, failures.front().fText};
    return {};
}

BatchResult Make(const BatchModel& model, Work work, const BatchSettings& settings) {
    auto run = RunModel({model.fPath}, settings.fSession);
    if (auto* error = std::get_if<FileError>(&run)) return BatchFailure{kUnreadable, std::move(error->fText)};
    auto& read = std::get<ModelRun>(run);
    if (read.fResult.fOutcome != session::Outcome::Issued) return DescribeFailure(model, read);
    document::Document& document = read.fResult.fDocument;
    report::IndexedModel indexed{model.fPath, model.fFolder, model.fReport, {}, {}, {}, {}, 0};
    report::Describe(indexed, document);
    if (work == Work::Report) {
        if (auto failure = WriteModel(model, document, settings)) return *std::move(failure);
    }
    return indexed;
}

}  // namespace

BatchResult MakeModelReport(const BatchModel& model, Work work, const BatchSettings& settings) {
    try {
        return Make(model, work, settings);
    } catch (const std::bad_alloc&) {
        return BatchFailure{kUnreadable, Behind(model, kShortMemory)};
    } catch (const std::exception& error) {
        return BatchFailure{kUnreadable, Behind(model, error.what())};
    }
}

}  // namespace hierfit::program
