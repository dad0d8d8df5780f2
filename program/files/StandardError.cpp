#include "program/files/StandardError.h"

#include <fmt/format.h>

#include <cstdio>
#include <variant>

#include "host/unicode/Excerpt.h"
#include "report/text/VisibleText.h"

namespace hierfit::program {

namespace {

const char* LevelWord(int level) {
    if (level <= 1) return "note";
    return level == 2 ? "warning" : "error";
}

/// In one piece, since threads may say something, too. Whether anybody hears it makes no difference.
void PrintLine(std::string line) {
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void PrintError(const std::string& text) { PrintLine("hierfit: " + report::MakeVisible(text)); }

void PrintShortMemory() { std::fprintf(stderr, "hierfit: %s\n", kShortMemory); }

void PrintMessages(const std::list<document::Item>& items) {
    for (const document::Item& item : items) {
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) PrintMessages(heading->fItems);
        if (const auto* message = std::get_if<document::Message>(&item.fContent)) {
            PrintError(fmt::format("{}: {}", LevelWord(message->fLevel),
                                   unicode::Excerpt(message->fText.fWords, kMostOfText)));
        }
    }
}

std::string DescribeDiagnostic(const document::Diagnostic& diagnostic, const std::vector<std::string>& paths) {
    if (!diagnostic.fPlace) return diagnostic.fText;
    const document::Place& place = *diagnostic.fPlace;
    return fmt::format("{}:{}:{}: {}", unicode::Excerpt(paths[static_cast<std::size_t>(place.fSource)], kMostOfText),
                       place.fLine, place.fColumn, diagnostic.fText);
}

void PrintDiagnostics(const document::Document& document, const std::vector<std::string>& paths, int leastLevel) {
    for (const document::Diagnostic& diagnostic : document.fvDiagnostics) {
        if (diagnostic.fLevel < leastLevel) continue;
        const std::string text = DescribeDiagnostic(diagnostic, paths);
        if (diagnostic.fPlace) {
            PrintLine(report::MakeVisible(text));
        } else {
            PrintError(fmt::format("{}: {}", LevelWord(diagnostic.fLevel), text));
        }
    }
}

}  // namespace hierfit::program
