// SPDX-License-Identifier: MIT
#include "bench/contest/truth_file.h"

#include <fstream>
#include <stdexcept>

namespace contest
{

namespace
{

constexpr std::uint32_t kMagic = 0x54525532U; ///< changes with the format
constexpr int kLargestSide = 32767;

template <class Value> void Write(std::ostream& file, const Value* values, std::size_t count)
{
    file.write(reinterpret_cast<const char*>(values), static_cast<std::streamsize>(count * sizeof(Value)));
}

template <class Value> void Read(std::istream& file, Value* values, std::size_t count)
{
    file.read(reinterpret_cast<char*>(values), static_cast<std::streamsize>(count * sizeof(Value)));
}

} // namespace

void WriteTruth(const Truth& truth, const std::string& path)
{
    std::ofstream file(path, std::ios::binary);
    Write(file, &kMagic, 1);
    Write(file, &truth.width, 1);
    Write(file, &truth.height, 1);
    Write(file, truth.area.data(), truth.area.size());
    Write(file, truth.bilinear.data(), truth.bilinear.size());
    Write(file, truth.places.data(), truth.places.size());
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

Truth ReadTruth(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::uint32_t magic = 0;
    Truth truth;
    Read(file, &magic, 1);
    Read(file, &truth.width, 1);
    Read(file, &truth.height, 1);
    if (!file || magic != kMagic || truth.width < 1 || truth.width > kLargestSide || truth.height < 1 ||
        truth.height > kLargestSide) {
        throw std::runtime_error(path + " is no truth of this program");
    }
    const std::size_t pixels = static_cast<std::size_t>(truth.width) * static_cast<std::size_t>(truth.height);
    truth.area.resize(pixels);
    truth.bilinear.resize(pixels);
    truth.places.resize(pixels);
    Read(file, truth.area.data(), pixels);
    Read(file, truth.bilinear.data(), pixels);
    Read(file, truth.places.data(), pixels);
    if (!file) {
        throw std::runtime_error(path + " is too short");
    }
    return truth;
}

} // namespace contest
