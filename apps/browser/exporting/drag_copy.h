#ifndef APPS_BROWSER_EXPORTING_DRAG_COPY_H
#define APPS_BROWSER_EXPORTING_DRAG_COPY_H

#include "apps/browser/library/opened_library.h"
#include "apps/browser/media/device_copy.h"

#include <QObject>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <thread>

namespace browser
{

/// Copies the originals of photos into a private folder, on a thread of its own. The folder goes with the program: who
/// receives the files may read them long after the drop.
///
/// User-interface thread. The destructor cancels, and waits for the block in hand.
class DragCopy : public QObject
{
    Q_OBJECT

public:
    DragCopy(std::shared_ptr<OpenedLibrary> library, QVector<qint64> ids, QObject *parent = nullptr);
    ~DragCopy() override;

    void start();
    void cancel() { cancelled.store(true); }

    bool isFinished() const { return done; }
    /// Complete copies, after finished(). None when it was cancelled.
    const QStringList &files() const { return copies; }
    /// How many could not be copied, and what the last of them met.
    int failures() const { return failed; }
    CopyEnd lastFailure() const { return failure; }

Q_SIGNALS:
    /// `photos` are dealt with, and a part of the next one in thousandths.
    void progress(int photos, int thousandths);
    void finished();

private:
    void work();
    bool copyOne(qint64 id, int number, const QString &folder);

    const std::shared_ptr<OpenedLibrary> opened;
    const QVector<qint64> photos;
    std::atomic<bool> cancelled{false};
    std::thread thread;
    bool done = false;
    QStringList copies; ///< of the thread until it has ended, as what follows
    int failed = 0;
    CopyEnd failure = CopyEnd::Complete;
};

} // namespace browser

#endif
