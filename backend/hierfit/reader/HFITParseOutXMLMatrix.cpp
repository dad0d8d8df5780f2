#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"
#include "host/Conversions.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

/// Cells that all diagonal matrices of a document may have beyond those that it states.
constexpr std::int64_t kMostFilledCells = 16'000'000;

MatrixRow& AppendRow(MatrixData& matrix, std::size_t nColumns) {
    MatrixRow& row = matrix.fvRows.emplace_back();
    row.fvValues.reserve(nColumns);
    return row;
}

void Place(MatrixRow& row, double value) {
    row.fvValues.push_back(value);
    row.fRowTotal += value;
}

void UnpackDiagonal(const std::vector<double>& v, MatrixData& matrix) {
    for (std::size_t i = 0; i < v.size(); ++i) {
        MatrixRow& row = AppendRow(matrix, v.size());
        row.fvValues.resize(v.size());
        row.fvValues[i] = row.fRowTotal = v[i];
    }
}

/// The lower triangle by rows.
void UnpackSymmetric(const std::vector<double>& v, std::size_t nRows, MatrixData& matrix) {
    for (std::size_t i = 0; i < nRows; ++i) {
        MatrixRow& row = AppendRow(matrix, nRows);
        for (std::size_t j = 0; j < nRows; ++j) Place(row, i > j ? v[i * (i + 1) / 2 + j] : v[j * (j + 1) / 2 + i]);
    }
}

void UnpackFull(const std::vector<double>& v, std::size_t nRows, std::size_t nColumns, MatrixData& matrix) {
    for (std::size_t i = 0; i < nRows; ++i) {
        MatrixRow& row = AppendRow(matrix, nColumns);
        for (std::size_t j = 0; j < nColumns; ++j) Place(row, v[i * nColumns + j]);
    }
}

}  // namespace

bool HFITParseOutXML::ReadMatrix(SDOMXMLWrapper* element, MatrixData* record) {
    std::string nbRows;
    if (!element->GetAttribute("nbRows", nbRows)) return false;
    const std::string kind = AttributeText(*element, "kind");
    record->fNbRows = String2Integer(nbRows);
    const int nColumns = IntegerOr(AttributeText(*element, "nbCols"), 0);
    if (!fpBuildSettings->fUseTrials && !ReadMatrixLabels(*element, record)) return false;

    const SDOMXMLWrapper* array = FirstElement(*element, "Array");
    std::vector<double> v;
    if (!array || !ReadNumbers(*array, v)) return false;
    return UnpackMatrix(*element, v, kind, nColumns, record);
}

bool HFITParseOutXML::ReadMatrixLabels(const SDOMXMLWrapper& element, MatrixData* record) {
    const SDOMXMLWrapper* rowColLabels = FirstElement(element, "MatrixLabels/RowColLabels");
    if (!rowColLabels) return true;
    const Elements labels(*rowColLabels, "Label");
    if (labels.Empty()) return false;
    const KEST_Variable* target = fDataSource->GetVariable(fpBuildSettings->fTargetIndex);
    for (const SDOMXMLWrapper& label : labels) {
        std::string text;
        if (!label.GetAttribute("label", text)) return false;
        CFStatVariableValue value(text);
        value.LoadObsValue(target, 0);
        record->fvLabels.push_back(std::move(value));
    }
    return true;
}

bool HFITParseOutXML::UnpackMatrix(const SDOMXMLWrapper& element, const std::vector<double>& v, const std::string& kind,
                                   int nbCols, MatrixData* record) {
    const std::int64_t r = record->fNbRows;
    const std::int64_t c = nbCols == 0 ? r : nbCols;
    const bool isDiagonal = kind == "diagonal";
    const bool isSymmetric = kind == "symmetric";
    const std::int64_t size = isDiagonal ? r : isSymmetric ? r * (r + 1) / 2 : r * c;
    if (r < 0 || c < 0) {
        Diagnose(element, "the matrix has a negative size");
        return false;
    }
    if (size != static_cast<std::int64_t>(v.size())) {
        Diagnose(element, "the matrix has " + std::to_string(v.size()) + " numbers, not " + std::to_string(size));
        return false;
    }
    if (isDiagonal) {
        fFilledCells += r * (r - 1);
        if (fFilledCells > kMostFilledCells) {
            Diagnose(element, "the document's diagonal matrices are too large to be filled up");
            return false;
        }
        UnpackDiagonal(v, *record);
    } else if (isSymmetric) {
        UnpackSymmetric(v, static_cast<std::size_t>(r), *record);
    } else {
        UnpackFull(v, static_cast<std::size_t>(r), static_cast<std::size_t>(c), *record);
    }
    return true;
}

}  // namespace hierfit
