#pragma once

namespace hierfit::report {

struct TextOptions {
    int fWidth = 0;                ///< columns of the terminal; 0 for no limit
    bool fColor = false;           ///< with escape sequences (ECMA-48)
    bool fHasChartValues = false;  ///< what charts say and the values behind them, not their titles alone
};

}  // namespace hierfit::report
