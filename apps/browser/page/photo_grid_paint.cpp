#include "apps/browser/page/colors.h"
#include "apps/browser/page/photo_grid.h"
#include "apps/browser/page/texts.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionRubberBand>

#include <algorithm>

namespace browser
{

namespace
{

constexpr int buttonPadding = 8;

QFont headingFont(const QFont &font)
{
    QFont heading = font;
    heading.setBold(true);
    if (heading.pointSizeF() > 0)
        heading.setPointSizeF(heading.pointSizeF() * 1.15);
    return heading;
}

} // namespace

CellPainter &PhotoGrid::cellPainter()
{
    if (!painterOfCells)
        painterOfCells.emplace(palette(), font());
    return *painterOfCells;
}

void PhotoGrid::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    paintCells(painter, event->rect());
    paintHeadings(painter);
    paintBand(painter);
    paintScrollLabel(painter);
}

void PhotoGrid::paintCells(QPainter &painter, const QRect &dirty)
{
    const auto [first, behind] = places.touching(dirty.top() + verticalOffset(), dirty.bottom() + verticalOffset());
    for (int row = first; row < behind; ++row) {
        const QRect cell = places.cell(row).translated(0, -verticalOffset());
        if (!cell.intersects(dirty))
            continue;
        const QModelIndex index = photos.index(row);
        CellState state;
        state.selected = looksChosen(row);
        state.hovered = row == hovered;
        state.focused = index == currentIndex() && hasFocus();
        const Photo &photo = photos.photo(row);
        cellPainter().draw(painter, cell, photo, cache.find(photo.id), state);
    }
}

bool PhotoGrid::looksChosen(int row) const
{
    const bool isInside = band && places.cell(row).intersects(band->rectangle());
    return isInside ? !band->toggles || !chosen.holds(row) : chosen.holds(row);
}

// The section that the top of the viewport is in, whose heading stays there.
int PhotoGrid::pinnedSection() const
{
    const bool hasHeadings = photos.photos() != nullptr && photos.photos()->hasHeadings;
    return hasHeadings ? places.sectionAtHeight(verticalOffset()) : -1;
}

// Pushed out by the next one.
QRect PhotoGrid::headingRect(int section) const
{
    QRect place = places.heading(section).translated(0, -verticalOffset());
    if (section == pinnedSection()) {
        const int end = places.extent(section).second - verticalOffset();
        place.moveTop(std::min(std::max(0, place.top()), end - place.height()));
    }
    return place;
}

int PhotoGrid::headingAt(const QPoint &point) const
{
    const int pinned = pinnedSection();
    if (pinned < 0)
        return -1;
    if (headingRect(pinned).contains(point))
        return pinned;
    return places.headingAt(contents(point));
}

QRect PhotoGrid::headingButton(int section) const
{
    const QRect place = headingRect(section);
    const QString text = isSectionSelected(section) ? tr("Deselect") : tr("Select");
    const int width = fontMetrics().horizontalAdvance(text) + 2 * buttonPadding;
    const int height = fontMetrics().height() + buttonPadding;
    return {place.right() + 1 - width, place.center().y() - height / 2, width, height};
}

void PhotoGrid::paintHeading(QPainter &painter, int section)
{
    const QRect place = headingRect(section);
    const auto [first, behind] = places.range(section);
    painter.fillRect(QRect(0, place.top(), viewport()->width(), place.height()), palette().color(QPalette::Base));
    painter.setFont(headingFont(font()));
    painter.setPen(palette().color(QPalette::Text));
    const QString title = Texts::month(photos.photos()->sections[static_cast<std::size_t>(section)].month);
    QRect used;
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, title, &used);
    painter.setFont(font());
    painter.setPen(fadedText(palette()));
    const QRect rest = place.adjusted(used.width() + 2 * buttonPadding, 0, 0, 0);
    painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, Texts::photoCount(behind - first));
    const bool isCurrent = currentIndex().row() >= first && currentIndex().row() < behind;
    if (section != hoveredHeading && !(hasFocus() && isCurrent))
        return;
    painter.setPen(palette().color(QPalette::Link));
    painter.drawText(headingButton(section), Qt::AlignCenter,
                     isSectionSelected(section) ? tr("Deselect") : tr("Select"));
}

void PhotoGrid::paintHeadings(QPainter &painter)
{
    const int pinned = pinnedSection();
    if (pinned < 0)
        return;
    const int last = places.sectionAtHeight(verticalOffset() + viewport()->height());
    for (int section = pinned + 1; section <= last; ++section)
        paintHeading(painter, section);
    paintHeading(painter, pinned);
}

void PhotoGrid::paintBand(QPainter &painter)
{
    if (!band)
        return;
    QStyleOptionRubberBand option;
    option.initFrom(this);
    option.shape = QRubberBand::Rectangle;
    option.opaque = false;
    option.rect = QRect(band->origin, band->end).normalized().translated(0, -verticalOffset());
    painter.save();
    style()->drawControl(QStyle::CE_RubberBand, &option, &painter, this);
    painter.restore();
}

// While the scroll bar is dragged: the month that is being passed.
void PhotoGrid::paintScrollLabel(QPainter &painter)
{
    const int pinned = pinnedSection();
    if (!scrollLabel.isActive() || pinned < 0)
        return;
    const QString text = Texts::month(photos.photos()->sections[static_cast<std::size_t>(pinned)].month);
    const QFont large = headingFont(font());
    const QFontMetrics metricsOfText(large);
    QRect place(0, 0, metricsOfText.horizontalAdvance(text) + 32, metricsOfText.height() + 16);
    const QScrollBar *bar = verticalScrollBar();
    const int room = viewport()->height() - place.height();
    const int top = bar->maximum() > 0 ? static_cast<int>(qint64(room) * bar->value() / bar->maximum()) : 0;
    place.moveTopRight(QPoint(viewport()->width() - 12, top));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(place, 8, 8);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.setFont(large);
    painter.drawText(place, Qt::AlignCenter, text);
    painter.restore();
}

} // namespace browser
