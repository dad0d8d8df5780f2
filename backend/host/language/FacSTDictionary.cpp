#include "host/FacSTDictionary.h"

#include "host/context/RunContext.h"

namespace hierfit {

FacSTDictionary::FacSTDictionary(const std::string& location) : fLocation(location) {}

std::string FacSTDictionary::LookUp(const std::string& key) const {
    return std::string(context::RunContext::Current().Translate(key));
}

}  // namespace hierfit
