#include "host/framework/MissText.h"

#include <fmt/format.h>

#include <string>

#include "host/context/RunContext.h"
#include "host/unicode/Excerpt.h"
#include "host/xml/Document.h"

namespace hierfit::framework {

namespace {

using context::Miss;

std::string Reason(const Miss& miss) {
    switch (miss.fKind) {
        case Miss::Kind::Attribute:
            return fmt::format("attribute \"{}\" expected", unicode::Excerpt(miss.fName));
        case Miss::Kind::Element:
            return fmt::format("element \"{}\" expected", unicode::Excerpt(miss.fName));
        case Miss::Kind::Array:
            return "the array's quotes do not close";
        case Miss::Kind::Field:
            return fmt::format("\"{}\" is no field of the data source", unicode::Excerpt(miss.fName));
        case Miss::Kind::Value:
            break;
    }
    return fmt::format("\"{}\" is no value of variable \"{}\"", unicode::Excerpt(miss.fName),
                       unicode::Excerpt(miss.fOwner));
}

}  // namespace

std::optional<document::Diagnostic> DescribeMiss(const context::RunContext& run) {
    const Miss* miss = run.GetMiss();
    if (!miss) return std::nullopt;
    const xml::Document* document = run.GetLastXml().get();
    if (!document || miss->fNode >= document->Size()) return document::Diagnostic{3, Reason(*miss), std::nullopt};
    const auto [line, column] = document->PositionOf(miss->fNode);
    return document::Diagnostic{3, unicode::Excerpt(document->PathOf(miss->fNode)) + ": " + Reason(*miss),
                                document::Place{document::kStatXmlSource, line, column}};
}

}  // namespace hierfit::framework
