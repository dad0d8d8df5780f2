#include "interface/hierfit.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "tests/support/ExampleFile.h"
#include "tests/support/Handles.h"

namespace hierfit {

namespace {

using test::Model;
using test::ReadExample;
using test::Settings;

Model RunExample(const std::string& name, const hf_settings* settings = nullptr) {
    const std::string pmml = ReadExample(name, "model.pmml");
    const std::string statXml = ReadExample(name, "model.statxml");
    hf_run_t* run = nullptr;
    EXPECT_EQ(hf_run(pmml.data(), pmml.size(), statXml.data(), statXml.size(), settings, &run), HF_OK);
    return Model(run);
}

Settings MakeSettings(std::initializer_list<std::pair<const char*, const char*>> values) {
    Settings settings(hf_settings_new());
    for (const auto& [key, value] : values) {
        EXPECT_EQ(hf_settings_set(settings.get(), key, value), HF_OK)
            << key << ": " << hf_settings_error(settings.get());
    }
    return settings;
}

struct Rendered {
    int fCode;
    std::string fBytes;
};

Rendered Render(hf_run_t* run, const char* format, const hf_settings* settings = nullptr) {
    char* bytes = nullptr;
    std::size_t size = 0;
    const int code = hf_render(run, format, settings, &bytes, &size);
    EXPECT_EQ(bytes != nullptr, code == HF_OK);
    EXPECT_EQ(hf_error(run) == nullptr, code == HF_OK);
    Rendered rendered{code, bytes ? std::string(bytes, size) : std::string()};
    hf_free(bytes);
    return rendered;
}

TEST(Interface, RendersEachFormatAsOftenAsAsked) {
    const Model run = RunExample("sleepstudy");
    const std::string json = Render(run.get(), "json").fBytes;
    const Settings chart = MakeSettings({{"only", "GLMMFixedCoefficients-1"}});
    const Settings table = MakeSettings({{"only", "FixedCoefficients"}, {"title", "Reaction"}, {"static", "true"}});
    // What a rendering begins with and holds; nothing where the settings do not fit the format.
    const std::tuple<const char*, const hf_settings*, const char*, std::string> cases[] = {
        {"html", nullptr, "<!DOCTYPE html>", "Fixed Effects"},
        {"html", table.get(), "<!DOCTYPE html>", "<title>Reaction"},
        {"json", table.get(), "", ""},  // is whole or nothing
        {"json", nullptr, "\"hierfit-output\"", "\"FixedCoefficients\""},
        {"svg", chart.get(), "<svg", "</svg>"},
        {"svg", nullptr, "", ""},  // is one chart
    };
    for (const auto& [format, settings, beginning, part] : cases) {
        SCOPED_TRACE(format);
        const Rendered rendered = Render(run.get(), format, settings);
        EXPECT_EQ(rendered.fCode, part.empty() ? HF_USAGE : HF_OK);
        std::string begin = rendered.fBytes.substr(0, 200);
        std::erase_if(begin, [](char byte) { return byte == '\n'; });
        EXPECT_NE(begin.find(beginning), std::string::npos) << begin;
        EXPECT_NE(rendered.fBytes.find(part), std::string::npos);
    }
    // What was rendered for readers left the document as it was.
    EXPECT_EQ(Render(run.get(), "json").fBytes, json);

    hf_run_t* read = nullptr;
    ASSERT_EQ(hf_read_json(json.data(), json.size(), &read), HF_OK);
    const Model saved(read);
    EXPECT_EQ(Render(saved.get(), "html").fBytes, Render(run.get(), "html").fBytes);
}

TEST(Interface, SettingsAreTakenOrRefusedWithWhatThereIs) {
    const Settings settings = MakeSettings({{"lang", "C"}, {"pmml", "a/b/fields.xml"}, {"scale", "0.5"}, {"only", ""}});
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"lang", "xx", "lang: xx is not one of C"},
        {"variables", "value", "variables: value is not one of name, label, both"},
        {"scale", "21", "scale: 21 is not a number above 0 and up to 20"},
        {"static", "yes", "static: yes is not one of true, false"},
        {"colour", "1", "there is no setting colour; there are pmml, statxml, lang"},
    };
    for (const auto& [key, value, words] : cases) {
        EXPECT_EQ(hf_settings_set(settings.get(), key, value), HF_USAGE);
        const std::string reason = hf_settings_error(settings.get());
        EXPECT_TRUE(reason.starts_with(words)) << reason;
    }
    const std::string json = Render(RunExample("sleepstudy", settings.get()).get(), "json").fBytes;
    EXPECT_NE(json.find("\"language\": \"C\""), std::string::npos);
    EXPECT_NE(json.find("[\"fields.xml\",\"model.statxml\"]"), std::string::npos);
}

TEST(Interface, FailuresHaveCodesReasonsAndPlaces) {
    const std::string pmml = ReadExample("sleepstudy", "model.pmml");
    const std::string statXml = ReadExample("sleepstudy", "model.statxml").substr(0, 3000);
    hf_run_t* made = nullptr;
    EXPECT_EQ(hf_run(pmml.data(), pmml.size(), statXml.data(), statXml.size(), nullptr, &made), HF_UNREADABLE);
    const Model run(made);
    EXPECT_EQ(hf_outcome(run.get()), HF_UNREADABLE);
    const std::string reason = hf_error(run.get());
    EXPECT_EQ(reason.find("model.statxml:"), 0u) << reason;
    ASSERT_GT(hf_diagnostic_count(run.get()), 0u);
    int level = 0;
    const char* text = nullptr;
    const char* place = nullptr;
    EXPECT_EQ(hf_diagnostic(run.get(), hf_diagnostic_count(run.get()) - 1, &level, &text, &place), HF_OK);
    EXPECT_EQ(level, 3);
    EXPECT_EQ(reason, std::string(place) + ": " + text);
    EXPECT_EQ(hf_diagnostic(run.get(), 1000, &level, &text, &place), HF_USAGE);
    EXPECT_EQ(Render(run.get(), "html").fCode, HF_UNREADABLE);

    const Model good = RunExample("sleepstudy");
    EXPECT_EQ(Render(good.get(), "pdf").fCode, HF_USAGE);
    EXPECT_EQ(std::string(hf_error(good.get())), "there is no format pdf");

    const std::string broken = "{\"format\": \"hierfit-output\",\n  nothing}";
    ASSERT_EQ(hf_read_json(broken.data(), broken.size(), &made), HF_UNREADABLE);
    const Model unread(made);
    EXPECT_EQ(std::string(hf_error(unread.get())).find("2:3: "), 0u) << hf_error(unread.get());
}

TEST(Interface, TakesNothingForAnything) {
    hf_run_t* run = nullptr;
    char* bytes = nullptr;
    std::size_t size = 0;
    EXPECT_EQ(hf_run(nullptr, 0, "", 0, nullptr, &run), HF_USAGE);
    EXPECT_EQ(hf_run("", 0, "", 0, nullptr, nullptr), HF_USAGE);
    EXPECT_EQ(hf_read_json(nullptr, 0, &run), HF_USAGE);
    EXPECT_EQ(hf_render(nullptr, "html", nullptr, &bytes, &size), HF_USAGE);
    EXPECT_EQ(hf_settings_set(nullptr, "lang", "C"), HF_USAGE);
    EXPECT_EQ(hf_diagnostic_count(nullptr), 0u);
    EXPECT_EQ(hf_error(nullptr), nullptr);
    hf_run_free(nullptr);
    hf_settings_free(nullptr);
    hf_free(nullptr);
}

}  // namespace

}  // namespace hierfit
