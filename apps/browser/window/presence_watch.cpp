#include "apps/browser/window/presence_watch.h"

#include "apps/browser/library/background.h"
#include "devicehost/resolve_device.h"

#include <chrono>

namespace browser
{

namespace
{

constexpr std::chrono::seconds interval{3};

} // namespace

PresenceWatch::PresenceWatch(QObject *parent) : QObject(parent)
{
    timer.setInterval(interval);
    connect(&timer, &QTimer::timeout, this, &PresenceWatch::look);
}

void PresenceWatch::watch(const QString &device)
{
    watched = device;
    ++number;
    if (device.startsWith(QLatin1String("backup:")))
        timer.stop();
    else
        timer.start();
}

void PresenceWatch::look()
{
    if (looking)
        return;
    looking = true;
    inBackground<bool>(
        this,
        [device = watched] { return devicehost::resolveDevice(device).status != devicehost::DeviceStatus::Found; },
        [this, asked = number](bool isGone) {
            looking = false;
            if (!isGone || asked != number)
                return;
            timer.stop();
            Q_EMIT gone();
        });
}

} // namespace browser
