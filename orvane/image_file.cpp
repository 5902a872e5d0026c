// SPDX-License-Identifier: MIT
#include "orvane/image_file.h"

#include "host/bitmap.h"
#include "orvane/image_codec.h"
#include "orvane/image_header.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>
#include <vector>

namespace orvane
{

namespace
{

/// File names are UTF-8 on every platform.
std::filesystem::path PathOf(const std::string& file)
{
    return {std::u8string(file.begin(), file.end())};
}

std::vector<std::uint8_t> ReadFile(const std::string& file)
{
    const std::filesystem::path path = PathOf(file);
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) {
        throw ImageError(error ? error.message() : "there is no such file");
    }
    if (std::filesystem::is_directory(status)) {
        throw ImageError("it is no regular file");
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        throw ImageError("it is no regular file");
    }
    if (size == 0) {
        throw ImageError("it is empty");
    }
    if (size > static_cast<std::uintmax_t>(std::numeric_limits<int>::max())) {
        throw ImageError("it is larger than 2 GiB");
    }
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        throw ImageError(errno != 0 ? std::strerror(errno) : "it cannot be opened");
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (static_cast<std::size_t>(stream.gcount()) != bytes.size()) {
        throw ImageError("it cannot be read");
    }
    return bytes;
}

/// The library tells formats by their contents, except those that only their names tell.
std::string Extension(const std::string& file)
{
    const std::size_t dot = file.find_last_of("./\\");
    return dot == std::string::npos || file[dot] != '.' ? std::string() : file.substr(dot + 1);
}

} // namespace

void RequireAllowedImageSize(std::int64_t width, std::int64_t height)
{
    if (width > Bitmap::kMaxSide || height > Bitmap::kMaxSide) {
        throw ImageError("its size of " + std::to_string(width) + " x " + std::to_string(height) + " pixels is above " +
                         std::to_string(Bitmap::kMaxSide) + " on a side");
    }
    if (width * height > kMostImagePixels) {
        throw ImageError("its size of " + std::to_string(width) + " x " + std::to_string(height) + " pixels is above " +
                         std::to_string(kMostImagePixels) + " in all");
    }
}

std::string LoadImageFile(const std::string& file, Bitmap& bitmap)
{
    try {
        const std::vector<std::uint8_t> bytes = ReadFile(file);
        const ImageHeader header = ReadImageHeader(bytes);
        RequireAllowedImageSize(header.width, header.height);
        if (!header.isWhole) {
            throw ImageError("it is cut off");
        }
        DecodeImage(bytes, Extension(file), bitmap);
    } catch (const ImageError& error) {
        return error.what();
    } catch (const std::system_error&) {
        return "its name cannot be converted"; // where the system's names are not bytes
    }
    return {};
}

} // namespace orvane
