#ifndef EXPORTER_PHOTO_EXPORT_H
#define EXPORTER_PHOTO_EXPORT_H

#include "exporter/asset_files.h"
#include "exporter/copy_file.h"
#include "exporter/layout.h"
#include "exporter/library_facts.h"
#include "exporter/name_allocation.h"
#include "exporter/record.h"
#include "exporter/run_state.h"

#include <optional>
#include <vector>

namespace exporter
{

/// What the parts of a run work with. All borrowed.
struct RunTools {
    RunState &state;
    Destination &destination;
    Record &record;
    DeviceSource &source;
    const LibraryFacts &library;
    const Layout &layout;
    NameAllocation names;
};

/// One file of a photo while it is decided and done.
struct Member {
    /// What is in the destination of an earlier export of this file.
    enum class Local {
        None,    ///< never exported
        Gone,    ///< exported, but not there any more
        Kept,    ///< as it was exported
        Altered, ///< something else is under its name now
    };

    AssetFile file;
    std::optional<StoredFile> stored;
    Local local = Local::None;
    bool deviceChanged = false; ///< size or modification date differ from those in the record

    std::optional<CopiedFile> copy;
    bool dropped = false; ///< reported already, takes no further part

    QString ending() const; ///< behind the stem
    bool needsCopy() const { return !dropped && (local != Local::Kept || deviceChanged); }
    /// Whether the content that was copied differs from the one exported before.
    bool hasNewContent() const { return copy && stored && copy->sha256 != stored->sha256; }
};

class SetPublication;

/// The export of one photo: finds its files, compares them with the record, copies what is needed, gives names.
class PhotoExport
{
public:
    PhotoExport(RunTools &runTools, const photoItem &item) : tools(runTools), photo(item) {}

    /// Adds what a run would copy to the totals of the progress. Throws DeviceProblem, RunEnded.
    void measure();

    /// Deals with the photo and reports each of its files. Throws RunEnded only.
    void run();

private:
    void examine();
    Member memberOf(AssetFile file) const;
    void reportAbsentOnes();
    void settleAltered();
    void forgetGone();
    void forgetEarlier();
    void copyNeeded();
    void skipUnchanged();
    bool needsNewName();
    void exportAll();
    void reportPublished(const SetPublication &publication);
    void planAll();
    bool plan(bool anew);
    void reportPlan(Member &member, const QString &path, bool adopted);
    FileReport reportOf(const Member &member, FileStatus status) const;
    void fail(Member &member, const QString &reason);
    void report(const FileReport &file);
    bool sameContent(const Member &member, const QString &path, qint64 size) const;

    RunTools &tools;
    const photoItem &photo;
    std::optional<StoredSet> set;
    std::vector<Member> members;
};

/// A report with what is known of the photo.
FileReport emptyReport(const photoItem &photo, FileStatus status);

/// The modification date as the record holds it.
std::optional<qint64> modificationOf(const photoItem &photo);

} // namespace exporter

#endif
