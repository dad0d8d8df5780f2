#pragma once

#include <string>

#include "Descriptor.h"

namespace hierfit::program {

/// A file beside the one that it is going to be. It is removed at its end unless it took that one's place, and when a
/// signal ends the program.
class TemporaryFile {
  public:
    /// Made beside a path. Where that fails it is not open, and the reason is in errno.
    explicit TemporaryFile(const std::string& path);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    /// Leaves errno as it is.
    ~TemporaryFile();

    bool IsOpen() const { return fFile.IsOpen(); }
    int Get() const { return fFile.Get(); }

    /// Closes it and gives it the path. False with the reason in errno.
    bool TakePlace();

    /// From now on a signal that ends the program first removes the temporary files that there are. Signals that are
    /// ignored or handled already stay so.
    static void RemoveAtSignals();

  private:
    int Open();
    void Leave();
    static void EndBy(int signal);

    std::string fPath;
    std::string fName;
    TemporaryFile* fpNext = nullptr;  ///< in the list of those that there are
    bool fIsListed = false;
    Descriptor fFile;
};

}  // namespace hierfit::program
