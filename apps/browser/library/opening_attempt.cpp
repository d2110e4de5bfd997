#include "apps/browser/library/opening_attempt.h"

#include "apps/browser/library/device_identity.h"
#include "apps/browser/library/device_title.h"
#include "apps/browser/library/log_notes.h"
#include "devicehost/backup/backup_places.h"
#include "devicehost/device_host.h"
#include "devicehost/resolve_device.h"
#include "devicehost/usb_devices.h"
#include "photolib/photolib.h"

#include <utility>

namespace browser
{

using Stage = OpeningProgress::Stage;

namespace
{

void postProgress(Mailbox &mailbox, Opener *receiver, const OpeningProgress &progress)
{
    mailbox.post([receiver, progress] { Q_EMIT receiver->progressed(progress); });
}

// Where nobody takes it, the library is not freed on the user-interface thread.
struct Delivery {
    Opened content;
    ~Delivery() { retire(std::move(content.library)); }
};

} // namespace

void OpeningAttempt::Releaser::operator()(photo_manager_int *manager) const
{
    releasePhotolib(&manager);
}

OpeningAttempt::OpeningAttempt(Opener *asking, QString named)
    : mailbox(std::make_shared<Mailbox>(asking)), opener(asking), argument(std::move(named))
{
}

OpeningAttempt::~OpeningAttempt()
{
    wipePassword();
}

void OpeningAttempt::stop()
{
    stopped.store(true);
    const std::lock_guard<std::mutex> lock(mutex);
    if (host)
        host->requestStop();
}

void OpeningAttempt::setPassword(const QByteArray &newPassword)
{
    wipePassword();
    const std::lock_guard<std::mutex> lock(mutex);
    password = QByteArray(newPassword.constData(), newPassword.size()); // a copy of its own, to overwrite
}

void OpeningAttempt::wipePassword()
{
    const std::lock_guard<std::mutex> lock(mutex);
    password.fill('\0');
    password.clear();
}

void OpeningAttempt::tell(Stage stage)
{
    postProgress(*mailbox, opener, OpeningProgress{stage});
}

void OpeningAttempt::fail(FailureKind kind, const QString &technical)
{
    mailbox->post(
        [receiver = opener, failure = OpeningFailure{kind, argument, technical}] { Q_EMIT receiver->failed(failure); });
}

void OpeningAttempt::run(void (OpeningAttempt::*step)())
{
    const std::lock_guard<std::mutex> oneAtATime(steps);
    try {
        (this->*step)();
    } catch (const std::bad_alloc &) {
        failForWantOfMemory();
    }
    std::unique_ptr<devicehost::DeviceHost> leaving; // removes its files when the lock is free again
    const std::lock_guard<std::mutex> lock(mutex);
    leaving = std::move(host);
    if (leaving)
        leaving->requestStop(); // for reads of an open library that found the device here
}

void OpeningAttempt::failForWantOfMemory()
{
    fail(FailureKind::OutOfMemory, QStringLiteral("there is not enough memory, or no thread can be started"));
}

void OpeningAttempt::find()
{
    tell(Stage::Finding);
    const devicehost::ResolvedDevice resolved = devicehost::resolveDevice(argument);
    if (resolved.status != devicehost::DeviceStatus::Found)
        return explain(resolved);
    device = resolved.devicePath;
    mailbox->post([receiver = opener, name = device, identity = deviceIdentity(device)] {
        Q_EMIT receiver->found(name, identity);
    });
}

QString OpeningAttempt::pathOfArgument() const
{
    const QString path = localPathOf(argument);
    return path.isEmpty() ? argument : path;
}

void OpeningAttempt::explain(const devicehost::ResolvedDevice &resolved)
{
    FailureKind kind = FailureKind::NotFound;
    const bool usb = argument == QLatin1String("usb") || argument.startsWith(QLatin1String("afc:"));
    if (usb) {
        const devicehost::UsbDevices phones = devicehost::listUsbDevices();
        if (!phones.failure.isEmpty())
            kind = FailureKind::NoDaemon;
        else if (phones.devices.size() > 1 && argument == QLatin1String("usb"))
            kind = FailureKind::SeveralChoices;
    } else if (!resolved.choices.isEmpty()) {
        kind = FailureKind::SeveralChoices;
    } else if (resolved.status == devicehost::DeviceStatus::NoLibrary) {
        kind = FailureKind::NoLibrary;
    } else if (devicehost::looksLikeBackup(pathOfArgument())) {
        kind = FailureKind::BackupDamaged;
    }
    fail(kind, resolved.message);
}

void OpeningAttempt::failUnlessStopped(FailureKind otherwise, const QString &fallback)
{
    if (stopped.load())
        return;
    const QString reason = host->failure();
    FailureKind kind = kindOfHostFailure(reason);
    if (kind == FailureKind::Other)
        kind = host->isAvailable() ? otherwise : FailureKind::Disconnected;
    fail(kind, reason.isEmpty() ? fallback : reason);
}

bool OpeningAttempt::unlock()
{
    if (!host->needsPassword())
        return true;
    QByteArray given;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        given.swap(password);
    }
    const bool asked = !given.isEmpty();
    devicehost::UnlockResult result{devicehost::Unlocking::WrongPassword, {}};
    if (asked) {
        tell(Stage::Unlocking);
        result = host->unlock(given);
        given.fill('\0');
    }
    if (result.status == devicehost::Unlocking::WrongPassword) // asked without a host: others would find it, locked
        mailbox->post([receiver = opener, asked] { Q_EMIT receiver->passwordNeeded(asked); });
    else if (result.status == devicehost::Unlocking::Failed)
        fail(FailureKind::BackupDamaged, result.message);
    return result.status == devicehost::Unlocking::Unlocked;
}

OpeningAttempt::Manager OpeningAttempt::openManager()
{
    Manager manager(getPhotolib(host.get()));
    if (!manager) {
        failUnlessStopped(FailureKind::Other, QStringLiteral("the device cannot be reached"));
        return nullptr;
    }
    const bool isOpen = manager->openLibrary();
    if (isOpen && !stopped.load())
        return manager;
    failUnlessStopped(FailureKind::Damaged, QStringLiteral("the photo library cannot be read"));
    return nullptr;
}

Opened OpeningAttempt::conditionOf(photo_manager_int &manager, bool lacksTables)
{
    Opened result;
    const QString damage = host->databaseDamage();
    result.technical = host->failure().isEmpty() ? damage : host->failure();
    if (!result.technical.isEmpty())
        result.shortcoming = Shortcoming::ReadInPart;
    else if (host->databaseIsEmpty())
        result.shortcoming = Shortcoming::EmptyDatabase;
    else if (lacksTables || (manager.getAlbumCount() == 0 && manager.getLibraryUuid().isEmpty()))
        result.shortcoming = Shortcoming::NoTables;
    else if (const QString notice = host->notice(); !notice.isEmpty())
        result = {{}, {}, Shortcoming::UnfinishedBackup, notice};
    return result;
}

// The callback stays: another window's reads of the same device may find it at any time from now on.
void OpeningAttempt::makeHost()
{
    auto made = std::make_unique<devicehost::DeviceHost>(device);
    made->setProgress([box = mailbox, receiver = opener](const devicehost::Progress &progress) {
        const bool isDone = progress.totalBytes >= 0 && progress.bytesRead >= progress.totalBytes;
        postProgress(*box, receiver,
                     {isDone ? Stage::Sorting : Stage::Reading, progress.bytesRead, progress.totalBytes});
    });
    const std::lock_guard<std::mutex> lock(mutex);
    host = std::move(made);
    if (stopped.load())
        host->requestStop();
}

void OpeningAttempt::open()
{
    makeHost();
    tell(Stage::Connecting);
    if (!unlock())
        return;
    const LogNotes notes;
    Manager manager = openManager();
    if (!manager)
        return;
    Opened result = conditionOf(*manager, notes.lacksTables());
    if (result.shortcoming == Shortcoming::ReadInPart && manager->getPhotoCount() == 0 && manager->getAlbumCount() == 0)
        return failUnlessStopped(FailureKind::Damaged, result.technical);
    deliver(std::move(manager), std::move(result));
}

void OpeningAttempt::deliver(Manager manager, Opened result)
{
    tell(Stage::Preparing);
    std::shared_ptr<const Snapshot> snapshot = readSnapshot(*manager, stopped);
    if (!snapshot)
        return;
    result.title = deviceTitle(device);
    std::unique_ptr<devicehost::DeviceHost> opened;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        opened = std::move(host);
    }
    result.library = std::make_shared<OpenedLibrary>(std::move(opened), manager.release(), std::move(snapshot));
    const auto delivery = std::make_shared<Delivery>();
    delivery->content = std::move(result);
    mailbox->post([receiver = opener, delivery] { Q_EMIT receiver->opened(delivery->content); });
}

} // namespace browser
