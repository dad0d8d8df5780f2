#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/session/Session.h"
#include "report/formats/Format.h"
#include "report/style/FigureStyle.h"

namespace hierfit::program {

using report::Format;

enum class Color { Auto, Always, Never };

/// What to write and where.
struct OutputOptions {
    std::string fFile = "-";        ///< "-" is standard output; a folder for pictures
    std::optional<Format> fFormat;  ///< none: by the file's ending, else by where it goes
    Color fColor = Color::Auto;
    std::vector<std::string> fvOnly;  ///< names of the items that are written; all if empty
    std::optional<report::style::StyleName> fStyle;
    std::optional<int> fDigits;
    bool fIsStatic = false;        ///< HTML without the script
    bool fIsStandalone = false;    ///< LaTeX that compiles by itself
    bool fHasChartValues = false;  ///< text with the values behind its charts
    bool fHasPager = true;         ///< on a terminal, for text that is longer than the screen
    double fScale = 2;             ///< pixels of a PNG to a pixel of its picture, above 0 and at most 20
    std::string fTitle;            ///< in the place of the document's; none if empty
    std::string fAuthor;
};

/// `hierfit report`: one folder, or a PMML and a StatXML document.
struct ReportCommand {
    std::vector<std::string> fvDocuments;
    session::Settings fSettings;
    OutputOptions fOutput;
};

/// `hierfit render`: a saved document; "-" is standard input.
struct RenderCommand {
    std::vector<std::string> fvDocuments;  ///< one
    OutputOptions fOutput;
};

/// `hierfit check`: one folder, or a PMML and a StatXML document.
struct CheckCommand {
    std::vector<std::string> fvDocuments;
    bool fIsStrict = false;  ///< any remark is a failure
    bool fHasPager = true;   ///< on a terminal, for remarks that are more than its lines
};

/// `hierfit list`: one folder, a PMML and a StatXML document, or a saved document.
struct ListCommand {
    std::vector<std::string> fvDocuments;
    bool fIsJson = false;
    bool fHasPager = true;  ///< on a terminal, for a list that is longer than the screen
};

/// `hierfit batch`: a report for each folder, and an index of them.
struct BatchCommand {
    std::vector<std::string> fvFolders;  ///< none: standard input lists them
    session::Settings fSettings;
    OutputOptions fOutput;   ///< `fFile` is the folder that the reports go to, empty if none is named
    int fJobs = 0;           ///< models at a time; 0: as many as the machine does at once
    bool fIsForced = false;  ///< reports that are newer than their documents are made again
};

/// `hierfit --version`
struct VersionCommand {
    bool fIsAsked = false;
    bool fIsVerbose = false;  ///< of libraries, too, and where the program's parts lie
};

/// Nothing to run: what the user asked to see, or what is wrong with the command line.
struct Explanation {
    std::string fText;
    bool fIsError;
};

using Command =
    std::variant<ReportCommand, RenderCommand, CheckCommand, ListCommand, BatchCommand, VersionCommand, Explanation>;

}  // namespace hierfit::program
