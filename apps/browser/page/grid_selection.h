#ifndef APPS_BROWSER_PAGE_GRID_SELECTION_H
#define APPS_BROWSER_PAGE_GRID_SELECTION_H

#include <QItemSelectionModel>
#include <QVector>

#include <vector>

namespace browser
{

/// The selected photos of the grid. Keeps a bit for each row: the ranges of a selection model take as long to be asked
/// as there are of them, and thousands may be scattered over a large library.
class GridSelection : public QItemSelectionModel
{
    Q_OBJECT

public:
    explicit GridSelection(QAbstractItemModel &model, QObject *parent = nullptr);

    bool holds(int row) const { return bits[static_cast<std::size_t>(row)]; }
    /// Of [first, behind).
    bool holdsAll(int first, int behind) const;
    /// Ascending.
    QVector<int> rows() const;

    /// Rows between two, both included, in any order.
    void selectRange(int from, int to, SelectionFlags command);
    /// These, ascending, and no others.
    void selectRows(const QVector<int> &ascending);

public Q_SLOTS:
    void reset() override;

private:
    void mark(const QItemSelection &ranges, bool value);

    std::vector<bool> bits;
};

} // namespace browser

#endif
