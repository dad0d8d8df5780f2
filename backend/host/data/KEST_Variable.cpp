#include "host/KEST_Variable.h"

#include <utility>

namespace hierfit {

KEST_Variable::KEST_Variable(KEST_VariableDefinition definition) : fDefinition(std::move(definition)) {}

}  // namespace hierfit
