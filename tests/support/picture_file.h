// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

/// A PNG file for a test, removed at the end of its scope.
class PictureFile
{
public:
    /// The colour of each pixel is opaque, 0xFFRRGGBB.
    PictureFile(int width, int height, const std::function<std::uint32_t(int x, int y)>& colour);
    ~PictureFile();
    PictureFile(const PictureFile&) = delete;
    PictureFile& operator=(const PictureFile&) = delete;

    const char* Path() const { return m_path.c_str(); }

private:
    std::string m_path;
};
