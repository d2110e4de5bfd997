#include "apps/browser/page/photo_grid.h"

#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>

namespace browser
{

namespace
{

constexpr qint64 cacheBytes = 192LL * 1024 * 1024; // some screens of the largest cells at a high resolution
constexpr int scrollLabelTime = 900;               // milliseconds

} // namespace

PhotoGrid::PhotoGrid(PhotoModel &model, ThumbnailLoader &thumbnails, QWidget *parent)
    : QListView(parent), photos(model), loader(thumbnails), cache(cacheBytes), chosen(model)
{
    setModel(&photos);
    const QItemSelectionModel *const unused = selectionModel();
    setSelectionModel(&chosen);
    delete unused;
    setObjectName(QStringLiteral("photoGrid"));
    setAccessibleName(tr("Photos"));
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setFrameShape(QFrame::NoFrame);
    setAutoScroll(false);
    setMouseTracking(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setBackgroundRole(QPalette::Base);
    scrollLabel.setSingleShot(true);
    scrollLabel.setInterval(scrollLabelTime);
    connect(&scrollLabel, &QTimer::timeout, viewport(), QOverload<>::of(&QWidget::update));
    bandScrolling.setInterval(16);
    connect(&bandScrolling, &QTimer::timeout, this, &PhotoGrid::scrollWithBand);
    connect(&loader, &ThumbnailLoader::loaded, this, &PhotoGrid::takeThumbnails);
    connect(verticalScrollBar(), &QScrollBar::sliderMoved, this, [this] { scrollLabel.start(); });
}

void PhotoGrid::show(const std::shared_ptr<const PhotoList> &list, bool keep)
{
    const QVector<qint64> selected = keep ? selectedIds() : QVector<qint64>();
    const qint64 current = keep && currentIndex().isValid() ? photos.idAt(currentIndex().row()) : 0;
    std::vector<std::pair<qint64, int>> fixed;
    if (keep && isAskedAgain(list->query))
        fixed = visiblePhotos();
    const qint64 anchored = keep && anchor >= 0 ? photos.idAt(anchor) : 0;
    band.reset();
    pressed = hovered = hoveredHeading = -1;
    photos.setPhotos(list);
    doItemsLayout();
    anchor = photos.rowOf(anchored);
    const int row = photos.rowOf(current);
    if (row >= 0)
        selectionModel()->setCurrentIndex(photos.index(row), QItemSelectionModel::NoUpdate);
    selectIds(selected);
    const auto still =
        std::find_if(fixed.begin(), fixed.end(), [this](const auto &one) { return photos.rowOf(one.first) >= 0; });
    if (still != fixed.end())
        verticalScrollBar()->setValue(places.cell(photos.rowOf(still->first)).top() - still->second);
    else if (row >= 0)
        scrollTo(photos.index(row));
    else
        verticalScrollBar()->setValue(0);
    requestThumbnails();
}

bool PhotoGrid::isAskedAgain(const PhotoQuery &query) const
{
    return photos.photos() != nullptr && photos.photos()->query.asksLike(query);
}

std::vector<std::pair<qint64, int>> PhotoGrid::visiblePhotos() const
{
    std::vector<std::pair<qint64, int>> visible;
    const auto [first, behind] = visibleRows();
    for (int row = first; row < behind; ++row)
        visible.emplace_back(photos.idAt(row), places.cell(row).top() - verticalOffset());
    return visible;
}

void PhotoGrid::setCellSize(int side)
{
    const int bounded = std::clamp(side, smallestCell, largestCell);
    if (bounded == metrics.cell)
        return;
    const auto [first, behind] = visibleRows();
    const bool keepCurrent = currentIndex().row() >= first && currentIndex().row() < behind;
    const int fixed = keepCurrent ? currentIndex().row() : (first + behind) / 2;
    const int before = behind > first ? places.cell(fixed).center().y() - verticalOffset() : 0;
    metrics.cell = bounded;
    doItemsLayout();
    if (behind > first)
        verticalScrollBar()->setValue(places.cell(fixed).center().y() - before);
    Q_EMIT cellSizeChanged(bounded);
}

void PhotoGrid::doItemsLayout()
{
    metrics.width = viewport()->width();
    metrics.heading = fontMetrics().height() * 2 + 8;
    places.arrange(photos.photos(), metrics);
    QAbstractItemView::doItemsLayout();
    requestThumbnails();
}

void PhotoGrid::updateGeometries()
{
    QScrollBar *bar = verticalScrollBar();
    const int page = viewport()->height();
    bar->setPageStep(page);
    bar->setSingleStep(std::max(20, places.linePitch() / 3));
    bar->setRange(0, std::max(0, places.height() - page));
    horizontalScrollBar()->setRange(0, 0);
}

void PhotoGrid::resizeEvent(QResizeEvent *event)
{
    QAbstractItemView::resizeEvent(event);
    const auto [first, behind] = visibleRows();
    const int kept = first < behind ? places.cell(first).top() - verticalOffset() : 0;
    if (event->size().width() != metrics.width)
        doItemsLayout();
    if (first < behind && first > 0)
        verticalScrollBar()->setValue(places.cell(first).top() - kept);
    requestThumbnails();
}

void PhotoGrid::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange)
        painterOfCells.reset();
    if (event->type() == QEvent::FontChange)
        doItemsLayout();
}

void PhotoGrid::scrollContentsBy(int, int)
{
    viewport()->update();
    if (band)
        updateBand(viewport()->mapFromGlobal(QCursor::pos()));
    requestThumbnails();
}

int PhotoGrid::verticalOffset() const
{
    return verticalScrollBar()->value();
}

QRect PhotoGrid::visualRect(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= photos.rowCount())
        return {};
    return places.cell(index.row()).translated(0, -verticalOffset());
}

QModelIndex PhotoGrid::indexAt(const QPoint &point) const
{
    if (headingAt(point) >= 0)
        return {};
    const int row = places.at(contents(point));
    return row < 0 ? QModelIndex() : photos.index(row);
}

void PhotoGrid::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    if (!index.isValid() || index.row() >= photos.rowCount())
        return;
    const QRect cell = places.cell(index.row());
    const int page = viewport()->height();
    const bool hasHeadings = photos.photos() != nullptr && photos.photos()->hasHeadings;
    const int top = cell.top() - (hasHeadings ? metrics.heading : metrics.margin);
    const int bottom = cell.bottom() + 1 + metrics.margin - page;
    const int value = verticalOffset();
    if (hint == PositionAtCenter)
        verticalScrollBar()->setValue(cell.center().y() - page / 2);
    else if (hint == PositionAtTop || top < value)
        verticalScrollBar()->setValue(top);
    else if (hint == PositionAtBottom || bottom > value)
        verticalScrollBar()->setValue(std::min(bottom, top));
}

std::pair<int, int> PhotoGrid::visibleRows() const
{
    return places.touching(verticalOffset(), verticalOffset() + viewport()->height() - 1);
}

int PhotoGrid::pixelsOfCell() const
{
    return qRound(metrics.cell * devicePixelRatioF());
}

// What is on the screen, from the top; then what a turn of the wheel would bring.
void PhotoGrid::requestThumbnails()
{
    const auto [first, behind] = visibleRows();
    const int page = std::max(0, behind - first);
    const int side = pixelsOfCell();
    QVector<qint64> ids;
    const auto add = [&](int row) {
        const qint64 id = photos.idAt(row);
        const LoadedThumbnail *known = cache.find(id);
        if (known == nullptr || known->side != side)
            ids += id;
    };
    for (int row = first; row < behind; ++row)
        add(row);
    for (int row = behind; row < std::min(photos.rowCount(), behind + page); ++row)
        add(row);
    for (int row = first - 1; row >= std::max(0, first - page / 2); --row)
        add(row);
    loader.want(ids, side);
}

void PhotoGrid::takeThumbnails(const QVector<LoadedThumbnail> &thumbnails)
{
    const int side = pixelsOfCell();
    bool isStale = false;
    for (const LoadedThumbnail &thumbnail : thumbnails) {
        if (thumbnail.failed)
            continue; // asked for again when it is wanted again
        cache.insert(thumbnail);
        if (thumbnail.lacksOriginal)
            Q_EMIT originalLacking(thumbnail.id);
        isStale = isStale || thumbnail.side != side;
        const int row = photos.rowOf(thumbnail.id);
        if (row >= 0)
            viewport()->update(places.cell(row).translated(0, -verticalOffset()));
    }
    if (isStale)
        requestThumbnails();
}

QVector<qint64> PhotoGrid::selectedIds() const
{
    QVector<qint64> ids = QVector<qint64>();
    const QVector<int> rows = selectedRows();
    ids.reserve(rows.size());
    for (const int row : rows)
        ids += photos.idAt(row);
    return ids;
}

void PhotoGrid::makeCurrent(int row)
{
    const QVector<int> rows = selectedRows();
    const bool keep = rows.size() > 1 || rows.contains(row);
    anchor = row;
    selectionModel()->setCurrentIndex(photos.index(row),
                                      keep ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect);
    scrollTo(photos.index(row));
    viewport()->update();
}

void PhotoGrid::selectIds(const QVector<qint64> &ids)
{
    QVector<int> rows;
    rows.reserve(ids.size());
    for (const qint64 id : ids) {
        if (const int row = photos.rowOf(id); row >= 0)
            rows += row;
    }
    std::sort(rows.begin(), rows.end());
    chosen.selectRows(rows);
}

void PhotoGrid::selectSection(int section)
{
    if (section < 0 || section >= places.sectionCount())
        return;
    const auto [first, behind] = places.range(section);
    const bool wasSelected = isSectionSelected(section);
    chosen.selectRange(first, behind - 1, wasSelected ? QItemSelectionModel::Deselect : QItemSelectionModel::Select);
}

bool PhotoGrid::isSectionSelected(int section) const
{
    const auto [first, behind] = places.range(section);
    return chosen.holdsAll(first, behind);
}

void PhotoGrid::setSelection(const QRect &rectangle, QItemSelectionModel::SelectionFlags command)
{
    QItemSelection selection;
    for (const auto &run : places.inside(rectangle.normalized().translated(0, verticalOffset())))
        selection.append(QItemSelectionRange(photos.index(run.first), photos.index(run.second)));
    selectionModel()->select(selection, command);
}

// Exact regions of thousands of cells take longer than drawing the viewport.
QRegion PhotoGrid::visualRegionForSelection(const QItemSelection &selection) const
{
    return selection.isEmpty() ? QRegion() : QRegion(viewport()->rect());
}

} // namespace browser
