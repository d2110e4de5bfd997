#include "apps/browser/device/device_delegate.h"

#include "apps/browser/device/device_list_model.h"
#include "apps/browser/device/symbols.h"

#include <QApplication>
#include <QPainter>

namespace browser
{

namespace
{

using RowKind = DeviceListModel::RowKind;

struct Measures {
    explicit Measures(const QFontMetrics &metrics)
        : line(metrics.height()), gap(qMax(4, metrics.height() / 3)), symbol(metrics.height() * 2)
    {
    }
    int line;
    int gap;
    int symbol;
};

RowKind kindOf(const QModelIndex &index)
{
    return static_cast<RowKind>(index.data(DeviceListModel::RowKindRole).toInt());
}

Symbol symbolOf(const QModelIndex &index)
{
    switch (static_cast<FoundDevice::Kind>(index.data(DeviceListModel::DeviceKindRole).toInt())) {
    case FoundDevice::Kind::Phone:
        return Symbol::Phone;
    case FoundDevice::Kind::Backup:
        return Symbol::Backup;
    default:
        return Symbol::Folder;
    }
}

QFont bold(QFont font)
{
    font.setBold(true);
    return font;
}

void paintHeading(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const Measures measures(option.fontMetrics);
    painter->setFont(bold(option.font));
    painter->setPen(option.palette.color(QPalette::Active, QPalette::Text));
    painter->drawText(option.rect.adjusted(measures.gap, 0, -measures.gap, -measures.gap / 2),
                      Qt::AlignLeft | Qt::AlignBottom, index.data().toString());
}

void paintHint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const Measures measures(option.fontMetrics);
    painter->setFont(option.font);
    painter->setPen(option.palette.color(QPalette::Disabled, QPalette::Text));
    painter->drawText(option.rect.adjusted(measures.gap, 0, -measures.gap, 0),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, index.data().toString());
}

void paintTexts(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index, QRect area)
{
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const QPalette::ColorGroup group =
        (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
    const QColor color = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    const QString detail = index.data(DeviceListModel::DetailRole).toString();
    const int height = option.fontMetrics.height();
    QRect line(area.x(), area.y(), area.width(), height);
    line.moveTop(area.y() + (area.height() - height * (detail.isEmpty() ? 1 : 2)) / 2);
    painter->setFont(bold(option.font));
    painter->setPen(color);
    const QString title =
        QFontMetrics(bold(option.font)).elidedText(index.data().toString(), Qt::ElideRight, area.width());
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title);
    line.translate(0, height);
    painter->setFont(option.font);
    painter->setOpacity(0.8);
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                      option.fontMetrics.elidedText(detail, Qt::ElideMiddle, area.width()));
}

void paintDevice(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const Measures measures(option.fontMetrics);
    const QWidget *const widget = option.widget;
    const QStyle *const style = widget != nullptr ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, widget);
    const QRect inside = option.rect.adjusted(measures.gap * 2, measures.gap, -measures.gap * 2, -measures.gap);
    QRect symbol(inside.x(), 0, measures.symbol, measures.symbol);
    symbol.moveTop(inside.y() + (inside.height() - measures.symbol) / 2);
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const bool mirrored = option.direction == Qt::RightToLeft;
    symbolIcon(symbolOf(index))
        .paint(painter, mirrored ? QStyle::visualRect(option.direction, inside, symbol) : symbol, Qt::AlignCenter,
               selected ? QIcon::Selected : QIcon::Normal);
    const QRect texts = inside.adjusted(measures.symbol + measures.gap * 2, 0, 0, 0);
    paintTexts(painter, option, index, QStyle::visualRect(option.direction, inside, texts));
    if ((option.state & QStyle::State_HasFocus) != 0) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.state |= QStyle::State_KeyboardFocusChange;
        style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, widget);
    }
}

} // namespace

void DeviceDelegate::paint(QPainter *painter, const QStyleOptionViewItem &given, const QModelIndex &index) const
{
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    painter->save();
    switch (kindOf(index)) {
    case RowKind::Heading:
        paintHeading(painter, option, index);
        break;
    case RowKind::Hint:
        paintHint(painter, option, index);
        break;
    case RowKind::Device:
        paintDevice(painter, option, index);
        break;
    }
    painter->restore();
}

QSize DeviceDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const Measures measures(option.fontMetrics);
    switch (kindOf(index)) {
    case RowKind::Heading:
        return {0, measures.line + measures.gap * (index.row() == 0 ? 2 : 5)};
    case RowKind::Hint: {
        const int width = qMax(option.rect.width(), measures.line * 10) - measures.gap * 2;
        const QRect text = option.fontMetrics.boundingRect(QRect(0, 0, width, measures.line * 10), Qt::TextWordWrap,
                                                           index.data().toString());
        return {0, text.height() + measures.gap * 2};
    }
    case RowKind::Device:
        break;
    }
    return {0, measures.symbol + measures.gap * 3};
}

} // namespace browser
