#include "host/BpPivotTable.h"
#include "host/BpProcedure.h"
#include "host/context/RunContext.h"
#include "host/pivot/HeadingBuilder.h"
#include "host/pivot/TableBuilder.h"

namespace hierfit {

namespace {

std::shared_ptr<pivot::HeadingBuilder> MakeRoot() {
    context::RunContext& context = context::RunContext::Current();
    return std::make_shared<pivot::HeadingBuilder>(context, context.GetDocument().fItems);
}

}  // namespace

BpHeading BpHeading::Heading(const BpCellText& title) {
    context::RunContext& context = fpHeading->GetContext();
    document::Heading& heading = fpHeading->AddHeading(*title.GetText());
    auto builder = std::make_shared<pivot::HeadingBuilder>(context, heading.fItems);
    context.OpenHeading(std::shared_ptr<std::list<document::Item>>(builder, &heading.fItems));
    return BpHeading(std::move(builder));
}

BpPivotTable BpHeading::PivotTable(const BpCellText& title, const BpString& subtype, bool flag) {
    document::Table& table = fpHeading->AddTable(*title.GetText(), *subtype.GetText(), flag);
    return BpPivotTable(std::make_shared<pivot::TableBuilder>(table));
}

BpProcedure::BpProcedure() : BpHeading(MakeRoot()) {}

BpFormatSpec BpProcedure::Coefficient() { return {document::FormatName::Coefficient}; }
BpFormatSpec BpProcedure::CoefficientSE() { return {document::FormatName::CoefficientSE}; }
BpFormatSpec BpProcedure::Significance() { return {document::FormatName::Significance}; }
BpFormatSpec BpProcedure::GeneralStat() { return {document::FormatName::GeneralStat}; }
BpFormatSpec BpProcedure::Count() { return {document::FormatName::Count}; }
BpFormatSpec BpProcedure::Percent() { return {document::FormatName::Percent}; }
BpFormatSpec BpProcedure::SigDigit(double number) { return {document::FormatName::SigDigit, number}; }

}  // namespace hierfit
