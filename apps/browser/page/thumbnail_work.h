#ifndef APPS_BROWSER_PAGE_THUMBNAIL_WORK_H
#define APPS_BROWSER_PAGE_THUMBNAIL_WORK_H

#include "apps/browser/page/thumbnail_loader.h"

#include <QSet>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace browser
{

/// What the threads of a ThumbnailLoader do, shared with them. Any thread.
class ThumbnailWork
{
public:
    struct Batch {
        QVector<LoadedThumbnail> thumbnails;
        bool failing = false; ///< several in a row failed
    };

    /// `announce` is called when there is a batch to be taken, by the thread that made it.
    ThumbnailWork(std::shared_ptr<ThumbnailSource> source, std::function<void()> announce);

    /// False when nothing of it is to be done.
    bool want(const QVector<qint64> &ids, int side);
    /// Works until end() is called.
    void run();
    void end();
    Batch takeBatch();

    /// Number of threads that were started; the loader counts them.
    int threads() const { return started; }
    void addThread() { ++started; }

private:
    struct Request {
        qint64 id;
        int side;
    };

    bool take(Request *request);
    LoadedThumbnail load(const Request &request);
    void finish(LoadedThumbnail thumbnail);

    const std::shared_ptr<ThumbnailSource> source;
    const std::function<void()> tell;
    int started = 0;
    std::mutex mutex;
    std::condition_variable wake;
    std::deque<Request> queue;
    QSet<qint64> running;
    Batch ready;
    bool announced = false; ///< and the batch not taken yet
    bool ending = false;
    int unreadInARow = 0;
};

} // namespace browser

#endif
