// Feeds chart templates of the user's own through a run: one template, and two fragments that it may call. A marker
// chooses which template of the installed ones it takes the place of, another the example: the first has one factor,
// the others have panels of two or three.

#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <list>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "fuzz/change/Parts.h"
#include "host/session/Session.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::fuzz {

namespace {

constexpr std::array<const char*, 3> kExamples = {"ergostool", "warpbreaks", "bacteria"};
constexpr std::array<const char*, 7> kTemplates = {
    "GLMMCustomEffects.xml",
    "GLMMEmMeans.xml",
    "GLMMFixedCoefficients.viztemplate",
    "GLMMHistogram.xml",
    "GLMMPairwiseContrasts.viztemplate",
    "GLMMPredictedByObserved.xml",
    "GLMMSimpleContrasts.xml",
};

/// A folder that is there as long as the process.
class Folder {
  public:
    Folder() : fPath(std::filesystem::temp_directory_path() / ("hierfit-templates-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(fPath);
    }
    ~Folder() { std::filesystem::remove_all(fPath); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::filesystem::path& Get() const { return fPath; }

    /// Leaves the folder with these files alone.
    void Fill(const std::string& name, const std::vector<std::string>& texts) const {
        for (const auto& entry : std::filesystem::directory_iterator(fPath)) std::filesystem::remove(entry.path());
        Write(name, texts[0]);
        Write("one.xml", texts[1]);
        Write("two.xml", texts[2]);
    }

  private:
    void Write(const std::string& name, const std::string& text) const {
        std::ofstream(fPath / name, std::ios::binary) << text;
    }

    std::filesystem::path fPath;
};

template <typename Kind>
void Drop(std::list<document::Item>& items) {
    for (document::Item& item : items) {
        if (auto* heading = std::get_if<document::Heading>(&item.fContent)) Drop<Kind>(heading->fItems);
    }
    std::erase_if(items, [](const document::Item& item) { return std::holds_alternative<Kind>(item.fContent); });
}

std::list<document::Item> WithoutCharts(std::list<document::Item> items) {
    Drop<document::Chart>(items);
    return items;
}

session::Result Run(const std::string& example, const std::string& templates) {
    session::Settings settings;
    settings.fTemplateFolder = templates;
    return session::Run({"model.pmml", test::ReadExample(example, "model.pmml")},
                        {"model.statxml", test::ReadExample(example, "model.statxml")}, settings);
}

}  // namespace

std::vector<const Form*> FormsOfInput() { return {&kXml, &kXml, &kXml}; }

void RunInput(std::string_view input) {
    static const Folder folder;
    static std::map<std::string, std::list<document::Item>> plain;
    const Parts parts = SplitInput(input, 3);
    const std::string example = OneOf(kExamples, parts.fMarkers[1]);
    const auto [tables, isNew] = plain.try_emplace(example);
    if (isNew) tables->second = WithoutCharts(RunExample(example).fItems);
    folder.Fill(OneOf(kTemplates, parts.fMarkers[0]), parts.fvTexts);
    session::Result result = Run(example, folder.Get().string());
    JudgeRun(result);
    if (result.fOutcome != session::Outcome::Issued) Fail("a template keeps the report away");
    if (WithoutCharts(result.fDocument.fItems) != tables->second) Fail("a template changes more than charts");
    Drop<document::Table>(result.fDocument.fItems);
    RenderFreshAndSaved(result.fDocument);
}

}  // namespace hierfit::fuzz
