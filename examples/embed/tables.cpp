// Runs the procedure and counts the cells of each table that it issued: tables MODEL.pmml MODEL.statxml

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <variant>

#include "host/session/Session.h"

namespace {

std::string ReadWhole(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) return 1;
    const hierfit::session::Result result =
        hierfit::session::Run({arguments[1], ReadWhole(arguments[1])}, {arguments[2], ReadWhole(arguments[2])}, {});
    for (const auto& item : result.fDocument.fItems) {
        if (const auto* table = std::get_if<hierfit::document::Table>(&item.fContent)) {
            std::printf("%s: %zu cells\n", table->fTitle.fWords.c_str(), table->fvCells.size());
        }
    }
    return result.fOutcome == hierfit::session::Outcome::Issued ? 0 : 2;
}
