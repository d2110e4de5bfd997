#ifndef PHOTOLIB_PHOTO_MANAGER_H
#define PHOTOLIB_PHOTO_MANAGER_H

#include "photolib/media/ithmb_frame.h"
#include "photolib/photolib.h"
#include "photolib/removed_members.h"

#include <QDateTime>
#include <QMap>
#include <QMutex>
#include <QSemaphore>

#include <atomic>
#include <memory>
#include <vector>

class Photos_DB;
struct VDev;
struct VFile;
struct assetRecord;

/// The implementation of photo_manager_int; see there for what each slot does.
///
/// Locks: busySemaphore is held by openLibrary() for its whole run; editMutex by every edit; uuidMutex by the
/// generator of identifiers, always taken after editMutex. Queries take none.
class photo_manager : public photo_manager_int
{
public:
    explicit photo_manager(IIPod *device);
    ~photo_manager() override;

    bool openLibrary() override;
    void cancel() override;
    bool isCancelled() override;
    QString getLibraryUuid() override;
    int getPhotoCount() override;
    QList<qint64> getPhotoList() override;
    bool getPhotoItem(const qint64 *photoId, photoItem *out) override;
    int getThumbnail(const qint64 *photoId, QByteArray *out) override;
    int readPhotoFile(const qint64 *photoId, QByteArray *out) override;
    int getAlbumCount() override;
    QList<qint64> getAlbumList() override;
    bool getAlbumItem(const qint64 *albumId, albumItem *out) override;
    int addPhotoToAlbum(photoItem *photo, albumItem *album) override;
    int addPhoto(photoItem *photo, const qint64 *albumId) override;
    int createAlbum(albumItem *album) override;
    int deleteAlbum(const qint64 *albumId) override;
    int updateAlbum(albumItem *album) override;
    int deletePhoto(const qint64 *photoId) override;
    QStringList getGroupKeys(int category) override;
    photoGroup getPhotoGroup(int category, const QString &key) override;

private:
    friend struct PhotoManagerProbe; // white-box tests

    bool parseDatabase();
    void buildModel();
    void groupAssets();
    void groupFaces();
    void groupMemories();
    void addAssetToGroup(int category, const assetRecord &asset, const QString &key, bool setCover);

    bool readV2Thumbnail(const assetRecord &asset, QByteArray *out);
    bool readIthmbThumbnail(qint32 index, QByteArray *out);
    bool appendBitmap(const unsigned char *frame, QByteArray *out);
    static VFile *openIthmbFile(struct ithmbGeometry *geometry, VDev *device);

    photoGroup *syncedPhotos();
    void createAsset(photoItem *photo);
    QByteArray generateUuid();

    IIPod *hostDevice;                  // the host's
    struct ithmbGeometry ithmbGeometry; // of the container that was opened last
    Photos_DB *photosDb = nullptr;      // owned; null until openLibrary() made it
    QMap<QByteArray, bool> knownUuids;
    QMap<int, QMap<QString, photoGroup>> categoryGroups;
    photolib::RemovedMembers deletedSyncedPhotos; // not yet taken out of their group
    std::vector<quint64> passedDraws;             // of the last identifiers: each is among the known ones
    QMutex uuidMutex{QMutex::NonRecursive};
    QMutex editMutex{QMutex::Recursive};
    QByteArray currentLibraryUuid;
    QString databaseUuid;
    QDateTime referenceDate; // 2001-01-01 00:00:00 UTC, the zero of the database's dates
    QSemaphore busySemaphore{1};
    std::atomic<bool> cancelRequested{false};
    std::vector<std::unique_ptr<Photos_DB>> earlierReaders; // of earlier calls of openLibrary(); freed with the manager
};

#endif
