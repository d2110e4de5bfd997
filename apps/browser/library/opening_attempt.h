#ifndef APPS_BROWSER_LIBRARY_OPENING_ATTEMPT_H
#define APPS_BROWSER_LIBRARY_OPENING_ATTEMPT_H

#include "apps/browser/library/mailbox.h"
#include "apps/browser/library/opener.h"

#include <QByteArray>

#include <atomic>
#include <memory>
#include <mutex>

namespace devicehost
{
class DeviceHost;
struct ResolvedDevice;
} // namespace devicehost

namespace browser
{

/// What an Opener shares with the threads that work for it, which may outlive it. One step runs at a time; the next one
/// may be asked for as soon as the one before it has told something, and then waits for its end.
class OpeningAttempt
{
public:
    OpeningAttempt(Opener *opener, QString argument);
    ~OpeningAttempt();

    /// The steps, for run().
    void find();
    void open();
    /// On a thread of its own.
    void run(void (OpeningAttempt::*step)());

    /// Any thread: ends the running step, soon, and what comes after it.
    void stop();
    void setPassword(const QByteArray &newPassword);
    /// Where there are no more threads.
    void failForWantOfMemory();

    const std::shared_ptr<Mailbox> mailbox;

private:
    struct Releaser {
        void operator()(photo_manager_int *manager) const;
    };
    using Manager = std::unique_ptr<photo_manager_int, Releaser>;

    void tell(OpeningProgress::Stage stage);
    QString pathOfArgument() const;
    void fail(FailureKind kind, const QString &technical);
    void failUnlessStopped(FailureKind otherwise, const QString &fallback);
    void explain(const devicehost::ResolvedDevice &resolved);
    void makeHost();
    bool unlock();
    Manager openManager();
    Opened conditionOf(photo_manager_int &manager, bool lacksTables);
    void deliver(Manager manager, Opened result);
    void wipePassword();

    Opener *const opener; ///< for letters only, which run while it is there
    const QString argument;
    std::atomic<bool> stopped{false};
    QString device;
    std::mutex steps; ///< held by the running step
    std::mutex mutex; ///< guards what follows; `host` is replaced under it and used without by the running step
    QByteArray password;
    std::unique_ptr<devicehost::DeviceHost> host;
};

} // namespace browser

#endif
