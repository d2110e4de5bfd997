#ifndef APPS_BROWSER_PAGE_COLLECTION_MODEL_H
#define APPS_BROWSER_PAGE_COLLECTION_MODEL_H

#include "apps/browser/library/snapshot.h"

#include <QAbstractItemModel>
#include <QIcon>

namespace browser
{

/// The collections below their sections; single bursts and the like below all of their kind. Titles are made when the
/// model is.
class CollectionModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role {
        CountRole = Qt::UserRole, ///< photos of the collection; none for a section
        CollectionRole,           ///< index in Snapshot::collections; none for a section
        SectionRole,              ///< number of the Section; none for a collection
    };

    explicit CollectionModel(std::shared_ptr<const Snapshot> snapshot, QObject *parent = nullptr);

    /// Where a collection stands; invalid for an unknown one.
    QModelIndex indexOf(int collection) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Node {
        int parent = -1; ///< -1 for a section
        int row = 0;
        int collection = -1; ///< -1 for a section
        QString title;
        QIcon icon;
        std::vector<int> children;
    };

    int add(int parent, int collection, const QString &title, const QIcon &icon);
    int sectionOf(const Node &shown) const;
    const Node &node(const QModelIndex &index) const { return nodes[static_cast<std::size_t>(index.internalId())]; }

    const std::shared_ptr<const Snapshot> snapshot;
    std::vector<Node> nodes;
    std::vector<int> sections;
    std::vector<int> nodeOfCollection;
};

} // namespace browser

#endif
