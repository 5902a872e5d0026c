// SPDX-License-Identifier: MIT
#include "orvane/image_header.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace orvane
{

namespace
{

using Bytes = std::span<const std::uint8_t>;

constexpr ImageHeader kCutOff{0, 0, false};

/// Whether this text stands at the offset.
bool HasText(Bytes bytes, std::size_t offset, std::string_view text)
{
    return bytes.size() >= offset + text.size() && std::memcmp(bytes.data() + offset, text.data(), text.size()) == 0;
}

std::uint32_t LittleEndian(Bytes bytes, std::size_t offset, std::size_t count)
{
    std::uint32_t value = 0;
    for (std::size_t i = count; i > 0; --i) {
        value = (value << 8) | bytes[offset + i - 1];
    }
    return value;
}

std::uint32_t BigEndian(Bytes bytes, std::size_t offset, std::size_t count)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        value = (value << 8) | bytes[offset + i];
    }
    return value;
}

/// A signature, then chunks of length, type, data and checksum up to the one of type IEND.
ImageHeader ReadPng(Bytes file)
{
    constexpr std::size_t kSignature = 8;
    constexpr std::size_t kAroundData = 12;
    constexpr std::size_t kHeaderEnd = kSignature + 8 + 13;
    if (file.size() < kHeaderEnd) {
        return kCutOff;
    }
    ImageHeader header{BigEndian(file, kSignature + 8, 4), BigEndian(file, kSignature + 12, 4), false};
    const std::int64_t bitsPerSample = file[kSignature + 16];

    std::int64_t compressed = 0;
    for (std::size_t offset = kSignature; file.size() - offset >= kAroundData;) {
        const std::size_t length = BigEndian(file, offset, 4);
        if (length > file.size() - offset - kAroundData) {
            break;
        }
        if (HasText(file, offset + 4, "IDAT")) {
            compressed += static_cast<std::int64_t>(length);
        }
        header.isWhole = HasText(file, offset + 4, "IEND");
        if (header.isWhole) {
            break;
        }
        offset += kAroundData + length;
    }

    // The compression packs at most 1032 bytes into one. A picture larger than that cannot be in the file, and its
    // memory need not be asked for.
    constexpr std::int64_t kBestRatio = 1032;
    const std::int64_t smallestRow = header.width * bitsPerSample / 8 + 1;
    if (header.height > 0 && smallestRow > compressed * kBestRatio / header.height) {
        header.isWhole = false;
    }
    return header;
}

/// A block of 8 x 8 pixels takes at least one bit, so a picture much larger than its file is not whole.
bool CanHoldJpeg(const ImageHeader& header, std::size_t fileSize)
{
    constexpr std::int64_t kMostPixelsPerByte = 512;
    return header.width * header.height <= kMostPixelsPerByte * static_cast<std::int64_t>(fileSize);
}

/// Segments of marker and length, between them coded pixels, in which a marker byte is followed by 0.
ImageHeader ReadJpeg(Bytes file)
{
    ImageHeader header;
    std::size_t offset = 2;
    while (offset + 2 <= file.size()) {
        const std::uint8_t marker = file[offset + 1];
        const bool isPixels = file[offset] != 0xFF || marker == 0;
        const bool isFill = marker == 0xFF;
        if (isPixels || isFill) {
            ++offset;
            continue;
        }
        if (marker == 0xD9) { // the end of the picture
            header.isWhole = CanHoldJpeg(header, file.size());
            return header;
        }
        offset += 2;
        const bool standsAlone = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
        if (standsAlone) {
            continue;
        }
        if (offset + 2 > file.size()) {
            break;
        }
        const std::size_t length = BigEndian(file, offset, 2);
        const bool isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame && length >= 7 && offset + 7 <= file.size()) {
            header.height = BigEndian(file, offset + 3, 2);
            header.width = BigEndian(file, offset + 5, 2);
        }
        offset += std::max<std::size_t>(length, 2);
    }
    header.isWhole = false;
    return header;
}

/// A RIFF file; the size is in its first chunk, in one of three forms.
ImageHeader ReadWebP(Bytes file)
{
    constexpr std::size_t kChunkData = 20;
    constexpr std::size_t kLongestHeader = 10;
    if (file.size() < kChunkData + kLongestHeader) {
        return kCutOff;
    }
    ImageHeader header;
    header.isWhole = std::uint64_t{LittleEndian(file, 4, 4)} + 8 <= file.size();
    if (HasText(file, 12, "VP8 ")) {
        header.width = LittleEndian(file, kChunkData + 6, 2) & 0x3FFF;
        header.height = LittleEndian(file, kChunkData + 8, 2) & 0x3FFF;
    } else if (HasText(file, 12, "VP8L")) {
        const std::uint32_t sides = LittleEndian(file, kChunkData + 1, 4);
        header.width = (sides & 0x3FFF) + 1;
        header.height = ((sides >> 14) & 0x3FFF) + 1;
    } else if (HasText(file, 12, "VP8X")) {
        header.width = LittleEndian(file, kChunkData + 4, 3) + 1;
        header.height = LittleEndian(file, kChunkData + 7, 3) + 1;
    }
    return header;
}

/// A file header with the place of the pixels, and an information header, the old one of which has 16-bit sides.
ImageHeader ReadBmp(Bytes file)
{
    constexpr std::size_t kInformation = 14;
    constexpr std::uint32_t kOldInformationSize = 12;
    if (file.size() < kInformation + kOldInformationSize) {
        return kCutOff;
    }
    const std::int64_t pixels = LittleEndian(file, 10, 4);
    ImageHeader header;
    std::int64_t bitsPerPixel = 0;
    std::uint32_t compression = 0;
    if (LittleEndian(file, kInformation, 4) == kOldInformationSize) {
        header.width = LittleEndian(file, kInformation + 4, 2);
        header.height = LittleEndian(file, kInformation + 6, 2);
        bitsPerPixel = LittleEndian(file, kInformation + 10, 2);
    } else {
        if (file.size() < kInformation + 20) {
            return kCutOff;
        }
        header.width = static_cast<std::int32_t>(LittleEndian(file, kInformation + 4, 4));
        header.height = static_cast<std::int32_t>(LittleEndian(file, kInformation + 8, 4));
        header.height = std::max(header.height, -header.height); // negative: rows from top to bottom
        bitsPerPixel = LittleEndian(file, kInformation + 14, 2);
        compression = LittleEndian(file, kInformation + 16, 4);
    }
    const bool isRunLengthCoded = compression == 1 || compression == 2;
    if (isRunLengthCoded) {
        header.isWhole = pixels < static_cast<std::int64_t>(file.size());
    } else if (header.width > 0 && header.height > 0 && bitsPerPixel > 0) {
        const std::int64_t row = (header.width * bitsPerPixel + 31) / 32 * 4;
        const std::int64_t available = static_cast<std::int64_t>(file.size()) - pixels;
        header.isWhole = available / row >= header.height;
    }
    return header;
}

/// The bytes of a GIF colour table whose presence and size this byte of a header tells.
std::size_t GifColourTable(std::uint8_t flags)
{
    return (flags & 0x80U) != 0 ? std::size_t{3} << ((flags & 7U) + 1) : 0;
}

/// The offset behind a chain of GIF data blocks, each with its length before it, the last one empty.
std::size_t SkipGifBlocks(Bytes file, std::size_t offset)
{
    while (offset < file.size() && file[offset] != 0) {
        offset += std::size_t{1} + file[offset];
    }
    return offset + 1;
}

/// The size of the screen, then pictures with sizes of their own, which may lie beyond it; between them extensions.
/// Decoders skip what is neither.
ImageHeader ReadGif(Bytes file)
{
    constexpr std::size_t kHeader = 13;
    constexpr std::size_t kPictureHeader = 10;
    if (file.size() < kHeader) {
        return kCutOff;
    }
    ImageHeader header{LittleEndian(file, 6, 2), LittleEndian(file, 8, 2), true};
    std::size_t offset = kHeader + GifColourTable(file[10]);
    while (offset + kPictureHeader <= file.size() && file[offset] != ';') {
        if (file[offset] == '!') {
            offset = SkipGifBlocks(file, offset + 2);
        } else if (file[offset] == ',') {
            header.width = std::max<std::int64_t>(header.width, LittleEndian(file, offset + 5, 2));
            header.height = std::max<std::int64_t>(header.height, LittleEndian(file, offset + 7, 2));
            offset += kPictureHeader + GifColourTable(file[offset + 9]);
            offset = SkipGifBlocks(file, offset + 1);
        } else {
            ++offset;
        }
    }
    return header;
}

} // namespace

ImageHeader ReadImageHeader(Bytes file)
{
    if (HasText(file, 0, "\x89PNG\r\n\x1A\n")) {
        return ReadPng(file);
    }
    if (HasText(file, 0, "\xFF\xD8\xFF")) {
        return ReadJpeg(file);
    }
    if (HasText(file, 0, "RIFF") && HasText(file, 8, "WEBP")) {
        return ReadWebP(file);
    }
    if (HasText(file, 0, "BM")) {
        return ReadBmp(file);
    }
    if (HasText(file, 0, "GIF8")) {
        return ReadGif(file);
    }
    return {};
}

} // namespace orvane
