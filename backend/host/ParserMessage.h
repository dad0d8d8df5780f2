#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

/// Translates texts that the procedure needs as strings, in the language of the run that is under way.
class HIERFIT_EXPORT ParserMessage {
  public:
    void SetCommandName(const std::string& name) { fCommandName = name; }
    void SetProcedureTitle(const std::string& title) { fProcedureTitle = title; }

    /// The translated text of a source text or key, with ^1 to ^5 filled in by the arguments that are not null. A key
    /// that the catalogue lacks is its own text; a mark without an argument stays.
    std::string GetTranslatedText(const std::string& key, const char* a1, const char* a2, const char* a3,
                                  const char* a4, const char* a5) const;

  private:
    std::string fCommandName;
    std::string fProcedureTitle;
};

}  // namespace hierfit
