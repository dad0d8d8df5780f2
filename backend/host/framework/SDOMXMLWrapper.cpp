#include "host/SDOMXMLWrapper.h"

#include <optional>
#include <string_view>
#include <utility>
#include <variant>

#include "host/context/RunContext.h"
#include "host/framework/SimpleArray.h"
#include "host/framework/XmlPool.h"
#include "host/unicode/Excerpt.h"
#include "host/xml/Document.h"

namespace hierfit {

namespace {

using context::Miss;
using context::RunContext;
using Node = xml::Document::Node;

void Touch(Node node) {
    if (RunContext* run = RunContext::CurrentOrNull()) run->Touch(node);
}

void SetMiss(Miss::Kind kind, std::string_view name, Node node) {
    if (RunContext* run = RunContext::CurrentOrNull()) run->SetMiss(kind, name, {}, node);
}

/// The first element at a path below a node in document order, or kNone and the miss of the last step that failed. A
/// step that leads no further is left for the next one of its name.
Node Walk(const xml::Document& document, Node node, std::string_view path) {
    const std::size_t slash = path.find('/');
    Node child = document.FirstChild(node, path.substr(0, slash));
    if (child == xml::Document::kNone) SetMiss(Miss::Kind::Element, path, node);
    if (slash == std::string_view::npos) return child;
    for (; child != xml::Document::kNone; child = document.NextOfName(child)) {
        const Node found = Walk(document, child, path.substr(slash + 1));
        if (found != xml::Document::kNone) return found;
    }
    return xml::Document::kNone;
}

void TellError(const xml::ParseError& error) {
    RunContext* run = RunContext::CurrentOrNull();
    if (!run) return;
    run->AddDiagnostic(3, error.fReason + '\n' + error.fExcerpt,
                       document::Place{document::kStatXmlSource, error.fLine, error.fColumn});
}

void RememberDocument(std::shared_ptr<const xml::Document> document) {
    RunContext* run = RunContext::CurrentOrNull();
    if (!run) return;
    run->SetLastXml(std::move(document));
    run->Touch(0);
}

}  // namespace

SDOMXMLWrapper::SDOMXMLWrapper() = default;
SDOMXMLWrapper::SDOMXMLWrapper(framework::XmlPool* pool, unsigned node) : fpPool(pool), fNode(node) {}
SDOMXMLWrapper::~SDOMXMLWrapper() = default;

const SDOMXMLWrapper* SDOMXMLWrapper::LoadFromString(const std::string& text) {
    auto result = xml::Document::Parse(text);
    if (const auto* error = std::get_if<xml::ParseError>(&result)) {
        TellError(*error);
        return nullptr;
    }
    std::shared_ptr<const xml::Document> document = std::get<0>(std::move(result));
    fpOwned = std::make_unique<framework::XmlPool>(document);
    fpPool = fpOwned.get();
    fNode = 0;
    RememberDocument(std::move(document));
    return this;
}

bool SDOMXMLWrapper::GetFirstElement(const std::string& path, SDOMXMLWrapper** element, bool) const {
    if (!fpPool) return false;
    Touch(fNode);
    const Node found = Walk(fpPool->GetDocument(), fNode, path);
    if (found == xml::Document::kNone) return false;
    *element = fpPool->NewElement(found);
    return true;
}

bool SDOMXMLWrapper::GetElementIterator(const std::string& path, SDOMXMLIterator** iterator, bool) const {
    if (!fpPool) return false;
    Touch(fNode);
    const Node found = Walk(fpPool->GetDocument(), fNode, path);
    if (found == xml::Document::kNone) return false;
    *iterator = fpPool->NewIterator(found);
    return true;
}

bool SDOMXMLWrapper::GetAttribute(const std::string& name, std::string& text) const {
    if (!fpPool) return false;
    Touch(fNode);
    const std::optional<std::string_view> value = fpPool->GetDocument().Attribute(fNode, name);
    if (value) {
        text = *value;
    } else {
        SetMiss(Miss::Kind::Attribute, name, fNode);
    }
    return value.has_value();
}

bool SDOMXMLWrapper::GetSimpleArray(std::vector<std::string>& tokens) const {
    tokens.clear();
    if (!fpPool) return false;
    Touch(fNode);
    const bool isWhole = framework::SplitSimpleArray(fpPool->GetDocument().Text(fNode), tokens);
    if (!isWhole) SetMiss(Miss::Kind::Array, {}, fNode);
    return isWhole;
}

bool SDOMXMLIterator::Next(SDOMXMLWrapper** element) {
    if (fNode == xml::Document::kNone) return false;
    *element = fpPool->NewElement(fNode);
    fNode = fpPool->GetDocument().NextOfName(fNode);
    return true;
}

void Diagnose(const SDOMXMLWrapper& element, const std::string& text) {
    RunContext* run = RunContext::CurrentOrNull();
    if (!run || !run->TakeRoomForWarning()) return;
    if (!element.fpPool) return run->AddDiagnostic(2, text, std::nullopt);
    const xml::Document& document = element.fpPool->GetDocument();
    const auto [line, column] = document.PositionOf(element.fNode);
    run->AddDiagnostic(2, unicode::Excerpt(document.PathOf(element.fNode)) + ": " + text,
                       document::Place{document::kStatXmlSource, line, column});
}

}  // namespace hierfit
