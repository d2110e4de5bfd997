#include "apps/browser/library/opening_failure.h"

#include "devicehost/advice.h"
#include "devicehost/afc/errors.h"

#include <QCoreApplication>

#include <cerrno>

namespace browser
{

namespace
{

using devicehost::afc::ErrorSource;

struct Sign {
    ErrorSource source;
    int number;
    FailureKind kind;
};

// By the numbers of the reference host's own table, so that its words can change.
constexpr Sign signs[] = {
    {ErrorSource::Lockdown, -17, FailureKind::Locked},
    {ErrorSource::Service, 10, FailureKind::Locked},
    {ErrorSource::Lockdown, -19, FailureKind::TrustPending},
    {ErrorSource::Lockdown, -4, FailureKind::TrustPending},
    {ErrorSource::Lockdown, -18, FailureKind::Refused},
    {ErrorSource::Lockdown, -21, FailureKind::Forgotten},
    {ErrorSource::Lockdown, -29, FailureKind::Forgotten},
    {ErrorSource::Lockdown, -2, FailureKind::Forgotten},
    {ErrorSource::Lockdown, -5, FailureKind::Forgotten},
    {ErrorSource::Lockdown, -27, FailureKind::NotAllowed},
    {ErrorSource::Link, -7, FailureKind::NoAnswer},
    {ErrorSource::Link, -3, FailureKind::Disconnected},
    {ErrorSource::Client, devicehost::afc::Disconnected, FailureKind::Disconnected},
};

class FailureWords
{
    Q_DECLARE_TR_FUNCTIONS(OpeningFailure)

public:
    static FailureText of(FailureKind kind);

private:
    static FailureText ofPhone(FailureKind kind);
};

FailureText FailureWords::ofPhone(FailureKind kind)
{
    switch (kind) {
    case FailureKind::Locked:
        return {tr("The phone is locked"), tr("Unlock the phone, keep its screen on, and try again.")};
    case FailureKind::TrustPending:
        return {tr("The phone asks whether to trust this computer"),
                tr("Unlock the phone, tap “Trust” on its screen, and try again.")};
    case FailureKind::Refused:
        return {tr("The phone does not trust this computer"),
                tr("Unplug the phone and connect it again. When it asks, tap “Trust”, and try again.")};
    case FailureKind::Forgotten:
        return {tr("The phone and this computer do not know each other any more"),
                tr("Pair them again, and tap “Trust” when the phone asks.")};
    case FailureKind::NoAnswer:
        return {tr("The phone does not answer"), tr("Unlock the phone, connect it again, and try again.")};
    case FailureKind::Disconnected:
        return {tr("The phone is no longer connected"), tr("Check the cable, connect the phone again, and try again.")};
    case FailureKind::NotAllowed:
        return {tr("The phone does not give its photos away"),
                tr("Unlock the phone and try again. A phone that is managed by a company or a school may forbid it.")};
    default:
        return {tr("No phones can be found on this computer"),
                tr("The service that looks for phones does not run. Install or start “usbmuxd”, and try again.")};
    }
}

FailureText FailureWords::of(FailureKind kind)
{
    switch (kind) {
    case FailureKind::NotFound:
        return {tr("It is not there"),
                tr("Check that the phone is connected and unlocked, or that the folder has not moved, and try again.")};
    case FailureKind::NoLibrary:
        return {tr("There are no photos of a phone in this folder"),
                tr("Choose the folder that holds the folders “DCIM” and “PhotoData”, or a backup of a phone.")};
    case FailureKind::SeveralChoices:
        return {tr("There is more than one to choose from"), tr("Go back and choose one of those that are listed.")};
    case FailureKind::BackupDamaged:
        return {tr("The backup is damaged or not complete"),
                tr("Make a new backup of the phone, or copy the backup again.")};
    case FailureKind::Damaged:
        return {tr("The list of photos on the phone cannot be read"),
                tr("Unlock the phone, connect it again, and try again. A copy of a phone has to be copied again.")};
    case FailureKind::LocalDiskFull:
        return {tr("There is no room left on this computer"),
                tr("Delete files that you do not need any more, and try again.")};
    case FailureKind::OutOfMemory:
        return {tr("This computer is short of memory"), tr("Close other programs, and try again.")};
    case FailureKind::Other:
        return {tr("The photos cannot be read"), tr("Unlock the phone, connect it again, and try again.")};
    default:
        return ofPhone(kind);
    }
}

} // namespace

FailureText failureText(FailureKind kind)
{
    return FailureWords::of(kind);
}

FailureKind kindOfHostFailure(const QString &sentence)
{
    for (const Sign &sign : signs)
        if (sentence.contains(devicehost::afc::explain(sign.source, sign.number).text))
            return sign.kind;
    if (sentence.endsWith(devicehost::localAdvice(ENOSPC)))
        return FailureKind::LocalDiskFull;
    return FailureKind::Other;
}

} // namespace browser
