#pragma once

#include <string>

#include "host/document/Document.h"
#include "interface/hierfit.h"

/// What C calls hf_run_t: the document that a run or a saved text left behind.
struct hf_run_t {
    int fOutcome = HF_UNREADABLE;
    hierfit::document::Document fDocument;
    std::string fError;  ///< of the last call; none if empty
    std::string fPlace;  ///< of the last diagnostic that was asked for
};
