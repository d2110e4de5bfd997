#include "apps/browser/page/cell_painter.h"

#include "apps/browser/page/colors.h"
#include "apps/browser/page/texts.h"

#include <QPainter>

#include <algorithm>

namespace browser
{

namespace
{

constexpr int markSide = 16;
constexpr int markGap = 6;

QVector<Glyph> marksOf(const Photo &photo, bool isOnlyInCloud)
{
    QVector<Glyph> marks;
    if (isOnlyInCloud)
        marks += Glyph::Cloud;
    if (photo.is(LivePhoto))
        marks += Glyph::Live;
    if (photo.is(Burst))
        marks += Glyph::Burst;
    if (photo.kind == MediaKind::Animation)
        marks += Glyph::Moving;
    if (photo.is(Panorama))
        marks += Glyph::Panorama;
    return marks;
}

} // namespace

CellPainter::CellPainter(const QPalette &palette, const QFont &font) : colors(palette), small(font)
{
    const QColor &base = palette.color(QPalette::Base), &text = palette.color(QPalette::Text);
    const bool isLight = base.lightness() > text.lightness();
    bright = isLight ? base : text;
    dark = isLight ? text : base;
    if (small.pointSizeF() > 0)
        small.setPointSizeF(small.pointSizeF() * 0.9);
    small.setBold(true);
}

void CellPainter::draw(QPainter &painter, const QRect &cell, const Photo &photo, const LoadedThumbnail *thumbnail,
                       const CellState &state)
{
    drawPicture(painter, cell, thumbnail);
    drawMarks(painter, cell, photo, photo.is(CloudOnly) || (thumbnail != nullptr && thumbnail->lacksOriginal));
    drawState(painter, cell, state);
}

void CellPainter::drawPicture(QPainter &painter, const QRect &cell, const LoadedThumbnail *thumbnail) const
{
    const QColor base = colors.color(QPalette::Base), text = colors.color(QPalette::Text);
    if (thumbnail != nullptr && !thumbnail->square.isNull()) {
        const QSize pixels = cell.size() * painter.device()->devicePixelRatioF();
        painter.setRenderHint(QPainter::SmoothPixmapTransform, thumbnail->square.size() != pixels);
        painter.drawImage(cell, thumbnail->square);
        return;
    }
    painter.fillRect(cell, blended(base, text, 0.08));
    if (thumbnail == nullptr)
        return;
    const int side = std::min(32, cell.width() / 3);
    QRect place(0, 0, side, side);
    place.moveCenter(cell.center());
    painter.setPen(blended(base, text, 0.4));
    drawGlyph(painter, Glyph::NoPicture, place);
}

void CellPainter::drawShade(QPainter &painter, const QRect &cell, int height) const
{
    const QRect shade(cell.left(), cell.bottom() + 1 - height, cell.width(), height);
    QLinearGradient gradient(shade.topLeft(), shade.bottomLeft());
    QColor end = dark;
    end.setAlphaF(0);
    gradient.setColorAt(0, end);
    end.setAlphaF(0.7);
    gradient.setColorAt(1, end);
    painter.fillRect(shade, gradient);
}

void CellPainter::drawMark(QPainter &painter, Glyph glyph, const QRect &place)
{
    const double ratio = painter.device()->devicePixelRatioF();
    QPixmap &mark = marks[static_cast<int>(glyph)];
    if (mark.isNull() || mark.devicePixelRatioF() < ratio || mark.devicePixelRatioF() > ratio) {
        mark = QPixmap(place.size() * ratio);
        mark.setDevicePixelRatio(ratio);
        mark.fill(Qt::transparent);
        QPainter marker(&mark);
        marker.setPen(bright);
        drawGlyph(marker, glyph, QRectF(QPointF(), place.size()), glyph == Glyph::Heart);
    }
    painter.drawPixmap(place, mark);
}

void CellPainter::drawMarks(QPainter &painter, const QRect &cell, const Photo &photo, bool isOnlyInCloud)
{
    const QVector<Glyph> marks = marksOf(photo, isOnlyInCloud);
    const bool isVideo = photo.kind == MediaKind::Video;
    if (marks.isEmpty() && !isVideo && !photo.is(Favorite))
        return;
    drawShade(painter, cell, std::min(cell.height() / 2, markSide + 4 * markGap));
    QRect place(cell.left() + markGap, cell.bottom() + 1 - markGap - markSide, markSide, markSide);
    if (photo.is(Favorite)) {
        drawMark(painter, Glyph::Heart, place);
        place.translate(markSide + markGap, 0);
    }
    for (const Glyph glyph : marks) {
        if (place.right() > cell.right())
            break;
        drawMark(painter, glyph, place);
        place.translate(markSide + markGap, 0);
    }
    if (!isVideo)
        return;
    painter.setPen(bright);
    painter.setFont(small);
    const QRect line(place.left(), place.top(), cell.right() - markGap - place.left(), place.height());
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, Texts::duration(photo.duration));
}

void CellPainter::drawState(QPainter &painter, const QRect &cell, const CellState &state) const
{
    const QColor highlight = colors.color(QPalette::Highlight);
    if (state.hovered && !state.selected) {
        QColor veil = bright;
        veil.setAlphaF(0.15);
        painter.fillRect(cell, veil);
    }
    painter.setBrush(Qt::NoBrush);
    if (state.selected) {
        QColor veil = highlight;
        veil.setAlphaF(0.3);
        painter.fillRect(cell, veil);
        painter.setPen(QPen(highlight, 4, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(cell.adjusted(2, 2, -2, -2));
        const QRect disk(cell.right() - 24, cell.top() + 6, 19, 19);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colors.color(QPalette::HighlightedText), 1.5));
        painter.setBrush(highlight);
        painter.drawEllipse(disk);
        drawGlyph(painter, Glyph::Check, disk.adjusted(3, 3, -3, -3));
        painter.restore();
    }
    if (state.focused) {
        painter.setPen(QPen(colors.color(state.selected ? QPalette::HighlightedText : QPalette::Highlight), 2,
                            state.selected ? Qt::DotLine : Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(cell.adjusted(1, 1, -1, -1));
    }
}

} // namespace browser
