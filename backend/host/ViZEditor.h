#pragma once

#include <stdexcept>
#include <string>

#include "host/CFMetaData.h"
#include "host/Export.h"

/// The environment of a thread that is attached to the Java virtual machine; nobody looks into it.
struct JNIEnv_;

namespace hierfit {

/// What the Java side throws.
class HIERFIT_EXPORT JNIException : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The host's Java virtual machine, of which each run has one.
class HIERFIT_EXPORT KestJVM {
  public:
    static KestJVM GetInstance();

    bool IsStarted() const;
    bool StartJVM();
    JNIEnv_* GetEnv() const;

    /// Attaches the calling thread; the pointer takes its environment.
    bool AttachCurrentThread(JNIEnv_** environment);
};

/// The chart editor, which runs on the virtual machine.
class HIERFIT_EXPORT ViZEditor {
  public:
    static ViZEditor GetInstance();

    bool IsStartedHeadless() const;
    bool StartEditorHeadless(JNIEnv_* environment);

    /// The graph's XML with the histogram merged in, or an empty text when either cannot be read. The stream is that of
    /// `VarDataProcessor::GetDataStream`; the field type is that of `CFField::GetType`, 6 for an unknown one.
    std::string EmbedHistogramInGraph(const std::string& graph, const std::string& histogram, const char* stream,
                                      int length, int fieldType);
};

}  // namespace hierfit
