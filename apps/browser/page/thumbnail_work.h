#ifndef APPS_BROWSER_PAGE_THUMBNAIL_WORK_H
#define APPS_BROWSER_PAGE_THUMBNAIL_WORK_H

#include "apps/browser/page/thumbnail_loader.h"

#include <QSet>

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

    /// Replaces what was wanted. Answers how many threads, of `most` at the same time, are to call run() for it.
    int want(const QVector<qint64> &ids, int side, int most);
    /// Takes back the promise of `count` threads, which could not be started.
    void lack(int count);
    /// Works until nothing is wanted any more, or end() is called.
    void run();
    void end();
    Batch takeBatch();

private:
    struct Request {
        qint64 id;
        int side;
    };

    bool take(Request *request);
    LoadedThumbnail load(const Request &request);
    void finish(LoadedThumbnail thumbnail);
    void abandon(const Request &request);

    const std::shared_ptr<ThumbnailSource> source;
    const std::function<void()> tell;
    std::mutex mutex;
    int threads = 0; ///< guarded by `mutex`, as what follows
    std::deque<Request> queue;
    QSet<qint64> running;
    Batch ready;
    bool announced = false; ///< and the batch not taken yet
    bool ending = false;
    int unreadInARow = 0;
};

} // namespace browser

#endif
