#include "report/markup/PageDirection.h"

#include <utility>

namespace hierfit::report {

namespace {

thread_local bool gIsRightToLeft = false;

}  // namespace

PageDirection::PageDirection(bool isRightToLeft) : fBefore(std::exchange(gIsRightToLeft, isRightToLeft)) {}

PageDirection::~PageDirection() { gIsRightToLeft = fBefore; }

bool PageDirection::IsRightToLeft() { return gIsRightToLeft; }

}  // namespace hierfit::report
