#ifndef APPS_BROWSER_VIEWER_VIEWER_H
#define APPS_BROWSER_VIEWER_VIEWER_H

#include "apps/browser/library/opened_library.h"

#include <QVector>
#include <QWidget>

namespace browser
{

/// One picture at a time, as large as the window; next and previous, zoom and pan. Videos open in the system's player.
class Viewer : public QWidget
{
    Q_OBJECT

public:
    explicit Viewer(std::shared_ptr<OpenedLibrary> library, QWidget *parent = nullptr);
    ~Viewer() override;

    /// Shows ids[current]; the others are the next and previous ones.
    void showPhotos(const QVector<qint64> &ids, int current);

Q_SIGNALS:
    /// Escape, or back to the library; `id` is the photo that was shown last.
    void closed(qint64 id);
    void currentChanged(qint64 id);
    void exportRequested(const QVector<qint64> &ids);
    /// The original could not be read: the device may be gone.
    void readFailed();

private:
    const std::shared_ptr<OpenedLibrary> opened;
};

} // namespace browser

#endif
