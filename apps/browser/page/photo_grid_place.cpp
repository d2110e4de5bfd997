// Where a person is in the grid, for another grid of the same photos.

#include "apps/browser/page/photo_grid.h"

#include <QScrollBar>

namespace browser
{

void PhotoGrid::setCurrentId(qint64 id)
{
    const int row = photos.rowOf(id);
    if (row < 0)
        return;
    anchor = row;
    selectionModel()->setCurrentIndex(photos.index(row), QItemSelectionModel::NoUpdate);
}

std::pair<qint64, int> PhotoGrid::topPhoto() const
{
    const auto [first, behind] = visibleRows();
    if (first >= behind)
        return {0, 0};
    return {photos.idAt(first), verticalOffset() - places.cell(first).top()};
}

void PhotoGrid::scrollToTop(qint64 id, int above)
{
    if (const int row = photos.rowOf(id); row >= 0)
        verticalScrollBar()->setValue(places.cell(row).top() + above);
}

} // namespace browser
