#ifndef TESTS_UNIT_PHOTOLIB_PHOTO_MANAGER_PROBE_H
#define TESTS_UNIT_PHOTOLIB_PHOTO_MANAGER_PROBE_H

#include "photolib/db/photos_db.h"
#include "photolib/photo_manager.h"

/// Shows tests what no public interface of a manager shows. References stay valid as long as the manager.
struct PhotoManagerProbe {
    explicit PhotoManagerProbe(photo_manager &manager) : manager(manager) {}

    QMap<QByteArray, bool> &knownUuids() { return manager.knownUuids; }
    QMap<int, QMap<QString, photoGroup>> &groups() { return manager.categoryGroups; }
    QByteArray &currentLibraryUuid() { return manager.currentLibraryUuid; }
    QString &databaseUuid() { return manager.databaseUuid; }
    QSemaphore &busySemaphore() { return manager.busySemaphore; }
    QMutex &editMutex() { return manager.editMutex; }
    QMutex &uuidMutex() { return manager.uuidMutex; }
    std::atomic<bool> &cancelRequested() { return manager.cancelRequested; }
    ithmbGeometry &containerGeometry() { return manager.ithmbGeometry; }
    const QDateTime &referenceDate() { return manager.referenceDate; }
    Photos_DB *reader() { return manager.photosDb; }

    /// Gives the manager a reader, which it owns from now on. It must have none yet.
    void setReader(Photos_DB *reader) { manager.photosDb = reader; }

    /// Takes the reader away, as if no library had been opened. The caller owns it, and may give it back.
    Photos_DB *takeReader()
    {
        Photos_DB *reader = manager.photosDb;
        manager.photosDb = nullptr;
        return reader;
    }

    static VFile *openIthmbFile(ithmbGeometry *geometry, VDev *device)
    {
        return photo_manager::openIthmbFile(geometry, device);
    }

    QByteArray generateUuid() { return manager.generateUuid(); }

    void buildModel() { manager.buildModel(); }
    void addAssetToGroup(int category, const assetRecord &asset, const QString &key, bool setCover)
    {
        manager.addAssetToGroup(category, asset, key, setCover);
    }

private:
    photo_manager &manager;
};

#endif
