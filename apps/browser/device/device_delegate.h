#ifndef APPS_BROWSER_DEVICE_DEVICE_DELEGATE_H
#define APPS_BROWSER_DEVICE_DEVICE_DELEGATE_H

#include <QStyledItemDelegate>

namespace browser
{

/// Draws the rows of a DeviceListModel: headings, and devices with a symbol and two lines.
class DeviceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace browser

#endif
