#pragma once

#include <string>

#include "host/KEST_Format.h"

namespace hierfit::chart {

/// A template's slot tied to a data variable, as the template's user gave it.
struct SlotBinding {
    std::string fSlot;
    std::string fName;
    bool fIsFactor;
    std::string fTitle;
    std::string fSource;
    const KEST_Format* fpFormat;  ///< null for none; read at once, not kept
    std::string fLabel;
};

/// Collects what is added to a template and writes it behind all that the template holds, so that no label can be taken
/// for one of the template's markers.
class TemplateBuilder {
  public:
    void SetName(const std::string& name) { fName = name; }
    void SetTitle(const std::string& title);
    void AddField(const SlotBinding& binding);

    /// The template's XML with title and fields in it; empty, with a diagnostic, when there is no such template.
    std::string Build() const;

  private:
    std::string fName;
    std::string fTitle;
    std::string fFields;
};

}  // namespace hierfit::chart
