// Feeds chart templates of the user's own through a run: one template, and two fragments that it may call. A marker
// chooses which template of the installed ones it takes the place of.

#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <list>
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

constexpr std::array kTemplates = {
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

/// Leaves the charts alone, since nothing else is made of templates.
void KeepCharts(std::list<document::Item>& items) {
    for (document::Item& item : items) {
        if (auto* heading = std::get_if<document::Heading>(&item.fContent)) KeepCharts(heading->fItems);
    }
    std::erase_if(items,
                  [](const document::Item& item) { return std::holds_alternative<document::Table>(item.fContent); });
}

}  // namespace

std::span<const Form* const> FormsOfInput() {
    static const std::array<const Form*, 3> forms{&kXml, &kXml, &kXml};
    return forms;
}

void RunInput(std::string_view input) {
    static const Folder folder;
    static const std::string pmml = test::ReadExample("ergostool", "model.pmml");
    static const std::string statXml = test::ReadExample("ergostool", "model.statxml");
    const Parts parts = SplitInput(input, 3);
    folder.Fill(kTemplates[static_cast<std::size_t>(parts.fMarkers[0]) % kTemplates.size()], parts.fvTexts);
    session::Settings settings;
    settings.fTemplateFolder = folder.Get().string();
    session::Result result = session::Run({"model.pmml", pmml}, {"model.statxml", statXml}, settings);
    JudgeRun(result);
    if (result.fOutcome != session::Outcome::Issued) Fail("a template keeps the report away");
    KeepCharts(result.fDocument.fItems);
    RenderFreshAndSaved(result.fDocument);
}

}  // namespace hierfit::fuzz
