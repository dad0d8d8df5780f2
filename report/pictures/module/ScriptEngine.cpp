#include "report/pictures/module/ScriptEngine.h"

#include <memory>
#include <type_traits>

// The engine's library has this, and its headers do not: `mayStop`, or nothing, is asked when a call has used so many
// seconds of processor time.
extern "C" void JSContextGroupSetExecutionTimeLimit(JSContextGroupRef group, double seconds,
                                                    bool (*mayStop)(JSContextRef, void*), void* context);

namespace hierfit::report {

namespace {

struct Release {
    void operator()(JSStringRef text) const { JSStringRelease(text); }
};
using String = std::unique_ptr<std::remove_pointer_t<JSStringRef>, Release>;

String MakeString(const char* text) { return String(JSStringCreateWithUTF8CString(text)); }

}  // namespace

ScriptEngine::ScriptEngine(double seconds) : fContext(JSGlobalContextCreate(nullptr)) {
    JSContextGroupSetExecutionTimeLimit(JSContextGetGroup(fContext), seconds, nullptr, nullptr);
}

bool ScriptEngine::Run(const char* script) {
    JSValueRef exception = nullptr;
    JSEvaluateScript(fContext, MakeString(script).get(), nullptr, nullptr, 1, &exception);
    return !exception;
}

void ScriptEngine::SetText(const char* name, const char* text) {
    JSObjectSetProperty(fContext, JSContextGetGlobalObject(fContext), MakeString(name).get(),
                        JSValueMakeString(fContext, MakeString(text).get()), kJSPropertyAttributeNone, nullptr);
}

bool ScriptEngine::GetText(const char* name, std::string& text) {
    JSValueRef value =
        JSObjectGetProperty(fContext, JSContextGetGlobalObject(fContext), MakeString(name).get(), nullptr);
    if (!value || !JSValueIsString(fContext, value)) return false;
    const String string(JSValueToStringCopy(fContext, value, nullptr));
    text.resize(JSStringGetMaximumUTF8CStringSize(string.get()));
    // The size counts a zero byte at the end; none at all is a text that UTF-8 cannot express.
    const std::size_t size = JSStringGetUTF8CString(string.get(), text.data(), text.size());
    text.resize(size > 0 ? size - 1 : 0);
    return size > 0;
}

}  // namespace hierfit::report
