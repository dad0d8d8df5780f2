#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "host/BpProcedure.h"
#include "host/context/RunContext.h"

namespace hierfit::test {

/// A language of three words.
class Dictionary : public context::Translator {
  public:
    std::optional<std::string_view> Find(std::string_view key) const override {
        if (key == "word") return "Wort";
        if (key == "A ^1 ^2") return "^2 vor ^1";
        if (key == "EffectVar1") return "[%1 = %2:; ^1 = ^2:]1";
        return {};
    }
};

/// A run under way on this thread, for tests that issue output.
class PivotRun : public testing::Test {
  protected:
    explicit PivotRun(context::Settings settings = {}) : fContext(settings, &fDictionary, "") {}

    static BpString Fixed(const std::string& text) { return {text, false}; }
    static BpAnnotation Annotate(const std::string& text) { return BpAnnotation(Fixed(text)); }

    Dictionary fDictionary;
    context::RunContext fContext;
    context::RunContext::Activation fActivation{fContext};
};

}  // namespace hierfit::test
