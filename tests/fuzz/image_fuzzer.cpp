// SPDX-License-Identifier: MIT
// Loading of picture files: any bytes give a picture or a reason, within the time and memory that scripts/fuzz allows.
#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "orvane/image_header.h"
#include "orvane/orvane.h"
#include "tests/fuzz/check.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

Tally pictures("pictures loaded");
Tally files("files");

/// A file without a disk.
class MemoryFile
{
public:
    MemoryFile() : m_file(memfd_create("picture", 0)) {}
    ~MemoryFile() { close(m_file); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string Write(const std::uint8_t* data, std::size_t size) const
    {
        FUZZ_CHECK(ftruncate(m_file, 0) == 0);
        FUZZ_CHECK(pwrite(m_file, data, size, 0) == static_cast<ssize_t>(size));
        return "/proc/self/fd/" + std::to_string(m_file);
    }

private:
    int m_file;
};

/// Every pixel can be read.
void Read(const Bitmap& bitmap)
{
    FUZZ_CHECK(bitmap.Width() <= Bitmap::kMaxSide && bitmap.Height() <= Bitmap::kMaxSide);
    const std::size_t size =
        std::size_t{4} * static_cast<std::size_t>(bitmap.Width()) * static_cast<std::size_t>(bitmap.Height());
    unsigned sum = 0;
    for (std::size_t i = 0; i < size; ++i) {
        sum += bitmap.Buffer()[i];
    }
    FUZZ_CHECK(sum <= 255 * size);
    ++pictures;
}

} // namespace

/// The decoding libraries lose some bytes over damaged files of rare formats; that is theirs to mend.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libSDL2\nleak:libtiff\nleak:libwebp\nleak:libjpeg\nleak:libpng\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    static const orvane::Host host([] {
        orvane::Settings settings;
        settings.logSink = [](const char*, orvane::LogLevel, const char*) {};
        return settings;
    }());
    const orvane::ImageHeader header = orvane::ReadImageHeader({data, size});
    if (header.isWhole && (header.width == 0 || header.height == 0)) {
        return 0; // of a format whose size the host does not see before the image library has decoded it
    }
    ++files;
    Bitmap* bitmap = BitmapManager::Instance().Load(file.Write(data, size), true);
    if (bitmap != nullptr) {
        FUZZ_CHECK(header.isWhole);
        Read(*bitmap);
    }
    BitmapManager::Instance().Destroy(bitmap);
    return 0;
}
