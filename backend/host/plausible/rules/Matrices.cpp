#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/plausible/figures/Columns.h"
#include "host/plausible/rules/Comparisons.h"
#include "host/plausible/rules/Rules.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::plausible {

namespace {

constexpr Node kNone = xml::Document::kNone;

/// A square matrix as it is stored; empty where the sizes do not fit.
class Matrix {
  public:
    Matrix(const xml::Document& document, Node node) {
        const std::string_view kind = document.Attribute(node, "kind").value_or("");
        fIsDiagonal = kind == "diagonal";
        fIsTriangle = kind == "symmetric";
        fColumn.Read(document, node);
        const MaybeFigure rows = FigureOf(document, node, "nbRows");
        const MaybeFigure columns = FigureOf(document, node, "nbCols");
        if (!rows || !(rows->fValue >= 1) || rows->fValue > static_cast<double>(fColumn.Size())) return;
        if (columns && columns->fValue != 0 && columns->fValue != rows->fValue) return;
        const auto size = static_cast<std::size_t>(rows->fValue);
        const std::size_t wanted = fIsDiagonal ? size : fIsTriangle ? size * (size + 1) / 2 : size * size;
        if (wanted == fColumn.Size()) fSize = size;
    }

    std::size_t Size() const { return fSize; }
    bool IsFull() const { return !fIsDiagonal && !fIsTriangle; }
    bool IsDiagonal() const { return fIsDiagonal; }

    /// Below or on the diagonal, or anywhere in a full one.
    MaybeFigure At(std::size_t row, std::size_t column) const {
        if (fIsDiagonal) return fColumn.At(row);
        return fColumn.At(fIsTriangle ? row * (row + 1) / 2 + column : row * fSize + column);
    }

  private:
    Column fColumn;
    std::size_t fSize = 0;
    bool fIsDiagonal = false;
    bool fIsTriangle = false;
};

/// Whether two places that mirror each other differ, and not by rounding alone.
bool AreDifferent(const Figure& a, const Figure& b) {
    const double difference = std::abs(a.fValue - b.fValue);
    if (difference <= 1e-6 * std::max(std::abs(a.fValue), std::abs(b.fValue))) return false;
    return difference > RoundingBeside(a, {b}) + RoundingBeside(b, {a});
}

void JudgeCovariances(const Model& model, Findings& findings, Node node) {
    const Matrix matrix(model.fDocument, node);
    const Item item{node, {}};
    std::vector<MaybeFigure> variances;
    for (std::size_t row = 0; row < matrix.Size(); ++row) {
        const MaybeFigure& variance = variances.emplace_back(matrix.At(row, row));
        if (variance && variance->fValue < 0)
            findings.Add(Kind::Variance, item,
                         fmt::format("row {}: {} is a negative variance", row + 1, Show(*variance)));
        for (std::size_t column = 0; column < row && !matrix.IsDiagonal(); ++column) {
            const MaybeFigure covariance = matrix.At(row, column);
            const MaybeFigure mirrored = matrix.IsFull() ? matrix.At(column, row) : covariance;
            if (!covariance || !mirrored) continue;
            if (AreDifferent(*covariance, *mirrored)) {
                findings.Add(Kind::Symmetry, item,
                             fmt::format("row {}, column {} is {}, and the other way round {}", row + 1, column + 1,
                                         Show(*covariance), Show(*mirrored)));
            } else if (variance && variances[column]) {
                JudgeCovarianceAmong(findings, item, *covariance, *variance, *variances[column]);
            }
        }
    }
}

/// Counts and, where all are there, the share of those on the diagonal.
void JudgeClassification(const Model& model, Findings& findings, Node node, const Named& accuracy) {
    const Matrix matrix(model.fDocument, node);
    if (!matrix.IsFull()) return;
    const Item item{node, {}};
    double total = 0;
    double right = 0;
    bool isWhole = true;
    for (std::size_t row = 0; row < matrix.Size(); ++row) {
        for (std::size_t column = 0; column < matrix.Size(); ++column) {
            const Named count{"count", matrix.At(row, column)};
            JudgeCount(findings, item, count);
            const double value = count.fFigure ? count.fFigure->fValue : -1;
            isWhole = isWhole && value >= 0;
            total += value;
            if (row == column) right += value;
        }
    }
    if (!isWhole || !IsProbability(accuracy.fFigure) || !(total > 0)) return;
    const double share = right / total;
    if (std::abs(accuracy.fFigure->fValue - share) <= RoundingOf(*accuracy.fFigure, 0.005) + 1e-6) return;
    findings.Add(Kind::Share, item,
                 fmt::format("classificationAccuracy {} contradicts the counts, of which {:.4g} are on the diagonal",
                             Show(*accuracy.fFigure), share));
}

}  // namespace

void JudgeMatrices(const Model& model, Findings& findings) {
    if (model.fDiagnostics == kNone) return;
    const xml::Document& document = model.fDocument;
    for (const Node each : xml::NamedChildren(document, model.fDiagnostics, "StructuredData")) {
        if (document.Attribute(each, "description") != "randomEffectCovariances") continue;
        for (const Node segment : xml::NamedChildren(document, each, "SegmentData")) {
            const Node matrix = document.FirstChild(segment, "Matrix");
            if (matrix != kNone) JudgeCovariances(model, findings, matrix);
        }
    }
    const Node table = document.FirstChild(model.fDiagnostics, "Matrix");
    if (table == kNone || document.Attribute(table, "description") != "classificationTable") return;
    Named accuracy{"classificationAccuracy", std::nullopt};
    for (const Node each : xml::NamedChildren(document, model.fDiagnostics, "Statistic")) {
        if (document.Attribute(each, "name") == accuracy.fName) accuracy.fFigure = FigureOf(document, each, "value");
    }
    JudgeClassification(model, findings, table, accuracy);
}

}  // namespace hierfit::plausible
