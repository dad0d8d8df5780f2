#pragma once

#include <cstddef>

/// What the module that packs files into a zip archive offers. It is loaded only when a format of such files is asked
/// for. The same bytes come out for the same input: every file bears one constant time.
extern "C" {

/// One file of an archive. All is the caller's, and must last as long as the call.
struct HierfitArchiveFile {
    const char* fpName;  ///< with "/" between folders, ASCII, ended by a zero byte
    const char* fpBytes;
    std::size_t fSize;
    bool fIsDense;  ///< it would not get smaller, as a picture in pixels, and is stored as it is
};

/// Takes a part of the result; `context` is the caller's.
using HierfitTakeArchive = void (*)(void* context, const unsigned char* bytes, std::size_t size);

struct HierfitArchiveFunctions {
    /// Packs the files in their order. False when memory is short, two names are the same, or a name is none.
    bool (*fpPack)(const HierfitArchiveFile* files, std::size_t count, HierfitTakeArchive take, void* context);
};

/// The module's one export.
using HierfitGetArchiveFunctions = const HierfitArchiveFunctions* (*)();
}

inline constexpr const char* kHierfitGetArchiveFunctions = "GetHierfitArchiveFunctions";
