#ifndef APPS_CLI_SELECTION_GROUP_NAME_H
#define APPS_CLI_SELECTION_GROUP_NAME_H

#include "photolib/photolib.h"

namespace photocli
{

/// One group, or all groups of a category, as named on the command line: CATEGORY[/KEY].
struct GroupName {
    int category = 0;
    QString key; ///< null: all groups of the category
};

/// Reads "favorites", "7", "people/12", ...; throws a usage Failure that lists the categories when it is malformed.
GroupName parseGroupName(const QString &text);

/// The keys of the groups that `name` stands for; none when the library has no photo in that category. Throws a
/// Failure that lists the keys when the named one is not there. Upper and lower case of a key are the same unless
/// that would be ambiguous.
QStringList groupKeys(photo_manager_int &library, const GroupName &name);

} // namespace photocli

#endif
