#ifndef EXPORTER_OPTIONS_H
#define EXPORTER_OPTIONS_H

#include <QString>

#include <functional>

namespace exporter
{

/// Why the host could not open a file of the device.
struct OpenFailure {
    bool absent = true; ///< there is no such file on the device
    QString text;       ///< a clause without full stop, such as "Permission denied"; empty when there is nothing to add
};

/// The layout that is used when none is given: a folder for each year, and the day before the device's name.
extern const char *const defaultLayout;

/// What is exported and how. A plain value; the exporter keeps no reference to it after a function has returned.
struct ExportOptions {
    /// The folder that receives the files. Made, with its parents, when it is not there (not by a dry run). The path
    /// may lead through symbolic links; below it none is followed.
    QString destination;

    /// Where a photo goes below the destination: a template as exporter/layout.h describes it, or `dcim` for the
    /// device's own folders and names. Photos that were exported before stay where they are.
    QString layout = QString::fromLatin1(defaultLayout);

    /// Dates in the layout are local time of this computer; true makes them UTC. Times of files are the same either
    /// way.
    bool utcDates = false;

    /// Also the picture or film as it was edited on the device, beside the original as NAME_edited.EXTENSION.
    bool edited = false;

    /// Also a folder for each album of the device, "Albums/TITLE", with hard links to the exported files in the
    /// album's order; where links are not possible, copies. Albums are those that people made or see on the device
    /// (kinds 2, 1505 and 1550), with a title, not in the trash, of which at least one photo is exported, now or
    /// earlier. Album folders of earlier runs are brought up to date; false leaves them alone.
    bool albums = false;

    /// Only say what would be done: nothing is written, neither the destination folder nor the record. Files are opened
    /// on the device but not read. So a photo whose modification date alone changed is planned as Exported, where a run
    /// may find the bytes unchanged and skip it; and Adopted means that there is a file of this name and size. Album
    /// folders are not planned.
    bool dryRun = false;

    /// First look at every file on the device, so that progress knows all totals from the start. Costs opening each
    /// file once more, and reads none. A dry run never does it.
    bool measureFirst = true;

    /// How often a file that failed is tried again; the device is reopened before each.
    int retries = 1;

    /// Bytes of the destination's file system that stay free.
    qint64 reserve = 16 * 1024 * 1024;

    /// Tells why the last vFileOpen() on the calling thread answered null. Called right after it, on the same thread.
    /// Without it every null counts as absent.
    std::function<OpenFailure()> lastOpenFailure;
};

} // namespace exporter

#endif
