#pragma once

#include <JavaScriptCore/JavaScript.h>

#include <string>

namespace hierfit::report {

/// A script engine with one global scope, on JavaScriptCore's C interface. Promises that a call settles have had their
/// say when it returns. All texts are UTF-8.
class ScriptEngine {
  public:
    /// The processor time that a run may take.
    explicit ScriptEngine(double seconds);
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ~ScriptEngine() { JSGlobalContextRelease(fContext); }

    /// False when the script throws, or takes too long.
    bool Run(const char* script);

    void SetText(const char* name, const char* text);

    /// The text that a global name holds; false when it holds none.
    bool GetText(const char* name, std::string& text);

  private:
    JSGlobalContextRef fContext;
};

}  // namespace hierfit::report
