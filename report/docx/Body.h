#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/document/Document.h"
#include "report/archive/Archive.h"
#include "report/docx/DocxSettings.h"
#include "report/docx/Page.h"
#include "report/docx/Picture.h"
#include "report/items/Entries.h"

namespace hierfit::report::docx {

/// Writes the text of the file: the title, then the items one after the other, upright or on turned pages.
class Body {
  public:
    explicit Body(const DocxSettings& settings);

    void Write(const document::Document& document);

    std::string TakeText() { return std::move(fOut); }

    /// For each drawn picture its pixels and its vectors.
    std::vector<ArchiveFile> TakePictures() { return std::move(fvPictures); }

  private:
    void WriteTitle(const document::Document& document);
    void WriteItem(const items::Entry& entry);
    void WriteHeading(int level, std::string_view title);
    void WriteTable(const document::Table& table, std::string_view title);
    void WriteChart(const document::Chart& chart, std::string_view title);
    void WriteMessage(Page page, int level, std::string_view text);
    void WriteDiagnostics(const document::Document& document);
    void AppendDrawing(DrawnPicture picture, Page page, std::string_view sentence);
    void Turn(Page page);

    const DocxSettings& fSettings;
    std::string fOut;
    std::string fWaiting;  ///< headings, which stand on the page of what follows them
    Page fPage = Page::Upright;
    bool fHasBegun = false;
    int fTables = 0;
    int fFigures = 0;
    std::vector<ArchiveFile> fvPictures;
};

}  // namespace hierfit::report::docx
