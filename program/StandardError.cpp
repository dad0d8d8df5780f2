#include "StandardError.h"

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

}  // namespace

void PrintError(const std::string& text) { fmt::print(stderr, "hierfit: {}\n", report::MakeVisible(text)); }

void PrintMessages(const std::list<document::Item>& items) {
    for (const document::Item& item : items) {
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) PrintMessages(heading->fItems);
        if (const auto* message = std::get_if<document::Message>(&item.fContent)) {
            PrintError(fmt::format("{}: {}", LevelWord(message->fLevel),
                                   unicode::Excerpt(message->fText.fWords, kMostOfText)));
        }
    }
}

void PrintDiagnostics(const document::Document& document, const std::vector<std::string>& paths, int leastLevel) {
    for (const document::Diagnostic& diagnostic : document.fvDiagnostics) {
        if (diagnostic.fLevel < leastLevel) continue;
        if (!diagnostic.fPlace) {
            PrintError(fmt::format("{}: {}", LevelWord(diagnostic.fLevel), diagnostic.fText));
            continue;
        }
        const document::Place& place = *diagnostic.fPlace;
        fmt::print(stderr, "{}:{}:{}: {}\n",
                   unicode::Excerpt(paths[static_cast<std::size_t>(place.fSource)], kMostOfText), place.fLine,
                   place.fColumn, report::MakeVisible(diagnostic.fText));
    }
}

}  // namespace hierfit::program
