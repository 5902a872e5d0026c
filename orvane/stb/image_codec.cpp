// SPDX-License-Identifier: MIT
// For platforms without SDL2_image: PNG, JPEG, BMP, GIF and TGA by the stb headers, in memory; files are opened here.
#include "orvane/image_codec.h"

#include "host/bitmap.h"
#include "orvane/pixel.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_STDIO
#define STBI_NO_HDR
#define STBI_NO_LINEAR
#define STBI_NO_PSD
#define STBI_NO_PIC
#define STBI_NO_PNM
#define STBI_MAX_DIMENSIONS 32767
#include <stb/stb_image.h>
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <vector>

namespace orvane
{

namespace
{

struct PixelFreer {
    void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};

/// The library hands its file over in pieces.
void Append(void* context, void* data, int size)
{
    const auto* const bytes = static_cast<const char*>(data);
    auto& file = *static_cast<std::vector<char>*>(context);
    file.insert(file.end(), bytes, bytes + size);
}

} // namespace

void DecodeImage(std::span<const std::uint8_t> file, const std::string& extension, Bitmap& bitmap)
{
    static_cast<void>(extension); // contents tell all formats but TGA, which is tried last
    if (file.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        throw ImageError("it is larger than 2 GiB");
    }
    const int size = static_cast<int>(file.size());
    int width = 0;
    int height = 0;
    int channels = 0;
    if (stbi_info_from_memory(file.data(), size, &width, &height, &channels) == 0) {
        throw ImageError(stbi_failure_reason());
    }
    RequireAllowedImageSize(width, height);
    const std::unique_ptr<stbi_uc, PixelFreer> pixels(
        stbi_load_from_memory(file.data(), size, &width, &height, &channels, 4));
    if (pixels == nullptr) {
        throw ImageError(stbi_failure_reason());
    }
    bitmap.Realloc(width, height);
    std::uint32_t* const destination = Pixels(bitmap);
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    for (std::size_t i = 0; i < count; ++i) {
        const stbi_uc* const rgba = pixels.get() + i * 4;
        destination[i] = PremultipliedPixel({rgba[0], rgba[1], rgba[2], rgba[3]});
    }
}

void EncodePng(std::span<const std::uint8_t> bytes, int channels, int width, int height, const std::string& file)
{
    std::vector<char> encoded;
    if (stbi_write_png_to_func(&Append, &encoded, width, height, channels, bytes.data(), width * channels) == 0) {
        throw ImageError("its pixels cannot be encoded");
    }
    std::ofstream stream(std::filesystem::path(std::u8string(file.begin(), file.end())), std::ios::binary);
    stream.write(encoded.data(), static_cast<std::streamsize>(encoded.size()));
    stream.close();
    if (!stream) {
        throw ImageError("its file cannot be written");
    }
}

} // namespace orvane
