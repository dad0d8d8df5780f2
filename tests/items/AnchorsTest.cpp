#include "report/items/Anchors.h"

#include "tests/support/TableSketch.h"

namespace hierfit::report::items {

namespace {

using document::Heading;
using document::Text;
using test::MakeText;

TEST(Anchors, ComeFromSourcesAndDiffer) {
    const Text pattern{"Means of dose",
                       document::PatternSource{"Estimated Means: ^1", true, {{false, {MakeText("dose")}}}}};
    const Text translated{"Feste Koeffizienten", document::StringSource{"FixedCoefficients", true}};
    const Text variable{"Dose given", document::VariableSource{"dose", 1}};
    const Text labelled{"low", document::ValueSource{1.0, "dose", 2}};
    const Text number{"2.5", document::NumberSource{2.5, {}}};
    const std::pair<document::Item, std::string> cases[] = {
        {{test::SketchTable("title Fixed_Coefficients")}, "FixedCoefficients-1"},
        {{Heading{translated, {}}}, "FixedCoefficients-2"},
        {{Heading{pattern, {}}}, "Estimated-Means-dose-1"},
        {{Heading{MakeText("\"><script>"), {}}}, "script-1"},
        {{Heading{variable, {}}}, "dose-1"},
        {{Heading{labelled, {}}}, "dose-low-1"},
        {{Heading{number, {}}}, "Section-2-5-1"},
        {{Heading{MakeText("\u05D0"), {}}}, "Section-1"},
        {{Heading{MakeText("95% level"), {}}}, "Section-95-level-1"},
        {{Heading{MakeText(std::string(1000, 'x')), {}}}, std::string(63, 'x') + "-1"},
        {{document::Message{MakeText("Text"), 2, 1}}, "Message-1"},
        // A title that looks like another's anchor gets one of its own.
        {{Heading{MakeText("FixedCoefficients-1"), {}}}, "FixedCoefficients-1-1"},
    };
    Anchors anchors;
    for (const auto& [item, name] : cases) EXPECT_EQ(anchors.Name(item), name);
}

}  // namespace

}  // namespace hierfit::report::items
