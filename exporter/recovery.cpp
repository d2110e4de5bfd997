#include "exporter/recovery.h"

#include "exporter/copy_file.h"
#include "exporter/errors.h"

namespace exporter
{

namespace
{

bool isComplete(Destination &destination, RunState &state, const StoredFile &file, const FileState &found)
{
    return found.regular && found.size == file.size &&
           hashOf(destination, file.path, [&state](qint64) { state.requireGoOn(); }) == file.sha256;
}

// True when the file is there as it was meant to be.
bool settle(Destination &destination, RunState &state, const StoredFile &file, bool pretend, qint64 *mtimeNs)
{
    try {
        const auto found = destination.stat(file.path);
        if (!found)
            return false;
        *mtimeNs = found->mtimeNs;
        if (isComplete(destination, state, file, *found))
            return true;
        // An empty file reserves the name where the file system cannot refuse to replace.
        if (found->regular && found->size == 0 && !pretend)
            destination.remove(file.path);
    } catch (const FileProblem &) {
        // Something else is in the place by now.
    }
    return false;
}

} // namespace

void settleIntents(Destination &destination, Record &record, RunState &state, bool pretend)
{
    const std::vector<StoredFile> intents = record.intents();
    for (const StoredFile &file : intents) {
        qint64 mtimeNs = 0;
        const bool complete = settle(destination, state, file, pretend, &mtimeNs);
        Transaction transaction(record.connection());
        if (complete) {
            record.finishFile(file.id, mtimeNs);
        } else {
            record.removeFile(file.id);
            record.removeEmptySet(file.set);
        }
        transaction.commit();
    }
}

} // namespace exporter
