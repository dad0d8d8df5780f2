#include "host/PathFactory.h"

#include "host/context/RunContext.h"

namespace hierfit {

std::string PathFinder::GetBaseDirectory() const {
    std::string directory = context::RunContext::Current().GetShareDirectory();
    if (!directory.ends_with('/')) directory += '/';
    return directory;
}

std::string PathFinder::GetStringTableLocation() const { return GetBaseDirectory() + "languages/"; }

PathFinder PathFactory::getPathInstance(int) { return {}; }

}  // namespace hierfit
