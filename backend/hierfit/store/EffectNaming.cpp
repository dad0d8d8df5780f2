#include "hierfit/store/EffectNaming.h"

namespace hierfit {

std::string EffectName(const EffectStruct& effect, const std::vector<std::string>& fieldNames) {
    std::string name;
    std::size_t nOpen = 0;
    int level = 0;
    for (std::size_t i = 0; i < fieldNames.size(); ++i) {
        if (i > 0 && effect.NestingLevel(i) > level) {
            level = effect.NestingLevel(i);
            name += "(";
            ++nOpen;
        } else if (i > 0) {
            name += " * ";
        }
        name += fieldNames[i];
    }
    return name.append(nOpen, ')');
}

}  // namespace hierfit
