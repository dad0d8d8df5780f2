#include "report/archive/ArchiveModule.h"

#include <zip.h>

#include <array>
#include <memory>

namespace {

// Noon of the first day that the form knows: the same in every time zone. Days count from the fifth bit months, from
// the ninth years since 1980.
constexpr zip_uint16_t kDate = 1U << 5U | 1U;
constexpr zip_uint16_t kTime = 12U << 11U;

// Markup of tables repeats itself so much that to look longer gains little, and takes three times as long.
constexpr zip_uint32_t kLevel = 1;

struct Release {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Source = std::unique_ptr<zip_source_t, Release>;
using Zip = std::unique_ptr<zip_t, Release>;

bool Add(zip_t* archive, const HierfitArchiveFile& file) {
    if (!*file.fpName) return false;
    zip_source_t* content = zip_source_buffer(archive, file.fpBytes, file.fSize, 0);
    if (!content) return false;
    const zip_int64_t index = zip_file_add(archive, file.fpName, content, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(content);
        return false;
    }
    const auto place = static_cast<zip_uint64_t>(index);
    const bool isTimed = zip_file_set_dostime(archive, place, kTime, kDate, 0) == 0;
    return isTimed && zip_set_file_compression(archive, place, file.fIsDense ? ZIP_CM_STORE : ZIP_CM_DEFLATE,
                                               file.fIsDense ? 0 : kLevel) == 0;
}

bool Write(zip_source_t* buffer, const HierfitArchiveFile* files, std::size_t count) {
    zip_source_keep(buffer);  // The archive gives one hold of it back when it is closed.
    Zip archive(zip_open_from_source(buffer, ZIP_CREATE | ZIP_TRUNCATE, nullptr));
    if (!archive) {
        zip_source_free(buffer);
        return false;
    }
    for (std::size_t file = 0; file < count; ++file) {
        if (!Add(archive.get(), files[file])) return false;
    }
    if (zip_close(archive.get()) != 0) return false;
    static_cast<void>(archive.release());
    return true;
}

bool Read(zip_source_t* buffer, HierfitTakeArchive take, void* context) {
    if (zip_source_open(buffer) != 0) return false;
    std::array<unsigned char, 1 << 16> bytes;
    zip_int64_t size = 0;
    while ((size = zip_source_read(buffer, bytes.data(), bytes.size())) > 0) {
        take(context, bytes.data(), static_cast<std::size_t>(size));
    }
    zip_source_close(buffer);
    return size == 0;
}

bool Pack(const HierfitArchiveFile* files, std::size_t count, HierfitTakeArchive take, void* context) {
    const Source buffer(zip_source_buffer_create(nullptr, 0, 0, nullptr));
    return buffer && count > 0 && Write(buffer.get(), files, count) && Read(buffer.get(), take, context);
}

constexpr HierfitArchiveFunctions kFunctions{&Pack};

}  // namespace

extern "C" __attribute__((visibility("default"))) const HierfitArchiveFunctions* GetHierfitArchiveFunctions() {
    return &kFunctions;
}
