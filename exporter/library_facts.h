#ifndef EXPORTER_LIBRARY_FACTS_H
#define EXPORTER_LIBRARY_FACTS_H

#include <QByteArray>
#include <QString>

#include <set>

class photo_manager_int;
struct albumItem;
struct photoItem;

namespace exporter
{

/// What has to be known of a whole library before single photos can be exported. Immutable after its making.
class LibraryFacts
{
public:
    explicit LibraryFacts(photo_manager_int &manager);

    /// Paths of the films that are photos of their own.
    const std::set<QString> &videoPaths() const { return videos; }

    /// What tells a photo from every other in the record, also in that of another device: the UUID, or where the
    /// library has none, the same twice or one of odd characters, the library and the number.
    QString keyOf(const photoItem &photo) const;
    QString keyOf(const albumItem &album) const;

private:
    QString library;
    // Ordered: names of the library's making cannot be chosen so that they collide.
    std::set<QString> videos;
    std::set<QByteArray> repeatedUuids;
};

} // namespace exporter

#endif
