#include "host/ViZEditor.h"
#include "host/context/RunContext.h"

namespace hierfit {

// There is no machine behind this: what it is asked for is done by the chart library itself. It starts and it refuses
// to start as a machine does, since a run has to bear both.

KestJVM KestJVM::GetInstance() { return {}; }

bool KestJVM::IsStarted() const {
    const auto* run = context::RunContext::CurrentOrNull();
    return run && run->fMachineStarted;
}

bool KestJVM::StartJVM() {
    auto* run = context::RunContext::CurrentOrNull();
    if (run) run->fMachineStarted = !run->fMachineRefuses;
    return run && run->fMachineStarted;
}

JNIEnv_* KestJVM::GetEnv() const { return nullptr; }

bool KestJVM::AttachCurrentThread(JNIEnv_** environment) {
    if (environment) *environment = GetEnv();
    return IsStarted();
}

}  // namespace hierfit
