#ifndef PHOTOLIB_REMOVED_MEMBERS_H
#define PHOTOLIB_REMOVED_MEMBERS_H

#include "photolib/db/key_set.h"

#include <QList>

namespace photolib
{

/// Takes single members out of one long list, where each would cost a walk over the whole list: they are remembered,
/// and taken out together when there are many of them. Whoever reads the list in between asks for what remains().
///
/// remains() may run on several threads at once, but not beside the others.
class RemovedMembers
{
public:
    /// `list` has no such member any more. It must be the same list each time.
    void remove(QList<qint64> *list, qint64 member);

    /// Takes what is remembered out of the list. Short memory leaves all as it was.
    void apply(QList<qint64> *list);

    /// What the list holds without the members that were removed; a share of the list itself when there are none.
    QList<qint64> remains(const QList<qint64> &list) const;

private:
    KeySet removed;
};

} // namespace photolib

#endif
