#pragma once

#include <memory>
#include <utility>
#include <vector>

namespace hierfit::document {

/// A list that is empty nearly everywhere: without elements it takes the room of one pointer.
template <typename Element>
class RareList {
  public:
    RareList() = default;
    RareList(std::vector<Element> elements) {  // Lists become rare wherever they are stored.
        if (!elements.empty()) fpElements = std::make_unique<std::vector<Element>>(std::move(elements));
    }
    RareList(const RareList& other) : RareList(other.Get()) {}
    RareList(RareList&&) noexcept = default;
    RareList& operator=(const RareList& other) { return *this = RareList(other); }
    RareList& operator=(RareList&&) noexcept = default;
    ~RareList() = default;

    const std::vector<Element>& Get() const {
        static const std::vector<Element> kEmpty;
        return fpElements ? *fpElements : kEmpty;
    }
    operator const std::vector<Element>&() const { return Get(); }

    const Element* begin() const { return Get().data(); }
    const Element* end() const { return begin() + size(); }
    Element* begin() { return fpElements ? fpElements->data() : nullptr; }
    Element* end() { return begin() + size(); }
    std::size_t size() const { return fpElements ? fpElements->size() : 0; }
    bool empty() const { return size() == 0; }
    void clear() { fpElements.reset(); }

    void push_back(Element element) {
        if (!fpElements) fpElements = std::make_unique<std::vector<Element>>();
        fpElements->push_back(std::move(element));
    }

    bool operator==(const RareList& other) const { return Get() == other.Get(); }

  private:
    std::unique_ptr<std::vector<Element>> fpElements;
};

}  // namespace hierfit::document
