#ifndef EXPORTER_ASSET_FILES_H
#define EXPORTER_ASSET_FILES_H

#include "exporter/device_source.h"
#include "exporter/outcome.h"

#include <QString>
#include <QStringList>

#include <set>
#include <vector>

struct photoItem;

namespace exporter
{

/// One file on the device that belongs to a photo.
struct AssetFile {
    enum class Presence { Here, Absent, Unusable };

    Role role = Role::Original;
    Presence presence = Presence::Absent;
    QString devicePath;
    QString extension; ///< without dot, safe for the destination
    qint64 size = -1;  ///< bytes
    QString problem;   ///< for Unusable
};

/// What a file's name gets behind the stem: "", or "_edited" for what was edited.
QString suffixOf(Role role);

/// The device's path of a photo's own file; empty when the library names none, or one that leads elsewhere.
QString originalPath(const photoItem &photo);

/// Where on the device a companion of a photo may lie, in the order in which to look; the first that is there is it.
/// Empty for the original, for what such a photo cannot have, and where originalPath() is. No device is asked.
QStringList companionPaths(const photoItem &photo, Role role);

/// Looks for the files of a photo: the original, always first in the answer, and those companions that are there or
/// cannot be looked at. The device has no listing, so names are tried:
/// - for what is no video, the film of a Live Photo: same folder and stem, .MOV or .mov. All still photos are tried, as
///   a Live Photo that was switched off still has its film. `videos` are the paths of films that are photos of their
///   own in the library; they are nobody's companion.
/// - the edit notes, .AAE.
/// - with `edited`, for a photo that has edits, the rendered picture or film below /PhotoData/Mutations.
/// An original that is only in the cloud may still have companions on the device. Throws DeviceProblem when the
/// device went away, and RunEnded.
std::vector<AssetFile> findAssetFiles(DeviceSource &source, const photoItem &photo, bool edited,
                                      const std::set<QString> &videos);

} // namespace exporter

#endif
