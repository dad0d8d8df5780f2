#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <variant>

#include "host/session/Paths.h"
#include "host/unicode/Excerpt.h"
#include "interface/Run.h"
#include "interface/Settings.h"
#include "interface/ShortMemory.h"
#include "report/formats/Render.h"

namespace hierfit::interface {

namespace {

using report::Format;
using report::RenderError;
using report::RenderFault;

int CodeOf(RenderFault fault) {
    if (fault == RenderFault::Usage) return HF_USAGE;
    return fault == RenderFault::Missing ? HF_MISSING : HF_UNWRITABLE;
}

/// A document may be rendered many times, so all that changes it, changes a copy.
std::variant<std::string, RenderError> RenderCopy(const document::Document& document, Format format,
                                                  const report::RenderSettings& settings) {
    if (format == Format::Json && settings.fvOnly.empty() && !settings.fStyle.IsOwn())
        return report::Render(document, format, settings);
    document::Document copy = document;
    if (auto error = report::Prepare(copy, format, settings)) return *std::move(error);
    return report::Render(copy, format, settings);
}

/// Gives a text to the caller, who frees it; false where memory is short.
bool HandOver(const std::string& text, char** bytes, size_t* size) {
    char* copy = static_cast<char*>(std::malloc(text.size() + 1));
    if (!copy) return false;
    std::memcpy(copy, text.c_str(), text.size() + 1);
    *bytes = copy;
    *size = text.size();
    return true;
}

int Fail(hf_run_t& run, int code, std::string reason) {
    run.fError = std::move(reason);
    return code;
}

int RenderTo(hf_run_t& run, const char* name, const report::RenderSettings& settings, char** bytes, size_t* size) {
    const auto format = report::FindFormat(name);
    if (!format) return Fail(run, HF_USAGE, "there is no format " + unicode::Excerpt(name));
    const auto rendered = RenderCopy(run.fDocument, *format, settings);
    if (const auto* error = std::get_if<RenderError>(&rendered)) return Fail(run, CodeOf(error->fFault), error->fText);
    if (HandOver(std::get<std::string>(rendered), bytes, size)) return HF_OK;
    return Fail(run, HF_UNWRITABLE, kShortMemory);
}

}  // namespace

}  // namespace hierfit::interface

int hf_render(hf_run_t* run, const char* format, const hf_settings* settings, char** bytes, size_t* size) {
    namespace interface = hierfit::interface;
    if (bytes) *bytes = nullptr;
    if (!run || !format || !bytes || !size) return HF_USAGE;
    *size = 0;
    if (run->fOutcome != HF_OK) return HF_UNREADABLE;
    try {
        run->fError.clear();
        hierfit::report::RenderSettings given = settings ? settings->fRender : hierfit::report::RenderSettings{};
        given.fModuleFolder = hierfit::session::FindPaths().fModuleFolder;
        return interface::RenderTo(*run, format, given, bytes, size);
    } catch (const std::bad_alloc&) {
        return interface::Fail(*run, HF_UNWRITABLE, interface::kShortMemory);
    } catch (const std::exception& error) {
        return interface::Fail(*run, HF_UNWRITABLE, error.what());
    }
}

void hf_free(char* bytes) { std::free(bytes); }
