#ifndef APPS_BROWSER_PAGE_PHOTO_MODEL_H
#define APPS_BROWSER_PAGE_PHOTO_MODEL_H

#include "apps/browser/page/photo_query.h"

#include <QAbstractListModel>
#include <QSet>
#include <QVector>

namespace browser
{

/// The photos of the grid, one row each.
class PhotoModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit PhotoModel(std::shared_ptr<const Snapshot> snapshot, QObject *parent = nullptr);

    /// Replaces all rows.
    void setPhotos(std::shared_ptr<const PhotoList> photos);
    /// Null before the first ones are there.
    const PhotoList *photos() const { return list.get(); }

    /// The device said that it lacks the original, which the database leaves open. True when that is new.
    bool setLacking(qint64 id);
    const QSet<qint64> &lackingOriginals() const { return lacking; }

    const Photo &photo(int row) const;
    qint64 idAt(int row) const { return photo(row).id; }
    /// -1 for a photo that is not shown.
    int rowOf(qint64 id) const;
    QVector<qint64> ids() const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    const std::shared_ptr<const Snapshot> snapshot;
    std::shared_ptr<const PhotoList> list;
    QSet<qint64> lacking;
};

} // namespace browser

#endif
