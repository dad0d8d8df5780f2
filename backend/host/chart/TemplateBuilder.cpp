#include "host/chart/TemplateBuilder.h"

#include <string_view>

#include "host/Diagnose.h"
#include "host/FetchFile.h"
#include "host/PathFactory.h"
#include "host/data/PrintFormat.h"
#include "host/unicode/Excerpt.h"

namespace hierfit::chart {

namespace {

constexpr std::string_view kRootEnd = "</chart>";

/// What a character is written as, for element texts and attribute values alike; empty where it stands for itself. The
/// equals sign is among them so that no text looks like an attribute.
std::string_view EscapeOf(char c) {
    switch (c) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        case '"':
            return "&quot;";
        case '=':
            return "&#61;";
        case '\n':
            return "&#10;";
        case '\r':
            return "&#13;";
        case '\t':
            return "&#9;";
        default:
            return {};
    }
}

std::string Escape(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const std::string_view escape = EscapeOf(c);
        if (escape.empty()) {
            escaped += c;
        } else {
            escaped += escape;
        }
    }
    return escaped;
}

std::string Attribute(std::string_view name, std::string_view value) {
    return value.empty() ? std::string() : std::string(" ").append(name).append("=\"") + Escape(value) + '"';
}

}  // namespace

void TemplateBuilder::SetTitle(const std::string& title) { fTitle = "  <title>" + Escape(title) + "</title>\n"; }

void TemplateBuilder::AddField(const SlotBinding& binding) {
    fFields += "  <field" + Attribute("slot", binding.fSlot) + Attribute("name", binding.fName) +
               Attribute("source", binding.fSource) + Attribute("role", binding.fIsFactor ? "factor" : "measure") +
               Attribute("title", binding.fTitle) + Attribute("label", binding.fLabel) +
               Attribute("format", binding.fpFormat ? data::PrintFormatText(*binding.fpFormat) : "") + "/>\n";
}

std::string TemplateBuilder::Build() const {
    const std::string file = fName + ".xml";
    std::string xml =
        FetchFile::fetch(PathFactory::getPathInstance().GetBaseDirectory() + "template/" + file, true, true);
    const std::size_t end = xml.rfind(kRootEnd);
    if (end == std::string::npos) {
        const std::string name = unicode::Excerpt(file);
        Diagnose(xml.empty() ? "there is no chart template " + name : "chart template " + name + " holds no chart");
        return {};
    }
    return xml.insert(end, fTitle + fFields);
}

}  // namespace hierfit::chart
