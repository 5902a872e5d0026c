// SPDX-License-Identifier: MIT
#include "bench/contest/pixmap_file.h"

#include <fstream>
#include <stdexcept>

namespace contest
{

namespace
{

constexpr const char* kMagic = "P6";
constexpr int kMost = 255;
constexpr int kLargestSide = 32767;

} // namespace

Pixmap ToPixmap(const Pixels& pixels)
{
    Pixmap pixmap{pixels.width, pixels.height, {}};
    for (int y = 0; y < pixels.height; ++y) {
        const std::uint32_t* const row = pixels.Row(y);
        for (int x = 0; x < pixels.width; ++x) {
            for (const int shift : {16, 8, 0}) {
                pixmap.bytes.push_back(static_cast<std::uint8_t>(row[x] >> shift));
            }
        }
    }
    return pixmap;
}

void WritePixmap(const Pixmap& pixmap, const std::string& path)
{
    std::ofstream file(path, std::ios::binary);
    file << kMagic << '\n' << pixmap.width << ' ' << pixmap.height << '\n' << kMost << '\n';
    file.write(reinterpret_cast<const char*>(pixmap.bytes.data()), static_cast<std::streamsize>(pixmap.bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

Pixmap ReadPixmap(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string magic;
    Pixmap pixmap;
    int most = 0;
    file >> magic >> pixmap.width >> pixmap.height >> most;
    file.get(); // the one blank before the pixels
    if (!file || magic != kMagic || most != kMost || pixmap.width < 1 || pixmap.width > kLargestSide ||
        pixmap.height < 1 || pixmap.height > kLargestSide) {
        throw std::runtime_error(path + " is no binary pixmap");
    }
    pixmap.bytes.resize(static_cast<std::size_t>(pixmap.width) * static_cast<std::size_t>(pixmap.height) * 3);
    if (!file.read(reinterpret_cast<char*>(pixmap.bytes.data()), static_cast<std::streamsize>(pixmap.bytes.size()))) {
        throw std::runtime_error(path + " is too short");
    }
    return pixmap;
}

} // namespace contest
