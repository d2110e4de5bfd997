#ifndef TESTS_BROWSER_PAGE_MADE_SNAPSHOT_H
#define TESTS_BROWSER_PAGE_MADE_SNAPSHOT_H

#include "apps/browser/library/snapshot.h"

#include <QDateTime>

/// A library of any photos, with the one collection of all of them; the ids are 1, 2, 3, ...
class MadeSnapshot
{
public:
    /// `taken` in UTC; null for no date.
    browser::Photo &add(const QString &fileName, const QDateTime &taken = QDateTime())
    {
        browser::Photo photo;
        photo.id = static_cast<qint64>(snapshot->photos.size()) + 1;
        photo.fileName = fileName;
        photo.created = taken.isValid() ? taken.toMSecsSinceEpoch() : browser::Photo::noDate;
        snapshot->rows.insert(photo.id, static_cast<int>(snapshot->photos.size()));
        snapshot->photos.push_back(photo);
        if (snapshot->collections.empty())
            snapshot->collections.emplace_back();
        snapshot->collections.front().photoIds += photo.id;
        return snapshot->photos.back();
    }

    void addAlbum(const QString &title, const QList<qint64> &ids)
    {
        browser::Collection album;
        album.section = browser::Section::Albums;
        album.albumId = static_cast<qint64>(snapshot->collections.size());
        album.title = title;
        album.photoIds = ids;
        snapshot->collections.push_back(album);
    }

    void addKind(int category, const QList<qint64> &ids)
    {
        browser::Collection kind;
        kind.section = browser::Section::Kinds;
        kind.category = category;
        kind.photoIds = ids;
        snapshot->collections.push_back(kind);
    }

    std::shared_ptr<const browser::Snapshot> get() const { return snapshot; }

private:
    std::shared_ptr<browser::Snapshot> snapshot = std::make_shared<browser::Snapshot>();
};

#endif
