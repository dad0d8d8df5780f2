#include "report/formats/Files.h"

#include <optional>
#include <utility>

#include "report/charts/Pictures.h"
#include "report/charts/raster/Raster.h"
#include "report/csv/Csv.h"
#include "report/formats/Docx.h"
#include "report/formats/Modules.h"
#include "report/formats/RenderWorkbook.h"
#include "report/items/Entries.h"

namespace hierfit::report {

namespace {

/// Makes a picture file of an SVG; nothing where the picture is too large for it.
using Painter = std::function<std::optional<std::string>(std::string svg)>;

/// How the charts of a format are drawn, and what their files end in.
struct ChartFiles {
    std::string fEnding;
    Painter fPaint;
};

std::variant<ChartFiles, RenderError> FindChartFiles(Format format, const RenderSettings& settings) {
    if (format != Format::Png && format != Format::Latex) {
        return ChartFiles{"svg", [](std::string svg) { return std::optional(std::move(svg)); }};
    }
    auto found = LoadModule(&charts::Raster::Load, kRasterModule, format, settings);
    if (auto* error = std::get_if<RenderError>(&found)) return std::move(*error);
    if (format == Format::Latex) {
        return ChartFiles{
            "pdf", [raster = std::get<charts::Raster>(found)](const std::string& svg) { return raster.MakePdf(svg); }};
    }
    return ChartFiles{"png", [raster = std::get<charts::Raster>(found),
                              scale = settings.fScale](const std::string& svg) { return raster.MakePng(svg, scale); }};
}

FileMaker MakeMaker(items::Entry chart, const ChartFiles& files, Titles titles) {
    std::string name = chart.fAnchor + "." + files.fEnding;
    const auto make = [chart = std::move(chart), files, titles]() -> std::variant<std::string, RenderError> {
        if (auto file = files.fPaint(MakePicture(chart, titles))) return *std::move(file);
        return RenderError{RenderFault::Unmakeable, "the picture is too large for " + files.fEnding};
    };
    return {std::move(name), make};
}

std::vector<FileMaker> ListTables(const document::Document& document) {
    std::vector<FileMaker> files;
    for (const items::Entry& entry : items::ListEntries(document)) {
        const auto* table = std::get_if<document::Table>(&entry.fpItem->fContent);
        if (table) files.push_back({NameCsvFile(entry.fAnchor), [table] { return MakeCsvTable(*table); }});
    }
    files.push_back({"index.csv", [&document] { return MakeCsvIndex(document); }});
    return files;
}

}  // namespace

std::variant<std::vector<FileMaker>, RenderError> ListFiles(const document::Document& document, Format format,
                                                            const RenderSettings& settings) {
    if (format == Format::Csv) return ListTables(document);
    auto found = FindChartFiles(format, settings);
    if (auto* error = std::get_if<RenderError>(&found)) return std::move(*error);
    std::vector<FileMaker> files;
    const Titles titles = format == Format::Latex ? Titles::NotOfCaption : Titles::All;
    for (items::Entry& chart : ListCharts(document)) {
        files.push_back(MakeMaker(std::move(chart), std::get<ChartFiles>(found), titles));
    }
    return files;
}

std::optional<RenderError> FindMissing(Format format, const RenderSettings& settings) {
    if (format == Format::Xlsx) return FindMissingOfWorkbook(settings);
    if (format == Format::Docx) return FindMissingOfDocx(settings);
    if (format != Format::Png && format != Format::Latex) return {};
    auto found = FindChartFiles(format, settings);
    if (auto* error = std::get_if<RenderError>(&found)) return std::move(*error);
    return {};
}

}  // namespace hierfit::report
