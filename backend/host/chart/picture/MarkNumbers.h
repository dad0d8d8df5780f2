#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace hierfit::chart {

/// Numbers so many things anew without those that none of the numbers means, and writes the new numbers in place of the
/// old ones. Gives the old numbers of those that stay, in their order.
std::vector<std::size_t> NumberAnew(std::size_t count, const std::vector<int*>& numbers);

/// The things with these numbers.
template <typename Thing>
std::vector<Thing> Pick(const std::vector<Thing>& things, const std::vector<std::size_t>& numbers) {
    std::vector<Thing> picked;
    picked.reserve(numbers.size());
    for (const std::size_t number : numbers) picked.push_back(things[number]);
    return picked;
}

/// What a picture draws of very many marks: 20,000, evenly chosen, the first and the last among them.
class Thinning {
  public:
    static constexpr std::size_t kMostMarks = 20'000;

    explicit Thinning(std::size_t count) : fCount(count) {}

    bool IsNeeded() const { return fCount > kMostMarks; }

    /// Whether the mark of a number below the count is drawn.
    bool Keeps(std::size_t number) const {
        if (!IsNeeded()) return true;
        const std::size_t chosen = (number * (kMostMarks - 1) + fCount - 2) / (fCount - 1);
        return chosen * (fCount - 1) / (kMostMarks - 1) == number;
    }

    /// Leaves the marks that are drawn, in order. They are as many as the count, or the part of all marks whose first
    /// one has the number given.
    template <typename MarkType>
    void Thin(std::vector<MarkType>& marks, std::size_t first = 0) const {
        if (!IsNeeded()) return;
        std::erase_if(marks, [&](const MarkType&) { return !Keeps(first++); });
    }

    /// Adds a sentence that says so, where marks are left out.
    void AddNote(std::vector<std::string>& notes) const;

  private:
    std::size_t fCount;
};

}  // namespace hierfit::chart
