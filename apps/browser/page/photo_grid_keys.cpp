#include "apps/browser/page/photo_grid.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace browser
{

namespace
{

constexpr int zoomStep = 32; // pixels

} // namespace

void PhotoGrid::keyPressEvent(QKeyEvent *event)
{
    if (moveByKey(*event) || changeByKey(*event))
        return event->accept();
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Copy))
        return event->ignore();
    QListView::keyPressEvent(event);
}

bool PhotoGrid::moveByKey(const QKeyEvent &event)
{
    if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier) || photos.rowCount() == 0)
        return false;
    const int row = rowForKey(event);
    if (row < 0)
        return false;
    goTo(row, event.modifiers());
    return true;
}

int PhotoGrid::rowForKey(const QKeyEvent &event) const
{
    const int last = photos.rowCount() - 1;
    const int lines = std::max(1, viewport()->height() / places.linePitch());
    const bool hasCurrent = currentIndex().isValid();
    const int current = hasCurrent ? currentIndex().row() : std::min(last, visibleRows().first);
    const auto moved = [&](int row) { return hasCurrent ? std::clamp(row, 0, last) : current; };
    switch (event.key()) {
    case Qt::Key_Left:
        return moved(current - 1);
    case Qt::Key_Right:
        return moved(current + 1);
    case Qt::Key_Up:
        return moved(places.lineDown(current, -1));
    case Qt::Key_Down:
        return moved(places.lineDown(current, 1));
    case Qt::Key_PageUp:
        return moved(places.lineDown(current, -lines));
    case Qt::Key_PageDown:
        return moved(places.lineDown(current, lines));
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return -1;
    }
}

void PhotoGrid::goTo(int row, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = photos.index(row);
    if (modifiers & Qt::ShiftModifier) {
        if (anchor < 0 || anchor >= photos.rowCount())
            anchor = std::max(0, currentIndex().row());
        const auto command =
            modifiers & Qt::ControlModifier ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect;
        chosen.selectRange(anchor, row, command);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    } else if (modifiers & Qt::ControlModifier) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    } else {
        anchor = row;
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    scrollTo(index);
    viewport()->update();
}

bool PhotoGrid::changeByKey(const QKeyEvent &event)
{
    const bool control = event.modifiers() & Qt::ControlModifier, shift = event.modifiers() & Qt::ShiftModifier;
    const bool hasCurrent = currentIndex().isValid();
    if (event.key() == Qt::Key_Space && hasCurrent && (control || !event.modifiers())) {
        anchor = currentIndex().row();
        selectionModel()->select(currentIndex(), control ? QItemSelectionModel::Toggle : QItemSelectionModel::Select);
    } else if (event.key() == Qt::Key_Escape && selectionModel()->hasSelection()) {
        selectionModel()->clearSelection();
    } else if (event.key() == Qt::Key_A && control && shift && hasCurrent) {
        selectSection(places.sectionOf(currentIndex().row()));
    } else if (event.matches(QKeySequence::ZoomIn) || (control && event.key() == Qt::Key_Equal)) {
        setCellSize(metrics.cell + zoomStep);
    } else if (event.matches(QKeySequence::ZoomOut)) {
        setCellSize(metrics.cell - zoomStep);
    } else if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && hasCurrent && !event.modifiers()) {
        Q_EMIT photoActivated(currentIndex().row());
    } else {
        return false;
    }
    return true;
}

// For list views' own ways of moving, such as those of assistive tools.
QModelIndex PhotoGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int last = photos.rowCount() - 1;
    const int current = std::max(0, currentIndex().row());
    if (last < 0)
        return {};
    switch (action) {
    case MoveHome:
        return photos.index(0);
    case MoveEnd:
        return photos.index(last);
    case MoveUp:
    case MovePageUp:
        return photos.index(places.lineDown(current, -1));
    case MoveDown:
    case MovePageDown:
        return photos.index(places.lineDown(current, 1));
    case MoveLeft:
    case MovePrevious:
        return photos.index(std::max(0, current - 1));
    case MoveRight:
    case MoveNext:
        return photos.index(currentIndex().isValid() ? std::min(last, current + 1) : 0);
    }
    return {};
}

// From the current photo on, and around.
void PhotoGrid::keyboardSearch(const QString &text)
{
    if (text.isEmpty() || photos.rowCount() == 0)
        return typed.clear();
    if (!typing.isValid() || typing.elapsed() > 1000)
        typed.clear();
    typing.start();
    typed += text;
    const int count = photos.rowCount();
    const int begin = std::max(0, currentIndex().row()) + (typed.size() == 1 ? 1 : 0);
    for (int step = 0; step < count; ++step) {
        const int row = (begin + step) % count;
        if (photos.photo(row).fileName.startsWith(typed, Qt::CaseInsensitive))
            return goTo(row, Qt::NoModifier);
    }
}

} // namespace browser
