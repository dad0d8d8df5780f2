#pragma once

namespace hierfit {

namespace document {
enum class FormatName : unsigned char;
}

/// A number format of the pivot tables; see the static operations of `BpProcedure`.
struct BpFormatSpec {
    document::FormatName fName;
    double fArgument = 0;  ///< for significant digits: the number whose digits count
};

}  // namespace hierfit
