#include "Version.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <filesystem>
#include <string>
#include <variant>

#include "host/session/Module.h"
#include "host/session/Paths.h"
#include "host/session/Session.h"
#include "program/files/OutputFile.h"
#include "report/formats/Files.h"
#include "report/formats/Modules.h"
#include "report/modules/FindSymbol.h"

namespace hierfit::program {

namespace {

using report::FindSymbol;

constexpr const char* kProgram = "hierfit " HIERFIT_VERSION "\n";

using TellVersion = const char* (*)();

/// A version that a library gives by a function: of the libraries that are loaded already.
std::string AskLoaded(const char* function) {
    void* const found = dlsym(RTLD_DEFAULT, function);
    return found ? reinterpret_cast<TellVersion>(found)() : "?";
}

/// The same of a library behind a module.
std::string AskBehind(const std::string& module, const char* function) {
    const auto found = FindSymbol(module, function);
    const auto* const address = std::get_if<void*>(&found);
    return address ? reinterpret_cast<TellVersion>(*address)() : "?";
}

/// Its version is numbers, not a function.
std::string AskRsvg(const std::string& module) {
    std::string version;
    for (const char* part : {"rsvg_major_version", "rsvg_minor_version", "rsvg_micro_version"}) {
        const auto found = FindSymbol(module, part);
        const auto* const address = std::get_if<void*>(&found);
        version += (version.empty() ? "" : ".") + (address ? std::to_string(*static_cast<unsigned*>(*address)) : "?");
    }
    return version;
}

/// Where the module of a format lies and what it takes, or why the format cannot be had.
std::string DescribeModule(Format format, const report::Module& module, const std::string& folder) {
    report::RenderSettings settings;
    settings.fModuleFolder = folder;
    if (const auto error = report::FindMissing(format, settings)) return error->fText;
    const std::string path = (std::filesystem::path(folder) / module.fName).string();
    if (format == Format::Docx) return path + ", with libzip " + AskBehind(path, "zip_libzip_version");
    if (format == Format::Xlsx) return path + ", with libxlsxwriter " + AskBehind(path, "lxw_version");
    return path + ", with librsvg " + AskRsvg(path) + " and cairo " + AskBehind(path, "cairo_version_string");
}

std::string DescribeProcedure(const session::Paths& paths) {
    const auto found = session::LoadModule(paths.fModule);
    const auto* reason = std::get_if<std::string>(&found);
    return reason ? *reason : paths.fModule;
}

std::string DescribeParts() {
    const session::Paths paths = session::FindPaths();
    std::string languages;
    for (const std::string& language : session::Languages()) languages += " " + language;
    return fmt::format("libraries   {}, {}, utf8proc {}\n", HIERFIT_BUILT_WITH, AskLoaded("XML_ExpatVersion"),
                       AskLoaded("utf8proc_version")) +
           fmt::format("procedure   {}\n", DescribeProcedure(paths)) +
           fmt::format("png, pdf    {}\n", DescribeModule(Format::Png, report::kRasterModule, paths.fModuleFolder)) +
           fmt::format("docx        {}\n", DescribeModule(Format::Docx, report::kArchiveModule, paths.fModuleFolder)) +
           fmt::format("xlsx        {}\n", DescribeModule(Format::Xlsx, report::kBookModule, paths.fModuleFolder)) +
           fmt::format("templates   {}/template\n", paths.fShareDirectory) +
           fmt::format("languages   {}/languages:{}\n", paths.fShareDirectory, languages);
}

}  // namespace

int Run(const VersionCommand& command) {
    return Conclude(WriteOutput("-", command.fIsVerbose ? kProgram + DescribeParts() : kProgram));
}

}  // namespace hierfit::program
