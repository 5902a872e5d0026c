// SPDX-License-Identifier: MIT
#include "examples/deal/webp_animation.h"

#include "examples/deal/failure.h"
#include "orvane/pixel.h"

#include <webp/encode.h>
#include <webp/mux.h>

#include <algorithm>
#include <cstddef>
#include <fstream>

namespace deal
{

namespace
{

[[noreturn]] void Fail(const std::string& reason)
{
    throw Failure("cannot encode the animation: " + reason);
}

/// A picture of the encoder's that frees itself.
class EncoderPicture
{
public:
    EncoderPicture()
    {
        if (WebPPictureInit(&m_picture) == 0) {
            Fail("the WebP library is of another version");
        }
    }
    ~EncoderPicture() { WebPPictureFree(&m_picture); }
    EncoderPicture(const EncoderPicture&) = delete;
    EncoderPicture& operator=(const EncoderPicture&) = delete;

    WebPPicture* Get() { return &m_picture; }

private:
    WebPPicture m_picture{};
};

} // namespace

void WebpAnimation::Deleter::operator()(WebPAnimEncoder* encoder) const
{
    WebPAnimEncoderDelete(encoder);
}

WebpAnimation::WebpAnimation(int width, int height)
{
    WebPAnimEncoderOptions options;
    if (WebPAnimEncoderOptionsInit(&options) == 0) {
        Fail("the WebP library is of another version");
    }
    options.kmax = 0; // no complete pictures after the first: the film is played from its start
    m_encoder.reset(WebPAnimEncoderNew(width, height, &options));
    if (m_encoder == nullptr) {
        Fail("pictures of " + std::to_string(width) + " x " + std::to_string(height) + " pixels");
    }
}

WebpAnimation::~WebpAnimation() = default;

void WebpAnimation::Add(const Bitmap& picture, int time)
{
    constexpr float kQuality = 68.0F;
    constexpr int kEffort = 2; // of 6: the pictures are many
    WebPConfig config;
    if (WebPConfigPreset(&config, WEBP_PRESET_DRAWING, kQuality) == 0) {
        Fail("the WebP library is of another version");
    }
    config.method = kEffort;
    EncoderPicture frame;
    frame.Get()->width = picture.Width();
    frame.Get()->height = picture.Height();
    frame.Get()->use_argb = 1;
    if (WebPPictureAlloc(frame.Get()) == 0) {
        Fail("no memory");
    }
    for (int y = 0; y < picture.Height(); ++y) {
        const std::uint32_t* const row = orvane::Pixels(picture) + std::ptrdiff_t{y} * picture.Width();
        std::copy(row, row + picture.Width(), frame.Get()->argb + std::ptrdiff_t{y} * frame.Get()->argb_stride);
    }
    if (WebPAnimEncoderAdd(m_encoder.get(), frame.Get(), time, &config) == 0) {
        Fail(WebPAnimEncoderGetError(m_encoder.get()));
    }
}

void WebpAnimation::Save(const std::string& file, int endTime)
{
    WebPData data;
    WebPDataInit(&data);
    const std::unique_ptr<WebPData, void (*)(WebPData*)> guard(&data, WebPDataClear);
    if (WebPAnimEncoderAdd(m_encoder.get(), nullptr, endTime, nullptr) == 0 ||
        WebPAnimEncoderAssemble(m_encoder.get(), &data) == 0) {
        Fail(WebPAnimEncoderGetError(m_encoder.get()));
    }
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(data.bytes), static_cast<std::streamsize>(data.size));
    stream.close();
    if (!stream) {
        throw Failure("cannot write '" + file + "'");
    }
}

} // namespace deal
