#include "apps/browser/device/device_list_model.h"

#include <algorithm>

namespace browser
{

void DeviceListModel::setPhones(const FoundPhones &phones)
{
    foundPhones = phones;
    rebuild();
}

void DeviceListModel::setFolders(const QVector<FoundDevice> &devices)
{
    foundFolders = devices;
    rebuild();
}

void DeviceListModel::setRecent(const QVector<FoundDevice> &devices)
{
    recentDevices = devices;
    rebuild();
}

QString DeviceListModel::phoneHint() const
{
    if (!foundPhones.supported)
        return tr("This version does not read phones over the cable. Open a folder or a backup instead.");
    if (!foundPhones.daemonRuns)
        return tr("Phones cannot be found: the service “usbmuxd” does not run. Install it or start it.");
    return tr("Connect a phone with its cable, unlock it, and tap “Trust” if it asks.");
}

void DeviceListModel::rebuild()
{
    QVector<Row> wanted;
    QStringList listed;
    const auto addHeading = [&wanted](const QString &title) {
        wanted.append({RowKind::Heading, {FoundDevice::Kind::Folder, {}, title, {}}, false});
    };
    const auto addDevices = [&](const QVector<FoundDevice> &devices, bool forgettable) {
        for (const FoundDevice &device : devices) {
            if (listed.contains(device.device))
                continue;
            listed += device.device;
            wanted.append({RowKind::Device, device, forgettable});
            if (forgettable && device.kind == FoundDevice::Kind::Phone)
                wanted.last().device.detail = tr("Not connected");
        }
    };
    addHeading(tr("Phones"));
    addDevices(foundPhones.phones, false);
    if (foundPhones.phones.isEmpty())
        wanted.append({RowKind::Hint, {FoundDevice::Kind::Phone, {}, phoneHint(), {}}, false});
    if (!foundFolders.isEmpty()) {
        addHeading(tr("Backups and copies on this computer"));
        addDevices(foundFolders, false);
    }
    const bool more = std::any_of(recentDevices.begin(), recentDevices.end(),
                                  [&](const FoundDevice &device) { return !listed.contains(device.device); });
    if (more) {
        addHeading(tr("Opened before"));
        addDevices(recentDevices, true);
    }
    if (wanted == rows)
        return; // a list that is looked at every few seconds must not lose its selection
    beginResetModel();
    rows = wanted;
    endResetModel();
}

int DeviceListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows.size();
}

QVariant DeviceListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows.size())
        return {};
    const Row &row = rows[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return row.device.title;
    case Qt::AccessibleTextRole:
        return row.device.detail.isEmpty()
                   ? row.device.title
                   : tr("%1, %2", "a device and what is known of it").arg(row.device.title, row.device.detail);
    case Qt::ToolTipRole:
        return row.device.detail.isEmpty() ? QVariant() : row.device.detail;
    case DeviceRole:
        return row.device.device;
    case DetailRole:
        return row.device.detail;
    case RowKindRole:
        return static_cast<int>(row.kind);
    case DeviceKindRole:
        return static_cast<int>(row.device.kind);
    case ForgettableRole:
        return row.forgettable;
    default:
        return {};
    }
}

Qt::ItemFlags DeviceListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || rows[index.row()].kind != RowKind::Device)
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

QModelIndex DeviceListModel::indexOf(const QString &device) const
{
    for (int row = 0; row < rows.size(); ++row)
        if (rows[row].kind == RowKind::Device && rows[row].device.device == device)
            return index(row);
    return {};
}

QModelIndex DeviceListModel::firstDevice() const
{
    for (int row = 0; row < rows.size(); ++row)
        if (rows[row].kind == RowKind::Device)
            return index(row);
    return {};
}

} // namespace browser
