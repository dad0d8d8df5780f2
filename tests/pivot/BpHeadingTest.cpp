#include <gtest/gtest.h>

#include <optional>

#include "host/BpError.h"
#include "host/document/Document.h"
#include "tests/pivot/PivotRun.h"

namespace hierfit {
namespace {

class Headings : public test::PivotRun {
  protected:
    void Report(const char* text) { BpError(Fixed(text), BpErrorShow::InOutput, BpErrorLevel::Warning); }

    // "heading(item item)", messages by their texts.
    static std::string Describe(const std::list<document::Item>& items) {
        std::string text;
        for (const document::Item& item : items) {
            if (!text.empty()) text += " ";
            if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) {
                text += heading->fTitle.fWords + "(" + Describe(heading->fItems) + ")";
            } else if (const auto* message = std::get_if<document::Message>(&item.fContent)) {
                text += message->fText.fWords;
            } else {
                text += "table";
            }
        }
        return text;
    }
};

TEST_F(Headings, MessagesGoUnderTheInnermostThatIsHeld) {
    BpProcedure procedure;
    Report("1");
    std::optional<BpHeading> outer = procedure.Heading(Fixed("outer"));
    Report("2");
    {
        BpHeading inner = outer->Heading(Fixed("inner"));
        const BpHeading copy = inner;
        inner = *outer;
        Report("3");
    }
    Report("4");
    procedure.PivotTable(Fixed("T"), Fixed(""), false);
    BpHeading second = procedure.Heading(Fixed("second"));
    outer.reset();
    Report("5");
    second = procedure;
    Report("6");
    EXPECT_EQ(Describe(fContext.GetDocument().fItems), "1 outer(2 inner(3) 4) table second(5) 6");
}

}  // namespace
}  // namespace hierfit
