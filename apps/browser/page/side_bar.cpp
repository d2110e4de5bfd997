#include "apps/browser/page/side_bar.h"

#include "apps/browser/page/colors.h"

#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QSettings>
#include <QStyledItemDelegate>

namespace browser
{

namespace
{

constexpr int padding = 6;
constexpr int shortSection = 20; // collections; longer ones begin folded

QString foldedSetting()
{
    return QStringLiteral("page/folded");
}

// Title on the left, count on the right.
class CollectionDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const bool isSection = !index.data(CollectionModel::CountRole).isValid();
        const int lines = option.fontMetrics.height() + 2 * padding;
        return {120, isSection ? lines + padding : lines};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &given, const QModelIndex &index) const override
    {
        QStyleOptionViewItem option = given;
        initStyleOption(&option, index);
        const QVariant count = index.data(CollectionModel::CountRole);
        if (!count.isValid())
            return paintSection(painter, option);
        const QString number = QLocale().toString(count.toInt());
        const int width = option.fontMetrics.horizontalAdvance(number) + 2 * padding;
        const QStyle *style = option.widget->style();
        style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
        const bool isSelected = option.state & QStyle::State_Selected;
        const auto group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
        const QColor text = option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
        QRect place = option.rect.adjusted(padding, 0, 0, 0);
        const int side = option.fontMetrics.height();
        option.icon.paint(painter, QRect(place.left(), place.center().y() - side / 2, side, side), Qt::AlignCenter,
                          isSelected ? QIcon::Selected : QIcon::Normal);
        place.adjust(side + padding, 0, -width, 0);
        painter->save();
        painter->setFont(option.font);
        painter->setPen(text);
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(option.text, Qt::ElideRight, place.width()));
        if (!isSelected)
            painter->setPen(fadedText(option.palette));
        painter->drawText(option.rect.adjusted(0, 0, -padding, 0), Qt::AlignRight | Qt::AlignVCenter, number);
        painter->restore();
    }

private:
    static void paintSection(QPainter *painter, const QStyleOptionViewItem &option)
    {
        QFont font = option.font;
        font.setBold(true);
        painter->save();
        painter->setFont(font);
        painter->setPen(fadedText(option.palette));
        painter->drawText(option.rect.adjusted(padding, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, option.text);
        painter->restore();
    }
};

} // namespace

SideBar::SideBar(std::shared_ptr<const Snapshot> snapshot, QWidget *parent)
    : QTreeView(parent), collections(std::move(snapshot))
{
    setObjectName(QStringLiteral("sideBar"));
    setAccessibleName(tr("Albums and groups"));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setIndentation(14);
    setIconSize(QSize(18, 18));
    setExpandsOnDoubleClick(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new CollectionDelegate(this));
    setModel(&collections);
    for (int row = 0; row < collections.rowCount(); ++row) {
        const QModelIndex section = collections.index(row, 0);
        if (collections.rowCount(section) <= shortSection)
            expand(section);
    }
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex &index) {
        if (!index.data(CollectionModel::CollectionRole).isValid())
            setExpanded(index, !isExpanded(index));
    });
    choose(0);
}

template <class Action>
void SideBar::forEachSection(const Action &action) const
{
    for (int row = 0; row < collections.rowCount(); ++row) {
        const QModelIndex section = collections.index(row, 0);
        action(section, section.data(CollectionModel::SectionRole).toString());
    }
}

void SideBar::saveState(QSettings &settings) const
{
    QVariantMap folded = settings.value(foldedSetting()).toMap(); // of sections that this library does not have, too
    forEachSection([&](const QModelIndex &section, const QString &name) { folded[name] = !isExpanded(section); });
    settings.setValue(foldedSetting(), folded);
}

void SideBar::restoreState(const QSettings &settings)
{
    const QVariantMap folded = settings.value(foldedSetting()).toMap();
    forEachSection([&](const QModelIndex &section, const QString &name) {
        if (folded.contains(name))
            setExpanded(section, !folded[name].toBool());
    });
}

void SideBar::choose(int collection)
{
    const QModelIndex index = collections.indexOf(collection);
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    scrollTo(index);
}

void SideBar::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    const QVariant collection = current.data(CollectionModel::CollectionRole);
    if (!collection.isValid() || collection.toInt() == last)
        return;
    last = collection.toInt();
    Q_EMIT collectionChosen(last);
}

void SideBar::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !currentIndex().data(CollectionModel::CollectionRole).isValid())
        return setExpanded(currentIndex(), !isExpanded(currentIndex()));
    QTreeView::keyPressEvent(event);
}

} // namespace browser
