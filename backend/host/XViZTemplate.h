#pragma once

#include <memory>
#include <string>

#include "host/Export.h"
#include "host/KEST_Format.h"

namespace hierfit {

namespace chart {
class TemplateBuilder;
}

/// Kind of a template variable; 0 at every call.
enum class VARIABLE_TYPE { Unspecified = 0 };

/// Builds a chart specification from one of the library's own templates.
class HIERFIT_EXPORT XViZTemplate {
  public:
    XViZTemplate();
    ~XViZTemplate();
    XViZTemplate(const XViZTemplate&) = delete;
    XViZTemplate& operator=(const XViZTemplate&) = delete;

    void setTemplateInternalName(const std::string& name);

    /// Type 0 is the chart's title. The text is UTF-8.
    void addLabel(int type, const std::string& text);

    /// Ties a template slot to a data variable: slot name, variable name, whether it is a factor, a text that goes with
    /// it, its data source, its print format or null, its label. The last seven are 0 at every call.
    void addVariable(const std::string& slot, const std::string& name, bool isFactor, const std::string& title,
                     const std::string& source, const KEST_Format* format, const std::string& label,
                     VARIABLE_TYPE type = VARIABLE_TYPE::Unspecified, int o1 = 0, int o2 = 0, int o3 = 0, int o4 = 0,
                     int o5 = 0, int o6 = 0, int o7 = 0);

    /// The specification's XML in the first text, empty when there is no such template; the second stays empty.
    void convert(std::string& xml, std::string& second) const;

  private:
    std::unique_ptr<chart::TemplateBuilder> fpBuilder;
};

}  // namespace hierfit
