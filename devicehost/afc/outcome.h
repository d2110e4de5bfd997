#ifndef DEVICEHOST_AFC_OUTCOME_H
#define DEVICEHOST_AFC_OUTCOME_H

#include "devicehost/vdev/verror.h"

namespace devicehost::afc
{

/// What became of an operation, and of the connection that it went over.
struct [[nodiscard]] Outcome {
    enum Kind {
        Done,
        Refused, ///< the device said no; the connection is as good as before
        Lost,    ///< the connection is of no use any more; a new one may help
        Ended,   ///< the same, but trying again is pointless: the time is over, or the user wants to stop
    };

    Kind kind = Done;
    VError error = {}; ///< filled unless Done

    bool ok() const { return kind == Done; }
    bool leavesConnection() const { return kind == Done || kind == Refused; }
};

} // namespace devicehost::afc

#endif
