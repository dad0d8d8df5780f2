#include "report/items/Anchors.h"

namespace hierfit::report::items {

namespace {

constexpr std::size_t kLongest = 64;

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool IsLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }

bool IsSlugCharacter(char byte) { return IsDigit(byte) || IsLetter(byte) || byte == '_'; }

// A pattern without its marks, such as ^1.
std::string WithoutMarks(std::string_view pattern) {
    std::string words;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        if (pattern[at] == '^') {
            while (at + 1 < pattern.size() && IsDigit(pattern[at + 1])) ++at;
        } else {
            words += pattern[at];
        }
    }
    return words;
}

void AppendSource(std::string& out, const document::Text& text);

struct SourceAppender {
    std::string& fOut;
    const document::Text& fText;

    void operator()(const document::StringSource& source) const { fOut += source.fString; }
    void operator()(const document::NumberSource&) const { fOut += fText.fWords; }
    void operator()(const document::VariableSource& source) const { fOut += source.fVariable; }
    void operator()(const document::ValueSource& source) const {
        fOut += source.fVariable.Get();
        fOut += ' ';
        const auto* words = std::get_if<document::SharedText>(&source.fValue);
        fOut += words ? words->Get() : fText.fWords;
    }
    void operator()(const document::PatternSource& source) const {
        fOut += WithoutMarks(source.fPattern.Get());
        for (const document::Argument& argument : source.fvArguments) {
            for (const document::Text& text : argument.fvTexts) AppendSource(fOut, text);
        }
    }
};

void AppendSource(std::string& out, const document::Text& text) {
    if (!out.empty()) out += ' ';
    std::visit(SourceAppender{out, text}, text.fFrom);
}

std::string SourceOf(const document::Text& text) {
    std::string source;
    AppendSource(source, text);
    return source;
}

struct Named {
    std::string operator()(const document::Heading& heading) const { return SourceOf(heading.fTitle); }
    std::string operator()(const document::Table& table) const { return SourceOf(table.fSubtype); }
    std::string operator()(const document::Chart& chart) const {
        return chart.fTemplate.substr(0, chart.fTemplate.find('.'));
    }
    std::string operator()(const document::Message&) const { return "Message"; }
};

std::string_view KindOf(const document::Item& item) {
    static constexpr std::string_view kKinds[] = {"Section", "Table", "Chart", "Message"};
    return kKinds[item.fContent.index()];
}

}  // namespace

std::string MakeSlug(std::string_view text) {
    std::string slug;
    bool isApart = false;
    for (const char byte : text) {
        if (!IsSlugCharacter(byte)) {
            isApart = true;
            continue;
        }
        if (slug.size() + 2 > kLongest) break;
        if (isApart && !slug.empty()) slug += '-';
        isApart = false;
        slug += byte;
    }
    return slug;
}

std::string Anchors::Name(const document::Item& item) {
    std::string name = MakeSlug(std::visit(Named{}, item.fContent));
    if (name.empty()) name = KindOf(item);
    if (!IsLetter(name.front())) name = std::string(KindOf(item)) + '-' + name;
    const int count = ++fCounts[name];
    return name + '-' + std::to_string(count);
}

}  // namespace hierfit::report::items
