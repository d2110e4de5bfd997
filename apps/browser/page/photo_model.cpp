#include "apps/browser/page/photo_model.h"

#include "apps/browser/page/texts.h"

namespace browser
{

PhotoModel::PhotoModel(std::shared_ptr<const Snapshot> library, QObject *parent)
    : QAbstractListModel(parent), snapshot(std::move(library))
{
}

void PhotoModel::setPhotos(std::shared_ptr<const PhotoList> photos)
{
    beginResetModel();
    list = std::move(photos);
    endResetModel();
}

bool PhotoModel::setLacking(qint64 id)
{
    const int before = lacking.size();
    lacking.insert(id);
    return lacking.size() > before;
}

const Photo &PhotoModel::photo(int row) const
{
    return snapshot->photos[static_cast<std::size_t>(list->rows[static_cast<std::size_t>(row)])];
}

int PhotoModel::rowOf(qint64 id) const
{
    const auto at = snapshot->rows.constFind(id);
    return !list || at == snapshot->rows.constEnd() ? -1 : list->positions[static_cast<std::size_t>(*at)];
}

QVector<qint64> PhotoModel::ids() const
{
    QVector<qint64> ids;
    const int count = rowCount();
    ids.reserve(count);
    for (int row = 0; row < count; ++row)
        ids += idAt(row);
    return ids;
}

int PhotoModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !list ? 0 : list->size();
}

QVariant PhotoModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return photo(index.row()).fileName;
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return Texts::description(photo(index.row()), lacking.contains(idAt(index.row())));
    default:
        return {};
    }
}

Qt::ItemFlags PhotoModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

} // namespace browser
