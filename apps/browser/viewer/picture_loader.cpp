#include "apps/browser/viewer/picture_loader.h"

#include <new>

namespace browser
{

namespace
{

constexpr int mostCachedKibibytes = 512 * 1024;

int kibibytes(const Picture &picture)
{
    return static_cast<int>(picture.bytes() / 1024) + 1;
}

} // namespace

PictureLoader::PictureLoader(std::shared_ptr<PictureSource> pictures, QObject *parent)
    : QObject(parent), source(std::move(pictures)), cache(mostCachedKibibytes)
{
    worker = std::thread([this] { work(); });
}

PictureLoader::~PictureLoader()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        closing = true;
        giveUp.store(true);
        tasks.clear();
    }
    changed.notify_all();
    worker.join();
}

SharedPicture PictureLoader::cached(qint64 id) const
{
    const SharedPicture *const picture = cache.object(id);
    return picture == nullptr ? nullptr : *picture;
}

void PictureLoader::load(const PictureRequest &current, const QVector<PictureRequest> &neighbours)
{
    const bool isThere = !current.thumbnailOnly && cached(current.id) != nullptr;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        tasks.clear();
        if (!isThere) {
            tasks.push_back({current, true});
            if (!current.thumbnailOnly && running != current.id)
                tasks.push_back({current, false});
        }
        for (const PictureRequest &neighbour : neighbours)
            if (!neighbour.thumbnailOnly && cached(neighbour.id) == nullptr && running != neighbour.id)
                tasks.push_back({neighbour, false});
        const bool keepsRunning = running == current.id || (isThere && neighbours.contains({running}));
        if (!keepsRunning)
            giveUpRunning();
    }
    changed.notify_all();
}

// Until the next task is taken: what was given up once is loaded anew.
void PictureLoader::giveUpRunning()
{
    if (running == 0)
        return;
    giveUp.store(true);
    running = 0;
}

void PictureLoader::forgetAll()
{
    const std::lock_guard<std::mutex> lock(mutex);
    tasks.clear();
    giveUpRunning();
    cache.clear();
}

bool PictureLoader::takeTask(Task &task)
{
    std::unique_lock<std::mutex> lock(mutex);
    running = 0;
    changed.wait(lock, [this] { return closing || !tasks.empty(); });
    if (closing)
        return false;
    task = tasks.front();
    tasks.pop_front();
    giveUp.store(false);
    if (!task.thumbnail)
        running = task.request.id;
    return true;
}

void PictureLoader::work()
{
    Task task;
    while (takeTask(task))
        perform(task);
}

void PictureLoader::perform(const Task &task)
{
    const qint64 id = task.request.id;
    if (task.thumbnail) {
        QImage thumbnail;
        try {
            thumbnail = source->thumbnail(id);
        } catch (const std::bad_alloc &) { // the original tells
        }
        QMetaObject::invokeMethod(this, [this, id, thumbnail] { Q_EMIT thumbnailLoaded(id, thumbnail); });
        return;
    }
    SharedPicture picture;
    try {
        picture = source->original(id, [this] { return giveUp.load(); });
    } catch (const std::bad_alloc &) {
        picture = noPicture(PictureProblem::OutOfMemory);
    }
    if (picture->problem == PictureProblem::GivenUp)
        return;
    QMetaObject::invokeMethod(this, [this, id, picture] { deliver(id, picture); });
}

void PictureLoader::deliver(qint64 id, const SharedPicture &picture)
{
    if (picture->isGood())
        cache.insert(id, new SharedPicture(picture), kibibytes(*picture));
    Q_EMIT pictureLoaded(id, picture);
}

} // namespace browser
