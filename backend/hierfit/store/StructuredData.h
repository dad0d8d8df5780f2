#pragma once

#include <string>
#include <vector>

#include "hierfit/store/SubjectData.h"
#include "host/CFStatVariableValue.h"
#include "host/SystemMissing.h"

namespace hierfit {

/// A repeated measures field in the records of the first subject.
struct RepeatMeasVar {
    std::string fRepMeas;
    int fRepMeasInd = -1;  ///< data-source index
    std::vector<CFStatVariableValue> fvValues;
    int fLevels = 0;  ///< number of categories
};

struct MatrixRow {
    std::vector<double> fvValues;
    double fRowTotal = 0;  ///< sum of the values; a missing one is not left out
};

/// A matrix as a full rectangle, whatever storage the document used.
struct MatrixData {
    int fNbRows = 0;
    std::vector<CFStatVariableValue> fvLabels;  ///< target categories
    std::vector<MatrixRow> fvRows;
};

using ClassifMatrixData = MatrixData;

/// The covariance matrices of one random effect block. Entry i of the matrices belongs to entry i of the subjects.
struct RandEffCovars {
    std::string fStatName;
    double fStatistic = kSystemMissing;
    std::vector<std::string> fvLabels;  ///< of the rows and of the columns
    std::vector<SubjectData> fSimpleSubjects;
    std::vector<MatrixData> fMatrixValues;
};

/// How the data is laid out: the records of the first subject, and the covariance matrices of the random effects.
struct StructuredData {
    int fTotalFreq = 0;  ///< number of records of the first subject
    SubjectData fSubjectData;
    std::vector<RepeatMeasVar> fvRepeatedMeasures;
    std::vector<CFStatVariableValue> fvTargetValues;
    std::vector<CFStatVariableValue> fvTrialsValues;
    std::vector<RandEffCovars> fvRandEffCovars;  ///< the position is the block's number
};

}  // namespace hierfit
