#ifndef APPS_BROWSER_DEVICE_DEVICE_LIST_MODEL_H
#define APPS_BROWSER_DEVICE_DEVICE_LIST_MODEL_H

#include "apps/browser/device/search.h"

#include <QAbstractListModel>

namespace browser
{

/// Devices under headings: phones, backups and folders, what was opened before. Headings and hints cannot be chosen.
class DeviceListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        DeviceRole = Qt::UserRole, ///< name for an Opener; empty for headings and hints
        DetailRole,                ///< second line
        RowKindRole,               ///< a RowKind, as int
        DeviceKindRole,            ///< a FoundDevice::Kind, as int
        ForgettableRole,           ///< whether it is listed only because it was opened before
    };
    enum class RowKind { Heading, Hint, Device };

    using QAbstractListModel::QAbstractListModel;

    void setPhones(const FoundPhones &phones);
    void setFolders(const QVector<FoundDevice> &devices);
    void setRecent(const QVector<FoundDevice> &devices);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// The row of a device; invalid when it is not listed.
    QModelIndex indexOf(const QString &device) const;
    /// The first row that can be chosen.
    QModelIndex firstDevice() const;

private:
    struct Row {
        RowKind kind = RowKind::Device;
        FoundDevice device; ///< of a heading or hint the title only
        bool forgettable = false;

        bool operator==(const Row &other) const
        {
            return kind == other.kind && device == other.device && forgettable == other.forgettable;
        }
    };

    void rebuild();
    QString phoneHint() const;

    FoundPhones foundPhones;
    QVector<FoundDevice> foundFolders;
    QVector<FoundDevice> recentDevices;
    QVector<Row> rows;
};

} // namespace browser

#endif
