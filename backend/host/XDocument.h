#pragma once

#include <memory>
#include <string>

#include "host/ChartString.h"
#include "host/Export.h"
#include "host/KEST_Variable.h"
#include "host/VarDataProcessor.h"

namespace hierfit {

namespace chart {
class Draft;
}

/// Settings of one data variable of a chart: how it is named, formatted and labelled. The call that counts is the last.
class HIERFIT_EXPORT XVariable {
  public:
    void setLabel(const ChartString& label);
    void setFormat(const KEST_Format& format);
    void setKESTVariable(const KEST_Variable* variable);
    void setFormatBasedOnKESTVariable(const KEST_Variable* variable);
    void setCategorical(bool categorical);
    void SetFormatPrefix(const ChartString& prefix);

    /// Shows one value as a text.
    void addRelabel(const ChartString& value, const ChartString& label);
    void addRelabel(double value, const ChartString& label);

    /// Shows the values of the variable set by `setKESTVariable` as their value labels.
    void addRelabels();

  private:
    friend class XGraph;
    XVariable(std::shared_ptr<chart::Draft> draft, int entry) : fpDraft(std::move(draft)), fEntry(entry) {}

    std::shared_ptr<chart::Draft> fpDraft;
    int fEntry;
};

/// The graph of a chart document.
class HIERFIT_EXPORT XGraph {
  public:
    /// The index-th variable of that name over the chart's data sources, from 0. It is never refused: what it means is
    /// settled when the chart is sent.
    XVariable getVariable(const std::string& name, int index);

  private:
    friend class XDocument;
    explicit XGraph(std::shared_ptr<chart::Draft> draft) : fpDraft(std::move(draft)) {}

    std::shared_ptr<chart::Draft> fpDraft;
};

/// A chart, made from its specification.
class HIERFIT_EXPORT XDocument {
  public:
    /// Takes chart XML in UTF-8; it is read when the chart is sent.
    explicit XDocument(const std::string& xml);
    ~XDocument();

    void setEditor(int editor);
    void setLanguage();
    XGraph getExternalGraph();
    void SetDescription(const ChartString& text);
    void SetChartData(const VarDataProcessor* processor);

    /// Puts the chart into the output, under the innermost heading that still has a handle.
    bool SendChart(bool first, bool second, bool third);

    /// Expands the specification in place; what has been expanded stays as it is.
    bool applyTemplates();
    std::string AsUTF8() const;

  private:
    std::shared_ptr<chart::Draft> fpDraft;
};

}  // namespace hierfit
