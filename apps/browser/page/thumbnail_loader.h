#ifndef APPS_BROWSER_PAGE_THUMBNAIL_LOADER_H
#define APPS_BROWSER_PAGE_THUMBNAIL_LOADER_H

#include "apps/browser/page/thumbnail_source.h"

#include <QImage>
#include <QObject>
#include <QSet>
#include <QVector>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace browser
{

/// A thumbnail that was asked for.
struct LoadedThumbnail {
    qint64 id = 0;
    int side = 0;               ///< of the square that was asked for, in pixels
    QImage square;              ///< null when there is no picture
    bool lacksOriginal = false; ///< it is only in the cloud, as the device told
};

/// Reads and decodes thumbnails beside the user interface, in the order in which they are wanted.
///
/// The destructor waits for a read that is running: stop the library first where a device may hang.
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
    /// Several pictures in a row could not be read. Once, until one can be read again.
    void readsFailing();

private:
    struct Request {
        qint64 id;
        int side;
    };

    void work();
    bool take(Request *request);
    LoadedThumbnail load(const Request &request, bool *wasRead);
    void finish(const Request &request, LoadedThumbnail thumbnail, bool wasRead);
    void deliver();

    const std::shared_ptr<ThumbnailSource> source;
    std::vector<std::thread> threads;
    std::mutex mutex;
    std::condition_variable wake;
    std::deque<Request> queue;
    QSet<qint64> running;
    QVector<LoadedThumbnail> ready;
    bool announced = false; ///< a call of deliver() is on its way
    bool ending = false;
    int failuresInARow = 0;
    bool failing = false; ///< to be told by deliver()
};

} // namespace browser

#endif
