#include "apps/browser/page/grid_selection.h"

#include <algorithm>

namespace browser
{

GridSelection::GridSelection(QAbstractItemModel &photos, QObject *parent) : QItemSelectionModel(&photos, parent)
{
    connect(this, &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected, const QItemSelection &deselected) {
                mark(deselected, false);
                mark(selected, true);
            });
}

void GridSelection::mark(const QItemSelection &ranges, bool value)
{
    for (const QItemSelectionRange &range : ranges)
        std::fill(bits.begin() + range.top(), bits.begin() + range.bottom() + 1, value);
}

void GridSelection::reset()
{
    QItemSelectionModel::reset();
    bits.assign(static_cast<std::size_t>(model()->rowCount()), false);
}

bool GridSelection::holdsAll(int first, int behind) const
{
    return std::find(bits.begin() + first, bits.begin() + behind, false) == bits.begin() + behind;
}

QVector<int> GridSelection::rows() const
{
    QVector<int> rows;
    for (int row = 0; row < static_cast<int>(bits.size()); ++row) {
        if (holds(row))
            rows += row;
    }
    return rows;
}

void GridSelection::selectRange(int from, int to, SelectionFlags command)
{
    const auto [first, last] = std::minmax(from, to);
    select(QItemSelection(model()->index(first, 0), model()->index(last, 0)), command);
}

// Cleared first: comparing two selections takes the product of their ranges.
void GridSelection::selectRows(const QVector<int> &ascending)
{
    QItemSelection selection;
    for (int begin = 0; begin < ascending.size();) {
        int end = begin + 1;
        while (end < ascending.size() && ascending[end] == ascending[end - 1] + 1)
            ++end;
        selection.append(
            QItemSelectionRange(model()->index(ascending[begin], 0), model()->index(ascending[end - 1], 0)));
        begin = end;
    }
    clearSelection();
    select(selection, Select);
}

} // namespace browser
