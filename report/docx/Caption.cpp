#include "report/docx/Caption.h"

#include "report/docx/Runs.h"
#include "report/docx/Styles.h"
#include "report/docx/Words.h"

namespace hierfit::report::docx {

namespace {

std::string MarkOf(std::string_view kind, int number) {
    return std::string("_Ref").append(kind).append(std::to_string(number));
}

void AppendMark(std::string& out, std::string_view kind, int number, bool isStart) {
    out += isStart ? "<w:bookmarkStart" : "<w:bookmarkEnd";
    AppendNumber(out, "w:id", number);
    if (isStart) out.append(" w:name=\"").append(MarkOf(kind, number)).append("\"");
    out += "/>";
}

void AppendWords(std::string& out, std::string_view kind, int number, std::string_view title, bool isNamed) {
    AppendRuns(out, std::string(kind) + " ", kBold);
    if (isNamed) AppendMark(out, kind, number, true);
    AppendField(out, "SEQ " + std::string(kind) + " \\* ARABIC", std::to_string(number), kBold);
    if (isNamed) AppendMark(out, kind, number, false);
    AppendRuns(out, ". ", kBold);
    AppendRuns(out, title);
    out += kParagraphEnd;
}

}  // namespace

void AppendCaption(std::string& out, std::string_view kind, int number, std::string_view title, Continued continued) {
    AppendParagraphStart(out, styles::kCaption, kKeepNext);
    AppendWords(out, kind, number, title, continued == Continued::Yes);
}

void AppendCaptionBelow(std::string& out, std::string_view kind, int number, std::string_view title) {
    AppendParagraphStart(out, styles::kCaption, "<w:spacing w:before=\"80\" w:after=\"320\"/>");
    AppendWords(out, kind, number, title, false);
}

void AppendContinuedCaption(std::string& out, std::string_view kind, int number) {
    AppendParagraphStart(out, styles::kContinued);
    AppendRuns(out, std::string(kind) + " ", kBold);
    AppendField(out, "REF " + MarkOf(kind, number) + " \\h", std::to_string(number), kBold);
    AppendRuns(out, words::kContinued);
    out += kParagraphEnd;
}

}  // namespace hierfit::report::docx
