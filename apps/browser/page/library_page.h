#ifndef APPS_BROWSER_PAGE_LIBRARY_PAGE_H
#define APPS_BROWSER_PAGE_LIBRARY_PAGE_H

#include "apps/browser/library/opened_library.h"
#include "apps/browser/page/page_place.h"

#include <QTimer>
#include <QVector>
#include <QWidget>

#include <optional>

class QLabel;
class QSettings;
class QSplitter;
class QStackedWidget;

namespace browser
{

class FactsPane;
class PageBar;
class PhotoGrid;
class PhotoModel;
class QueryRunner;
class SideBar;
class ThumbnailLoader;
class ThumbnailSource;
struct PhotoList;

/// The library of one device: side bar, search and sort bar, grid of thumbnails, facts of the current photo.
class LibraryPage : public QWidget
{
    Q_OBJECT

public:
    explicit LibraryPage(std::shared_ptr<OpenedLibrary> library, QWidget *parent = nullptr);
    /// With thumbnails from elsewhere.
    LibraryPage(std::shared_ptr<OpenedLibrary> library, std::shared_ptr<ThumbnailSource> thumbnails,
                QWidget *parent = nullptr);
    /// Waits for a thumbnail that is being read: stop the library first where its device may hang.
    ~LibraryPage() override;

    /// Ids of the selected photos, in the order of the grid.
    QVector<qint64> selectedPhotos() const;
    /// Ids of all photos in the grid as it is filtered and sorted now.
    QVector<qint64> shownPhotos() const;
    /// Makes this photo the current one and scrolls to it; nothing happens when it is not shown.
    void setCurrentPhoto(qint64 id);
    /// Whether a search or an order is still being worked out.
    bool isSearching() const;

    PagePlace place() const;
    /// Goes to the place where a person was in another page of the device, as far as this page has it, once the photos
    /// there are found.
    void goTo(const PagePlace &place);

    /// Widths, sorting, size of the thumbnails, the collection: what a person has arranged.
    void saveState(QSettings &settings) const;
    void restoreState(const QSettings &settings);

Q_SIGNALS:
    /// Enter or double click: show `ids` one after the other, beginning with number `current`.
    void photosActivated(const QVector<qint64> &ids, int current);
    /// Export was asked for, of at least one photo.
    void exportRequested(const QVector<qint64> &ids);
    /// Number of photos shown and of selected ones, or the bytes of these, changed.
    void statusChanged(const QString &text);
    /// Several reads failed in a row: the device may be gone.
    void readsFailing();

private:
    void setUpCentre();
    void setUpSplitter();
    void setUpActions();
    void connectAll();
    QWidget *makeEmptyState();

    void search();
    void showFound(const std::shared_ptr<const PhotoList> &photos);
    void updateStatus();
    void noteLacking(qint64 id);
    void updateFacts();
    void showFacts(bool shown);
    void openPhoto(qint64 id);
    void showMenu(const QPoint &globalPosition);
    void startDrag();
    void exportSelected();
    void copyNames();
    void arrive(const PagePlace &place);

    const std::shared_ptr<OpenedLibrary> opened;
    PhotoModel *model;
    ThumbnailLoader *loader;
    QueryRunner *runner;
    SideBar *sideBar;
    PageBar *bar;
    PhotoGrid *grid;
    FactsPane *facts;
    QSplitter *splitter;
    QStackedWidget *centre;
    QLabel *emptyText = nullptr;
    QWidget *clearButton = nullptr;
    QAction *exportAction = nullptr;
    QAction *copyFilesAction = nullptr;
    QAction *copyAction = nullptr;
    QAction *factsAction = nullptr;
    QTimer statusPause; ///< one text for many changes
    QTimer factsPause;
    QTimer lackingPause; ///< before photos that turned out not to be on the device are left out
    qint64 awaited = 0;  ///< to become the current photo once it is found
    std::optional<PagePlace> awaitedPlace;
};

} // namespace browser

#endif
