#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>

struct HierfitArchiveFunctions;

namespace hierfit::report {

/// A file of an archive.
struct ArchiveFile {
    std::string fName;  ///< with "/" between folders, in ASCII; not empty, and no two of an archive are the same
    std::string fBytes;
    bool fIsDense = false;  ///< it would not get smaller, and is stored as it is
};

/// Packs files into a zip archive by a module that is loaded when the first one is made.
class Archive {
  public:
    /// The module at a path, or why it cannot be had.
    static std::variant<Archive, std::string> Load(const std::string& path);

    /// The archive, in which files keep their order and bear one constant time; nothing where it cannot be made.
    std::optional<std::string> Pack(std::span<const ArchiveFile> files) const;

  private:
    explicit Archive(const HierfitArchiveFunctions* functions) : fpFunctions(functions) {}

    const HierfitArchiveFunctions* fpFunctions;
};

}  // namespace hierfit::report
