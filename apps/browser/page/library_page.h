#ifndef APPS_BROWSER_PAGE_LIBRARY_PAGE_H
#define APPS_BROWSER_PAGE_LIBRARY_PAGE_H

#include "apps/browser/library/opened_library.h"

#include <QVector>
#include <QWidget>

class QSettings;

namespace browser
{

/// The library of one device: side bar, search and sort bar, grid of thumbnails, facts of the current photo.
class LibraryPage : public QWidget
{
    Q_OBJECT

public:
    explicit LibraryPage(std::shared_ptr<OpenedLibrary> library, QWidget *parent = nullptr);
    ~LibraryPage() override;

    /// Ids of the selected photos, in the order of the grid.
    QVector<qint64> selectedPhotos() const;
    /// Ids of all photos in the grid as it is filtered and sorted now.
    QVector<qint64> shownPhotos() const;
    /// Makes this photo the current one and scrolls to it; nothing happens when it is not shown.
    void setCurrentPhoto(qint64 id);

    /// Widths, sorting, size of the thumbnails: what a person has arranged.
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
    const std::shared_ptr<OpenedLibrary> opened;
};

} // namespace browser

#endif
