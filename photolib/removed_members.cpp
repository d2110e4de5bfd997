#include "photolib/removed_members.h"

#include <new>

namespace photolib
{

namespace
{

// A walk over a list that is no longer than this costs less than remembering.
constexpr int shortList = 1024;

// Of the list may be remembered before they are taken out: so each removal pays for so many steps of a walk.
constexpr int partRemembered = 8;

} // namespace

void RemovedMembers::remove(QList<qint64> *list, qint64 member)
{
    if (list->size() <= shortList) {
        apply(list);
        list->removeAll(member);
        return;
    }
    try {
        removed.insert(member);
    } catch (const std::bad_alloc &) { // a removal must not fail for that
        list->removeAll(member);
        return;
    }
    if (removed.size() <= static_cast<std::size_t>(list->size() / partRemembered))
        return;
    try {
        apply(list);
    } catch (const std::bad_alloc &) { // the next removal tries again
    }
}

void RemovedMembers::apply(QList<qint64> *list)
{
    if (removed.empty())
        return;
    *list = remains(*list);
    removed.clear();
}

QList<qint64> RemovedMembers::remains(const QList<qint64> &list) const
{
    if (removed.empty())
        return list;
    QList<qint64> left;
    left.reserve(list.size());
    for (const qint64 member : list) {
        if (removed.count(member) == 0)
            left.append(member);
    }
    return left;
}

} // namespace photolib
