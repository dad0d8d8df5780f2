#pragma once

#include <optional>
#include <string>

#include "host/Export.h"
#include "host/document/Document.h"

namespace hierfit::report {

/// What an index of reports tells of one model. All but the paths may be missing.
struct IndexedModel {
    std::string fPath;    ///< of the model's folder, as the user named it
    std::string fFolder;  ///< the same as it is seen from the index; what the model is known by
    std::string fReport;  ///< name of the report, a file or folder beside the index
    std::string fTarget;  ///< with the trials that its events are counted out of
    std::optional<double> fRecords;
    std::optional<double> fAkaike;
    std::optional<double> fBayesian;
    int fWarnings = 0;  ///< messages and diagnostics that are warnings or errors
};

/// A model that has no report, and why.
struct IndexedFailure {
    std::string fPath;
    std::string fReason;
};

/// Fills in what the output document tells; the paths stay.
HIERFIT_EXPORT void Describe(IndexedModel& model, const document::Document& document);

}  // namespace hierfit::report
