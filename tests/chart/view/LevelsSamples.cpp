#include "tests/chart/view/LevelsSamples.h"

#include <cmath>
#include <limits>
#include <map>

namespace hierfit::chart {

namespace {

using document::ChartValue;
using document::ChartVariable;

const KEST_Format kTwoDecimals{40, KEST_FormatType::Numeric, 2};
const std::vector<ChartValue> kArms = {"Placebo", "Low dose", "High dose"};
const std::vector<ChartValue> kSexes = {"Female", "Male"};

Mark MakeMark(Mark::Kind kind, const std::string& x) {
    Mark mark{};
    mark.fKind = kind;
    mark.fX = x;
    return mark;
}

VariableSetting LabelSetting(const std::string& name, const std::string& label, const std::string& prefix = {}) {
    VariableSetting setting;
    setting.fName = name;
    setting.fLabel = label;
    setting.fPrefix = prefix;
    return setting;
}

Field FieldFor(const std::string& name, const std::string& label) {
    Field field{};
    field.fSlot = field.fName = name;
    field.fLabel = label;
    field.fFormat = kTwoDecimals;
    return field;
}

/// Each value twice.
std::vector<ChartValue> Doubled(const std::vector<SampleMean>& means, std::size_t factor) {
    std::vector<ChartValue> values;
    for (const SampleMean& mean : means) values.insert(values.end(), 2, mean.fvLevels.at(factor));
    return values;
}

/// Two values of each mean, one after the other.
template <typename First, typename Second>
std::vector<ChartValue> Paired(const std::vector<SampleMean>& means, First first, Second second) {
    std::vector<ChartValue> values;
    for (const SampleMean& mean : means) {
        values.emplace_back(first(mean));
        values.emplace_back(second(mean));
    }
    return values;
}

ChartVariable Limits(const std::vector<SampleMean>& means) {
    return {"confMargin", Paired(
                              means, [](const SampleMean& mean) { return mean.fLow; },
                              [](const SampleMean& mean) { return mean.fHigh; })};
}

std::string Text(const ChartValue& value) {
    const std::string* text = std::get_if<std::string>(&value);
    return text == nullptr ? "0" : *text;
}

/// The condition that names a mean's panel.
std::string ConditionOf(const SampleMean& mean) {
    std::string condition = mean.fvLevels.size() < 2 ? "false" : "";
    for (std::size_t factor = 1; factor < mean.fvLevels.size(); ++factor) {
        condition += (factor == 1 ? "facet" : "||facet") + std::to_string(factor) + "!=&quot;" +
                     Text(mean.fvLevels[factor]) + "&quot;";
    }
    return condition;
}

/// One line for each panel, each at a height of its own; the heights by condition.
std::map<std::string, double> AddGuides(Plot& plot, const std::vector<SampleMean>& means, double base) {
    std::map<std::string, double> heights;
    for (const SampleMean& mean : means) {
        const double height = base * (1 + 0.01 * static_cast<double>(heights.size()));
        const auto [place, isNew] = heights.emplace(ConditionOf(mean), height);
        if (isNew) plot.fvLineGuides.push_back({place->second, place->first});
    }
    return heights;
}

std::vector<ChartValue> Weeks(int count) {
    std::vector<ChartValue> weeks;
    for (int week = 0; week < count; ++week) weeks.emplace_back("Week " + std::to_string(4 * week));
    return weeks;
}

std::vector<ChartValue> Numbers(int count, double step) {
    std::vector<ChartValue> numbers;
    for (int i = 0; i < count; ++i) numbers.emplace_back(i * step);
    return numbers;
}

void AddUsual(std::vector<Sample>& samples) {
    const std::string arm = "Treatment arm";
    samples.push_back(MeansSample("means-1", {"Age group at entry"},
                                  CrossedMeans({{"18 to 29", "30 to 44", "45 to 59", "60 and over"}}, 300)));
    samples.push_back(
        MeansSample("means-2", {"Days of sleep deprivation", "Sex"}, CrossedMeans({Numbers(6, 2), kSexes}, 300)));
    samples.push_back(MeansSample("means-3", {arm, "Sex", "Visit"}, CrossedMeans({kArms, kSexes, Weeks(5)}, 300)));
    samples.push_back(MeansSample("means-40", {"District of residence"}, CrossedMeans({Named("District", 40)}, 60)));
    samples.push_back(
        MeansSample("means-9x9", {"Region", "Year"}, CrossedMeans({Named("Region", 9), Numbers(9, 1)}, 80)));
    samples.push_back(MeansSample("means-wrapped", {"Highest degree of education"},
                                  CrossedMeans({{"No degree at all", "Lower secondary school", "Upper secondary school",
                                                 "University of applied sciences", "University"}},
                                               5000)));
    samples.push_back(MeansSample("linear-1", {"Days of sleep deprivation"}, CrossedMeans({Numbers(10, 1)}, 300)));
    samples.push_back(MeansSample("linear-2", {"Dose", "Sex"}, CrossedMeans({Numbers(5, 2.5), kSexes}, 300)));
    MakeLinear(samples[samples.size() - 2]);
    MakeLinear(samples.back());
    const std::vector<ChartValue> five = {"Placebo", "Low dose", "Middle dose", "High dose", "Usual care"};
    samples.push_back(ContrastSample("contrasts-1", {arm}, CrossedMeans({five}, 300), 298.4));
    samples.push_back(ContrastSample("contrasts-40", {"District"}, CrossedMeans({Named("District", 40)}, 60), 60));
    samples.push_back(ContrastSample("contrasts-2", {arm, "Visit"}, CrossedMeans({five, Weeks(3)}, 300), 301));
    samples.push_back(
        ContrastSample("contrasts-3", {arm, "Visit", "Sex"}, CrossedMeans({kArms, Weeks(3), kSexes}, 300), 301));
}

std::vector<SampleMean> Broken() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<SampleMean> means = CrossedMeans({Named("Level", 8)}, 10);
    means[0].fMean = nan;
    means[1].fMean = std::monostate();
    means[2].fLow = std::monostate();
    means[3].fHigh = -std::numeric_limits<double>::max();
    means[4].fLow = std::numeric_limits<double>::infinity();
    means[5].fvLevels = {std::monostate()};
    means[6].fvLevels = {nan};
    return means;
}

void AddUnusual(std::vector<Sample>& samples) {
    const std::string endless(10000, 'w');
    const std::string hostile = "</script><img src=x onerror=alert(1)> x_text[0] \"'\\ ]]> \x01 \xff";
    samples.push_back(MeansSample("no-rows", {"Arm", "Sex"}, {}));
    samples.push_back({"nothing", {}, {}, {}, {}});
    samples.back().fSpecification.fPlot.fArrange = Plot::Arrange::Levels;
    samples.push_back(MeansSample("broken", {"Level"}, Broken()));
    samples.push_back(MeansSample("equal", {"Level"}, {{{"a"}, 3.0, 3.0, 3.0}, {{"b"}, 3.0, 3.0, 3.0}}));
    samples.push_back(MeansSample("one", {"Level", "Series"}, {{{"a", "s"}, 3.0, 2.0, 4.0}}));
    samples.push_back(
        MeansSample("endless", {endless, endless, endless},
                    CrossedMeans({{endless + "1", endless + "2"}, {endless, endless + "2"}, {endless, "short"}}, 5)));
    samples.push_back(MeansSample("hostile", {hostile, hostile, hostile},
                                  CrossedMeans({{hostile, "  two  blanks "}, {hostile, ""}, {hostile, "\n\n"}}, 5)));
    samples.push_back(ContrastSample("contrasts-500", {"Level"}, CrossedMeans({Named("Level", 500)}, 5), 5));
    samples.push_back(ContrastSample("contrasts-endless", {endless, endless},
                                     CrossedMeans({{endless + "1", endless + "2"}, {endless}}, 5), 5));
    samples.push_back(
        ContrastSample("panels-101", {"Arm", "Clinic"}, CrossedMeans({kArms, Named("Clinic", 101)}, 5), 5));
    samples.push_back(MeansSample("colors-40", {"Arm", "District"}, CrossedMeans({kArms, Named("District", 40)}, 60)));
    samples.push_back(MeansSample("many", {"Level", "Series"}, CrossedMeans({Numbers(500, 1), Numbers(12, 1)}, 60)));
    samples.push_back(MeansSample("tiny", {"Arm"}, CrossedMeans({kArms}, 1e-7)));
    samples.push_back(MeansSample("huge", {"Arm"}, CrossedMeans({kArms}, 1e300)));
}

}  // namespace

std::vector<ChartValue> Named(const std::string& word, int count) {
    std::vector<ChartValue> levels;
    for (int i = 1; i <= count; ++i) {
        levels.emplace_back(word + " " + std::to_string(i) + (i % 5 == 2 ? " with a long name" : ""));
    }
    return levels;
}

std::vector<SampleMean> CrossedMeans(const std::vector<std::vector<ChartValue>>& levels, double middle) {
    std::vector<SampleMean> means;
    std::vector<std::size_t> at(levels.size(), 0);
    while (true) {
        SampleMean mean;
        double wave = 0;
        for (std::size_t factor = 0; factor < levels.size(); ++factor) {
            mean.fvLevels.push_back(levels[factor][at[factor]]);
            wave += std::sin(2.3 * static_cast<double>(at[factor]) + 1.7 * static_cast<double>(factor));
        }
        const double value = middle * (1 + 0.04 * wave);
        mean.fMean = value;
        mean.fLow = value - 0.05 * middle;
        mean.fHigh = value + 0.05 * middle;
        means.push_back(mean);
        std::size_t next = 0;
        while (next < levels.size() && ++at[next] == levels[next].size()) at[next++] = 0;
        if (next == levels.size()) return means;
    }
}

Sample MeansSample(std::string name, std::vector<std::string> factors, std::vector<SampleMean> means) {
    Sample sample{std::move(name), {}, {{"source0", 0, {}}}, {}, {}};
    Specification& specification = sample.fSpecification;
    specification.fPlot.fArrange = Plot::Arrange::Levels;
    specification.fPlot.fPairs = true;
    specification.fPlot.fvMarks = {MakeMark(Mark::Kind::Ranges, "effect1"), MakeMark(Mark::Kind::Points, "effect1")};
    specification.fPlot.fvMarks[0].fOf = "confMargin";
    specification.fPlot.fvMarks[1].fY = "target";
    specification.fTitle = Words{"Average reaction time (ms) by " + factors[0], {}};
    std::vector<ChartVariable>& variables = sample.fvData[0].fvVariables;
    for (std::size_t factor = 0; factor < factors.size(); ++factor) {
        const std::string variable = "effect" + std::to_string(factor + 1);
        variables.push_back({variable, Doubled(means, factor)});
        sample.fvSettings.push_back(LabelSetting(variable, factors[factor], factor == 2 ? factors[2] + " = " : ""));
    }
    if (factors.size() > 1) {
        specification.fPlot.fColor = "effect2";
        specification.fvLegends.push_back({"legend", true, "effect2", {}, {}, {}, {}});
    }
    if (factors.size() > 2) specification.fFaceting = Faceting{{"effect3"}, 3, {true}};
    const auto mean = [](const SampleMean& each) { return each.fMean; };
    variables.push_back({"target", Paired(means, mean, mean)});
    variables.push_back(Limits(means));
    specification.fvFields = {FieldFor("target", "Average reaction time (ms)"), FieldFor("confMargin", "")};
    return sample;
}

Sample ContrastSample(std::string name, std::vector<std::string> factors, std::vector<SampleMean> means, double base) {
    Sample sample{std::move(name), {}, {{"source", 0, {}}}, {}, {}};
    Specification& specification = sample.fSpecification;
    Plot& plot = specification.fPlot;
    plot.fArrange = Plot::Arrange::Levels;
    plot.fPairs = true;
    for (const auto kind : {Mark::Kind::Stems, Mark::Kind::Ranges, Mark::Kind::Points}) {
        Mark mark = MakeMark(kind, "category");
        (kind == Mark::Kind::Ranges ? mark.fOf : mark.fY) = kind == Mark::Kind::Ranges ? "confMargin" : "value";
        mark.fMark = "type";
        mark.fTip = "tooltip";
        plot.fvMarks.push_back(mark);
    }
    specification.fTitle = Words{"Deviation Contrasts", {}};
    specification.fCaption = Words{
        "The horizontal line is the overall mean of Average reaction time (ms) over the levels of " + factors[0] + ".",
        {}};
    specification.fFootnote = Words{
        "The sequential Bonferroni adjusted significance level is 0.05.\nConfidence interval bounds are approximate.",
        {}};
    std::vector<ChartVariable>& variables = sample.fvData[0].fvVariables;
    const std::map<std::string, double> heights = AddGuides(plot, means, base);
    int count = 0;
    const auto type = [&](const SampleMean&) { return count++ % 6 < 2 ? 1.0 : 0.0; };
    const auto tip = [](const SampleMean& mean) {
        return "Average reaction time (ms) of " + Text(mean.fvLevels[0]) + " is higher";
    };
    variables.push_back({"value", Paired(
                                      means, [&](const SampleMean& mean) { return heights.at(ConditionOf(mean)); },
                                      [](const SampleMean& mean) { return mean.fMean; })});
    variables.push_back({"category", Doubled(means, 0)});
    variables.push_back({"type", Paired(means, type, type)});
    variables.push_back(Limits(means));
    variables.push_back({"tooltip", Paired(means, tip, tip)});
    sample.fvSettings.push_back(LabelSetting("category", factors[0]));
    for (std::size_t factor = 1; factor < factors.size(); ++factor) {
        const std::string variable = "facet" + std::to_string(factor);
        variables.push_back({variable, Doubled(means, factor)});
        sample.fvSettings.push_back(LabelSetting(variable, factors[factor], factors[factor] + " = "));
        if (factor == 1) specification.fFaceting = Faceting{{}, 0, {}};
        specification.fFaceting->fvVariables.push_back(variable);
        specification.fFaceting->fvAlongColumns.push_back(factor == 1);
    }
    for (const char* each : {"value", "confMargin"}) specification.fvFields.push_back(FieldFor(each, ""));
    return sample;
}

void MakeLinear(Sample& sample) { sample.fvSettings[0].fIsCategorical = false; }

std::vector<Sample> LevelsSamples() {
    std::vector<Sample> samples;
    AddUsual(samples);
    AddUnusual(samples);
    return samples;
}

}  // namespace hierfit::chart
