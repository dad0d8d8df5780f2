#include "interface/Run.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <memory>
#include <new>
#include <utility>
#include <variant>

#include "host/document/SpellPlace.h"
#include "host/session/Session.h"
#include "host/unicode/Excerpt.h"
#include "interface/Settings.h"
#include "interface/ShortMemory.h"
#include "report/json/JsonDocument.h"

namespace hierfit::interface {

namespace {

using session::Outcome;

constexpr std::size_t kMostOfError = 1000;
constexpr int kError = 3;

int CodeOf(Outcome outcome) {
    if (outcome == Outcome::Issued) return HF_OK;
    return outcome == Outcome::Unreadable ? HF_UNREADABLE : HF_MISSING;
}

/// The last error among the diagnostics, which is the one that ended the run, led by its place.
std::string FindReason(const document::Document& document) {
    const auto& all = document.fvDiagnostics;
    const auto error = std::find_if(all.rbegin(), all.rend(), [](const auto& one) { return one.fLevel == kError; });
    if (error == all.rend()) return "the documents could not be read";
    const std::string text = unicode::Excerpt(error->fText, kMostOfError);
    return error->fPlace ? document::SpellPlace(document, *error->fPlace) + ": " + text : text;
}

std::string DescribeError(const report::JsonError& error) {
    if (error.fLine > 0) {
        return std::to_string(error.fLine) + ":" + std::to_string(error.fColumn) + ": " + error.fText;
    }
    return (error.fPath.empty() ? "/" : error.fPath) + ": " + error.fText;
}

void RunModel(hf_run_t& run, std::string pmml, std::string statXml, const hf_settings& settings) {
    session::Result result =
        session::Run({settings.fPmmlName, std::move(pmml)}, {settings.fStatXmlName, std::move(statXml)}, settings.fRun);
    run.fOutcome = CodeOf(result.fOutcome);
    run.fDocument = std::move(result.fDocument);
    if (run.fOutcome != HF_OK) run.fError = FindReason(run.fDocument);
}

void ReadSaved(hf_run_t& run, std::string_view text) {
    auto read = report::ReadJson(text);
    if (const auto* error = std::get_if<report::JsonError>(&read)) {
        run.fError = DescribeError(*error);
        return;
    }
    run.fDocument = std::get<document::Document>(std::move(read));
    run.fOutcome = HF_OK;
}

/// Makes a run by an operation; `*made` is null where memory is too short even for saying so.
template <typename Operation>
int MakeRun(hf_run_t** made, Operation operation) {
    if (!made) return HF_USAGE;
    *made = new (std::nothrow) hf_run_t;
    if (!*made) return HF_UNWRITABLE;
    try {
        operation(**made);
    } catch (const std::bad_alloc&) {
        (*made)->fOutcome = HF_UNREADABLE;
        (*made)->fError = kShortMemory;
    } catch (const std::exception& error) {
        (*made)->fOutcome = HF_UNREADABLE;
        (*made)->fError = error.what();
    }
    return (*made)->fOutcome;
}

}  // namespace

}  // namespace hierfit::interface

using hierfit::document::Diagnostic;
namespace interface = hierfit::interface;

const char* hf_version(void) { return HIERFIT_VERSION; }

int hf_run(const char* pmml, size_t pmml_size, const char* statxml, size_t statxml_size, const hf_settings* settings,
           hf_run_t** run) {
    if (!pmml || !statxml) return HF_USAGE;
    return interface::MakeRun(run, [&](hf_run_t& made) {
        interface::RunModel(made, {pmml, pmml_size}, {statxml, statxml_size}, settings ? *settings : hf_settings{});
    });
}

int hf_read_json(const char* text, size_t size, hf_run_t** run) {
    if (!text) return HF_USAGE;
    return interface::MakeRun(run, [&](hf_run_t& made) { interface::ReadSaved(made, {text, size}); });
}

int hf_outcome(const hf_run_t* run) { return run ? run->fOutcome : HF_UNWRITABLE; }

size_t hf_diagnostic_count(const hf_run_t* run) { return run ? run->fDocument.fvDiagnostics.size() : 0; }

int hf_diagnostic(hf_run_t* run, size_t number, int* level, const char** text, const char** place) {
    if (number >= hf_diagnostic_count(run)) return HF_USAGE;
    try {
        const Diagnostic& diagnostic = run->fDocument.fvDiagnostics[number];
        const auto& known = diagnostic.fPlace;
        run->fPlace = known ? hierfit::document::SpellPlace(run->fDocument, *known) : std::string();
        if (level) *level = diagnostic.fLevel;
        if (text) *text = diagnostic.fText.c_str();
        if (place) *place = known ? run->fPlace.c_str() : nullptr;
        return HF_OK;
    } catch (const std::exception&) {
        return HF_UNWRITABLE;
    }
}

const char* hf_error(const hf_run_t* run) { return !run || run->fError.empty() ? nullptr : run->fError.c_str(); }

void hf_run_free(hf_run_t* run) { delete run; }
