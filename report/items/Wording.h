#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hierfit::report::items {

/// In which language renderings say the words of their own, on this thread, for as long as it lives; in English where
/// there is none. What a document holds is in its own language already.
class Wording {
  public:
    /// Finds the translation of an English text, good as long as the wording lives; nothing where there is none.
    using Find = std::function<std::optional<std::string_view>(std::string_view)>;

    explicit Wording(Find find);
    ~Wording();
    Wording(const Wording&) = delete;
    Wording& operator=(const Wording&) = delete;

  private:
    friend std::string_view Say(std::string_view english);

    Find fFind;
    const Wording* fpBefore;
};

/// A text in the language of the rendering.
std::string_view Say(std::string_view english);

/// The same with values in the places of its marks ^1 and so on.
std::string Say(std::string_view english, const std::vector<std::string_view>& values);

}  // namespace hierfit::report::items
