#ifndef APPS_BROWSER_VIEWER_PICTURE_WORK_H
#define APPS_BROWSER_VIEWER_PICTURE_WORK_H

#include "apps/browser/viewer/picture_loader.h"

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

namespace browser
{

/// What the thread of a PictureLoader does, shared with it. Any thread.
class PictureWork
{
public:
    explicit PictureWork(std::shared_ptr<PictureSource> pictures);

    /// Called by the thread that works. To be set before there is one.
    std::function<void(qint64 id, const QImage &thumbnail)> whenThumbnail;
    std::function<void(const PictureRequest &request, const SharedPicture &picture)> whenPicture;

    /// Replaces what was wanted. `isThere`: the current picture is at hand. True when a thread is to call run() for it,
    /// or else refuse().
    bool want(const PictureRequest &current, bool isThere, const QVector<PictureRequest> &neighbours);
    void forget();
    /// Answers what is wanted in place of a thread that could not be started.
    void refuse();
    /// Works until nothing is wanted any more, or end() is called.
    void run();
    void end();

private:
    struct Task {
        PictureRequest request;
        bool thumbnail = false;
    };

    void giveUpRunning();
    bool takeTask(Task &task);
    void perform(const Task &task);

    const std::shared_ptr<PictureSource> source;
    std::mutex mutex;
    std::deque<Task> tasks;                ///< guarded by `mutex`, as what follows
    std::optional<PictureRequest> running; ///< whose picture is in hand; none when it is given up
    bool hasThread = false;
    bool closing = false;
    std::atomic<bool> giveUp{false};
};

} // namespace browser

#endif
