#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/session/Session.h"

namespace hierfit::program {

/// The formats that the program writes. The order is that of `kFormats`.
enum class Format { Html, Text, Json, Svg };

enum class Color { Auto, Always, Never };

/// What to write and where.
struct OutputOptions {
    std::string fFile = "-";        ///< "-" is standard output; a folder for SVG
    std::optional<Format> fFormat;  ///< none: by the file's ending, else by where it goes
    Color fColor = Color::Auto;
    bool fIsStatic = false;        ///< HTML without the script
    bool fHasChartValues = false;  ///< text with the values behind its charts
    bool fHasPager = true;         ///< on a terminal, for text that is longer than the screen
};

/// `hierfit report`: one folder, or a PMML and a StatXML document.
struct ReportCommand {
    std::vector<std::string> fvDocuments;
    session::Settings fSettings;
    OutputOptions fOutput;
};

/// `hierfit render`: a saved document; "-" is standard input.
struct RenderCommand {
    std::string fDocument;
    OutputOptions fOutput;
};

/// Nothing to run: what the user asked to see, or what is wrong with the command line.
struct Explanation {
    std::string fText;
    bool fIsError;
};

using Command = std::variant<ReportCommand, RenderCommand, Explanation>;

Command ParseCommandLine(int argumentCount, const char* const* arguments);

}  // namespace hierfit::program
