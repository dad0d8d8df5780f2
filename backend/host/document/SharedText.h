#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <string_view>

namespace hierfit::document {

/// A text that is never changed, and that all its copies hold in common. An empty one holds nothing.
class SharedText {
  public:
    SharedText() = default;
    template <std::convertible_to<std::string_view> Words>
    SharedText(const Words& words) {  // Texts become shared wherever they are stored.
        const std::string_view view = words;
        if (!view.empty()) fpWords = std::make_shared<const std::string>(view);
    }

    const std::string& Get() const {
        static const std::string kEmpty;
        return fpWords ? *fpWords : kEmpty;
    }
    operator const std::string&() const { return Get(); }

    bool operator==(const SharedText& other) const { return fpWords == other.fpWords || Get() == other.Get(); }

  private:
    std::shared_ptr<const std::string> fpWords;
};

}  // namespace hierfit::document
