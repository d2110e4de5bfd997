#include "apps/browser/page/photo_grid.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

namespace browser
{

void PhotoGrid::mousePressEvent(QMouseEvent *event)
{
    setFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::RightButton) {
        const int row = indexAt(event->pos()).row();
        if (row >= 0)
            pressForMenu(row);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    pressedAt = event->pos();
    pressed = -1;
    selectOnRelease = false;
    if (const int heading = headingAt(event->pos()); heading >= 0) {
        if (headingButton(heading).contains(event->pos()))
            selectSection(heading);
        return;
    }
    const int row = places.at(contents(event->pos()));
    if (row >= 0)
        pressCell(row, *event);
    else
        startBand(*event);
}

void PhotoGrid::pressForMenu(int row)
{
    anchor = row;
    selectionModel()->setCurrentIndex(photos.index(row), chosen.holds(row) ? QItemSelectionModel::NoUpdate
                                                                           : QItemSelectionModel::ClearAndSelect);
    viewport()->update();
}

void PhotoGrid::pressCell(int row, const QMouseEvent &event)
{
    const QModelIndex index = photos.index(row);
    const bool shift = event.modifiers() & Qt::ShiftModifier, control = event.modifiers() & Qt::ControlModifier;
    pressed = row;
    if (shift) {
        const int from = anchor >= 0 && anchor < photos.rowCount() ? anchor : row;
        chosen.selectRange(from, row, control ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect);
        anchor = from;
    } else if (control) {
        selectionModel()->select(index, QItemSelectionModel::Toggle);
        anchor = row;
    } else if (chosen.holds(row)) {
        selectOnRelease = true; // it may be the beginning of a drag of all that are selected
        anchor = row;
    } else {
        selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
        anchor = row;
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void PhotoGrid::startBand(const QMouseEvent &event)
{
    const bool adds = event.modifiers() & Qt::ShiftModifier, toggles = event.modifiers() & Qt::ControlModifier;
    if (!adds && !toggles)
        selectionModel()->clearSelection();
    const QPoint origin = contents(event.pos());
    band = GridBand{origin, origin, toggles};
}

void PhotoGrid::updateBand(const QPoint &position)
{
    band->end = contents(position);
    viewport()->update();
}

void PhotoGrid::endBand()
{
    const GridBand ended = *band;
    band.reset();
    std::vector<bool> wanted(static_cast<std::size_t>(photos.rowCount()), false);
    const QVector<int> before = chosen.rows();
    for (const int row : before)
        wanted[static_cast<std::size_t>(row)] = true;
    for (const auto &run : places.inside(ended.rectangle())) {
        for (int row = run.first; row <= run.second; ++row)
            wanted[static_cast<std::size_t>(row)] = !ended.toggles || !chosen.holds(row);
    }
    QVector<int> rows;
    for (int row = 0; row < photos.rowCount(); ++row) {
        if (wanted[static_cast<std::size_t>(row)])
            rows += row;
    }
    viewport()->update();
    if (rows != before)
        chosen.selectRows(rows);
}

// The further outside the mouse is, the faster.
void PhotoGrid::scrollWithBand()
{
    const int y = viewport()->mapFromGlobal(QCursor::pos()).y();
    const int beyond = y < 0 ? y : std::max(0, y - viewport()->height());
    if (!band || beyond == 0)
        return bandScrolling.stop();
    verticalScrollBar()->setValue(verticalOffset() + beyond);
}

void PhotoGrid::mouseMoveEvent(QMouseEvent *event)
{
    if (band && event->buttons() & Qt::LeftButton) {
        updateBand(event->pos());
        if (!viewport()->rect().contains(event->pos()) && !bandScrolling.isActive())
            bandScrolling.start();
        return;
    }
    const bool isDrag = pressed >= 0 && event->buttons() & Qt::LeftButton &&
                        (event->pos() - pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (isDrag) {
        pressed = -1;
        selectOnRelease = false;
        if (selectionModel()->hasSelection())
            Q_EMIT dragRequested();
        return;
    }
    hover(event->pos());
}

void PhotoGrid::hover(const QPoint &position)
{
    const int heading = headingAt(position);
    const int row = heading >= 0 ? -1 : places.at(contents(position));
    if (row == hovered && heading == hoveredHeading)
        return;
    hovered = row;
    hoveredHeading = heading;
    viewport()->update();
}

void PhotoGrid::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    bandScrolling.stop();
    if (band)
        endBand();
    if (selectOnRelease && pressed >= 0)
        selectionModel()->select(photos.index(pressed), QItemSelectionModel::ClearAndSelect);
    selectOnRelease = false;
    pressed = -1;
}

void PhotoGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid() || event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier)
        return mousePressEvent(event);
    pressed = -1;
    selectOnRelease = false;
    Q_EMIT photoActivated(index.row());
}

void PhotoGrid::contextMenuEvent(QContextMenuEvent *event)
{
    if (!selectionModel()->hasSelection())
        return;
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QRect cell = visualRect(currentIndex()).intersected(viewport()->rect());
    const QPoint place = byKey && cell.isValid() ? viewport()->mapToGlobal(cell.center()) : event->globalPos();
    Q_EMIT menuRequested(place);
}

bool PhotoGrid::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ToolTip: {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex index = indexAt(help->pos());
        QToolTip::showText(help->globalPos(), index.data(Qt::ToolTipRole).toString(), viewport(), visualRect(index));
        return true;
    }
    case QEvent::Leave:
        hovered = hoveredHeading = -1;
        viewport()->update();
        return true;
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
        return true; // mouseMoveEvent() does it
    default:
        return QListView::viewportEvent(event);
    }
}

void PhotoGrid::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    constexpr int notch = 120; // eighths of a degree
    constexpr int pixels = 16;
    wheelSteps += event->angleDelta().y();
    if (const int notches = wheelSteps / notch; notches != 0) {
        wheelSteps -= notches * notch;
        setCellSize(metrics.cell + notches * pixels);
    }
    event->accept();
}

} // namespace browser
