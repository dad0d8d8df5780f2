#pragma once

#include <string>
#include <variant>

#include "host/session/Session.h"
#include "program/batch/EarlierReports.h"
#include "program/batch/Models.h"
#include "program/files/ExitStatus.h"
#include "report/formats/Format.h"
#include "report/formats/RenderSettings.h"
#include "report/index/IndexedModel.h"

namespace hierfit::program {

/// What the reports of a batch have in common.
struct BatchSettings {
    std::string fDirectory;
    report::Format fFormat;
    session::Settings fSession;
    report::RenderSettings fRender;
};

/// Why a model has no report, in one line.
struct BatchFailure {
    ExitStatus fStatus;
    std::string fReason;
};

using BatchResult = std::variant<report::IndexedModel, BatchFailure>;

/// Runs the procedure on a model, writes its report if that is still to be done, and gives what the index tells.
/// Several threads may do so at once for different models.
BatchResult MakeModelReport(const BatchModel& model, Work work, const BatchSettings& settings);

}  // namespace hierfit::program
