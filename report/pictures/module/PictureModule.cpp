#include "report/pictures/PictureModule.h"

#include <memory>
#include <string>

#include "report/pictures/module/ScriptEngine.h"

using hierfit::report::ScriptEngine;

// Seconds for a picture: one of 100,000 marks takes two, and what takes longer also takes memory without end.
constexpr double kMostTime = 6;

struct HierfitPictures {
    ScriptEngine fEngine{kMostTime};
    std::string fPicture;  ///< the one drawn last
};

namespace {

// What the script expects of its surroundings and the bare language lacks. Nothing here waits: what is put off runs
// when the present call is done.
constexpr const char* kSurroundings = R"(
globalThis.console = { log() {}, info() {}, debug() {}, warn() {}, error() {} };
globalThis.performance = { now: () => 0 };
globalThis.setTimeout = (run, delay, ...rest) => { Promise.resolve().then(() => run(...rest)); return 0; };
globalThis.clearTimeout = () => {};
globalThis.setInterval = () => 0;
globalThis.clearInterval = () => {};
globalThis.structuredClone = (value) => {
    if (Array.isArray(value)) return value.map(structuredClone);
    if (value === null || typeof value !== "object") return value;
    if (value instanceof Date) return new Date(value);
    if (value instanceof Set) return new Set([...value].map(structuredClone));
    if (value instanceof Map) return new Map([...value].map(structuredClone));
    return Object.fromEntries(Object.entries(value).map(([key, one]) => [key, structuredClone(one)]));
};
)";

constexpr const char* kDraw = "picture = undefined; drawPicture(view, (svg) => { picture = svg; }, () => {});";

// Callers may be built otherwise, so no exception passes.
HierfitPictures* Open(const char* script) try {
    auto pictures = std::make_unique<HierfitPictures>();
    if (!pictures->fEngine.Run(kSurroundings) || !pictures->fEngine.Run(script)) return nullptr;
    return pictures.release();
} catch (...) {
    return nullptr;
}

const char* Draw(HierfitPictures* pictures, const char* view, std::size_t* size) try {
    ScriptEngine& engine = pictures->fEngine;
    engine.SetText("view", view);
    if (!engine.Run(kDraw) || !engine.GetText("picture", pictures->fPicture)) return nullptr;
    *size = pictures->fPicture.size();
    return pictures->fPicture.c_str();
} catch (...) {
    return nullptr;
}

void Close(HierfitPictures* pictures) { delete pictures; }

constexpr HierfitPictureFunctions kFunctions{&Open, &Draw, &Close};

}  // namespace

extern "C" __attribute__((visibility("default"))) const HierfitPictureFunctions* GetHierfitPictureFunctions() {
    return &kFunctions;
}
