#include "apps/browser/exporting/show_in_folder.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusServer>
#include <QDesktopServices>
#include <QDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

namespace
{

constexpr int patience = 60'000; // milliseconds

/// A file manager on a bus of its own.
class FileManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;
    bool refuses = false;

public Q_SLOTS:
    void ShowItems(const QStringList &urls, const QString &)
    {
        if (refuses)
            sendErrorReply(QDBusError::Failed, QStringLiteral("no"));
        else
            shown = urls;
    }
};

/// Opens what the desktop would open.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    QStringList opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened += url.toLocalFile(); }
};

class ShowInFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(&server, &QDBusServer::newConnection, &manager, [this](QDBusConnection connection) {
            connection.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager,
                                      QDBusConnection::ExportAllSlots);
            isServed = true;
        });
    }
    void TearDown() override { QDBusConnection::disconnectFromPeer(name); }

    void show(const QStringList &names)
    {
        QDBusConnection bus = QDBusConnection::connectToPeer(server.address(), name);
        ASSERT_TRUE(QTest::qWaitFor([this] { return isServed; }, patience));
        browser::showInFolder(bus, QStringLiteral("/exports/my photos"), names, &manager, [] { ADD_FAILURE(); });
    }

    const QString name = QStringLiteral("peer");
    QDBusServer server{QStringLiteral("unix:tmpdir=") + QDir::tempPath()};
    FileManager manager;
    Desktop desktop;
    bool isServed = false;
};

TEST_F(ShowInFolder, SelectsWhatWasExported)
{
    show({QStringLiteral("2023"), QStringLiteral("2024 ü")});
    ASSERT_TRUE(QTest::qWaitFor([this] { return !manager.shown.isEmpty(); }, patience));
    EXPECT_EQ(manager.shown, (QStringList{QStringLiteral("file:///exports/my%20photos/2023"),
                                          QStringLiteral("file:///exports/my%20photos/2024%20%C3%BC")}));
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(ShowInFolder, OpensTheFolderWhereTheFileManagerRefuses)
{
    manager.refuses = true;
    show({QStringLiteral("2023")});
    ASSERT_TRUE(QTest::qWaitFor([this] { return !desktop.opened.isEmpty(); }, patience));
    EXPECT_EQ(desktop.opened, QStringList{QStringLiteral("/exports/my photos")});
}

TEST_F(ShowInFolder, OpensTheFolderWithoutABusOrWithoutFiles)
{
    const QDBusConnection none(QStringLiteral("no such bus"));
    for (const QStringList &names : {QStringList{QStringLiteral("2023")}, QStringList()})
        browser::showInFolder(none, QStringLiteral("/exports"), names, &manager, [] { ADD_FAILURE(); });
    show({});
    EXPECT_EQ(desktop.opened, (QStringList{QStringLiteral("/exports"), QStringLiteral("/exports"),
                                           QStringLiteral("/exports/my photos")}));
}

} // namespace

#include "show_in_folder_test.moc"
