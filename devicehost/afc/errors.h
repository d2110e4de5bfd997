#ifndef DEVICEHOST_AFC_ERRORS_H
#define DEVICEHOST_AFC_ERRORS_H

#include "devicehost/afc/outcome.h"

#include <QString>

namespace devicehost::afc
{

/// Whose numbers an error is given in.
enum class ErrorSource {
    Service,  ///< status codes of the file service on the device
    Lockdown, ///< what the device's guard answers: pairing, trust, starting a service (lockdownd_error_t)
    Link,     ///< the way to the device (idevice_error_t)
    Client,   ///< found on this side: a ClientError
};

enum ClientError {
    TimedOut = 1,
    Stopped,      ///< on the user's request
    Disconnected, ///< the connection has ended
    OutOfStep,    ///< an answer that belongs to nothing that was asked, or that no device gives
    BadFileInfo,  ///< the device tells nothing that can be understood of a file
    EndedEarly,   ///< fewer bytes than the file has
    Changed,      ///< the file is not the one any more that reading began with
    NotAFile,     ///< something else than a file or a folder
    IsALink,      ///< a symbolic link
    LeadsOut,     ///< a name that climbs out of the media folder
    NoThread,     ///< this computer starts no more threads
};

/// What an error means: an errno value to decide by, words for people, and what they can do. Never EINTR, which would
/// have the operation repeated, and never 0.
VError explain(ErrorSource source, qint64 code);

/// The outcome of an operation that the device answered with this status; Done for 0.
Outcome outcomeOfStatus(quint64 status);

/// An outcome that was found on this side.
Outcome clientOutcome(ClientError error);

} // namespace devicehost::afc

#endif
