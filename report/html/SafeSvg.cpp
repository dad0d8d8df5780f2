#include "report/html/SafeSvg.h"

#include <algorithm>

namespace hierfit::report::html {

namespace {

constexpr std::string_view kElements[] = {
    "circle",  "clipPath",       "defs", "desc", "ellipse", "g",    "line",  "linearGradient", "path",
    "polygon", "radialGradient", "rect", "stop", "svg",     "text", "title", "tspan"};

// What these hold, whatever their prefix, would be run, fetched or applied beyond the image.
constexpr std::string_view kRefused[] = {"href", "src", "style"};

constexpr std::string_view kReference = "url(";
constexpr std::string_view kOwnReference = "url(#";

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& byte : lower) {
        if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
    }
    return lower;
}

/// Style sheets' escapes are refused along, as they can spell a reference.
bool HoldsReference(std::string_view value) {
    return value.find('\\') != std::string_view::npos || LowerCase(value).find(kReference) != std::string::npos;
}

bool IsRefused(std::string_view name) {
    const std::string lower = LowerCase(name);
    if (lower.empty() || lower.starts_with("on")) return true;
    return std::ranges::find(kRefused, std::string_view(lower).substr(lower.rfind(':') + 1)) != std::end(kRefused);
}

// U+FFFE and U+FFFF, the characters of three bytes that XML forbids.
bool IsNoncharacter(std::string_view text) {
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

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
        while (fAt < fSvg.size() && fSvg[fAt] != delimiter) CopyCharacter();
    }

    void CopyCharacter() {
        const auto byte = static_cast<unsigned char>(fSvg[fAt]);
        if (IsNoncharacter(fSvg.substr(fAt))) {
            fOut += "\xEF\xBF\xBD";
            fAt += 3;
            return;
        }
        if (byte >= 0x20 || byte == '\t' || byte == '\n' || byte == '\r') {
            fOut += fSvg[fAt];
        } else {
            fOut.append("\xE2\x90").append(1, static_cast<char>(0x80 + byte));
        }
        ++fAt;
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
        if (IsRefused(name)) return false;
        fOut += name;
        if (!Take('=') || !Take('"')) return false;
        if (name == "id") fOut += fPrefix;
        return CopyValue(name.starts_with("aria-")) && Take('"');
    }

    bool CopyValue(bool isText) {
        std::string_view value = fSvg.substr(fAt, fSvg.find('"', fAt) - fAt);
        if (value.find('<') != std::string_view::npos) return false;
        if (!isText && value.starts_with(kOwnReference)) {
            fOut.append(kOwnReference).append(fPrefix);
            fAt += kOwnReference.size();
            value.remove_prefix(kOwnReference.size());
        }
        if (!isText && HoldsReference(value)) return false;
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
