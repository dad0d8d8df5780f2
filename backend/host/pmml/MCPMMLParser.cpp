#include "host/MCPMMLParser.h"

#include <array>
#include <optional>
#include <unordered_map>
#include <utility>
#include <variant>

#include "host/pmml/Dictionary.h"

namespace hierfit {

namespace {

class ModelVariable final : public IMCVariable {
  public:
    explicit ModelVariable(const pmml::Field& field)
        : fName(field.fName),
          fMeasurementLevel(field.fMeasurementLevel),
          fCategoryCount(static_cast<int>(field.fvCategories.size())) {}

    void GetName(std::string& name) const override { name = fName; }

    /// Levels count categorical, ordinal, continuous; kinds count continuous, categorical, ordinal.
    int GetKind() const override { return fMeasurementLevel % 3 + 1; }

    int GetCategoryCount() const override { return fCategoryCount; }

  private:
    std::string fName;
    int fMeasurementLevel;
    int fCategoryCount;
};

std::string ReadAll(std::istream& stream) {
    std::string text;
    std::array<char, 65536> block;
    do {
        stream.read(block.data(), static_cast<std::streamsize>(block.size()));
        text.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream);
    return text;
}

/// The fields of the named variables, in the order of the names, or null when one is no variable of the model.
std::optional<std::vector<const pmml::Field*>> SelectFields(const pmml::Dictionary& dictionary,
                                                            const std::vector<std::string>& names) {
    std::vector<const pmml::Field*> all;
    std::unordered_map<std::string, const pmml::Field*> byName;
    for (int index : dictionary.GetVariables()) {
        all.push_back(&dictionary.GetFields()[static_cast<std::size_t>(index)]);
        byName.emplace(all.back()->fName, all.back());
    }
    if (names.empty()) return all;
    std::vector<const pmml::Field*> selected;
    for (const std::string& name : names) {
        const auto found = byName.find(name);
        if (found == byName.end()) return {};
        selected.push_back(found->second);
    }
    return selected;
}

}  // namespace

MCPMMLParser::MCPMMLParser() = default;
MCPMMLParser::~MCPMMLParser() = default;

MCStatus MCPMMLParser::ParseToDOM(std::istream& stream) {
    fpDictionary.reset();
    auto result = pmml::Dictionary::Read(ReadAll(stream));
    auto* dictionary = std::get_if<pmml::Dictionary>(&result);
    if (!dictionary) return MCStatus(true);
    fpDictionary = std::make_unique<const pmml::Dictionary>(std::move(*dictionary));
    return MCStatus(false);
}

MCStatus MCPMMLParser::FillVarList(MCVarList* list, const std::vector<std::string>& names, bool) const {
    if (!list || !fpDictionary) return MCStatus(true);
    const auto fields = SelectFields(*fpDictionary, names);
    if (!fields) return MCStatus(true);
    for (const pmml::Field* field : *fields) list->Append(std::make_unique<ModelVariable>(*field));
    return MCStatus(false);
}

}  // namespace hierfit
