#ifndef APPS_CLI_CONTACT_SHEET_SHEET_PLAN_H
#define APPS_CLI_CONTACT_SHEET_SHEET_PLAN_H

#include "apps/cli/selection/selection.h"
#include "photolib/photolib.h"

#include <QVector>

namespace photocli
{

/// One group of photos on the page. Its photos are asked for when their turn comes.
struct SheetGroup {
    int category = 0;   ///< 0: an album, or what is in no group
    QString key;        ///< of the category
    qint64 albumId = 0; ///< 0: no album
    QString title;      ///< empty for the only group of a section
    int photos = 0;     ///< of those on the page
};

/// A heading of the page with its groups.
struct SheetSection {
    QString title;
    QVector<SheetGroup> groups;
    int photos = 0; ///< of all groups together, each group counted for itself
};

/// What stands where on a contact sheet.
struct SheetPlan {
    QVector<SheetSection> sections;
    IdSet photos;        ///< all that are shown, each in at least one group
    QList<qint64> loose; ///< those of them that are in no group
    QDateTime firstDate; ///< null without dates that can be
    QDateTime lastDate;
};

/// Sorts the photos that `request` stands for into the albums and groups that it names or, when it names none, into all
/// that people know. Throws a Failure for what the library does not have. `library` must not be edited meanwhile.
SheetPlan planSheet(photo_manager_int &library, const SelectionRequest &request);

/// The photos of a group of the plan, in the library's order, as far as they are on the page. Each comes once.
QList<qint64> photosOf(photo_manager_int &library, const SheetPlan &plan, const SheetGroup &group);

} // namespace photocli

#endif
