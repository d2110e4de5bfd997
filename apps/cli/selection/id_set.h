#ifndef APPS_CLI_SELECTION_ID_SET_H
#define APPS_CLI_SELECTION_ID_SET_H

#include <QtGlobal>

#include <set>

namespace photocli
{

/// Ids of a library. Ordered: those of a made-up database can be chosen so that a hash table degenerates.
class IdSet
{
public:
    void insert(qint64 id) { ids.insert(id); }
    bool contains(qint64 id) const { return ids.count(id) != 0; }
    bool isEmpty() const { return ids.empty(); }
    int size() const { return static_cast<int>(ids.size()); }

private:
    std::set<qint64> ids;
};

} // namespace photocli

#endif
