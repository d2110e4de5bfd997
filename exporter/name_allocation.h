#ifndef EXPORTER_NAME_ALLOCATION_H
#define EXPORTER_NAME_ALLOCATION_H

#include "exporter/destination.h"
#include "exporter/layout.h"
#include "exporter/numbered_names.h"
#include "exporter/record.h"

#include <QString>

#include <functional>
#include <map>
#include <set>
#include <vector>

namespace exporter
{

/// Finds names for sets of files. All files of a set share folder and stem; the names of two sets never differ in the
/// case of letters alone, and no set takes a stem that other files in the folder have, as programs take files of
/// one stem for parts of one photo.
class NameAllocation
{
public:
    NameAllocation(Destination &writableDestination, Record &ownRecord)
        : destination(writableDestination), record(ownRecord)
    {
    }

    /// Tells whether the existing plain file `path` of `size` bytes has the content of the set's file number `index`.
    using SameContent = std::function<bool(std::size_t index, const QString &path, qint64 size)>;

    /// Names that a set can have.
    struct Choice {
        QString stemPath;
        std::vector<bool> adopted; ///< for each file: there is one with the same content
    };

    /// `endings` are what each file has behind the stem: ".HEIC", ".MOV", "_edited.jpg". Throws FileProblem, RunEnded.
    Choice choose(const Place &place, const std::vector<QString> &endings, const SameContent &same);

    /// Whether files can be added to a set that has its name already; fills `*adopted`.
    bool fits(const QString &stemPath, const std::vector<QString> &endings, const SameContent &same,
              std::vector<bool> *adopted);

    /// A file has appeared.
    void add(const QString &path);
    /// The name could not be given although it looked free: the file system takes it for another one.
    void refuse(const QString &path);
    /// The set of this name is in the record no more.
    void giveBack(const QString &stemPath) { numbers.giveBack(stemPath); }
    /// Forgets what was seen in the folder.
    void forget(const QString &folder) { listings.erase(folder); }

private:
    using Listing = std::map<QString, QString>; ///< folded name to name

    Listing &listingOf(const QString &folder);
    bool isRefused(const QString &path) const;
    bool hasOtherFileOf(const QString &stemPath);
    bool isFree(Choice &choice, const std::vector<QString> &endings, const SameContent &same);

    Destination &destination;
    Record &record;
    std::map<QString, Listing> listings; ///< of folders with `listedNames` names in total
    std::size_t listedNames = 0;
    NumberedNames numbers;     ///< of stems
    std::set<QString> refused; ///< folded paths
};

} // namespace exporter

#endif
