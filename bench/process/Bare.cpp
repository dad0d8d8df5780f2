// The bare process: what starting a C++ program costs that is linked with expat and fmt and loads one module. It calls
// each of them once, so that none is left out.

#include <dlfcn.h>
#include <expat.h>
#include <fmt/core.h>

int main() {
    void* module = dlopen(BENCH_MODULE, RTLD_NOW | RTLD_LOCAL);
    void* answer = module ? dlsym(module, "Answer") : nullptr;
    if (!answer) {
        fmt::print(stderr, "{}\n", dlerror());
        return 1;
    }
    fmt::print("{}\n", XML_ExpatVersion());
    return reinterpret_cast<int (*)()>(answer)();
}
