#pragma once

namespace hierfit {

// Keys of the messages by which the back-end states conditions of the fit.

inline constexpr const char* kGLMM_C8 = "kGLMM_C8";
inline constexpr const char* kGLMM_C9 = "kGLMM_C9";
inline constexpr const char* kGLMM_C10 = "kGLMM_C10";
inline constexpr const char* kGLMM_C11 = "kGLMM_C11";
inline constexpr const char* kGLMM_C12 = "kGLMM_C12";
inline constexpr const char* kGLMM_C13 = "kGLMM_C13";
inline constexpr const char* kGLMM_C14 = "kGLMM_C14";
inline constexpr const char* kGLMM_C15 = "kGLMM_C15";
inline constexpr const char* kGLMM_C16 = "kGLMM_C16";
inline constexpr const char* kGLMM_C17 = "kGLMM_C17";
inline constexpr const char* kGLMM_C18 = "kGLMM_C18";
inline constexpr const char* kGLMM_C19_1 = "kGLMM_C19_1";
inline constexpr const char* kGLMM_C20 = "kGLMM_C20";
inline constexpr const char* kGLMM_C21 = "kGLMM_C21";
inline constexpr const char* kGLMM_C22 = "kGLMM_C22";
inline constexpr const char* kGLMM_C23 = "kGLMM_C23";
inline constexpr const char* kGLMM_C24 = "kGLMM_C24";
inline constexpr const char* kGLMM_C25 = "kGLMM_C25";
inline constexpr const char* kGLMM_C26 = "kGLMM_C26";
inline constexpr const char* kGLMM_C27 = "kGLMM_C27";
inline constexpr const char* kGLMM_C28 = "kGLMM_C28";
inline constexpr const char* kGLMM_C29 = "kGLMM_C29";
inline constexpr const char* kGLMM_C30 = "kGLMM_C30";

}  // namespace hierfit
