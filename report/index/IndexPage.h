#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/Export.h"
#include "report/html/HtmlSettings.h"
#include "report/index/IndexedModel.h"

namespace hierfit::report {

/// The reports that lie beside an index, and the models that have none.
struct Index {
    std::string fProducer;
    std::vector<IndexedModel> fvModels;  ///< in the order in which they are shown
    std::vector<IndexedFailure> fvFailures;
};

/// The index as a page that needs no script. Each row keeps the figures it shows in attributes, with all their digits:
/// `data-target`, `data-records`, `data-akaike`, `data-bayesian`, `data-warnings`, and `data-folder`, a relative
/// reference like the link to the report, `data-report`.
HIERFIT_EXPORT std::string MakeIndexPage(const Index& index, const HtmlSettings& settings);

/// The models of a page that `MakeIndexPage` wrote, without the paths that the user named. Other rows are left out.
HIERFIT_EXPORT std::vector<IndexedModel> ReadIndexPage(std::string_view page);

}  // namespace hierfit::report
