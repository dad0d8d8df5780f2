#include "host/ParserMessage.h"

#include "host/language/Catalogue.h"

namespace hierfit {

namespace {

std::string_view ViewOf(const char* text) { return text ? std::string_view(text) : std::string_view(); }

}  // namespace

std::string ParserMessage::GetTranslatedText(const std::string& key, const char* a1, const char* a2, const char* a3,
                                             const char* a4, const char* a5) const {
    return language::FillMarks(context::RunContext::Current().Translate(key),
                               {ViewOf(a1), ViewOf(a2), ViewOf(a3), ViewOf(a4), ViewOf(a5)});
}

}  // namespace hierfit
