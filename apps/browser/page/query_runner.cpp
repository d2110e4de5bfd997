#include "apps/browser/page/query_runner.h"

#include <new>

namespace browser
{

namespace
{

constexpr std::size_t smallLibrary = 5000; // photos that are found and sorted in a few milliseconds

} // namespace

QueryRunner::QueryRunner(std::shared_ptr<const Snapshot> library, QObject *parent)
    : QObject(parent), snapshot(std::move(library))
{
}

QueryRunner::~QueryRunner()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
        giveUp.store(true);
    }
    wake.notify_all();
    if (thread.joinable())
        thread.join();
}

void QueryRunner::run(const PhotoQuery &query)
{
    const quint64 number = ++latest;
    busy = true;
    if (snapshot->photos.size() <= smallLibrary)
        return deliver(number, findPhotos(*snapshot, query, std::atomic<bool>(false)));
    {
        const std::lock_guard<std::mutex> lock(mutex);
        waiting = query;
        waitingNumber = number;
        giveUp.store(true);
    }
    if (!thread.joinable())
        thread = std::thread([this] { work(); });
    wake.notify_all();
}

void QueryRunner::work()
{
    for (;;) {
        PhotoQuery query;
        quint64 number = 0;
        {
            std::unique_lock<std::mutex> lock(mutex);
            wake.wait(lock, [this] { return ending || waiting; });
            if (ending)
                return;
            query = *waiting;
            number = waitingNumber;
            waiting.reset();
            giveUp.store(false);
        }
        std::shared_ptr<const PhotoList> photos;
        try {
            photos = findPhotos(*snapshot, query, giveUp);
        } catch (const std::bad_alloc &) {
            photos = nullptr;
        }
        QMetaObject::invokeMethod(
            this, [this, number, photos] { deliver(number, photos); }, Qt::QueuedConnection);
    }
}

void QueryRunner::deliver(quint64 number, const std::shared_ptr<const PhotoList> &photos)
{
    if (number != latest)
        return;
    busy = false;
    if (photos)
        Q_EMIT found(photos);
}

} // namespace browser
