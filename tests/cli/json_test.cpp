#include "apps/cli/output/json.h"

#include "tests/cli/written.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace photocli
{

namespace
{

template <typename Value>
QByteArray jsonOf(const Value &value)
{
    return written([&value](Output &out) { Json(out).value(value); });
}

} // namespace

TEST(Json, IntegersKeepAllTheirBits)
{
    EXPECT_EQ(jsonOf(std::numeric_limits<qint64>::max()), QByteArray("9223372036854775807"));
    EXPECT_EQ(jsonOf(std::numeric_limits<qint64>::min()), QByteArray("-9223372036854775808"));
    EXPECT_EQ(jsonOf(std::numeric_limits<qint32>::min()), QByteArray("-2147483648"));
}

TEST(Json, DoublesAreShortestAndMissingOnesNull)
{
    EXPECT_EQ(jsonOf(0.1), QByteArray("0.1"));
    EXPECT_EQ(jsonOf(-180.0), QByteArray("-180"));
    EXPECT_EQ(jsonOf(1e300), QByteArray("1e+300"));
    EXPECT_EQ(jsonOf(std::nan("")), QByteArray("null"));
    EXPECT_EQ(jsonOf(std::numeric_limits<double>::infinity()), QByteArray("null"));
}

TEST(Json, TextIsEscapedUtf8AndNullTextIsEmpty)
{
    EXPECT_EQ(jsonOf(QString()), QByteArray("\"\""));
    EXPECT_EQ(jsonOf(QString::fromUtf8("a\"b\\\n\033é😀")), QByteArray("\"a\\\"b\\\\\\n\\u001Bé😀\""));
}

TEST(Json, UuidBytesAreTextOrHexadecimal)
{
    EXPECT_EQ(jsonOf(QByteArray("AB-1")), QByteArray("\"AB-1\""));
    EXPECT_EQ(jsonOf(QByteArray("\xFF\x01", 2)), QByteArray("\"hex:ff01\""));
    EXPECT_EQ(jsonOf(QByteArray("\0a", 2)), QByteArray("\"\\u0000a\""));
}

TEST(Json, DatesAreTextOrNull)
{
    EXPECT_EQ(jsonOf(QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC)), QByteArray("\"2001-01-01T00:00:00Z\""));
    EXPECT_EQ(jsonOf(QDateTime()), QByteArray("null"));
}

TEST(Json, ElementsStandOnLinesOfTheirOwn)
{
    const QByteArray text = written([](Output &out) {
        Json json(out);
        json.beginArray();
        for (const qint32 value : {1, 2}) {
            json.newLine();
            json.beginObject();
            json.member("a", value);
            json.endObject();
        }
        json.newLine();
        json.endArray();
    });
    EXPECT_EQ(text, QByteArray("[\n{\"a\":1},\n{\"a\":2}\n]"));
}

TEST(Json, PhotoHasFortyFieldsInDeclarationOrder)
{
    QByteArrayList names;
    visitFields(photoItem(), [&names](const char *name, const auto &) { names += name; });
    EXPECT_EQ(names.join(' '),
              QByteArray("id entity uuid fileName mediaType directory metadataPath orientation height width duration "
                         "fileSize dateCreated modificationDate trashedDate trashedState avalancheUuid "
                         "avalanchePickType sortToken visibilityState faceAreaPoints favorite kindSubtype latitude "
                         "longitude duplicateAssetVisibilityState duplicateMetadataMatchingAlbum "
                         "duplicatePerceptualMatchingAlbum packedBadgeAttributes depthType moment thumbnailIndex "
                         "uniformTypeIdentifier localResourcesState customRenderedValue cameraCaptureDevice "
                         "hasAdjustments hidden cloudLocalState importSession"));
}

TEST(Json, AlbumIsWrittenWithAllItsFields)
{
    albumItem album;
    album.id = 5;
    album.trashedState = 0;
    album.title = QStringLiteral("Trip");
    album.photoIds = {7, 3};
    EXPECT_EQ(written([&album](Output &out) { Json(out).record(album); }),
              QByteArray("{\"id\":5,\"entity\":19,\"kind\":1550,\"trashedState\":0,\"uuid\":\"\",\"title\":\"Trip\","
                         "\"albumType\":2,\"photoIds\":[7,3]}"));
}

} // namespace photocli
