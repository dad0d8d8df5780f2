#include <sys/mman.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <cerrno>
#include <cstring>
#include <deque>
#include <vector>

#include "report/xlsx/book/Book.h"
#include "report/xlsx/book/module/PartFiles.h"

namespace {

using hierfit::report::xlsx::Align;
using hierfit::report::xlsx::Book;
using hierfit::report::xlsx::ForgetPartFailure;
using hierfit::report::xlsx::Look;
using hierfit::report::xlsx::Page;
using hierfit::report::xlsx::PartFailure;
using hierfit::report::xlsx::Properties;
using hierfit::report::xlsx::Rule;
using hierfit::report::xlsx::Sheet;
using hierfit::report::xlsx::SheetPicture;

// A workbook made today is the same as one made tomorrow.
constexpr time_t kDate = 946684800;  // 2000-01-01

constexpr uint8_t kPaper = 9;  // A4
constexpr double kMargin = 0.6;
constexpr lxw_color_t kLinkColor = 0x0563C1;

lxw_row_t RowOf(int row) { return static_cast<lxw_row_t>(row); }
lxw_col_t ColumnOf(int column) { return static_cast<lxw_col_t>(column); }

uint8_t BorderOf(Rule rule) {
    return rule == Rule::None ? LXW_BORDER_NONE : rule == Rule::Thin ? LXW_BORDER_THIN : LXW_BORDER_MEDIUM;
}

uint8_t AlignmentOf(Align align, bool isRightToLeft) {
    if (align == Align::Center) return LXW_ALIGN_CENTER;
    return align == Align::Left && !isRightToLeft ? LXW_ALIGN_LEFT : LXW_ALIGN_RIGHT;
}

lxw_format* MakeFormat(lxw_workbook* workbook, const Look& look, bool isRightToLeft) {
    lxw_format* format = workbook_add_format(workbook);
    if (!format) return nullptr;
    if (!look.fCode.empty()) format_set_num_format(format, look.fCode.c_str());
    format_set_align(format, AlignmentOf(look.fAlign, isRightToLeft));
    format_set_align(format, look.fIsTop ? LXW_ALIGN_VERTICAL_TOP : LXW_ALIGN_VERTICAL_BOTTOM);
    if (look.fIndent > 0) format_set_indent(format, static_cast<uint8_t>(look.fIndent));
    if (look.fIsBold) format_set_bold(format);
    if (look.fWraps) format_set_text_wrap(format);
    if (look.fIsLink) {
        format_set_font_color(format, kLinkColor);
        format_set_underline(format, LXW_UNDERLINE_SINGLE);
    }
    if (look.fAbove != Rule::None) format_set_top(format, BorderOf(look.fAbove));
    if (look.fBelow != Rule::None) format_set_bottom(format, BorderOf(look.fBelow));
    return format;
}

class LibrarySheet : public Sheet {
  public:
    LibrarySheet(lxw_worksheet* sheet, const std::vector<lxw_format*>& formats, lxw_error& error)
        : fpSheet(sheet), fFormats(formats), fError(error) {}

    void SetPage(const Page& page) override {
        worksheet_gridlines(fpSheet, LXW_HIDE_ALL_GRIDLINES);
        worksheet_set_paper(fpSheet, kPaper);
        worksheet_set_margins(fpSheet, kMargin, kMargin, -1, -1);
        worksheet_set_footer(fpSheet, "&L&A&R&P / &N");
        if (page.fIsWide) worksheet_set_landscape(fpSheet);
        if (page.fFitsWidth) worksheet_fit_to_pages(fpSheet, 1, 0);
        if (page.fFrozenRows > 0 || page.fFrozenColumns > 0) {
            worksheet_freeze_panes(fpSheet, RowOf(page.fFrozenRows), ColumnOf(page.fFrozenColumns));
        }
        if (page.fFirstTitleRow < page.fFrozenRows) {
            Note(worksheet_repeat_rows(fpSheet, RowOf(page.fFirstTitleRow), RowOf(page.fFrozenRows - 1)));
        }
        if (page.fFrozenColumns > 0) Note(worksheet_repeat_columns(fpSheet, 0, ColumnOf(page.fFrozenColumns - 1)));
    }

    void SetWidth(int column, double characters) override {
        Note(worksheet_set_column(fpSheet, ColumnOf(column), ColumnOf(column), characters, nullptr));
    }

    void SetHeight(int row, double points) override { Note(worksheet_set_row(fpSheet, RowOf(row), points, nullptr)); }

    void PutBlank(int row, int column, int look) override {
        Note(worksheet_write_blank(fpSheet, RowOf(row), ColumnOf(column), FormatOf(look)));
    }

    void PutNumber(int row, int column, double number, int look) override {
        Note(worksheet_write_number(fpSheet, RowOf(row), ColumnOf(column), number, FormatOf(look)));
    }

    void PutText(int row, int column, const std::string& text, int look) override {
        Note(worksheet_write_string(fpSheet, RowOf(row), ColumnOf(column), text.c_str(), FormatOf(look)));
    }

    void PutLink(int row, int column, const std::string& sheet, const std::string& text, int look) override {
        const std::string url = "internal:'" + sheet + "'!A1";
        const lxw_error error = worksheet_write_url_opt(fpSheet, RowOf(row), ColumnOf(column), url.c_str(),
                                                        FormatOf(look), text.c_str(), nullptr);
        if (error != LXW_ERROR_WORKSHEET_MAX_NUMBER_URLS_EXCEEDED) return Note(error);
        PutText(row, column, text, look);
    }

    void PutWide(int row, int firstColumn, int lastColumn, const std::string& text, int look) override {
        Note(worksheet_merge_range(fpSheet, RowOf(row), ColumnOf(firstColumn), RowOf(row), ColumnOf(lastColumn),
                                   text.c_str(), FormatOf(look)));
    }

    void PutPicture(int row, int column, const SheetPicture& picture) override {
        std::string words = picture.fWords;
        lxw_image_options options{};
        options.x_scale = picture.fScale;
        options.y_scale = picture.fScale;
        options.object_position = LXW_OBJECT_MOVE_DONT_SIZE;
        options.description = words.data();
        Note(worksheet_insert_image_buffer_opt(fpSheet, RowOf(row), ColumnOf(column),
                                               reinterpret_cast<const unsigned char*>(picture.fPng.data()),
                                               picture.fPng.size(), &options));
    }

  private:
    lxw_format* FormatOf(int look) const { return fFormats[static_cast<std::size_t>(look)]; }

    void Note(lxw_error error) {
        if (fError == LXW_NO_ERROR) fError = error;
    }

    lxw_worksheet* fpSheet;
    const std::vector<lxw_format*>& fFormats;
    lxw_error& fError;
};

/// The library writes to a path; this one leads to memory.
class MemoryFile {
  public:
    MemoryFile() : fFile(memfd_create("workbook", MFD_CLOEXEC)) {}
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() {
        if (fFile >= 0) close(fFile);
    }

    bool IsOpen() const { return fFile >= 0; }

    std::string Path() const { return "/proc/self/fd/" + std::to_string(fFile); }

    std::optional<std::string> Read() const {
        const off_t size = fFile < 0 ? -1 : lseek(fFile, 0, SEEK_END);
        if (size <= 0) return {};
        std::string bytes(static_cast<std::size_t>(size), '\0');
        for (std::size_t done = 0; done < bytes.size();) {
            const ssize_t count = pread(fFile, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
            if (count <= 0) return {};
            done += static_cast<std::size_t>(count);
        }
        return bytes;
    }

  private:
    int fFile;
};

/// The library does not look at each write. What one of them failed for is what the system said last; of what it may
/// say for other reasons nothing counts.
bool IsOfWriting(int failure) {
    return failure == ENOSPC || failure == EDQUOT || failure == EFBIG || failure == EIO || failure == ENOMEM;
}

/// What the library says, and what the system said last, if it said anything.
std::string DescribeError(lxw_error error, int failure) {
    if (failure == ENOMEM) return "memory is short";
    return std::string(lxw_strerror(error)) + (failure ? std::string(" ") + std::strerror(failure) : "");
}

class LibraryBook : public Book {
  public:
    explicit LibraryBook(const Properties& properties) : fIsRightToLeft(properties.fIsRightToLeft) {
        ForgetPartFailure();
        if (!fFile.IsOpen()) return;
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        fpWorkbook = workbook_new_opt(fFile.Path().c_str(), &options);
        if (!fpWorkbook) return;
        std::string title = properties.fTitle;
        std::string author = properties.fAuthor;
        std::string producer = properties.fProducer;
        lxw_doc_properties all{};
        all.title = title.data();
        all.author = author.data();
        all.comments = producer.data();
        all.created = kDate;
        Note(workbook_set_properties(fpWorkbook, &all));
    }
    LibraryBook(const LibraryBook&) = delete;
    LibraryBook& operator=(const LibraryBook&) = delete;
    ~LibraryBook() override {
        if (fpWorkbook) lxw_workbook_free(fpWorkbook);
    }

    int AddLook(const Look& look) override {
        fvFormats.push_back(fpWorkbook ? MakeFormat(fpWorkbook, look, fIsRightToLeft) : nullptr);
        if (fpWorkbook && !fvFormats.back()) Note(LXW_ERROR_MEMORY_MALLOC_FAILED);
        return static_cast<int>(fvFormats.size()) - 1;
    }

    Sheet* AddSheet(const std::string& name, bool isLarge) override {
        if (!fpWorkbook) return nullptr;
        fpWorkbook->options.constant_memory = isLarge ? LXW_TRUE : LXW_FALSE;
        errno = 0;
        lxw_worksheet* sheet = workbook_add_worksheet(fpWorkbook, name.c_str());
        if (!sheet) {
            if (fReason.empty()) fReason = "no sheet " + name + (errno ? std::string(": ") + std::strerror(errno) : "");
            return nullptr;
        }
        if (fIsRightToLeft) worksheet_right_to_left(sheet);
        return &fSheets.emplace_back(sheet, fvFormats, fError);
    }

    std::optional<std::string> Close(std::string& reason) override {
        if (!fpWorkbook || !fReason.empty() || fError != LXW_NO_ERROR) {
            reason = !fReason.empty() ? fReason : fpWorkbook ? lxw_strerror(fError) : "no memory for a workbook";
            return {};
        }
        errno = 0;
        const lxw_error error = workbook_close(fpWorkbook);
        fpWorkbook = nullptr;
        if (error != LXW_NO_ERROR) {
            reason = DescribeError(error, errno);
            return {};
        }
        if (const int failure = IsOfWriting(errno) ? errno : PartFailure()) {
            reason = std::string("the workbook: ") + std::strerror(failure);
            return {};
        }
        auto bytes = fFile.Read();
        if (!bytes) reason = "the workbook cannot be read back";
        return bytes;
    }

  private:
    void Note(lxw_error error) {
        if (fError == LXW_NO_ERROR) fError = error;
    }

    bool fIsRightToLeft;
    MemoryFile fFile;
    lxw_workbook* fpWorkbook = nullptr;
    std::vector<lxw_format*> fvFormats;
    std::deque<LibrarySheet> fSheets;
    lxw_error fError = LXW_NO_ERROR;
    std::string fReason;
};

}  // namespace

extern "C" __attribute__((visibility("default"))) void HierfitMakeBook(const Properties& properties,
                                                                       std::unique_ptr<Book>& book) {
    book = std::make_unique<LibraryBook>(properties);
}
