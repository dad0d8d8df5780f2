#include "host/chart/data/DataStore.h"

#include <algorithm>
#include <utility>

#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit::chart {

namespace {

constexpr int kMostRows = 50'000'000;
constexpr std::size_t kMostAnnouncedCells = 50'000'000;

/// Cells that a store may hold before and for each one that was written.
constexpr std::size_t kFreeCells = 1'000'000;
constexpr std::size_t kCellsForEach = 16;

/// Bytes that the texts of a store may hold together.
constexpr std::size_t kMostTextBytes = std::size_t{256} << 20U;

std::size_t TextBytes(const document::ChartValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? 0 : text->size();
}

int SizeOf(const auto& list) { return static_cast<int>(list.size()); }

}  // namespace

bool DataStore::AddSource(const std::string& name, int rows) {
    if (rows < 0 || rows > kMostRows) return Refuse(std::to_string(rows) + " rows of " + unicode::Excerpt(name));
    if (!fSources.try_emplace(name, SizeOf(fvSources)).second) return false;
    fvSources.push_back({{name, rows, {}}, {}, static_cast<std::size_t>(rows)});
    return true;
}

DataStore::Handle DataStore::AddVariable(const std::string& source, const std::string& name) {
    const auto found = fSources.find(source);
    if (found == fSources.end()) return {};
    Source& target = fvSources[static_cast<std::size_t>(found->second)];
    const auto [entry, isNew] = target.fVariables.try_emplace(name, SizeOf(target.fContent.fvVariables));
    if (!isNew) return {found->second, entry->second};
    const auto announced = static_cast<std::size_t>(target.fContent.fRows);
    if (fAnnounced + announced > kMostAnnouncedCells || !HasRoom(target.fRows - announced)) {
        target.fVariables.erase(entry);
        Refuse("variable " + unicode::Excerpt(name) + " of " + unicode::Excerpt(source));
        return {};
    }
    fAnnounced += announced;
    fCells += target.fRows;
    target.fContent.fvVariables.push_back({name, {}});
    return {found->second, entry->second};
}

DataStore::Handle DataStore::Find(const std::string& source, const std::string& name) const {
    const auto found = fSources.find(source);
    if (found == fSources.end()) return {};
    const auto& variables = fvSources[static_cast<std::size_t>(found->second)].fVariables;
    const auto entry = variables.find(name);
    return entry == variables.end() ? Handle{} : Handle{found->second, entry->second};
}

bool DataStore::Write(const Handle& variable, int row, document::ChartValue value) {
    if (!IsVariable(variable)) return false;
    Source& source = fvSources[static_cast<std::size_t>(variable.fSource)];
    auto& values = source.fContent.fvVariables[static_cast<std::size_t>(variable.fVariable)].fvValues;
    const auto index = static_cast<std::size_t>(row);
    const std::size_t replaced = index < values.size() ? TextBytes(values[index]) : 0;
    const std::size_t texts = fTextBytes - replaced + TextBytes(value);
    const bool hasRoom = texts <= kMostTextBytes && MakeRow(source, row);
    if (!hasRoom) return Refuse("row " + std::to_string(row) + " of " + unicode::Excerpt(source.fContent.fName));
    fTextBytes = texts;
    if (index >= values.size()) values.resize(index + 1);
    values[index] = std::move(value);
    ++fWritten;
    return true;
}

std::vector<document::ChartSource> DataStore::Snapshot() const {
    std::vector<document::ChartSource> sources;
    sources.reserve(fvSources.size());
    for (const Source& source : fvSources) {
        for (auto& variable : sources.emplace_back(source.fContent).fvVariables) variable.fvValues.resize(source.fRows);
    }
    return sources;
}

bool DataStore::IsVariable(const Handle& variable) const {
    if (variable.fSource < 0 || variable.fSource >= SizeOf(fvSources)) return false;
    const auto& variables = fvSources[static_cast<std::size_t>(variable.fSource)].fContent.fvVariables;
    return variable.fVariable >= 0 && variable.fVariable < SizeOf(variables);
}

bool DataStore::MakeRow(Source& source, int row) {
    if (row < 0 || row >= kMostRows) return false;
    const std::size_t rows = std::max(source.fRows, static_cast<std::size_t>(row) + 1);
    const std::size_t cells = (rows - source.fRows) * source.fContent.fvVariables.size();
    if (cells > 0 && !HasRoom(cells)) return false;
    fCells += cells;
    source.fRows = rows;
    return true;
}

bool DataStore::HasRoom(std::size_t cells) const {
    return fCells - fAnnounced + cells <= kFreeCells + kCellsForEach * fWritten;
}

bool DataStore::Refuse(const std::string& what) {
    if (!std::exchange(fHasRefused, true)) Diagnose("chart data: " + what + " cannot be held");
    return false;
}

}  // namespace hierfit::chart
