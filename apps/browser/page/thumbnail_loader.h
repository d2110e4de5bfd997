#ifndef APPS_BROWSER_PAGE_THUMBNAIL_LOADER_H
#define APPS_BROWSER_PAGE_THUMBNAIL_LOADER_H

#include "apps/browser/library/mailbox.h"
#include "apps/browser/page/thumbnail_source.h"

#include <QImage>
#include <QObject>
#include <QVector>

#include <memory>

namespace browser
{

class ThumbnailWork;

/// A thumbnail that was asked for.
struct LoadedThumbnail {
    qint64 id = 0;
    int side = 0;               ///< of the square that was asked for, in pixels
    QImage square;              ///< null when there is no picture
    bool lacksOriginal = false; ///< it is only in the cloud, as the device told
    bool isRead = false;        ///< bytes came from the device, whatever they hold
    bool failed = false;        ///< whether there is a picture was not found out
};

/// Reads and decodes thumbnails beside the user interface, in the order in which they are wanted.
///
/// User-interface thread. A read that is running when this goes ends by itself, and nobody waits for it.
class ThumbnailLoader : public QObject
{
    Q_OBJECT

public:
    explicit ThumbnailLoader(std::shared_ptr<ThumbnailSource> source, QObject *parent = nullptr);
    ~ThumbnailLoader() override;

    /// These and no others are wanted from now on, squares of `side` pixels. What was wanted before and is not begun is
    /// dropped.
    void want(const QVector<qint64> &ids, int side);

Q_SIGNALS:
    /// In batches: what became ready since the last one.
    void loaded(const QVector<browser::LoadedThumbnail> &thumbnails);
    /// Several pictures in a row could not be read, or are not there, as after the device went. Told again after as
    /// many more.
    void readsFailing();

private:
    void deliver();

    const std::shared_ptr<Mailbox> mailbox;
    const std::shared_ptr<ThumbnailWork> work;
};

} // namespace browser

#endif
