#include "report/charts/svg/Forms.h"

#include "host/unicode/SignedFigures.h"
#include "report/charts/svg/Numbers.h"
#include "report/markup/Escape.h"

namespace hierfit::report::charts {

namespace {

/// Prints path data, each point by its distance from the one before, which is shorter.
class PathData {
  public:
    explicit PathData(std::string& out) : fOut(out) {}

    /// To a place of the picture, or from where the part before ended if that is shorter.
    void MoveTo(Point point) {
        const long long x = fX;
        const long long y = fY;
        Take(point);
        std::string absolute = "M";
        AppendPair(absolute, fX, fY);
        std::string relative = "m";
        if (fHasBegun) AppendPair(relative, fX - x, fY - y);
        fOut += fHasBegun && relative.size() < absolute.size() ? relative : absolute;
        fHasBegun = true;
    }

    void LineTo(Point point) {
        const long long x = fX;
        const long long y = fY;
        Take(point);
        if (fY == y) {
            fOut += 'h';
            AppendTenths(fOut, fX - x);
        } else if (fX == x) {
            fOut += 'v';
            AppendTenths(fOut, fY - y);
        } else {
            fOut += 'l';
            AppendPair(fOut, fX - x, fY - y);
        }
    }

    void operator()(const Line& line) {
        MoveTo(line.fFrom);
        LineTo(line.fTo);
    }

    void operator()(const Path& path) {
        fIsCoarse = path.fIsCoarse;
        for (const std::vector<Point>& part : path.fvParts) {
            for (const Point& point : part) &point == part.data() ? MoveTo(point) : LineTo(point);
            // A line is no shape.
            if (path.fIsClosed && !part.empty() && part.size() != 2) Close(part.front());
        }
    }

    template <typename Other>
    void operator()(const Other&) {}

  private:
    void Take(Point point) {
        fX = RoundedTenths(point.fX);
        fY = RoundedTenths(point.fY);
    }

    long long RoundedTenths(double pixels) const { return fIsCoarse ? 10 * TenthsOf(pixels / 10) : TenthsOf(pixels); }

    void Close(Point first) {
        Take(first);
        fOut += 'z';
    }

    static void AppendPair(std::string& out, long long x, long long y) {
        AppendTenths(out, x);
        if (y >= 0) out += ' ';
        AppendTenths(out, y);
    }

    std::string& fOut;
    long long fX = 0;
    long long fY = 0;
    bool fHasBegun = false;
    bool fIsCoarse = false;
};

// Blanks count, but without being told so readers of SVG take several for one, and leave out those at the ends.
bool HasBlanksToKeep(std::string_view words) {
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r'; };
    bool wasBlank = true;
    for (const char byte : words) {
        if (isBlank(byte) && wasBlank) return true;
        wasBlank = isBlank(byte);
    }
    return wasBlank && !words.empty();
}

/// Appends a form's element, as far as its attributes tell it.
struct FormWriter {
    std::string& fOut;
    const std::string& fAttributes;
    const std::string& fContent;

    void operator()(const Rectangle& form) const {
        fOut.append("<rect").append(fAttributes);
        AppendNumber(fOut, "x", form.fAt.fX);
        AppendNumber(fOut, "y", form.fAt.fY);
        AppendNumber(fOut, "width", std::max(0.0, form.fWidth));
        AppendNumber(fOut, "height", std::max(0.0, form.fHeight));
        if (form.fRound > 0) AppendNumber(fOut, "rx", form.fRound);
        Close("rect");
    }

    void operator()(const Circle& form) const {
        fOut.append("<circle").append(fAttributes);
        AppendNumber(fOut, "cx", form.fAt.fX);
        AppendNumber(fOut, "cy", form.fAt.fY);
        AppendNumber(fOut, "r", std::max(0.0, form.fRadius));
        Close("circle");
    }

    void operator()(const Line& form) const { AppendPath(form); }
    void operator()(const Path& form) const { AppendPath(form); }

    void operator()(const Text& form) const {
        fOut.append("<text").append(fAttributes);
        if (TenthsOf(form.fTurn) == 0) {
            AppendNumber(fOut, "x", form.fAt.fX);
            AppendNumber(fOut, "y", form.fAt.fY);
        } else {
            AppendTurn(form);
        }
        if (HasBlanksToKeep(form.fWords)) fOut += " xml:space=\"preserve\"";
        fOut.append(">").append(fContent);
        AppendCharacters(fOut, unicode::KeepSigns(form.fWords));
        fOut += "</text>";
    }

  private:
    template <typename AnyPath>
    void AppendPath(const AnyPath& path) const {
        fOut.append("<path").append(fAttributes).append(" d=\"");
        PathData{fOut}(path);
        fOut += '"';
        Close("path");
    }

    void Close(const char* name) const {
        if (fContent.empty()) {
            fOut += "/>";
        } else {
            fOut.append(">").append(fContent).append("</").append(name).append(">");
        }
    }

    void AppendTurn(const Text& form) const {
        fOut += " transform=\"translate(";
        AppendTenths(fOut, TenthsOf(form.fAt.fX));
        fOut += ' ';
        AppendTenths(fOut, TenthsOf(form.fAt.fY));
        fOut += ")rotate(";
        AppendTenths(fOut, TenthsOf(form.fTurn));
        fOut += ")\"";
    }
};

}  // namespace

void AppendForm(std::string& out, const Form& form, const std::string& attributes, const std::string& content) {
    std::visit(FormWriter{out, attributes, content}, form);
}

void AppendDot(std::string& out, const Circle& circle, const std::string& attributes, const std::string& content) {
    AppendForm(out, Path{{{circle.fAt}}, true}, attributes, content);
}

bool IsLines(const Form& form) { return std::holds_alternative<Line>(form) || std::holds_alternative<Path>(form); }

void AppendLines(std::string& out, std::span<const Shape> lines, const std::string& attributes) {
    out.append("<path").append(attributes).append(" d=\"");
    PathData data(out);
    for (const Shape& line : lines) std::visit(data, line.fForm);
    out += "\"/>";
}

}  // namespace hierfit::report::charts
