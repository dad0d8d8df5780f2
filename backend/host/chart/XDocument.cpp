#include "host/XDocument.h"

#include <exception>
#include <new>

#include "host/Diagnose.h"
#include "host/chart/Draft.h"
#include "host/chart/specification/Fragments.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

XDocument::XDocument(const std::string& xml) : fpDraft(std::make_shared<chart::Draft>(xml)) {}

XDocument::~XDocument() = default;

void XDocument::setEditor(int editor) { fpDraft->fEditor = editor; }

// Words take the language of the run when the chart is sent; there is nothing to choose.
void XDocument::setLanguage() {}

XGraph XDocument::getExternalGraph() { return XGraph(fpDraft); }

void XDocument::SetDescription(const ChartString& text) { fpDraft->fDescription = text.toUTF8(); }

void XDocument::SetChartData(const VarDataProcessor* processor) {
    fpDraft->fpData = processor ? processor->fpStore : nullptr;
}

bool XDocument::SendChart(bool first, bool second, bool third) {
    try {
        return fpDraft->Send({first, second, third});
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        Diagnose("chart \"" + unicode::Excerpt(fpDraft->fDescription) + "\" was left out: " + error.what());
        return false;
    }
}

bool XDocument::applyTemplates() {
    try {
        fpDraft->fXml = chart::ExpandFragments(fpDraft->fXml);
        return true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        Diagnose(std::string("a chart's fragments were left out: ") + error.what());
        return false;
    }
}

std::string XDocument::AsUTF8() const { return fpDraft->fXml; }

}  // namespace hierfit
