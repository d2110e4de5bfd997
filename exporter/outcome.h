#ifndef EXPORTER_OUTCOME_H
#define EXPORTER_OUTCOME_H

#include <QByteArray>
#include <QString>

#include <array>
#include <cstddef>

namespace exporter
{

/// What a file is to its photo.
enum class Role {
    Original,   ///< the photo or video itself
    Film,       ///< the film of a Live Photo
    EditNotes,  ///< the .AAE file that describes the edits
    Edited,     ///< the picture or film as it was edited on the device
    EditedFilm, ///< the film of an edited Live Photo
};

/// What became of a file.
enum class FileStatus {
    Exported, ///< in the destination now, by copying or as another link; see ExportOptions::dryRun
    Adopted,  ///< a file with the same content was already there under its name; it was taken into the record
    Skipped,  ///< exported by an earlier run, and nothing changed
    Missing,  ///< the original is not on the device: only in the cloud, if the library has it there, or lost
    Failed,   ///< see FileReport::reason
};
inline constexpr std::size_t fileStatusCount = 5;

/// One file of one photo. A plain value.
struct FileReport {
    qint64 photoId = 0;
    QByteArray uuid; ///< of the photo
    Role role = Role::Original;
    FileStatus status = FileStatus::Exported;
    QString devicePath;  ///< such as /DCIM/100APPLE/IMG_0001.HEIC; empty when the library names no file
    QString destination; ///< path below the destination folder; empty when it got none
    qint64 size = -1;    ///< bytes; -1 when not known
    QByteArray sha256;   ///< 64 hexadecimal digits, lower case; empty for Missing, Failed and what a dry run plans
    QString reason;      ///< for Failed, one line without full stop; else empty
};

/// How a run ended.
enum class RunEnd {
    Completed,          ///< every photo was dealt with; some files may have failed
    Cancelled,          ///< the observer asked for it
    DeviceGone,         ///< the device cannot be opened any more; the rest was reported as Failed
    DestinationFull,    ///< no room for the file in hand
    DestinationRefused, ///< the destination cannot be written, or is used by another run, or a name in it is in the way
    RecordUnusable,     ///< the record of earlier runs is damaged or of a newer version; nothing was done
    BadLayout,          ///< the layout is not valid; nothing was done
    OutOfMemory,        ///< memory ran short; what was exported is complete and in the record
};

/// Counts and the way a run ended. A plain value.
struct RunOutcome {
    RunEnd end = RunEnd::Completed;
    QString message;         ///< one or more sentences for people what happened and what to do; empty when Completed
    int layoutPosition = -1; ///< for BadLayout: where in the layout, counted from 0

    std::array<qint64, fileStatusCount> files{}; ///< reported files by status; see count()
    qint64 bytesExported = 0;                    ///< bytes copied off the device; in a dry run, to be copied
    qint64 photosTotal = 0;                      ///< photos asked for, each counted once
    qint64 photosDone = 0;                       ///< photos that were dealt with, whatever came of them
    qint64 albums = 0;                           ///< album folders that are up to date
    qint64 albumsFailed = 0;                     ///< album folders that could not be made or brought up to date

    /// Files of this status.
    qint64 count(FileStatus status) const { return files[static_cast<std::size_t>(status)]; }

    /// Whether everything asked for is in the destination but what is missing on the device.
    bool isSuccess() const { return end == RunEnd::Completed && count(FileStatus::Failed) == 0 && albumsFailed == 0; }
};

} // namespace exporter

#endif
