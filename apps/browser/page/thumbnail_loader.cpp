#include "apps/browser/page/thumbnail_loader.h"

#include "apps/browser/page/thumbnail_decoder.h"

#include <new>

namespace browser
{

namespace
{

constexpr int threadCount = 2; // while one reads, the other decodes
constexpr int manyFailures = 8;

} // namespace

ThumbnailLoader::ThumbnailLoader(std::shared_ptr<ThumbnailSource> thumbnails, QObject *parent)
    : QObject(parent), source(std::move(thumbnails))
{
}

ThumbnailLoader::~ThumbnailLoader()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
        queue.clear();
    }
    wake.notify_all();
    for (std::thread &thread : threads)
        thread.join();
}

void ThumbnailLoader::want(const QVector<qint64> &ids, int side)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        queue.clear();
        for (const qint64 id : ids) {
            if (!running.contains(id))
                queue.push_back({id, side});
        }
        if (queue.empty())
            return;
    }
    while (threads.size() < threadCount)
        threads.emplace_back([this] { work(); });
    wake.notify_all();
}

void ThumbnailLoader::work()
{
    Request request{};
    while (take(&request)) {
        bool wasRead = false;
        LoadedThumbnail thumbnail = load(request, &wasRead);
        finish(request, std::move(thumbnail), wasRead);
    }
}

bool ThumbnailLoader::take(Request *request)
{
    std::unique_lock<std::mutex> lock(mutex);
    wake.wait(lock, [this] { return ending || !queue.empty(); });
    if (ending)
        return false;
    *request = queue.front();
    queue.pop_front();
    running.insert(request->id);
    return true;
}

LoadedThumbnail ThumbnailLoader::load(const Request &request, bool *wasRead)
{
    LoadedThumbnail thumbnail;
    thumbnail.id = request.id;
    thumbnail.side = request.side;
    try {
        const QByteArray bytes = source->thumbnail(request.id);
        *wasRead = !bytes.isEmpty();
        thumbnail.square = squareThumbnail(bytes, request.side);
        thumbnail.lacksOriginal = *wasRead && source->lacksOriginal(request.id);
    } catch (const std::bad_alloc &) {
        thumbnail.square = QImage();
    }
    return thumbnail;
}

void ThumbnailLoader::finish(const Request &request, LoadedThumbnail thumbnail, bool wasRead)
{
    const std::lock_guard<std::mutex> lock(mutex);
    running.remove(request.id);
    if (source->isStopped() && !wasRead)
        return;
    failuresInARow = wasRead ? 0 : failuresInARow + 1;
    failing = failing || failuresInARow == manyFailures;
    ready.push_back(std::move(thumbnail));
    if (announced || ending)
        return;
    announced = true;
    QMetaObject::invokeMethod(
        this, [this] { deliver(); }, Qt::QueuedConnection);
}

void ThumbnailLoader::deliver()
{
    QVector<LoadedThumbnail> thumbnails;
    bool tell = false;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        thumbnails.swap(ready);
        std::swap(tell, failing);
        announced = false;
    }
    Q_EMIT loaded(thumbnails);
    if (tell)
        Q_EMIT readsFailing();
}

} // namespace browser
