// A program of its own: it stands between the library and Qt's conversion of a path to UTF-8, to have a request to
// cancel arrive while the library is at a path. No call of the host falls into that time.

#include "tests/unit/photolib/media/opened_media.h"

#include <dlfcn.h>

#include <functional>

namespace
{

std::function<void()> atConversion; ///< called before each conversion

class PathBuilding : public MediaTest
{
protected:
    PathBuilding()
    {
        device.addFile("/DCIM/100APPLE/IMG_0001.JPG", "CONTENT");
        device.addFile("/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/5005.JPG", "JPEG");
        atConversion = [this] {
            ++conversions;
            library.manager->cancel();
        };
    }
    ~PathBuilding() override { atConversion = nullptr; }

    int conversions = 0;
};

} // namespace

// As Qt declares it; programs come before libraries when the loader looks for a function.
QByteArray QString::toUtf8_helper(const QString &text)
{
    using Convert = QByteArray (*)(const QString &);
    static const auto convert = reinterpret_cast<Convert>(dlsym(RTLD_NEXT, "_ZN7QString13toUtf8_helperERKS_"));
    if (atConversion)
        atConversion();
    return convert(text);
}

TEST_F(PathBuilding, ACancelRequestBetweenTheLookUpOfAFileAndItsPathIsAFailure)
{
    const int result = library.file(&out);
    const int seen = conversions;
    atConversion = nullptr;
    EXPECT_EQ(result, -1);
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}

TEST_F(PathBuilding, ACancelRequestBetweenTheLookUpOfAThumbnailAndItsFirstPathIsAFailure)
{
    const int result = library.thumbnail(&out);
    const int seen = conversions;
    atConversion = nullptr;
    EXPECT_EQ(result, -1);
    EXPECT_GT(seen, 0);
    EXPECT_EQ(out, QByteArray("untouched"));
    EXPECT_EQ(device.operations(testkit::allOperations), QStringList());
}
