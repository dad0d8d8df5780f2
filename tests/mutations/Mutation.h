#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace hierfit::test {

/// Makes broken documents out of good ones: attributes dropped, emptied or doubled, elements dropped, doubled or moved,
/// tokens replaced. It reads tags as text, so that it can make what is no XML as well. The same seed makes the same
/// texts.
class Mutator {
  public:
    explicit Mutator(std::uint32_t seed) : fRandom(seed) {}

    /// One to three changes to a document that is indented as the examples are. `what` takes a word for each of them.
    std::string Mutate(std::string text, std::string& what);

  private:
    struct Span {
        std::size_t fBegin;
        std::size_t fEnd;
    };

    std::size_t Below(std::size_t limit) { return fRandom() % limit; }
    Span PickElement(const std::string& text);
    Span PickAttribute(const std::string& text);
    Span PickToken(const std::string& text);
    std::string MutateOnce(std::string text, std::string& what);

    std::mt19937 fRandom;
};

}  // namespace hierfit::test
