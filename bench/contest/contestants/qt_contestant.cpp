// SPDX-License-Identifier: MIT
// Qt's QPainter on an image, with soft edges and without. It moves a card that is only shifted to whole pixels.
#include "bench/contest/contestant.h"
#include "bench/contest/target_memory.h"

#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <QTransform>

#include <cstddef>

namespace contest
{

namespace
{

class QtContestant final : public Contestant
{
public:
    explicit QtContestant(bool softEdges) : m_softEdges(softEdges) {}

    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_memory = TargetMemory(width, height);
        m_target = QImage(m_memory.Bytes(), width, height, m_memory.RowBytes(), QImage::Format_RGB32);
        for (const Picture& picture : pictures) {
            m_cards.emplace_back(reinterpret_cast<const uchar*>(picture.premultiplied.data()), picture.width,
                                 picture.height, picture.RowBytes(), QImage::Format_ARGB32_Premultiplied);
        }
    }

    void Draw(const Frame& frame) override
    {
        QPainter painter(&m_target);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setRenderHint(QPainter::Antialiasing, m_softEdges);
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const QImage& card = m_cards[i % m_cards.size()];
            QPolygonF place;
            for (const Point& corner : frame[i]) {
                place << QPointF(corner.x, corner.y);
            }
            const QPolygonF picture({QPointF(0.0, 0.0), QPointF(card.width(), 0.0),
                                     QPointF(card.width(), card.height()), QPointF(0.0, card.height())});
            QTransform transform;
            if (QTransform::quadToQuad(picture, place, transform)) {
                painter.setTransform(transform);
                painter.drawImage(QPointF(0.0, 0.0), card);
            }
        }
    }

    Pixels Target() override { return m_memory.Get(); }

private:
    bool m_softEdges;
    TargetMemory m_memory;
    QImage m_target;
    std::vector<QImage> m_cards;
};

template <bool softEdges> std::unique_ptr<Contestant> Make()
{
    return std::make_unique<QtContestant>(softEdges);
}

} // namespace

std::vector<Entry> Entries()
{
    const std::string library = std::string("Qt ") + qVersion() + " QPainter, bilinear, true perspective, ";
    return {{"qt", library + "soft edges; shifts are whole pixels", Make<true>},
            {"qt-hard", library + "hard edges; shifts are whole pixels", Make<false>}};
}

} // namespace contest
