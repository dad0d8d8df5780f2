#include "host/xml/TreeBuilder.h"

#include <expat.h>

#include <algorithm>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "host/xml/Excerpt.h"
#include "host/xml/LargeMemory.h"
#include "host/xml/LineCounter.h"
#include "host/xml/MarkupScan.h"
#include "host/xml/SourceText.h"

namespace hierfit::xml {

namespace {

constexpr std::size_t kMostBytes = std::size_t{256} << 20U;
constexpr std::size_t kMostDepth = 256;
constexpr std::size_t kMostNames = 100'000;
constexpr std::size_t kSampleBytes = std::size_t{1} << 20U;
constexpr std::size_t kShortestAttribute = 5;  // blank, name, equals sign, two quotes

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
    XML_Error ParseUpTo(std::size_t end);
    void Reserve();
    void Declare(const char* version, const char* encoding, int standalone);
    void Start(const char* name, const char** attributes);
    void AddAttributes(const char** attributes);
    void AddText(const char* text, int length);
    void End(const char* name);

    NameTable::Id AddName(std::string_view name);
    void Refuse(const char* reason);
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
    std::optional<Refusal> fRefusal;
    bool fIsShort = false;  ///< of memory; an exception must not pass through the parser
};

TreeBuilder::TreeBuilder(const std::string& text)
    : fText(text), fLines(fText), fParser(XML_ParserCreate(nullptr), &XML_ParserFree) {}

template <auto kOperation, typename... Arguments>
void TreeBuilder::Handle(void* builder, Arguments... arguments) {
    auto& self = *static_cast<TreeBuilder*>(builder);
    if (self.fRefusal || self.fIsShort) return;
    try {
        (self.*kOperation)(arguments...);
    } catch (const std::bad_alloc&) {
        self.fIsShort = true;
        XML_StopParser(self.fParser.get(), XML_FALSE);
    }
}

void TreeBuilder::SetHandlers() {
    XML_Parser parser = fParser.get();
    XML_SetUserData(parser, this);
    XML_SetXmlDeclHandler(parser, Handle<&TreeBuilder::Declare, const char*, const char*, int>);
    XML_SetElementHandler(parser, Handle<&TreeBuilder::Start, const char*, const char**>,
                          Handle<&TreeBuilder::End, const char*>);
    XML_SetCharacterDataHandler(parser, Handle<&TreeBuilder::AddText, const char*, int>);
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
    const std::optional<Refusal> markup = FindRefusal(fText);
    const XML_Error error = ParseUpTo(markup ? markup->fOffset : bytes.size());
    if (fIsShort || error == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    if (fRefusal) return Error(fRefusal->fReason, fRefusal->fOffset);
    if (error != XML_ERROR_NONE && !(markup && error == XML_ERROR_NO_ELEMENTS)) {
        return Error(XML_ErrorString(error), CurrentOffset());
    }
    if (markup) return Error(markup->fReason, markup->fOffset);
    return std::unique_ptr<const Tree>(std::move(fpTree));
}

/// Parses so many bytes as the whole text: if they end before markup that is not read and have no fault of their own,
/// what expat misses is an element.
XML_Error TreeBuilder::ParseUpTo(std::size_t end) {
    XML_Parse(fParser.get(), fText.Bytes().data(), static_cast<int>(end), XML_TRUE);
    return XML_GetErrorCode(fParser.get());
}

void TreeBuilder::Declare(const char*, const char* encoding, int) {
    if (encoding) fText.Declare(encoding);
}

void TreeBuilder::Start(const char* name, const char** attributes) {
    std::vector<ElementRecord>& elements = fpTree->fvElements;
    if (fvOpen.size() == kMostDepth) return Refuse("elements are nested deeper than 256 levels");
    if (fpTree->fNames.Size() > kMostNames) return Refuse("the document has more than 100,000 different names");

    const auto index = static_cast<std::uint32_t>(elements.size());
    const Position position = fLines.MoveTo(CurrentOffset());
    elements.push_back({.fName = AddName(name),
                        .fParent = fvOpen.empty() ? index : fvOpen.back().fElement,
                        .fEnd = index + 1,
                        .fFirstAttribute = static_cast<std::uint32_t>(fpTree->fvAttributes.size()),
                        .fText = 0,
                        .fLine = static_cast<std::uint32_t>(position.fLine),
                        .fColumn = static_cast<std::uint32_t>(position.fColumn)});
    fvOpen.push_back({index, fPending.size(), false});
    AddAttributes(attributes);
}

/// Those with a prefix come last, so that the plain one of two is found.
void TreeBuilder::AddAttributes(const char** attributes) {
    for (const bool isPrefixed : {false, true}) {
        for (const char** attribute = attributes; *attribute; attribute += 2) {
            const std::string_view name = attribute[0];
            if (IsNamespaceDeclaration(name) || (name.find(':') != std::string_view::npos) != isPrefixed) continue;
            fpTree->fvAttributes.push_back({AddName(name), AddCharacters(attribute[1])});
        }
    }
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

void TreeBuilder::Refuse(const char* reason) {
    fRefusal = Refusal{reason, CurrentOffset()};
    XML_StopParser(fParser.get(), XML_FALSE);
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
    return TreeBuilder(text).Build();
}

}  // namespace hierfit::xml
