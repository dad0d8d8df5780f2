#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

/// Looks texts up in the run's string table, for texts whose marks the caller fills in itself.
class HIERFIT_EXPORT FacSTDictionary {
  public:
    /// Takes the location that `PathFinder::GetStringTableLocation` gives.
    explicit FacSTDictionary(const std::string& location);

    void SetProcedure(const std::string& title) { fProcedure = title; }
    void SetGlobalStringTable(const std::string& location) { fLocation = location; }

    /// The translated text of a source text or key, its marks untouched; the key itself when the table lacks it.
    std::string LookUp(const std::string& key) const;

  private:
    std::string fLocation;
    std::string fProcedure;
};

}  // namespace hierfit
