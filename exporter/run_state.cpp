#include "exporter/run_state.h"

#include "exporter/errors.h"

namespace exporter
{

void RunState::report(const FileReport &file)
{
    ++outcome.files[static_cast<std::size_t>(file.status)];
    observer.fileFinished(file);
}

void RunState::requireGoOn()
{
    if (observer.isCancelled())
        throw RunEnded(RunEnd::Cancelled, QStringLiteral("The export was ended on request. Run it again to go on."));
}

void RunState::begin(Phase phase, qint64 total)
{
    progress = {};
    progress.phase = phase;
    progress.photosTotal = total;
    tell();
}

void RunState::advance(qint64 bytes)
{
    progress.bytesDone += bytes;
    tell();
}

} // namespace exporter
