#ifndef APPS_BROWSER_VIEWER_PICTURE_LOADER_H
#define APPS_BROWSER_VIEWER_PICTURE_LOADER_H

#include "apps/browser/viewer/picture_source.h"

#include <QCache>
#include <QObject>
#include <QVector>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace browser
{

/// A photo that is wanted.
struct PictureRequest {
    qint64 id = 0;
    bool thumbnailOnly = false; ///< a film: its original is no picture

    bool operator==(const PictureRequest &other) const { return id == other.id; }
};

/// Loads pictures on a thread of its own: the newest request first, then those beside it. What nobody waits for any
/// more is given up. Keeps the pictures that were loaded last.
///
/// User-interface thread. The destructor waits for the read in hand, which ends at its next block or with the device.
class PictureLoader : public QObject
{
    Q_OBJECT

public:
    explicit PictureLoader(std::shared_ptr<PictureSource> pictures, QObject *parent = nullptr);
    ~PictureLoader() override;

    /// The picture if it is at hand; null otherwise.
    SharedPicture cached(qint64 id) const;

    /// Loads `current` with its thumbnail, then the pictures in `neighbours`; replaces what was asked for before.
    void load(const PictureRequest &current, const QVector<PictureRequest> &neighbours);

    /// Gives up everything that is asked for, and frees the pictures that are kept.
    void forgetAll();

Q_SIGNALS:
    void thumbnailLoaded(qint64 id, const QImage &thumbnail);
    /// Also for what could not be loaded; never with PictureProblem::GivenUp.
    void pictureLoaded(qint64 id, const browser::SharedPicture &picture);

private:
    struct Task {
        PictureRequest request;
        bool thumbnail = false;
    };

    void giveUpRunning();
    void work();
    void perform(const Task &task);
    bool takeTask(Task &task);
    void deliver(qint64 id, const SharedPicture &picture);

    const std::shared_ptr<PictureSource> source;
    QCache<qint64, SharedPicture> cache; ///< cost in KiB

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Task> tasks; ///< guarded by `mutex`, as what follows
    qint64 running = 0;     ///< photo whose original is in hand; 0 for none, and when it is given up
    bool closing = false;
    std::atomic<bool> giveUp{false};
    std::thread worker;
};

} // namespace browser

#endif
