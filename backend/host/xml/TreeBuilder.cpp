#include "host/xml/TreeBuilder.h"

#include <expat.h>

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

#include "host/xml/Excerpt.h"
#include "host/xml/LargeMemory.h"
#include "host/xml/LineCounter.h"
#include "host/xml/SourceText.h"

namespace hierfit::xml {

namespace {

constexpr std::size_t kMostBytes = std::size_t{256} << 20U;
constexpr std::size_t kMostValueBytes = std::size_t{16} << 20U;
constexpr std::size_t kMostDepth = 256;
constexpr std::size_t kMostAttributes = 1000;
constexpr std::size_t kMostElements = 5'000'000;
constexpr std::size_t kSampleBytes = std::size_t{1} << 20U;
constexpr std::size_t kShortestAttribute = 5;  // blank, name, equals sign, two quotes

constexpr const char* kOutOfMemory = "out of memory";

using ParserHandle = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

/// Name without its namespace prefix.
std::string_view LocalName(std::string_view name) {
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos || colon + 1 == name.size() ? name : name.substr(colon + 1);
}

bool IsNamespaceDeclaration(std::string_view name) { return name == "xmlns" || name.starts_with("xmlns:"); }

bool IsBlank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

/// Takes expat's events and grows the tree. The first thing that it will not read stops the parser.
class TreeBuilder {
  public:
    explicit TreeBuilder(const std::string& text);

    std::variant<std::unique_ptr<const Tree>, ParseError> Build();

  private:
    struct OpenElement {
        std::uint32_t fElement;
        std::size_t fPendingText;  ///< where its text begins in `fPending`
        bool fHasWords;            ///< whether that is more than white space
    };

    /// What expat calls: one of the operations below, until something was refused.
    template <auto kOperation, typename... Arguments>
    static void Handle(void* builder, Arguments... arguments);

    void SetHandlers();
    void Reserve();
    void Declare(const char* version, const char* encoding, int standalone);
    void Start(const char* name, const char** attributes);
    void AddAttributes(const char** attributes);
    bool AddAttribute(std::string_view name, std::string_view value);
    void AddText(const char* text, int length);
    void End(const char* name);
    void Other(const char* text, int length);

    NameTable::Id AddName(std::string_view name);
    bool Refuse(const char* reason);
    std::size_t CurrentOffset() const;
    std::uint32_t AddCharacters(std::string_view characters);
    ParseError Error(const char* reason, std::size_t offset) const;

    SourceText fText;
    LineCounter fLines;
    ParserHandle fParser;
    std::unique_ptr<Tree> fpTree = std::make_unique<Tree>();
    std::vector<NameTable::Id> fvLocalNames;  ///< for each name, the one without its prefix
    std::vector<OpenElement> fvOpen;
    std::string fPending;  ///< texts of the open elements so far, the innermost one's last
    const char* fpRefusal = nullptr;
    std::size_t fRefusedAt = 0;
};

TreeBuilder::TreeBuilder(const std::string& text)
    : fText(text), fLines(fText), fParser(XML_ParserCreate(nullptr), &XML_ParserFree) {}

template <auto kOperation, typename... Arguments>
void TreeBuilder::Handle(void* builder, Arguments... arguments) {
    auto& self = *static_cast<TreeBuilder*>(builder);
    if (self.fpRefusal) return;
    try {
        (self.*kOperation)(arguments...);
    } catch (const std::bad_alloc&) {
        self.Refuse(kOutOfMemory);
    }
}

// Comments and processing instructions have a handler, which does nothing, to keep them from the default one.
void TreeBuilder::SetHandlers() {
    XML_Parser parser = fParser.get();
    XML_SetUserData(parser, this);
    XML_SetXmlDeclHandler(parser, Handle<&TreeBuilder::Declare, const char*, const char*, int>);
    XML_SetElementHandler(parser, Handle<&TreeBuilder::Start, const char*, const char**>,
                          Handle<&TreeBuilder::End, const char*>);
    XML_SetCharacterDataHandler(parser, Handle<&TreeBuilder::AddText, const char*, int>);
    XML_SetCommentHandler(parser, [](void*, const char*) {});
    XML_SetProcessingInstructionHandler(parser, [](void*, const char*, const char*) {});
    XML_SetDefaultHandler(parser, Handle<&TreeBuilder::Other, const char*, int>);
}

// Room for what the text will hold if it goes on as it begins, so that little moves while the tree grows. What is not
// used costs no memory.
void TreeBuilder::Reserve() {
    const std::string_view bytes = fText.Bytes();
    const std::string_view sample = bytes.substr(0, kSampleBytes);
    const auto estimate = [&](char sign, std::size_t most) {
        const auto count = static_cast<std::size_t>(std::ranges::count(sample, sign));
        return std::min(most, count * (bytes.size() / kSampleBytes + 1));
    };
    ReserveLarge(fpTree->fvElements, estimate('<', 2 * kMostElements) / 2);
    ReserveLarge(fpTree->fvAttributes, estimate('=', bytes.size() / kShortestAttribute));
    ReserveLarge(fpTree->fCharacters, bytes.size());
}

std::variant<std::unique_ptr<const Tree>, ParseError> TreeBuilder::Build() {
    const std::string_view bytes = fText.Bytes();
    if (bytes.size() > kMostBytes) return Error("the document is larger than 256 MiB", fText.Begin());
    if (!fParser) throw std::bad_alloc();
    SetHandlers();
    Reserve();
    if (XML_Parse(fParser.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) == XML_STATUS_OK) {
        return std::unique_ptr<const Tree>(std::move(fpTree));
    }
    if (fpRefusal) return Error(fpRefusal, fRefusedAt);
    return Error(XML_ErrorString(XML_GetErrorCode(fParser.get())), CurrentOffset());
}

void TreeBuilder::Declare(const char*, const char* encoding, int) {
    if (encoding) fText.Declare(encoding);
}

void TreeBuilder::Start(const char* name, const char** attributes) {
    std::vector<ElementRecord>& elements = fpTree->fvElements;
    const std::string_view fullName = name;
    if (fvOpen.size() == kMostDepth) return void(Refuse("elements are nested deeper than 256 levels"));
    if (elements.size() == kMostElements) return void(Refuse("the document has more than 5 million elements"));
    if (fullName.size() > kMostValueBytes) return void(Refuse("a name is longer than 16 MiB"));

    const auto index = static_cast<std::uint32_t>(elements.size());
    const Position position = fLines.MoveTo(CurrentOffset());
    elements.push_back({.fName = AddName(fullName),
                        .fParent = fvOpen.empty() ? index : fvOpen.back().fElement,
                        .fEnd = index + 1,
                        .fFirstAttribute = static_cast<std::uint32_t>(fpTree->fvAttributes.size()),
                        .fText = 0,
                        .fLine = static_cast<std::uint32_t>(position.fLine),
                        .fColumn = static_cast<std::uint32_t>(position.fColumn)});
    fvOpen.push_back({index, fPending.size(), false});
    AddAttributes(attributes);
}

void TreeBuilder::AddAttributes(const char** attributes) {
    std::size_t count = 0;
    for (; *attributes; attributes += 2) {
        if (++count > kMostAttributes) return void(Refuse("an element has more than 1,000 attributes"));
        if (!AddAttribute(attributes[0], attributes[1])) return;
    }
}

bool TreeBuilder::AddAttribute(std::string_view name, std::string_view value) {
    if (name.size() > kMostValueBytes) return Refuse("a name is longer than 16 MiB");
    if (value.size() > kMostValueBytes) return Refuse("an attribute value is longer than 16 MiB");
    if (IsNamespaceDeclaration(name)) return true;
    fpTree->fvAttributes.push_back({AddName(name), AddCharacters(value)});
    return true;
}

void TreeBuilder::AddText(const char* text, int length) {
    const std::string_view characters(text, static_cast<std::size_t>(length));
    fPending.append(characters);
    bool& hasWords = fvOpen.back().fHasWords;
    hasWords = hasWords || !std::ranges::all_of(characters, IsBlank);
}

void TreeBuilder::End(const char*) {
    const auto [index, begin, hasWords] = fvOpen.back();
    ElementRecord& element = fpTree->fvElements[index];
    element.fEnd = static_cast<std::uint32_t>(fpTree->fvElements.size());
    const bool isLayout = !hasWords && element.fEnd > index + 1;
    if (!isLayout) element.fText = AddCharacters(std::string_view(fPending).substr(begin));
    fPending.resize(begin);
    fvOpen.pop_back();
}

void TreeBuilder::Other(const char* text, int length) {
    const std::string_view token(text, static_cast<std::size_t>(length));
    if (token.starts_with("<!DOCTYPE")) Refuse("document type declarations are not read");
}

/// Number of the name without its prefix.
NameTable::Id TreeBuilder::AddName(std::string_view name) {
    NameTable& names = fpTree->fNames;
    const NameTable::Id id = names.Add(name);
    if (id >= fvLocalNames.size()) {
        const NameTable::Id local = names.Add(LocalName(name));
        fvLocalNames.resize(names.Size(), local);
    }
    return fvLocalNames[id];
}

/// False always, so that a caller can hand it on.
bool TreeBuilder::Refuse(const char* reason) {
    fpRefusal = reason;
    fRefusedAt = CurrentOffset();
    XML_StopParser(fParser.get(), XML_FALSE);
    return false;
}

std::size_t TreeBuilder::CurrentOffset() const {
    const XML_Index index = XML_GetCurrentByteIndex(fParser.get());
    return index < 0 ? fText.Begin() : static_cast<std::size_t>(index);
}

std::uint32_t TreeBuilder::AddCharacters(std::string_view characters) {
    if (characters.empty()) return 0;
    const auto offset = static_cast<std::uint32_t>(fpTree->fCharacters.size());
    fpTree->fCharacters.append(characters).push_back('\0');
    return offset;
}

ParseError TreeBuilder::Error(const char* reason, std::size_t offset) const {
    const Position position = LineCounter(fText).MoveTo(offset);
    return {reason, position.fLine, position.fColumn, Excerpt(fText, offset)};
}

}  // namespace

std::variant<std::unique_ptr<const Tree>, ParseError> BuildTree(const std::string& text) {
    try {
        return TreeBuilder(text).Build();
    } catch (const std::bad_alloc&) {
        return ParseError{kOutOfMemory, 1, 1, {}};
    }
}

}  // namespace hierfit::xml
