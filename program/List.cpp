#include "List.h"

#include <algorithm>

#include "Pager.h"
#include "program/documents/Documents.h"
#include "program/files/ExitStatus.h"
#include "program/files/OutputFile.h"
#include "program/files/StandardError.h"
#include "report/items/Entries.h"
#include "report/json/JsonOutput.h"
#include "report/text/VisibleText.h"

namespace hierfit::program {

namespace {

using report::items::Entry;

/// A title on one line.
std::string MakeTitle(const Entry& entry) {
    std::string title(report::items::TitleOf(*entry.fpItem));
    std::ranges::replace(title, '\n', ' ');
    return title;
}

std::string MakeText(const std::vector<Entry>& entries) {
    std::string text;
    for (const Entry& entry : entries) {
        text.append(static_cast<std::size_t>(entry.fDepth) * 2, ' ').append(entry.fAnchor).append("  ");
        text.append(report::items::KindOf(*entry.fpItem))
            .append("  ")
            .append(report::MakeVisible(MakeTitle(entry)))
            .append("\n");
    }
    return text;
}

std::string MakeJson(const std::vector<Entry>& entries) {
    using Layout = report::JsonOutput::Layout;
    report::JsonOutput out;
    std::vector<const Entry*> headings;  // around an entry, the outermost first
    out.BeginList(Layout::Block);
    for (const Entry& entry : entries) {
        headings.resize(static_cast<std::size_t>(entry.fDepth));
        out.BeginObject(Layout::Line);
        out.Key("name");
        out.String(entry.fAnchor);
        out.Key("kind");
        out.String(report::items::KindOf(*entry.fpItem));
        out.Key("title");
        out.String(report::items::TitleOf(*entry.fpItem));
        out.Key("heading");
        headings.empty() ? out.Null() : out.String(headings.back()->fAnchor);
        out.EndObject();
        headings.push_back(&entry);
    }
    out.EndList();
    return out.Take();
}

bool IsSaved(const std::vector<std::string>& documents) {
    return documents.size() == 1 && !IsFolder(documents.front());
}

int ListItems(const document::Document& document, const ListCommand& command) {
    const std::vector<Entry> entries = report::items::ListEntries(document);
    if (command.fIsJson) return Conclude(WriteOutput("-", MakeJson(entries)));
    return Conclude(WriteForReader(MakeText(entries), command.fHasPager));
}

int Refuse(const FileError& error) {
    PrintError(error.fText);
    return kUnreadable;
}

}  // namespace

int Run(const ListCommand& command) {
    if (IsSaved(command.fvDocuments)) {
        const auto saved = ReadSaved(command.fvDocuments.front());
        if (const auto* error = std::get_if<FileError>(&saved)) return Refuse(*error);
        return ListItems(std::get<document::Document>(saved), command);
    }
    const auto run = RunModel(command.fvDocuments, {});
    if (const auto* error = std::get_if<FileError>(&run)) return Refuse(*error);
    const auto& model = std::get<ModelRun>(run);
    if (model.fResult.fOutcome != session::Outcome::Issued) return TellFailure(model);
    return ListItems(model.fResult.fDocument, command);
}

}  // namespace hierfit::program
