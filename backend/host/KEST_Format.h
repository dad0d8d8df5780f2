#pragma once

#include <cstdint>
#include <string>

#include "host/Export.h"
#include "host/OBS.h"

namespace hierfit {

/// Kinds of print format that occur; the host passes the number itself.
enum class KEST_FormatType : std::uint8_t { String = 1, Numeric = 5 };

/// A print format, such as F8.2 (width 8, numeric, 2 decimals) or A10 (width 10, string).
struct KEST_Format {
    std::uint16_t fWidth = 8;
    KEST_FormatType fType = KEST_FormatType::Numeric;
    std::uint8_t fDecimals = 2;

    bool IsString() const { return fType == KEST_FormatType::String; }
};
static_assert(sizeof(KEST_Format) == 4);

/// The value as text in the format, without padding, in full when it is wider than the format. "." for a number that is
/// system-missing, NaN or infinite; an empty text for a null pointer.
HIERFIT_EXPORT std::string ToString(const OBS* value, const KEST_Format& format);

}  // namespace hierfit
