#ifndef APPS_BROWSER_LIBRARY_OPENING_FAILURE_H
#define APPS_BROWSER_LIBRARY_OPENING_FAILURE_H

#include <QString>

namespace browser
{

/// Why a device could not be opened. What people can do differs from one to the next.
enum class FailureKind {
    NotFound,       ///< no such folder, or no such phone connected
    NoLibrary,      ///< the folder is there and holds no photo library
    SeveralChoices, ///< a folder of several backups, or several phones
    Locked,         ///< the phone has to be unlocked
    TrustPending,   ///< the phone asks on its screen whether to trust this computer
    Refused,        ///< somebody tapped "Don't Trust"
    Forgotten,      ///< phone and computer do not know each other any more: pairing again mends that
    NoAnswer,       ///< the phone is silent
    Disconnected,   ///< it was there and is gone
    NotAllowed,     ///< the phone gives no files away, or this user may not read them
    NoDaemon,       ///< nobody on this computer looks for phones
    BackupDamaged,  ///< the backup is incomplete or damaged
    Damaged,        ///< the photo database cannot be read
    LocalDiskFull,  ///< no room here for the copy of the photo database
    OutOfMemory,
    Other,
};

/// A plain value.
struct OpeningFailure {
    FailureKind kind = FailureKind::Other;
    QString device;    ///< as it was given
    QString technical; ///< English, for the details and for reports
};

/// What people read of a failure. Plain texts in the language of the program.
struct FailureText {
    QString title;    ///< what happened
    QString nextStep; ///< what to do
};
FailureText failureText(FailureKind kind);

/// What kind of failure a sentence of the reference host is about (DeviceHost::failure(), pairUsbDevice()).
FailureKind kindOfHostFailure(const QString &sentence);

} // namespace browser

#endif
