#pragma once

#include <initializer_list>
#include <nlohmann/json.hpp>
#include <utility>

namespace hierfit::chart {

/// Members in the order in which they came, with room for as many as an object of a view has as a rule: the library's
/// own list copies all of them, with whatever they hold, each time that it grows.
template <typename Key, typename T, typename Less = std::less<>,
          typename Allocator = std::allocator<std::pair<const Key, T>>>
struct MemberList : nlohmann::ordered_map<Key, T, Less, Allocator> {
    using nlohmann::ordered_map<Key, T, Less, Allocator>::ordered_map;
    MemberList() { this->reserve(8); }
};

/// Keeps the order in which a view is written.
using Json = nlohmann::basic_json<MemberList>;

/// A member of a row. Its value is taken when the row is made.
struct Member {
    const char* fKey;
    mutable Json fValue;
};

/// A row of data from members of different keys. Rows are most of a view, and without this they would be built as lists
/// of lists first.
inline Json Row(std::initializer_list<Member> members) {
    Json row = Json::object();
    auto& object = row.get_ref<Json::object_t&>();
    for (const Member& member : members) object.emplace_back(member.fKey, std::move(member.fValue));
    return row;
}

/// Moves an object's members into another, in place of those of the same key.
inline void MoveMembers(Json& into, Json&& from) {
    for (auto& [key, value] : from.get_ref<Json::object_t&>()) into[key] = std::move(value);
}

}  // namespace hierfit::chart
