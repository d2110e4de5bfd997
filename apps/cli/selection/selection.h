#ifndef APPS_CLI_SELECTION_SELECTION_H
#define APPS_CLI_SELECTION_SELECTION_H

#include "apps/cli/selection/group_name.h"
#include "apps/cli/selection/id_set.h"
#include "photolib/photolib.h"

#include <QVector>

#include <functional>
#include <optional>

namespace photocli
{

/// Which photos the user asks for. Different members narrow the choice down; the entries of one list widen it.
struct SelectionRequest {
    QStringList albums; ///< titles, ids or UUIDs
    QVector<GroupName> groups;
    QStringList uuids;
    QVector<QDateTime> fromDates; ///< first moment included
    QVector<QDateTime> toDates;   ///< last moment included
    bool favorite = false;
    bool hidden = false;
    bool deleted = false;
    bool onlyPhotos = false;
    bool onlyMovies = false;
    std::optional<qint64> limit;
};

/// The photos of a library that a request stands for. Recently deleted ones are left out unless the request asks for
/// them: with `deleted`, their group, or their own UUID.
class Selection
{
public:
    /// Looks up everything that the request names; throws a Failure for what the library does not have. `library`
    /// must outlive the object and not be edited meanwhile.
    Selection(photo_manager_int &library, SelectionRequest request);

    /// Calls `visit` for each photo until it answers false: in the order of the albums named, else ascending by id.
    /// Each photo comes once.
    void forEach(const std::function<bool(const photoItem &)> &visit) const;

private:
    void resolveAlbums();
    void resolveGroups();
    void resolveUuids();
    bool accepts(const photoItem &photo) const;
    bool acceptsDeleted(const photoItem &photo) const;
    bool acceptsDate(const photoItem &photo) const;

    photo_manager_int &library;
    SelectionRequest request;
    QList<qint64> candidates;
    IdSet inGroups;
    IdSet named; ///< by UUID
};

/// Whether two UUIDs are the same but for upper and lower case.
bool sameUuid(const QByteArray &uuid, const QString &text);

} // namespace photocli

#endif
