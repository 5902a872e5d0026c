// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

class Bitmap;
struct WebPAnimEncoder;

namespace deal
{

/// Collects pictures of one size into an animated WebP that plays for ever.
class WebpAnimation
{
public:
    WebpAnimation(int width, int height);
    ~WebpAnimation();
    WebpAnimation(const WebpAnimation&) = delete;
    WebpAnimation& operator=(const WebpAnimation&) = delete;

    /// Shows an opaque picture from that time on, milliseconds since the start, rising. Throws Failure.
    void Add(const Bitmap& picture, int time);
    /// Writes the file; the last picture is shown until the end time. Throws Failure.
    void Save(const std::string& file, int endTime);

private:
    struct Deleter {
        void operator()(WebPAnimEncoder* encoder) const;
    };

    std::unique_ptr<WebPAnimEncoder, Deleter> m_encoder;
};

} // namespace deal
