#include "apps/browser/page/thumbnail_work.h"

#include "apps/browser/page/thumbnail_decoder.h"

#include <algorithm>
#include <new>

namespace browser
{

namespace
{

constexpr int manyUnread = 8;

} // namespace

ThumbnailWork::ThumbnailWork(std::shared_ptr<ThumbnailSource> thumbnails, std::function<void()> announce)
    : source(std::move(thumbnails)), tell(std::move(announce))
{
}

int ThumbnailWork::want(const QVector<qint64> &ids, int side, int most)
{
    const std::lock_guard<std::mutex> lock(mutex);
    queue.clear();
    for (const qint64 id : ids) {
        if (!running.contains(id))
            queue.push_back({id, side});
    }
    const int added = std::max(0, std::min<int>(most - threads, static_cast<int>(queue.size())));
    threads += added;
    return added;
}

void ThumbnailWork::lack(int count)
{
    const std::lock_guard<std::mutex> lock(mutex);
    threads -= count;
}

void ThumbnailWork::end()
{
    const std::lock_guard<std::mutex> lock(mutex);
    ending = true;
    queue.clear();
}

void ThumbnailWork::run()
{
    Request request{};
    for (;;) {
        try {
            if (!take(&request))
                return;
            finish(load(request));
        } catch (const std::bad_alloc &) {
            abandon(request);
        }
    }
}

// Asked for again when it is wanted again.
void ThumbnailWork::abandon(const Request &request)
{
    const std::lock_guard<std::mutex> lock(mutex);
    running.remove(request.id);
    announced = false;
}

bool ThumbnailWork::take(Request *request)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (ending || queue.empty()) {
        --threads;
        return false;
    }
    *request = queue.front();
    queue.pop_front();
    running.insert(request->id);
    return true;
}

LoadedThumbnail ThumbnailWork::load(const Request &request)
{
    LoadedThumbnail thumbnail;
    thumbnail.id = request.id;
    thumbnail.side = request.side;
    try {
        const ThumbnailAnswer answer = source->thumbnail(request.id);
        thumbnail.isRead = !answer.bytes.isEmpty();
        thumbnail.failed = answer.failed;
        thumbnail.square = squareThumbnail(answer.bytes, request.side);
        thumbnail.lacksOriginal = thumbnail.isRead && source->lacksOriginal(request.id);
    } catch (const std::bad_alloc &) {
        thumbnail.failed = thumbnail.square.isNull();
    }
    return thumbnail;
}

void ThumbnailWork::finish(LoadedThumbnail thumbnail)
{
    bool tellNow = false;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        running.remove(thumbnail.id);
        if (ending || (source->isStopped() && !thumbnail.isRead))
            return;
        unreadInARow = thumbnail.isRead ? 0 : unreadInARow + 1;
        ready.failing = ready.failing || (unreadInARow > 0 && unreadInARow % manyUnread == 0);
        ready.thumbnails.push_back(std::move(thumbnail));
        tellNow = !announced;
        announced = true;
    }
    if (tellNow)
        tell();
}

ThumbnailWork::Batch ThumbnailWork::takeBatch()
{
    const std::lock_guard<std::mutex> lock(mutex);
    Batch batch;
    std::swap(batch, ready);
    announced = false;
    return batch;
}

} // namespace browser
