#include "host/BpCellText.h"

#include "host/context/RunContext.h"
#include "host/document/NumberFormat.h"
#include "host/document/Text.h"

namespace hierfit {

namespace {

using context::Labels;

std::shared_ptr<const document::Text> MakeText(std::string words, document::Source source) {
    return std::make_shared<const document::Text>(document::Text{std::move(words), std::move(source)});
}

std::shared_ptr<const document::Text> MakeStringText(const std::string& text, bool translate) {
    std::string words(translate ? context::RunContext::Current().Translate(text) : text);
    return MakeText(std::move(words), document::StringSource{text, translate});
}

std::shared_ptr<const document::Text> MakeNumberText(double number, const BpFormatSpec& spec) {
    const document::Format format{spec.fName, spec.fArgument};
    return MakeText(document::FormatNumber(number, format), document::NumberSource{number, format});
}

// What the user wants to see of a thing that may have a label.
std::string Choose(Labels wanted, std::string name, const char* label) {
    if (!label || !*label || wanted == Labels::Name) return name;
    if (wanted == Labels::Label) return label;
    return std::move(name) + " (" + label + ')';
}

std::shared_ptr<const document::Text> MakeVariableText(const KEST_Variable* variable, BpShow show) {
    const int showNumber = static_cast<int>(show);
    if (!variable) return MakeText({}, document::VariableSource{{}, showNumber});
    const Labels wanted = context::RunContext::Current().GetSettings().fVariables;
    return MakeText(Choose(wanted, variable->GetName(), variable->GetLabel()),
                    document::VariableSource{variable->GetName(), showNumber});
}

std::string DescribePlainValue(const OBS& value) {
    if (value.IsText()) return value.Text();
    return document::FormatNumber(value.Number(), {document::FormatName::SigDigit, value.Number()});
}

std::string DescribeValue(const KEST_Variable& variable, const OBS& value) {
    const Labels wanted = context::RunContext::Current().GetSettings().fValues;
    const char* label = KEST_ValueLabelMap(variable.GetValueLabels()).GetLabel(&value);
    return Choose(wanted, ToString(&value, variable.GetFormat()), label);
}

std::shared_ptr<const document::Text> MakeValueText(const KEST_Variable* variable, const OBS& value,
                                                    BpPreference preference) {
    document::ValueSource source{{}, variable ? variable->GetName() : "", static_cast<int>(preference)};
    if (value.IsText()) {
        source.fValue = value.Text();
    } else {
        source.fValue = value.Number();
    }
    return MakeText(variable ? DescribeValue(*variable, value) : DescribePlainValue(value), std::move(source));
}

}  // namespace

BpString::BpString(const std::string& text, bool translate) : BpCellText(MakeStringText(text, translate)) {}

BpNumber::BpNumber(double number, BpFormatSpec format) : BpCellText(MakeNumberText(number, format)) {}

BpVariable::BpVariable(const KEST_Variable* variable, BpShow show) : BpCellText(MakeVariableText(variable, show)) {}

BpDataValue::BpDataValue(const KEST_Variable* variable, const OBS* value, BpPreference preference)
    : BpCellText(MakeValueText(variable, value ? *value : OBS(), preference)) {}

BpDataValue::BpDataValue(const KEST_Variable* variable, double value, BpPreference preference)
    : BpCellText(MakeValueText(variable, OBS(value), preference)) {}

}  // namespace hierfit
