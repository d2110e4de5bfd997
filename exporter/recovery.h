#ifndef EXPORTER_RECOVERY_H
#define EXPORTER_RECOVERY_H

#include "exporter/destination.h"
#include "exporter/record.h"
#include "exporter/run_state.h"

namespace exporter
{

/// Settles what a killed run left half done: files of which only the intention is in the record are there complete, and
/// become 'done', or are not, and are forgotten. `pretend`: nothing in the destination is changed.
void settleIntents(Destination &destination, Record &record, RunState &state, bool pretend);

} // namespace exporter

#endif
