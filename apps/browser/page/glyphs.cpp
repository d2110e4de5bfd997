#include "apps/browser/page/glyphs.h"

#include "apps/browser/page/glyph_paths.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace browser
{

namespace
{

class GlyphEngine : public QIconEngine
{
public:
    explicit GlyphEngine(Glyph drawn) : glyph(drawn) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setPen(palette.color(group, mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text));
        drawGlyph(*painter, glyph, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new GlyphEngine(*this); }

private:
    Glyph glyph;
};

} // namespace

void drawGlyph(QPainter &painter, Glyph glyph, const QRectF &place, bool filled)
{
    constexpr double grid = 16; // units of glyphPath()
    constexpr double line = 1.25;
    const double side = std::min(place.width(), place.height());
    const QColor color = painter.pen().color();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center() - QPointF(side / 2, side / 2));
    painter.scale(side / grid, side / grid);
    painter.setPen(QPen(color, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(filled ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawPath(glyphPath(glyph));
    painter.restore();
}

QIcon glyphIcon(Glyph glyph)
{
    return QIcon(new GlyphEngine(glyph));
}

} // namespace browser
