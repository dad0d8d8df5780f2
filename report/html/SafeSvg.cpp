#include "report/html/SafeSvg.h"

#include <algorithm>

namespace hierfit::report::html {

namespace {

constexpr std::string_view kElements[] = {
    "circle",  "clipPath",       "defs", "desc", "ellipse", "g",    "line",  "linearGradient", "path",
    "polygon", "radialGradient", "rect", "stop", "svg",     "text", "title", "tspan"};

// What these hold would be run, fetched or applied beyond the image.
constexpr std::string_view kRefused[] = {"href", "src", "style", "xlink:href"};

constexpr std::string_view kReference = "url(";

bool IsNameCharacter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           byte == '-' || byte == ':' || byte == '_';
}

/// Copies an image, token by token; every operation is false where the text is none.
class Copier {
  public:
    Copier(std::string_view svg, std::string_view idPrefix) : fSvg(svg), fPrefix(idPrefix) {}

    bool Copy() {
        if (!fSvg.starts_with("<svg")) return false;
        while (fAt < fSvg.size()) {
            CopyText('<');
            if (fAt < fSvg.size() && !CopyTag()) return false;
        }
        return true;
    }

    std::string Take() { return std::move(fOut); }

  private:
    char Next() const { return fAt < fSvg.size() ? fSvg[fAt] : '\0'; }

    // Up to a delimiter, with symbols for what XML forbids.
    void CopyText(char delimiter) {
        for (; fAt < fSvg.size() && fSvg[fAt] != delimiter; ++fAt) {
            const auto byte = static_cast<unsigned char>(fSvg[fAt]);
            if (byte >= 0x20 || byte == '\t' || byte == '\n' || byte == '\r') {
                fOut += fSvg[fAt];
            } else {
                fOut.append("\xE2\x90").append(1, static_cast<char>(0x80 + byte));
            }
        }
    }

    std::string_view TakeName() {
        const std::size_t begin = fAt;
        while (IsNameCharacter(Next())) ++fAt;
        return fSvg.substr(begin, fAt - begin);
    }

    bool Take(char byte) {
        if (Next() != byte) return false;
        fOut += byte;
        ++fAt;
        return true;
    }

    bool CopyTag() {
        Take('<');
        const bool isEnd = Take('/');
        const std::string_view name = TakeName();
        if (std::ranges::find(kElements, name) == std::end(kElements)) return false;
        fOut += name;
        while (!isEnd && Take(' ')) {
            if (!CopyAttribute()) return false;
        }
        Take('/');
        return Take('>');
    }

    bool CopyAttribute() {
        const std::string_view name = TakeName();
        if (name.empty() || name.starts_with("on")) return false;
        if (std::ranges::find(kRefused, name) != std::end(kRefused)) return false;
        fOut += name;
        if (!Take('=') || !Take('"')) return false;
        if (name == "id") fOut += fPrefix;
        return CopyValue(name.starts_with("aria-")) && Take('"');
    }

    bool CopyValue(bool isText) {
        const std::string_view value = fSvg.substr(fAt, fSvg.find('"', fAt) - fAt);
        if (value.find('<') != std::string_view::npos) return false;
        if (!isText && value.starts_with(kReference)) {
            if (!value.substr(kReference.size()).starts_with('#')) return false;
            fOut.append(kReference).append(1, '#').append(fPrefix);
            fAt += kReference.size() + 1;
        }
        CopyText('"');
        return true;
    }

    std::string_view fSvg;
    std::string_view fPrefix;
    std::size_t fAt = 0;
    std::string fOut;
};

}  // namespace

std::optional<std::string> MakeSafeSvg(std::string_view svg, std::string_view idPrefix) {
    Copier copier(svg, idPrefix);
    if (!copier.Copy()) return {};
    return copier.Take();
}

}  // namespace hierfit::report::html
