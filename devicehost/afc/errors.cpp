#include "devicehost/afc/errors.h"

#include <cerrno>

namespace devicehost::afc
{

namespace
{

struct Entry {
    ErrorSource source;
    qint64 number;
    int code;
    const char *text;
    const char *advice;
};

constexpr const char *tryAgain = "unlock the device, connect it again and try again";
constexpr const char *checkWay = "check the cable or the network, connect the device again and try again";
// A connection that breaks while encryption is agreed upon looks the same.
constexpr const char *checkWayOrPair =
    "check the cable or the network and try again, and if that does not help, pair with it again (option --pair)";
constexpr const char *pairAgain = "pair with it again (option --pair), and tap Trust on its screen";
constexpr const char *lost = "the connection to the device was lost";
constexpr const char *notOffered = "the device does not give its media files away";
constexpr const char *mayBeManaged = "unlock it and try again; a device that is managed may forbid it";

constexpr ErrorSource service = ErrorSource::Service;
constexpr ErrorSource lockdown = ErrorSource::Lockdown;
constexpr ErrorSource link = ErrorSource::Link;
constexpr ErrorSource client = ErrorSource::Client;

constexpr Entry entries[] = {
    {service, 1, EIO, "the device reports an unknown error", tryAgain},
    {service, 2, EPROTO, "the device could not read the request", tryAgain},
    {service, 3, EMFILE, "the device can open no more files", "close other programs that read it and try again"},
    {service, 4, EIO, "the device cannot read it", tryAgain},
    {service, 6, EOPNOTSUPP, "the device does not know the request", tryAgain},
    {service, 7, EINVAL, "the device finds the request invalid", tryAgain},
    {service, 8, ENOENT, "there is no such file on the device", "check that the device is the right one"},
    {service, 9, EISDIR, "it is a folder", "check that the device is the right one"},
    {service, 10, EACCES, "the device does not permit it", "unlock the device and try again"},
    {service, 11, ENOTCONN, "the device's file service is not connected", tryAgain},
    {service, 12, ETIMEDOUT, "the device's file service took too long", tryAgain},
    {service, 15, EOPNOTSUPP, "the device does not support the request", tryAgain},
    {service, 30, ENODEV, lost, checkWay},
    {service, 32, EPROTO, "the device did not get the whole request", checkWay},

    {lockdown, -2, EACCES, "the pairing record of this computer is of no use", pairAgain},
    {lockdown, -3, ENODEV, lost, checkWay},
    {lockdown, -4, EACCES, "the device cannot be paired with", "unlock it, tap Trust on its screen and try again"},
    {lockdown, -5, EACCES, "no encrypted connection to the device can be made", checkWayOrPair},
    {lockdown, -7, ENODEV, lost, checkWay},
    {lockdown, -8, ENODEV, lost, checkWay},
    {lockdown, -17, EACCES, "the device is locked", "unlock it and try again"},
    {lockdown, -18, EACCES, "trust in this computer was refused on the device",
     "unplug the device, connect it again, tap Trust on its screen and try again"},
    {lockdown, -19, EACCES, "the device asks on its screen whether to trust this computer",
     "unlock it, tap Trust and try again"},
    {lockdown, -20, EACCES, "the pairing record of this computer is of no use", pairAgain},
    {lockdown, -21, EACCES, "the device does not know this computer any more", pairAgain},
    {lockdown, -27, EACCES, notOffered, mayBeManaged},
    {lockdown, -29, EACCES, "there is no pairing record of the device", pairAgain},
    {lockdown, -30, EACCES, "the pairing record cannot be kept on this computer",
     "check that usbmuxd can write to its folder, and try again"},
    {lockdown, -31, EACCES, "the pairing record of this computer is of no use", pairAgain},
    {lockdown, -34, EACCES, notOffered, mayBeManaged},
    {lockdown, -36, EACCES, "the device does not pair over this connection", "connect it with a cable"},

    {link, -2, ENODEV, lost, checkWay},
    {link, -3, ENODEV, "the device is not connected",
     "connect it with a cable or over the network, unlock it and try again"},
    {link, -4, ENODEV, lost, checkWay},
    {link, -6, EACCES, "no encrypted connection to the device can be made", checkWayOrPair},
    {link, -7, ETIMEDOUT, "the device does not answer", tryAgain},

    {client, TimedOut, ETIMEDOUT, "the device does not answer", tryAgain},
    {client, Stopped, ECANCELED, "it was stopped", "start it again when it suits"},
    {client, Disconnected, ENODEV, lost, checkWay},
    {client, OutOfStep, EPROTO, "the device's answer makes no sense", tryAgain},
    {client, BadFileInfo, EPROTO, "what the device tells of the file makes no sense", tryAgain},
    {client, EndedEarly, EIO, "the device gives less of the file than it has", tryAgain},
    {client, Changed, ESTALE, "it was changed on the device while it was read", "try again"},
    {client, NotAFile, EINVAL, "it is no regular file", "check that the device is the right one"},
    {client, IsALink, ELOOP, "it is a symbolic link, which is not followed", "check that the device is the right one"},
    {client, LeadsOut, EXDEV, "the name leads out of the device's media folder",
     "check that the device is the right one"},
    {client, NoThread, EAGAIN, "this computer starts no more threads", "close other programs and try again"},
};

/// Numbers without words of their own.
VError unknown(ErrorSource source, qint64 code)
{
    const char *const place = source == lockdown ? "pairing" : source == service ? "file service" : "connection";
    return {EIO, QStringLiteral("the device reports error %1 (%2)").arg(code).arg(QLatin1String(place)),
            QString::fromLatin1(tryAgain), source == lockdown || source == link};
}

/// Whether a new connection cannot be made, or the one that there is has ended or fallen silent.
bool isOfTheDevice(const Entry &entry)
{
    return entry.source == lockdown || entry.source == link || entry.code == ENODEV ||
           (entry.source == client && entry.number == TimedOut);
}

} // namespace

VError explain(ErrorSource source, qint64 code)
{
    for (const Entry &entry : entries)
        if (entry.source == source && entry.number == code)
            return {entry.code, QString::fromLatin1(entry.text), QString::fromLatin1(entry.advice),
                    isOfTheDevice(entry)};
    return unknown(source, code);
}

Outcome outcomeOfStatus(quint64 status)
{
    constexpr quint64 headerInvalid = 2;
    constexpr quint64 connectionLost = 30;
    constexpr quint64 notEnoughData = 32;
    if (status == 0)
        return {};
    const bool outOfStep = status == headerInvalid || status == connectionLost || status == notEnoughData;
    return {outOfStep ? Outcome::Lost : Outcome::Refused, explain(service, static_cast<qint64>(status))};
}

Outcome clientOutcome(ClientError error)
{
    switch (error) {
    case TimedOut:
    case Stopped:
    case NoThread:
        return {Outcome::Ended, explain(client, error)};
    case Disconnected:
    case OutOfStep:
        return {Outcome::Lost, explain(client, error)};
    default:
        return {Outcome::Refused, explain(client, error)};
    }
}

} // namespace devicehost::afc
