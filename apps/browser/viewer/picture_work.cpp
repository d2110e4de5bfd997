#include "apps/browser/viewer/picture_work.h"

#include <new>

namespace browser
{

PictureWork::PictureWork(std::shared_ptr<PictureSource> pictures) : source(std::move(pictures)) {}

bool PictureWork::want(const PictureRequest &current, bool isThere, const QVector<PictureRequest> &neighbours)
{
    const std::lock_guard<std::mutex> lock(mutex);
    tasks.clear();
    if (!isThere) {
        tasks.push_back({current, true});
        if (!current.thumbnailOnly && !(running == current))
            tasks.push_back({current, false});
    }
    for (const PictureRequest &neighbour : neighbours)
        if (!(running == neighbour))
            tasks.push_back({neighbour, false});
    const bool keepsRunning = running == current || (isThere && running && neighbours.contains(*running));
    if (!keepsRunning)
        giveUpRunning();
    const bool wantsThread = !hasThread && !tasks.empty();
    hasThread = hasThread || wantsThread;
    return wantsThread;
}

// Until the next task is taken: what was given up once is loaded anew.
void PictureWork::giveUpRunning()
{
    if (!running)
        return;
    giveUp.store(true);
    running.reset();
}

void PictureWork::forget()
{
    const std::lock_guard<std::mutex> lock(mutex);
    tasks.clear();
    giveUpRunning();
}

void PictureWork::refuse()
{
    std::deque<Task> refused;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        hasThread = false;
        refused.swap(tasks);
    }
    for (const Task &task : refused) {
        if (!task.thumbnail)
            whenPicture(task.request, noPicture(PictureProblem::OutOfMemory));
    }
}

void PictureWork::end()
{
    const std::lock_guard<std::mutex> lock(mutex);
    closing = true;
    giveUp.store(true);
    tasks.clear();
}

bool PictureWork::takeTask(Task &task)
{
    const std::lock_guard<std::mutex> lock(mutex);
    running.reset();
    if (closing || tasks.empty()) {
        hasThread = false;
        return false;
    }
    task = tasks.front();
    tasks.pop_front();
    giveUp.store(false);
    if (!task.thumbnail)
        running = task.request;
    return true;
}

void PictureWork::run()
{
    Task task;
    while (takeTask(task)) {
        try {
            perform(task);
        } catch (const std::bad_alloc &) { // of telling; there is nobody to be told
        }
    }
}

void PictureWork::perform(const Task &task)
{
    const PictureRequest &request = task.request;
    if (task.thumbnail) {
        QImage thumbnail;
        try {
            thumbnail = source->thumbnail(request.id);
        } catch (const std::bad_alloc &) { // the original tells
        }
        whenThumbnail(request.id, thumbnail);
        return;
    }
    SharedPicture picture;
    try {
        picture = source->picture(request.id, request.version, [this] { return giveUp.load(); });
    } catch (const std::bad_alloc &) {
        picture = noPicture(PictureProblem::OutOfMemory);
    }
    if (picture->problem != PictureProblem::GivenUp)
        whenPicture(request, picture);
}

} // namespace browser
