#include "apps/cli/library_session.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "apps/cli/opening_deadline.h"
#include "apps/cli/password.h"
#include "apps/cli/progress_bar.h"
#include "devicehost/advice.h"
#include "devicehost/resolve_device.h"
#include "devicehost/usb_devices.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <new>

namespace photocli
{

namespace
{

const QString databaseName = QStringLiteral("/PhotoData/Photos.sqlite");
const QString checkDevice = QStringLiteral("check that this is the media root of a device, the folder that holds DCIM "
                                           "and PhotoData");

// For a folder of several devices: what can be given instead.
void listChoices(const QStringList &choices)
{
    for (const QString &choice : choices)
        printNote(choice);
}

void pairWith(const QString &device)
{
    const QString scheme = QStringLiteral("afc:");
    if (!device.startsWith(scheme))
        throw Failure{
            ExitUsage,
            QStringLiteral("--pair is for devices on USB and on the network, which %1 is not").arg(quoted(device))};
    bool wasPaired = false;
    const QString problem = devicehost::pairUsbDevice(device.mid(scheme.size()), &wasPaired);
    if (!problem.isEmpty())
        throw Failure{ExitDeviceUnreachable, QStringLiteral("%1: %2").arg(device, problem)};
    if (wasPaired)
        printNote(QStringLiteral("photolib: %1 and this computer are paired already; nothing was changed").arg(device));
}

QString resolved(const DeviceOptions &options)
{
    applyUsbOptions(options);
    const devicehost::ResolvedDevice device = devicehost::resolveDevice(QString::fromStdString(options.device));
    switch (device.status) {
    case devicehost::DeviceStatus::Found:
        break;
    case devicehost::DeviceStatus::Malformed:
        throw Failure{ExitUsage, device.message};
    case devicehost::DeviceStatus::Unreachable:
        listChoices(device.choices);
        throw Failure{ExitDeviceUnreachable, device.message};
    case devicehost::DeviceStatus::NoLibrary:
        throw Failure{ExitLibraryUnreadable, device.message};
    }
    if (options.pair)
        pairWith(device.devicePath);
    return device.devicePath;
}

} // namespace

void applyUsbOptions(const UsbOptions &options)
{
    devicehost::setUsbTimeout(std::chrono::milliseconds(std::max(1LL, std::llround(options.timeout * 1000))));
}

void LibrarySession::Releaser::operator()(photo_manager_int *manager) const
{
    static std::atomic<photo_manager_int *> abandoned{nullptr}; // to be found by those who look for leaks
    if (interruptRequested())
        abandoned = manager;
    else
        releasePhotolib(&manager);
}

LibrarySession::LibrarySession(const DeviceOptions &options)
    : log(QString::fromStdString(options.logFile), options.verbose),
      host(std::make_unique<devicehost::DeviceHost>(resolved(options)))
{
    unlock(options); // nothing lies on the disk yet, so that signals may simply end it
    interrupts = std::make_unique<InterruptScope>(*host);
    open(options.showProgress());
    if (!host->notice().isEmpty())
        warn(host->notice());
    const QString damage = damageReport();
    if (damage.isEmpty())
        warnOfShortcoming();
    else if (manager->getPhotoCount() == 0 && manager->getAlbumCount() == 0)
        throw Failure{unreadable(),
                      QStringLiteral("%1: the photo library cannot be read: %2").arg(deviceName(), damage)};
    else
        warn(QStringLiteral("the library was read in part only: ") + damage);
    readInPart = !damage.isEmpty();
}

LibrarySession::~LibrarySession()
{
    ProgressBar none;
    std::unique_ptr<OpeningDeadline> deadline;
    try {
        deadline = std::make_unique<OpeningDeadline>(
            interruptRequested, [this, &none] { endInterruptedOpening(*host, none); }, std::chrono::milliseconds(0));
    } catch (const std::bad_alloc &) { // the library is then freed to its end
    }
    manager.reset();
}

void LibrarySession::unlock(const DeviceOptions &options)
{
    if (!host->needsPassword())
        return;
    Password password(QString::fromStdString(options.passwordFile), deviceName());
    const devicehost::UnlockResult result = host->unlock(password.bytes());
    if (result.status != devicehost::Unlocking::Unlocked)
        throw Failure{ExitDeviceUnreachable, QStringLiteral("%1: %2").arg(deviceName(), result.message)};
}

void LibrarySession::noteOnMissingFiles()
{
    if (deviceName().startsWith(QStringLiteral("backup:")))
        printNote(QStringLiteral("photolib: this is a backup; it does not hold most thumbnails, and no originals that "
                                 "are only in the cloud"));
}

void LibrarySession::open(bool showProgress)
{
    manager.reset(getPhotolib(host.get()));
    if (!manager)
        fail(ExitDeviceUnreachable, QStringLiteral("the device cannot be reached"));
    ProgressBar bar;
    if (showProgress)
        host->setProgress([&bar](const devicehost::Progress &progress) { bar.show(progress); });
    bool opened = false;
    {
        const OpeningDeadline deadline(interruptRequested, [this, &bar] { endInterruptedOpening(*host, bar); });
        opened = manager->openLibrary();
    }
    host->setProgress({});
    bar.erase();
    if (!opened || interruptRequested()) // which the library may have been too far to notice
        fail(unreadable(), QStringLiteral("the photo library cannot be read"));
}

void LibrarySession::fail(ExitCode code, const QString &fallback)
{
    if (interruptRequested())
        throw Failure{ExitInterrupted, QStringLiteral("interrupted")};
    const QString reason = host->failure();
    throw Failure{code, QStringLiteral("%1: %2").arg(deviceName(), reason.isEmpty() ? fallback : reason)};
}

// A device that left in the meantime says nothing about its library.
ExitCode LibrarySession::unreadable() const
{
    return host->deviceIsUnreachable() ? ExitDeviceUnreachable : ExitLibraryUnreadable;
}

QString LibrarySession::damageReport() const
{
    const QString damage = host->databaseDamage();
    if (damage.isEmpty())
        return host->failure();
    return QStringLiteral("%1 on the device gives \"%2\"; %3").arg(databaseName, damage, devicehost::copyAgain());
}

// What the library lacks may well be meant: a device on which nobody took a photo yet. So it is no failure.
void LibrarySession::warnOfShortcoming()
{
    if (host->databaseIsEmpty())
        return warn(QStringLiteral("%1 is empty (0 bytes), so nothing is listed; ").arg(databaseName) +
                    devicehost::copyAgain());
    switch (log.shortcoming()) {
    case LogWatch::Shortcoming::None:
        return;
    case LogWatch::Shortcoming::NoPhotoTable:
        return warn(databaseName +
                    QStringLiteral(" holds no photo table that can be read, so albums are listed "
                                   "without photos; ") +
                    checkDevice);
    case LogWatch::Shortcoming::NoAlbumTable:
        break;
    }
    // Every photo library has a UUID, whatever else it lacks.
    if (manager->getLibraryUuid().isEmpty())
        return warn(databaseName +
                    QStringLiteral(" holds none of the tables of a photo library, so nothing is "
                                   "listed; ") +
                    checkDevice);
    warn(databaseName +
         QStringLiteral(" holds no album table that can be read, so neither albums nor photos are "
                        "listed; ") +
         checkDevice);
}

void LibrarySession::warn(const QString &message)
{
    printWarning(QStringLiteral("%1: %2").arg(deviceName(), message));
}

} // namespace photocli
