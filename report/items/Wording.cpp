#include "report/items/Wording.h"

#include <utility>

#include "host/language/Catalogue.h"

namespace hierfit::report::items {

namespace {

thread_local const Wording* gpWording = nullptr;

}  // namespace

Wording::Wording(Find find) : fFind(std::move(find)), fpBefore(std::exchange(gpWording, this)) {}

Wording::~Wording() { gpWording = fpBefore; }

std::string_view Say(std::string_view english) {
    return gpWording && gpWording->fFind ? gpWording->fFind(english).value_or(english) : english;
}

std::string Say(std::string_view english, const std::vector<std::string_view>& values) {
    return language::FillMarks(Say(english), values);
}

}  // namespace hierfit::report::items
