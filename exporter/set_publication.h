#ifndef EXPORTER_SET_PUBLICATION_H
#define EXPORTER_SET_PUBLICATION_H

#include "exporter/photo_export.h"

#include <vector>

namespace exporter
{

/// Gives the files of one set their names: rows with state 'intent' first, then the names, then 'done'.
class SetPublication
{
public:
    SetPublication(RunTools &runTools, const photoItem &item) : tools(runTools), photo(item) {}

    /// Adds a file: one that was copied, or one that is in the destination already and gets another name there.
    void add(Member &member) { items.push_back({&member, {}, 0, false, false, std::nullopt}); }

    /// Publishes under the names that the layout gives; all or nothing. Throws FileProblem, RunEnded.
    void publishAnew();

    /// Publishes beside the other files of `set`. False when the names there are taken; nothing has happened then.
    bool publishBeside(const StoredSet &set);

    /// Where a file went, and whether one that was there was taken for it.
    struct Result {
        Member *member;
        QString path;
        qint64 rowId;
        bool adopted;
        bool published;
        std::optional<CopiedFile> localCopy; ///< where the file system cannot link
    };
    const std::vector<Result> &results() const { return items; }

private:
    std::vector<QString> endings() const;
    NameAllocation::SameContent comparison();
    bool publishAt(const QString &stemPath, const std::vector<bool> &adopted, const StoredSet *beside);
    void writeIntents(const StoredSet *beside, const QString &stemPath);
    bool giveName(Result &item);
    void finish();
    void takeBack();

    RunTools &tools;
    const photoItem &photo;
    std::vector<Result> items;
    qint64 newSet = 0;
};

} // namespace exporter

#endif
