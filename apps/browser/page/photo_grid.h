#ifndef APPS_BROWSER_PAGE_PHOTO_GRID_H
#define APPS_BROWSER_PAGE_PHOTO_GRID_H

#include "apps/browser/page/cell_painter.h"
#include "apps/browser/page/grid_band.h"
#include "apps/browser/page/grid_layout.h"
#include "apps/browser/page/grid_selection.h"
#include "apps/browser/page/photo_model.h"
#include "apps/browser/page/thumbnail_cache.h"

#include <QElapsedTimer>
#include <QListView>
#include <QTimer>

#include <optional>
#include <vector>

namespace browser
{

/// Thumbnails in lines below the months that they are of. A list view for screen readers and item selection; placing,
/// drawing, mouse and keys are its own, as a list view knows no headings and is too slow for 100,000 items.
class PhotoGrid : public QListView
{
    Q_OBJECT

public:
    static constexpr int smallestCell = 80;
    static constexpr int largestCell = 320;

    /// Both must outlive the grid; `loader` serves nobody else.
    PhotoGrid(PhotoModel &model, ThumbnailLoader &loader, QWidget *parent = nullptr);

    /// Replaces what is shown. With `keep` the selected photos and the current one stay so where they are still shown,
    /// and the same query's photos stay in their place; else the grid begins at its top.
    void show(const std::shared_ptr<const PhotoList> &list, bool keep);

    int cellSize() const { return metrics.cell; }
    /// Device-independent pixels, within the limits above. What was in the middle stays there.
    void setCellSize(int side);

    /// In the order of the grid.
    QVector<qint64> selectedIds() const;
    QVector<int> selectedRows() const { return chosen.rows(); }
    /// Scrolls there. Several selected photos stay so; else this one is selected.
    void makeCurrent(int row);
    void selectIds(const QVector<qint64> &ids);
    /// Makes this photo the current one and leaves the selection alone; nothing happens when it is not shown.
    void setCurrentId(qint64 id);
    std::pair<qint64, int> topPhoto() const; ///< first one on the screen, 0 for none, and its pixels that are above
    void scrollToTop(qint64 id, int above);
    void selectSection(int section);
    /// Positions of the photos on the screen: the first one, and the one behind the last.
    std::pair<int, int> visibleRows() const;

    const GridLayout &arrangement() const { return places; }
    const ThumbnailCache &thumbnails() const { return cache; }
    /// Where on the viewport the button of a heading is that selects its photos.
    QRect headingButton(int section) const;

    QRect visualRect(const QModelIndex &index) const override;
    QModelIndex indexAt(const QPoint &point) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    void keyboardSearch(const QString &text) override;
    void doItemsLayout() override;

Q_SIGNALS:
    void photoActivated(int row);
    /// For the selected photos, one of which is the current one when the mouse asked for it.
    void menuRequested(const QPoint &globalPosition);
    void dragRequested();
    /// The device said that it does not have the original.
    void originalLacking(qint64 id);
    void cellSizeChanged(int side);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    void setSelection(const QRect &rectangle, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    bool isIndexHidden(const QModelIndex &) const override { return false; }

    void updateGeometries() override;
    void scrollContentsBy(int x, int y) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// Ids, and where on the viewport the photos begin.
    std::vector<std::pair<qint64, int>> visiblePhotos() const;
    bool isAskedAgain(const PhotoQuery &query) const;
    QPoint contents(const QPoint &point) const { return point + QPoint(0, verticalOffset()); }
    void requestThumbnails();
    void takeThumbnails(const QVector<LoadedThumbnail> &thumbnails);
    int pixelsOfCell() const;
    int pinnedSection() const;
    QRect headingRect(int section) const;
    int headingAt(const QPoint &point) const;
    bool isSectionSelected(int section) const;
    bool looksChosen(int row) const;
    void paintCells(QPainter &painter, const QRect &dirty);
    void paintHeading(QPainter &painter, int section);
    void paintHeadings(QPainter &painter);
    void paintBand(QPainter &painter);
    void paintScrollLabel(QPainter &painter);
    CellPainter &cellPainter();

    void pressForMenu(int row);
    void pressCell(int row, const QMouseEvent &event);
    void startBand(const QMouseEvent &event);
    void updateBand(const QPoint &position);
    void endBand();
    void scrollWithBand();
    void hover(const QPoint &position);
    bool moveByKey(const QKeyEvent &event);
    bool changeByKey(const QKeyEvent &event);
    int rowForKey(const QKeyEvent &event) const;
    void goTo(int row, Qt::KeyboardModifiers modifiers);

    PhotoModel &photos;
    ThumbnailLoader &loader;
    ThumbnailCache cache;
    GridLayout places;
    GridMetrics metrics;
    std::optional<CellPainter> painterOfCells; ///< made anew for other colours and fonts
    GridSelection chosen;
    int anchor = -1;  ///< where a range that Shift extends begins
    int pressed = -1; ///< a cell that the mouse went down on
    bool selectOnRelease = false;
    QPoint pressedAt;
    int hovered = -1;
    int hoveredHeading = -1;
    std::optional<GridBand> band;
    QTimer bandScrolling;
    QTimer scrollLabel; ///< runs while the month is shown beside the scroll bar
    QString typed;      ///< the beginning of a name
    QElapsedTimer typing;
    int wheelSteps = 0; ///< of Ctrl and the wheel, in eighths of a degree
};

} // namespace browser

#endif
