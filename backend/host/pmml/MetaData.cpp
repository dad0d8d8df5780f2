#include <unordered_map>

#include "host/pmml/Dictionary.h"

namespace hierfit::pmml {

namespace {

class TypedField final : public CFField {
  public:
    explicit TypedField(int type) : fType(type) {}
    int GetType() const override { return fType; }

  private:
    int fType;
};

class MetaData final : public CFMetaData {
  public:
    explicit MetaData(const std::vector<Field>& fields) {
        for (const Field& field : fields) {
            fIndices.emplace(field.fName, FieldCount());
            fvFields.push_back(std::make_unique<TypedField>(field.fType));
        }
    }

    int FieldCount() const override { return static_cast<int>(fvFields.size()); }

    int GetFieldIndex(const std::string& name) const override {
        const auto found = fIndices.find(name);
        return found == fIndices.end() ? -1 : found->second;
    }

    CFField* GetField(int index) const override {
        return index < 0 || index >= FieldCount() ? nullptr : fvFields[static_cast<std::size_t>(index)].get();
    }

  private:
    std::vector<std::unique_ptr<TypedField>> fvFields;
    std::unordered_map<std::string, int> fIndices;
};

}  // namespace

std::unique_ptr<CFMetaData> MakeMetaData(const Dictionary& dictionary) {
    return std::make_unique<MetaData>(dictionary.GetFields());
}

}  // namespace hierfit::pmml
