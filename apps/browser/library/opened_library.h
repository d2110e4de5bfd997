#ifndef APPS_BROWSER_LIBRARY_OPENED_LIBRARY_H
#define APPS_BROWSER_LIBRARY_OPENED_LIBRARY_H

#include "apps/browser/library/snapshot.h"
#include "photolib/photo_item.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

namespace devicehost
{
class DeviceHost;
}

namespace browser
{

/// A device with its photo library open, shared by the threads of a window. Nobody edits the library, so every function
/// may be called from any thread at any time; those that read from the device wait for it, and are not for the
/// user-interface thread.
///
/// The destructor frees the library and the local copy of the database: up to seconds for a million photos. Drop the
/// last reference with retire().
class OpenedLibrary
{
public:
    /// `manager` is one of `device` with an open library; both are owned from now on.
    OpenedLibrary(std::unique_ptr<devicehost::DeviceHost> device, photo_manager_int *manager,
                  std::shared_ptr<const Snapshot> snapshot);
    ~OpenedLibrary();
    OpenedLibrary(const OpenedLibrary &) = delete;
    OpenedLibrary &operator=(const OpenedLibrary &) = delete;

    /// Name with its scheme, such as "folder:/media/phone".
    const QString &deviceName() const { return name; }

    const Snapshot &snapshot() const { return *contents; }
    std::shared_ptr<const Snapshot> sharedSnapshot() const { return contents; }

    /// Every fact of one photo; none for an unknown id. From memory.
    std::optional<photoItem> item(qint64 id);

    /// JPEG or BMP bytes; empty when there is none or it cannot be read. One at a time: callers wait for one another.
    QByteArray thumbnail(qint64 id);

    /// The whole original; none when it is absent or cannot be read.
    std::optional<QByteArray> file(qint64 id);

    /// Path of the original on the device, such as "DCIM/100APPLE/IMG_0001.JPG".
    QString devicePath(qint64 id);

    /// Whether the device is still there, with its photo database. May take as long as the device takes to answer.
    bool isAvailable();

    /// For the exporter, which runs on a thread of its own beside everything else.
    photo_manager_int &library() { return *manager; }
    devicehost::DeviceHost &host() { return *device; }

    /// Ends every read, running ones too, for good. Any thread; returns at once.
    void stop();
    bool isStopped() const { return stopped.load(); }

private:
    struct Releaser {
        void operator()(photo_manager_int *manager) const;
    };

    const QString name;
    const std::shared_ptr<const Snapshot> contents;
    const std::unique_ptr<devicehost::DeviceHost> device;
    const std::unique_ptr<photo_manager_int, Releaser> manager;
    std::mutex thumbnails; ///< one getThumbnail() at a time
    std::atomic<bool> stopped{false};
};

/// Gives up a reference; when it is the last, the library is freed on a thread of its own. The program ends only after
/// waitForRetired().
void retire(std::shared_ptr<OpenedLibrary> library);

/// Waits until everything that was retired is freed.
void waitForRetired();

} // namespace browser

#endif
