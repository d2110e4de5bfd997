// Thumbnails and files when memory runs short, at each allocation in turn. The host of this program always has memory.

#include "photolib/db/photos_db.h"
#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/host/sql_utils.h"
#include "photolib/host/vdev.h"
#include "photolib/photo_manager.h"
#include "testing/qt_printers.h"
#include "tests/unit/photolib/media/containers.h"
#include "tests/unit/photolib/media/failing_memory.h"
#include "tests/unit/photolib/photo_manager_probe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>

struct VDev {
};

struct VFile {
    const QByteArray *content;
    int position;
};

namespace
{

std::map<std::string, QByteArray> files; ///< content by path
int openHandles = 0;

class MemoryDevice final : public IIPod
{
public:
    bool shouldStop() override { return false; }
    QString devicePath() override { return name; }
    bool isAvailable() override { return true; }
    QString localDataFolder() override { return name; }

private:
    const QString name = "memory";
};

constexpr qint64 photoId = 7;
const QByteArray before = "what was there before";
constexpr int headerBytes = 54;

class ShortMemory : public testing::Test
{
protected:
    ShortMemory()
    {
        probe.setReader(new Photos_DB(nullptr));
        auto *photo = new assetRecord;
        photo->pk = photoId;
        photo->directory = QString::fromUtf8("DCIM/Z\xC3\xBCrich");
        photo->fileName = "IMG_0001.MOV";
        photo->kind = 1;
        probe.reader()->addAsset(photo);
    }
    ~ShortMemory() override { files.clear(); }

    struct Slot {
        int (photo_manager::*function)(const qint64 *photoId, QByteArray *out);
        int success;
        int failure;
        bool mayLeaveHeader; ///< a failure may leave the header of the bitmap behind
    };

    /// Has each allocation fail in turn, until there is none left to fail; answers how many there were.
    int failEach(const Slot &slot)
    {
        const QByteArray whole = callSlot(slot, slot.success); // also makes what is made only once
        for (int number = 1;; ++number) {
            SCOPED_TRACE("allocation " + std::to_string(number));
            QByteArray out = before;
            const long live = liveAllocations();
            failAllocation(number);
            const int result = (manager.*slot.function)(&photoId, &out);
            const bool failed = allocationFailed();
            failAllocation(0);
            if (!failed) {
                EXPECT_EQ(result, slot.success);
                return number - 1;
            }
            expectUntouched(out, slot.mayLeaveHeader);
            EXPECT_EQ(result, slot.failure);
            EXPECT_EQ(openHandles, 0);
            out = before;
            EXPECT_EQ(liveAllocations(), live);
            EXPECT_EQ(callSlot(slot, slot.success), whole) << "the manager is usable after that";
            if (HasFailure())
                return number;
        }
    }

    MemoryDevice device;
    photo_manager manager{&device};

private:
    QByteArray callSlot(const Slot &slot, int expected)
    {
        QByteArray out = before;
        EXPECT_EQ((manager.*slot.function)(&photoId, &out), expected);
        return out;
    }

    static void expectUntouched(const QByteArray &out, bool mayHaveHeader)
    {
        if (mayHaveHeader && out != before) {
            EXPECT_EQ(out.size(), before.size() + headerBytes);
            EXPECT_TRUE(out.startsWith(before + "BM"));
        } else {
            EXPECT_EQ(out, before);
        }
    }

    PhotoManagerProbe probe{manager};
};

} // namespace

VDev *vDevOpen(VDevType, const char *)
{
    const HostCode host;
    ++openHandles;
    return new VDev;
}

void vDevClose(VDev *device)
{
    openHandles -= device ? 1 : 0;
    delete device;
}

int vDevCreateDir(VDev *, const char *)
{
    return -1;
}

VFile *vFileOpen(VDev *, const char *path, int)
{
    const HostCode host;
    const auto found = files.find(path);
    if (found == files.end())
        return nullptr;
    ++openHandles;
    return new VFile{&found->second, 0};
}

void vFileClose(VFile *file)
{
    --openHandles;
    delete file;
}

int vFileRead(VFile *file, void *buffer, int size)
{
    const int count = std::min(size, file->content->size() - file->position);
    std::copy_n(file->content->constData() + file->position, count, static_cast<char *>(buffer));
    file->position += count;
    return count;
}

int vFileWrite(VFile *, const void *, int)
{
    return -1;
}

qint64 vFileSeek(VFile *file, qint64 offset, int origin)
{
    file->position = static_cast<int>(offset) + (origin == 2 ? file->content->size() : 0);
    return file->position;
}

qint64 vFileTell(VFile *file)
{
    return file->position;
}

int SqlUtils::openSqlite(const QString &, sqlite3 **)
{
    return -1;
}

int SqlUtils::prepareSqlite(sqlite3 *, const char *, int, sqlite3_stmt **, const char **)
{
    return -1;
}

void Log(const char *, int, const char *, ...) {}

TEST_F(ShortMemory, IsAFailedThumbnailFile)
{
    files["/PhotoData/Thumbnails/V2/DCIM/Z\xC3\xBCrich/IMG_0001.THM"] = QByteArray(1000, 'J');
    EXPECT_GT(failEach({&photo_manager::getThumbnail, 0, -1, false}), 10);
}

TEST_F(ShortMemory, IsAFailedContainerThumbnail)
{
    files[containers[7].path] = QByteArray(8192, '\x55') + trailerOf(64, 64);
    EXPECT_GT(failEach({&photo_manager::getThumbnail, 0, -1, true}), 10);
}

TEST_F(ShortMemory, IsNothingReadOfAFile)
{
    files["/DCIM/Z\xC3\xBCrich/IMG_0001.MOV"] = QByteArray(1000, 'C');
    EXPECT_GT(failEach({&photo_manager::readPhotoFile, 1, 0, false}), 3);
}

TEST_F(ShortMemory, OfTheHostIsAskedOnceForAPictureThatItsTrailerMakesLarge)
{
    constexpr int side = 2000;
    constexpr long bitmap = 3L * side * side;
    files[containers[7].path] = QByteArray(8192, '\x55') + trailerOf(side, side);
    QByteArray out = before;
    const long asked = askedBytes();
    EXPECT_EQ(manager.getThumbnail(&photoId, &out), 0);
    EXPECT_LT(askedBytes() - asked, bitmap + 100'000);
    EXPECT_EQ(out.size(), before.size() + headerBytes + bitmap);
}
