#ifndef APPS_BROWSER_EXPORTING_DRAG_COPY_H
#define APPS_BROWSER_EXPORTING_DRAG_COPY_H

#include "apps/browser/library/opened_library.h"
#include "apps/browser/media/device_copy.h"

#include <QObject>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <memory>
#include <vector>

namespace browser
{

class DragFolder;

/// What came of copying photos for another program. A plain value.
struct DragCopies {
    QStringList files;                   ///< complete copies
    std::shared_ptr<DragFolder> folder;  ///< where they lie; null when there are none
    qint64 bytes = 0;                    ///< of all files
    int failures = 0;                    ///< photos of which a file could not be copied
    CopyEnd failure = CopyEnd::Complete; ///< what the last of them met
};

/// Copies what belongs to photos into a private folder, on a thread of its own: the original, the film of a Live Photo,
/// and beside them the picture or film as it was edited on the device.
///
/// User-interface thread. The destructor cancels and does not wait: a read that hangs ends in its own time.
class DragCopy : public QObject
{
    Q_OBJECT

public:
    DragCopy(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QObject *parent = nullptr);
    ~DragCopy() override;

    /// Once.
    void start();
    void cancel() { cancelled->store(true); }

    bool isFinished() const { return done; }
    /// After finished(). No files when it was cancelled.
    const DragCopies &result() const { return copies; }

Q_SIGNALS:
    /// `photos` are dealt with, and a part of the next one in thousandths.
    void progress(int photos, int thousandths);
    void finished();

private:
    std::shared_ptr<OpenedLibrary> opened; ///< the thread's, once it runs
    const std::vector<qint64> photos;
    const std::shared_ptr<std::atomic<bool>> cancelled = std::make_shared<std::atomic<bool>>(false);
    bool done = false;
    DragCopies copies;
};

} // namespace browser

#endif
