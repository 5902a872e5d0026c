// SPDX-License-Identifier: MIT
// Mesa's software OpenGL, which compiles its loops for the scene, in one thread. It draws into tiles of its own:
// clearing them and copying the frame out belong to its work and are timed.
#include "bench/contest/contestant.h"
#include "bench/contest/projective_map.h"
#include "bench/contest/target_memory.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <GL/osmesa.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <stdexcept>

namespace contest
{

namespace
{

class LlvmpipeContestant final : public Contestant
{
public:
    ~LlvmpipeContestant() override
    {
        if (m_context != nullptr) {
            OSMesaDestroyContext(m_context);
        }
    }

    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_target = TargetMemory(width, height);
        setenv("LP_NUM_THREADS", "0", 1);
        const int attributes[] = {OSMESA_FORMAT,
                                  OSMESA_BGRA,
                                  OSMESA_DEPTH_BITS,
                                  0,
                                  OSMESA_STENCIL_BITS,
                                  0,
                                  OSMESA_PROFILE,
                                  OSMESA_COMPAT_PROFILE,
                                  0};
        m_context = OSMesaCreateContextAttribs(attributes, nullptr);
        if (m_context == nullptr ||
            OSMesaMakeCurrent(m_context, m_target.Bytes(), GL_UNSIGNED_BYTE, width, height) == GL_FALSE) {
            throw std::runtime_error("OSMesa makes no context");
        }
        OSMesaPixelStore(OSMESA_ROW_LENGTH, m_target.Get().stride);
        OSMesaPixelStore(OSMESA_Y_UP, 0);
        glViewport(0, 0, width, height);
        glMatrixMode(GL_PROJECTION);
        glOrtho(0.0, width, height, 0.0, -1.0, 1.0);
        glDisable(GL_DITHER);
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        glEnable(GL_TEXTURE_2D);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
        glClearColor(ChannelOf(kTable, 16), ChannelOf(kTable, 8), ChannelOf(kTable, 0), 1.0F);
        for (const Picture& picture : pictures) {
            AddTexture(picture);
        }
    }

    void Draw(const Frame& frame) override
    {
        glClear(GL_COLOR_BUFFER_BIT);
        const bool oneTexture = m_textures.size() == 1;
        for (std::size_t i = 0; i < frame.size(); ++i) {
            if (i == 0 || !oneTexture) {
                glBindTexture(GL_TEXTURE_2D, m_textures[i % m_textures.size()]);
                glBegin(GL_QUADS);
            }
            DrawCard(frame[i]);
            if (i + 1 == frame.size() || !oneTexture) {
                glEnd();
            }
        }
        glFinish();
    }

    Pixels Target() override { return m_target.Get(); }

private:
    static float ChannelOf(std::uint32_t word, int shift)
    {
        return static_cast<float>((word >> shift) & 255U) / 255.0F;
    }

    /// Homogeneous corners, whose depths make the texture's perspective.
    static void DrawCard(const Quad& quad)
    {
        constexpr std::array<std::array<int, 2>, 4> kPictureCorners{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
        const ProjectiveMap map = ProjectiveMap::OfPicture(1.0, 1.0, quad);
        for (const auto& [x, y] : kPictureCorners) {
            glTexCoord2i(x, y);
            glVertex4d(map.Row(0, x, y), map.Row(1, x, y), 0.0, map.Row(2, x, y));
        }
    }

    void AddTexture(const Picture& picture)
    {
        GLuint texture = 0;
        glGenTextures(1, &texture);
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, picture.width, picture.height, 0, GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV,
                     picture.premultiplied.data());
        m_textures.push_back(texture);
    }

    TargetMemory m_target;
    OSMesaContext m_context = nullptr;
    std::vector<GLuint> m_textures;
};

} // namespace

std::vector<Entry> Entries()
{
    return {{"llvmpipe", "Mesa llvmpipe (OSMesa), bilinear, true perspective, hard edges",
             []() -> std::unique_ptr<Contestant> { return std::make_unique<LlvmpipeContestant>(); }}};
}

} // namespace contest
