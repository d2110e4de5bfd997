#include "photolib/media/media_path.h"

#include "tests/unit/photolib/media/opened_media.h"

#include <QTextCodec>

using testkit::OperationKind;

namespace
{

/// A photo's names, and the file that is opened for them.
struct NameCase {
    QString directory;
    QString fileName;
    QString path;
};

const QString thumbnails = "/PhotoData/Thumbnails/V2";

class MediaNames : public MediaTest
{
protected:
    static QString openedPath(const QString &line) { return line.section('"', 1, -2); }

    /// What is opened for the photo 7 as a file and as a thumbnail.
    QString openedFile()
    {
        device.clearOperations();
        EXPECT_EQ(library.file(&out), 0);
        return openedPath(device.operations(OperationKind::OpenFile).value(0));
    }

    QStringList openedThumbnails()
    {
        device.clearOperations();
        EXPECT_EQ(library.thumbnail(&out), -1);
        library.log.expectLine(newlyAdded);
        QStringList paths = device.operations(OperationKind::OpenFile);
        for (QString &line : paths)
            line = openedPath(line);
        return paths;
    }
};

} // namespace

TEST_F(MediaNames, AreOpenedAsTheyStand)
{
    const NameCase cases[] = {
        {"DCIM/100APPLE", "IMG_0001.JPG", "/DCIM/100APPLE/IMG_0001.JPG"},
        {"", "IMG_0001.JPG", "//IMG_0001.JPG"},
        {QString(), QString(), "//"},
        {"DCIM/100APPLE", "", "/DCIM/100APPLE/"},
        {"../..", "../passwd", "/../../../passwd"},
        {"/absolute/", "/a//b", "//absolute///a//b"},
        {" a\nb ", "c\\d?*", "/ a\nb /c\\d?*"},
    };
    for (const NameCase &names : cases) {
        library.setPhoto(names.directory, names.fileName);
        EXPECT_EQ(openedFile(), names.path);
        const QStringList opened = openedThumbnails();
        ASSERT_EQ(opened.size(), 5);
        EXPECT_EQ(opened[0], thumbnails + names.path + "/5005.JPG");
        EXPECT_EQ(opened[3], thumbnails + names.path + "/3505.JPG");
        EXPECT_EQ(opened[4], "/PhotoData/Thumbnails/VideoKeyFrames" + names.path + "/LocalVideoKeyFrame.jpg");
    }
}

// The directory is put in first, and the file name goes wherever the lowest place marker is then.
TEST_F(MediaNames, PlaceMarkersInTheDirectoryTakeTheFileName)
{
    const NameCase cases[] = {
        {"%1", "F", "/F/%2"},   {"%2", "F", "/F/F"},        {"%1%1", "F", "/FF/%2"},    {"a%1b%2c", "F", "/aFb%2c/%2"},
        {"%99", "F", "/%99/F"}, {"%3/%4", "F", "/%3/%4/F"}, {"%12", "F", "/%12/F"},     {"%0", "F", "/F/%2"},
        {"%L1", "F", "/F/%2"},  {"%%1", "F", "/%F/%2"},     {"%", "F", "/%/F"},         {"100%", "F", "/100%/F"},
        {"%%", "F", "/%%/F"},   {"%L", "F", "/%L/F"},       {"%2%1", "%1", "/%2%1/%2"}, {"%1", "%2", "/%2/%2"},
        {"D", "%1", "/D/%1"},   {"D", "%2", "/D/%2"},       {"D", "%99%", "/D/%99%"},   {"%s%n", "%d", "/%s%n/%d"},
    };
    for (const NameCase &names : cases) {
        library.setPhoto(names.directory, names.fileName);
        EXPECT_EQ(openedFile(), names.path) << names.directory.toStdString();
        const QStringList opened = openedThumbnails();
        EXPECT_EQ(opened[0], thumbnails + names.path + "/5005.JPG");
        EXPECT_EQ(opened[1], thumbnails + names.path + "/5003.JPG");
        EXPECT_EQ(opened[2], thumbnails + names.path + "/3507.JPG");
        EXPECT_EQ(opened[3], thumbnails + names.path + "/3505.JPG");
        EXPECT_EQ(opened[4], "/PhotoData/Thumbnails/VideoKeyFrames" + names.path + "/LocalVideoKeyFrame.jpg");
    }
}

TEST_F(MediaNames, TheThmFileOfAVideoHasItsNameUpToTheLastDot)
{
    const NameCase cases[] = {
        {"D", "IMG_0001.MOV", "/D/IMG_0001.THM"},
        {"D", "IMG.A.mov", "/D/IMG.A.THM"},
        {"D", "IMG", "/D/IMG.THM"},
        {"D", ".MOV", "/D/.THM"},
        {"D", "IMG.", "/D/IMG.THM"},
        {"D", "..", "/D/..THM"},
        {"D", "", "/D/.THM"},
        {"D.x", "IMG", "/D.x/IMG.THM"},
        {"D", "a.b/c", "/D/a.THM"},
        {"D", "IMG.THM", "/D/IMG.THM"},
        {"%2", "F.MOV", "/F/F.THM"},
        {"%1", "F.MOV", "/F/%2.THM"},
        {"D", "%1.MOV", "/D/%1.THM"},
    };
    for (const NameCase &names : cases) {
        library.setPhoto(names.directory, names.fileName, 1);
        const QStringList opened = openedThumbnails();
        ASSERT_EQ(opened.size(), 7);
        EXPECT_EQ(opened[5], QString(""));
        EXPECT_EQ(opened[6], thumbnails + names.path);
    }
}

TEST_F(MediaNames, AreUtf8WhateverTheLocaleAndTheDeviceIsNamedInTheLocalEncoding)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    device.setDevicePath(QString::fromUtf8("fake:ger\xC3\xA4t"));
    const QString directory = QString::fromUtf8("DCIM/Z\xC3\xBCrich");
    const QString fileName = QString::fromUtf8("\xE6\x97\xA5\xF0\x9F\x93\xB7.JPG");
    device.addFile('/' + directory + '/' + fileName, "FILE");
    device.addFile(thumbnails + '/' + directory + '/' + fileName + "/3505.JPG", "THUMBNAIL");
    library.setPhoto(directory, fileName);
    EXPECT_EQ(library.file(&out), 1);
    EXPECT_EQ(out, QByteArray("FILE"));
    EXPECT_EQ(library.thumbnail(&out), 0);
    EXPECT_EQ(out, QByteArray("THUMBNAIL"));
    for (const QString &line : device.operations(OperationKind::OpenDevice))
        EXPECT_TRUE(line.startsWith("vDevOpen 2 \"fake:ger\\xE4t\"")) << line.toStdString();
}

TEST_F(MediaNames, TheDeviceIsLoggedInTheLocalEncodingToo)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    device.setDevicePath(QString::fromUtf8("100% ger\xC3\xA4t"));
    device.setReachable(false);
    library.setPhoto("D", "F", 0, 0);
    EXPECT_EQ(library.file(&out), -1);
    EXPECT_EQ(library.thumbnail(&out), -1);
    const QString line = "PHOTOLIB 2 Can not vDevOpen m_pDev , disconnected ?  100% ger\\xE4t";
    library.log.expectLines({line, line, noContainer});
    const QString failedOpen = "vDevOpen 2 \"100% ger\\xE4t\" = null";
    EXPECT_EQ(device.operations(OperationKind::OpenDevice), (QStringList{failedOpen, failedOpen, failedOpen}));
}

// Device paths are C strings.
TEST_F(MediaNames, EndAtANulCharacter)
{
    library.setPhoto(QString("DCIM%1100APPLE").arg(QChar(0)), "IMG_0001.JPG");
    EXPECT_EQ(openedFile(), QString("/DCIM"));
    EXPECT_EQ(openedThumbnails(), (QStringList{thumbnails + "/DCIM", thumbnails + "/DCIM", thumbnails + "/DCIM",
                                               thumbnails + "/DCIM", "/PhotoData/Thumbnails/VideoKeyFrames/DCIM"}));
    library.setPhoto("DCIM", QString("IMG%1.JPG").arg(QChar(0)));
    EXPECT_EQ(openedFile(), QString("/DCIM/IMG"));
}

TEST_F(MediaNames, OfAnyUsualLengthAreOpened)
{
    const QString directory(100000, 'd');
    const QString fileName(200000, 'f');
    library.setPhoto(directory, fileName);
    EXPECT_EQ(openedFile(), '/' + directory + '/' + fileName);
    EXPECT_EQ(openedThumbnails().first(), thumbnails + '/' + directory + '/' + fileName + "/5005.JPG");
}

TEST_F(MediaNames, BeyondAnyPathOpenNowhere)
{
    library.setPhoto("D", QString(1 << 20, 'f'));
    EXPECT_EQ(openedFile(), QString(""));
    EXPECT_EQ(openedThumbnails(), (QStringList{"", "", "", "", ""}));
    // So many markers that the filled path would not fit the memory.
    library.setPhoto(QString("%1").repeated(300000), QString(100000, 'f'));
    EXPECT_EQ(openedFile(), QString(""));
}

TEST(MediaPath, HoldsUpToAMebicharacterWithEveryMarkerFilled)
{
    constexpr int most = 1 << 20;
    const QString pattern = "/%1/%2";
    EXPECT_EQ(photolib::mediaPath(pattern, "D", QString(most - 7, 'f')).size(), most - 7 + 3);
    EXPECT_EQ(photolib::mediaPath(pattern, "D", QString(most - 6, 'f')), QByteArray());
    EXPECT_EQ(photolib::mediaPath(pattern, QString(most - 7, 'd'), "F").size(), most - 7 + 3);
    EXPECT_EQ(photolib::mediaPath(pattern, QString(most - 6, 'd'), "F"), QByteArray());
    // Two more places for the file name: 6 + 4 + 3 x n
    EXPECT_EQ(photolib::mediaPath(pattern, "%2%2", QString((most - 10) / 3, 'f')).size(), (most - 10) / 3 * 3 + 2);
    EXPECT_EQ(photolib::mediaPath(pattern, "%2%2", QString((most - 10) / 3 + 1, 'f')), QByteArray());
}
