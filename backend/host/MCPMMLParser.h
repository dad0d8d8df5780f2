#pragma once

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "host/Export.h"

namespace hierfit {

namespace pmml {
class Dictionary;
}

/// How a call of the PMML metadata reader ended. The session, which reads the same document for the data
/// source, tells the reason.
class MCStatus {
  public:
    explicit MCStatus(bool isError) : fIsError(isError) {}
    bool IsError() const { return fIsError; }

  private:
    bool fIsError;
};

/// One variable of the model.
class HIERFIT_EXPORT IMCVariable {
  public:
    virtual ~IMCVariable() = default;

    /// Writes the variable's name.
    virtual void GetName(std::string& name) const = 0;

    /// 1 continuous, 2 categorical, 3 ordinal.
    virtual int GetKind() const = 0;

    /// Number of categories; meaningful for kinds 2 and 3.
    virtual int GetCategoryCount() const = 0;
};

/// The variables of the model, in the order of the PMML document's mining schema. It owns them.
class HIERFIT_EXPORT MCVarList {
  public:
    virtual ~MCVarList() = default;

    int Size() const { return static_cast<int>(fvVariables.size()); }

    /// The variable at an index from 0 to `Size()` - 1.
    const IMCVariable* GetVarAt(int index) const { return fvVariables[static_cast<std::size_t>(index)].get(); }

    /// Takes a variable to the end of the list.
    void Append(std::unique_ptr<IMCVariable> variable) { fvVariables.push_back(std::move(variable)); }

  private:
    std::vector<std::unique_ptr<IMCVariable>> fvVariables;
};

/// Reads the fields of a PMML 4.x document.
class HIERFIT_EXPORT MCPMMLParser {
  public:
    MCPMMLParser();
    ~MCPMMLParser();

    /// Reads the document. An error when it is not XML, or has no usable data dictionary or mining schema.
    MCStatus ParseToDOM(std::istream& stream);

    /// Appends the model's variables to the list: those named, or all when `names` is empty. The last argument is false
    /// at every call. An error before a successful `ParseToDOM`, or when a name is not a variable of the model.
    MCStatus FillVarList(MCVarList* list, const std::vector<std::string>& names, bool flag) const;

  private:
    std::unique_ptr<const pmml::Dictionary> fpDictionary;
};

}  // namespace hierfit
