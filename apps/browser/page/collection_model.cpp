#include "apps/browser/page/collection_model.h"

#include "apps/browser/page/collection_titles.h"
#include "apps/browser/page/texts.h"

#include <QHash>

namespace browser
{

CollectionModel::CollectionModel(std::shared_ptr<const Snapshot> library, QObject *parent)
    : QAbstractItemModel(parent), snapshot(std::move(library))
{
    QHash<int, int> sectionNodes;
    QHash<int, QIcon> icons;
    int whole = -1;
    for (std::size_t at = 0; at < snapshot->collections.size(); ++at) {
        const Collection &collection = snapshot->collections[at];
        const int section = static_cast<int>(collection.section);
        if (!sectionNodes.contains(section))
            sectionNodes.insert(section, add(-1, -1, CollectionTitles::ofSection(collection.section), QIcon()));
        const Glyph glyph = CollectionTitles::glyph(collection);
        QIcon &icon = icons[static_cast<int>(glyph)];
        if (icon.isNull())
            icon = glyphIcon(glyph);
        const int parentNode = collection.isPart && whole >= 0 ? whole : sectionNodes.value(section);
        const int made = add(parentNode, static_cast<int>(at), CollectionTitles::of(collection, *snapshot), icon);
        nodeOfCollection.push_back(made);
        whole = collection.isPart ? whole : made;
    }
}

int CollectionModel::add(int parent, int collection, const QString &title, const QIcon &icon)
{
    const int number = static_cast<int>(nodes.size());
    std::vector<int> &siblings = parent < 0 ? sections : nodes[static_cast<std::size_t>(parent)].children;
    const int row = static_cast<int>(siblings.size());
    siblings.push_back(number);
    nodes.push_back({parent, row, collection, title, icon, {}});
    return number;
}

QModelIndex CollectionModel::indexOf(int collection) const
{
    if (collection < 0 || collection >= static_cast<int>(nodeOfCollection.size()))
        return {};
    const int number = nodeOfCollection[static_cast<std::size_t>(collection)];
    return createIndex(nodes[static_cast<std::size_t>(number)].row, 0, static_cast<quintptr>(number));
}

QModelIndex CollectionModel::index(int row, int column, const QModelIndex &parent) const
{
    const std::vector<int> &children = parent.isValid() ? node(parent).children : sections;
    if (column != 0 || row < 0 || row >= static_cast<int>(children.size()))
        return {};
    return createIndex(row, 0, static_cast<quintptr>(children[static_cast<std::size_t>(row)]));
}

QModelIndex CollectionModel::parent(const QModelIndex &index) const
{
    const int number = index.isValid() ? node(index).parent : -1;
    if (number < 0)
        return {};
    return createIndex(nodes[static_cast<std::size_t>(number)].row, 0, static_cast<quintptr>(number));
}

int CollectionModel::rowCount(const QModelIndex &parent) const
{
    return static_cast<int>(parent.isValid() ? node(parent).children.size() : sections.size());
}

int CollectionModel::sectionOf(const Node &shown) const
{
    const Node &first = nodes[static_cast<std::size_t>(shown.children.front())];
    return static_cast<int>(snapshot->collections[static_cast<std::size_t>(first.collection)].section);
}

QVariant CollectionModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node &shown = node(index);
    if (role == Qt::DisplayRole || (role == Qt::AccessibleTextRole && shown.collection < 0))
        return shown.title;
    if (shown.collection < 0)
        return role == SectionRole ? QVariant(sectionOf(shown)) : QVariant();
    const int count = snapshot->collections[static_cast<std::size_t>(shown.collection)].photoIds.size();
    switch (role) {
    case Qt::DecorationRole:
        return shown.icon;
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return tr("%1, %2", "title of a collection, number of its photos").arg(shown.title, Texts::photoCount(count));
    case CountRole:
        return count;
    case CollectionRole:
        return shown.collection;
    default:
        return {};
    }
}

Qt::ItemFlags CollectionModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return node(index).collection < 0 ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

} // namespace browser
