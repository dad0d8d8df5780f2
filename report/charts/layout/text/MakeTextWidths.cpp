// Writes the advance widths of a font's characters as a C++ header: MakeTextWidths REGULAR.ttf BOLD.ttf HEADER. It runs
// when the project is built.

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>

namespace {

constexpr FT_ULong kLastCode = 0xFFFF;

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "MakeTextWidths: %s\n", what.c_str());
    std::exit(1);
}

/// Thousandths of an em by character.
std::map<FT_ULong, long> ReadWidths(FT_Library library, const char* path) {
    FT_Face face = nullptr;
    if (FT_New_Face(library, path, 0, &face) != 0) Fail(std::string(path) + ": no font that can be read");
    std::map<FT_ULong, long> widths;
    FT_UInt glyph = 0;
    for (FT_ULong code = FT_Get_First_Char(face, &glyph); glyph != 0 && code <= kLastCode;
         code = FT_Get_Next_Char(face, code, &glyph)) {
        if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0) Fail(std::string(path) + ": a glyph cannot be read");
        const long units = face->units_per_EM;
        widths[code] = (face->glyph->metrics.horiAdvance * 1000 + units - 1) / units;
    }
    FT_Done_Face(face);
    return widths;
}

/// Runs of characters that follow each other: the first, the last, and where the run begins in the list of widths.
void WriteTable(std::ostream& out, const char* name, const std::map<FT_ULong, long>& widths) {
    std::string runs;
    std::string list;
    std::size_t count = 0;
    FT_ULong first = 0;
    FT_ULong last = 0;
    const auto endRun = [&](std::size_t end) {
        if (end == 0) return;
        runs += "{" + std::to_string(first) + "," + std::to_string(last) + "," +
                std::to_string(end - (last - first + 1)) + "},\n";
    };
    for (const auto& [code, width] : widths) {
        if (count == 0 || code != last + 1) {
            endRun(count);
            first = code;
        }
        last = code;
        list += std::to_string(width) + (++count % 16 == 0 ? ",\n" : ",");
    }
    endRun(count);
    out << "inline constexpr Run k" << name << "Runs[] = {\n"
        << runs << "};\n\ninline constexpr std::uint16_t k" << name << "Widths[] = {\n"
        << list << "\n};\n\n";
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 4) Fail("expected REGULAR.ttf BOLD.ttf HEADER");
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0) Fail("the font library does not start");
    std::ofstream out(arguments[3]);
    out << "#pragma once\n\n#include <cstdint>\n\nnamespace hierfit::report::charts::widths {\n\n"
           "/// Characters that follow each other, and where their widths begin.\n"
           "struct Run {\n    char32_t fFirst;\n    char32_t fLast;\n    std::uint16_t fPlace;\n};\n\n";
    WriteTable(out, "Regular", ReadWidths(library, arguments[1]));
    WriteTable(out, "Bold", ReadWidths(library, arguments[2]));
    out << "}  // namespace hierfit::report::charts::widths\n";
    FT_Done_FreeType(library);
    return out.good() ? 0 : 1;
}
