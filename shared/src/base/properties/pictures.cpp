#include "pictures.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace
{
/// An icon that is painted by a function.
class CPaintedIcon : public QIconEngine
{
public:
    QPixmap pixmap(const QSize& in_size, QIcon::Mode in_eMode, QIcon::State in_eState) override
    {
        QPixmap pixmap(in_size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), in_size), in_eMode, in_eState);
        return pixmap;
    }
};

class CSwatchIcon final : public CPaintedIcon
{
public:
    explicit CSwatchIcon(const QBrush& in_brush) : m_brush(in_brush) {}

    QIconEngine* clone() const override { return new CSwatchIcon(*this); }

    void paint(QPainter* in_pPainter, const QRect& in_rect, QIcon::Mode, QIcon::State) override
    {
        const QRect inner = in_rect.adjusted(0, 0, -1, -1);
        const bool bNone = m_brush.style() == Qt::NoBrush;
        if (!bNone && !m_brush.isOpaque())
        {
            PaintBoard(in_pPainter, inner);
        }
        in_pPainter->save();
        QColor frame = QGuiApplication::palette().color(QPalette::Text);
        frame.setAlphaF(static_cast<float>(0.5));
        in_pPainter->fillRect(inner, m_brush);
        in_pPainter->setPen(frame);
        in_pPainter->drawRect(inner);
        bNone ? in_pPainter->drawLine(inner.bottomLeft(), inner.topRight()) : void();
        in_pPainter->restore();
    }

private:
    /// What shows how much can be seen through.
    static void PaintBoard(QPainter* in_pPainter, const QRect& in_rect)
    {
        const int iField = std::max(1, in_rect.height() / 4);
        in_pPainter->fillRect(in_rect, Qt::white);
        for (int iY = 0; iY < in_rect.height(); iY += iField)
        {
            for (int iX = (iY / iField) % 2 * iField; iX < in_rect.width(); iX += 2 * iField)
            {
                const QRect field(in_rect.x() + iX, in_rect.y() + iY, iField, iField);
                in_pPainter->fillRect(field & in_rect, Qt::lightGray);
            }
        }
    }

    QBrush m_brush;
};

class CEllipsisIcon final : public CPaintedIcon
{
public:
    QIconEngine* clone() const override { return new CEllipsisIcon(*this); }

    void paint(QPainter* in_pPainter, const QRect& in_rect, QIcon::Mode in_eMode, QIcon::State) override
    {
        const QPalette::ColorGroup eGroup = in_eMode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const qreal dot = std::max(1.5, in_rect.height() / 8.0);
        in_pPainter->save();
        in_pPainter->setRenderHint(QPainter::Antialiasing);
        in_pPainter->setPen(Qt::NoPen);
        in_pPainter->setBrush(QGuiApplication::palette().color(eGroup, QPalette::Text));
        for (int i = -1; i <= 1; ++i)
        {
            in_pPainter->drawEllipse(QRectF(in_rect).center() + QPointF(2.2 * dot * i, 0), dot / 1.5, dot / 1.5);
        }
        in_pPainter->restore();
    }
};
} // namespace

QIcon Pictures::Swatch(const QBrush& in_brush)
{
    return QIcon(new CSwatchIcon(in_brush));
}

QIcon Pictures::Ellipsis()
{
    return QIcon(new CEllipsisIcon);
}
