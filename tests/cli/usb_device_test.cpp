// Commands on a phone on USB, and on none.

#ifdef PHOTOLIB_AFC

#include "testing/simulated_phone.h"
#include "tests/cli/command_run.h"
#include "tests/cli/media_device.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <thread>

namespace clitest
{

namespace
{

using testing::HasSubstr;
using testkit::SimulatedPhone;

QString deviceName()
{
    return QStringLiteral("afc:") + QString::fromLatin1(SimulatedPhone::defaultUdid());
}

class UsbDeviceCommands : public testing::Test
{
protected:
    void start(int photos, bool tls = false)
    {
        for (int n = 1; n <= photos; ++n)
            device.addPhoto(QStringLiteral("IMG_%1.JPG").arg(n, 4, 10, QChar('0')), 2000 * n);
        device.write();
        testkit::SimulatedPhoneOptions options;
        options.tls = tls;
        phone = std::make_unique<SimulatedPhone>(device.path(), options);
        phone->useHere(); // for the commands, which inherit it
    }

    // A device that cannot be opened: one line, nothing on standard output.
    static void expectUnreachable(const RunResult &result, const char *part)
    {
        EXPECT_EQ(result.code, 3) << result.err.toStdString();
        EXPECT_EQ(result.out, QByteArray());
        EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
        EXPECT_THAT(result.err.toStdString(), HasSubstr(part));
        EXPECT_TRUE(result.leftovers.isEmpty());
    }

    MediaDevice device;
    std::unique_ptr<SimulatedPhone> phone;
};

// What a device holds; its own name is not part of it.
QByteArray dumped(const QString &name)
{
    const RunResult result = run({"dump", name});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.err, QByteArray());
    return result.out;
}

} // namespace

TEST_F(UsbDeviceCommands, ReadTheSameAsFromAFolder)
{
    for (const bool tls : {false, true}) {
        start(5, tls);
        const QByteArray expected = dumped(device.path());
        EXPECT_TRUE(expected.contains("IMG_0005.JPG"));
        EXPECT_EQ(dumped("usb"), expected);
        EXPECT_EQ(dumped(deviceName()), expected);
        phone->waitFor("connections", 0);
        EXPECT_EQ(phone->counters().value("refused"), 0);
    }
}

TEST_F(UsbDeviceCommands, ExportTheSameAsFromAFolder)
{
    start(12);
    const QTemporaryDir folder;
    const RunResult plain = run({"export", device.path(), folder.filePath("plain"), "--verify"});
    ASSERT_EQ(plain.code, 0) << plain.err.toStdString();
    const RunResult usb = run({"export", "usb", folder.filePath("usb"), "--verify"});
    EXPECT_EQ(usb.code, 0) << usb.err.toStdString();
    EXPECT_GE(treeOf(folder.filePath("usb")).size(), 12);
    EXPECT_EQ(treeOf(folder.filePath("usb")), treeOf(folder.filePath("plain")));
}

TEST_F(UsbDeviceCommands, GoOnAfterACutConnection)
{
    start(12);
    const QTemporaryDir folder;
    ASSERT_EQ(run({"export", device.path(), folder.filePath("plain")}).code, 0);
    phone->command("fault cut operation=FileRefRead path=*/IMG_0007.JPG reply-bytes=700");
    const RunResult usb = run({"export", "usb", folder.filePath("usb")});
    EXPECT_EQ(usb.code, 0) << usb.err.toStdString();
    EXPECT_EQ(treeOf(folder.filePath("usb")), treeOf(folder.filePath("plain")));
    EXPECT_EQ(phone->counters().value("accepted"), 2);
}

TEST_F(UsbDeviceCommands, AFileThatCannotBeReadIsOneThatFailed)
{
    start(5);
    phone->failPath("/DCIM/100APPLE/IMG_0003.JPG", 10);
    const QTemporaryDir folder;
    const RunResult result = run({"export", "usb", folder.filePath("usb")});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err.toStdString(), HasSubstr("the device does not permit it; unlock the device and try again"));
}

TEST_F(UsbDeviceCommands, ThatCannotReachThePhoneEndWithThree)
{
    start(1);
    phone->command("lock");
    for (const char *command : {"info", "albums", "photos", "groups", "dump"})
        expectUnreachable(run({command, "usb"}), "the device is locked; unlock it and try again");
    phone->command("unlock");
    phone->command("forget");
    expectUnreachable(run({"info", "usb"}), "option --pair");
    phone->command("trust pending");
    expectUnreachable(run({"info", "usb", "--pair"}), "tap Trust");
    phone->command("refuse com.apple.afc InvalidService");
    phone->command("pair");
    expectUnreachable(run({"info", "usb"}), "does not give its media files away");
    phone->command("detach");
    expectUnreachable(run({"info", "usb"}), "usb: no device is connected; ");
    expectUnreachable(run({"info", deviceName()}), "no device is connected; ");
    qputenv("USBMUXD_SOCKET_ADDRESS", "UNIX:/nonexistent/usbmuxd");
    expectUnreachable(run({"info", "usb"}), "usbmuxd");
    expectUnreachable(run({"devices"}), "usbmuxd");
}

TEST_F(UsbDeviceCommands, PairWhenAsked)
{
    start(1);
    phone->command("forget");
    const RunResult result = run({"--pair", "info", "--json", "usb"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.json().object().value("device").toString(), deviceName());
    EXPECT_EQ(run({"info", "usb"}).code, 0);
    EXPECT_EQ(run({"info", device.path(), "--pair"}).code, 2);
}

TEST_F(UsbDeviceCommands, LeaveAPairingThatWorksAsItIs)
{
    start(1);
    phone->command("trust refused");
    const RunResult result = run({"--pair", "info", "--json", "usb"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.err,
              "photolib: " + deviceName().toUtf8() + " and this computer are paired already; nothing was changed\n");
}

TEST_F(UsbDeviceCommands, TellAPhoneThatLeavesFromALibraryThatCannotBeRead)
{
    start(5);
    phone->failPath("/PhotoData/Photos.sqlite", 10);
    const RunResult refused = run({"info", "usb"});
    EXPECT_EQ(refused.code, 4) << refused.err.toStdString();
    phone->clear();
    for (const char *reading :
         {"operation=FileRefOpen", "operation=FileRefRead", "operation=FileRefRead reply-bytes=700"}) {
        phone->command(QByteArray("fault stall path=/PhotoData/Photos.sqlite ") + reading);
        CommandProcess process;
        process.startCommand({"info", "usb"});
        phone->waitFor("stalled", 1);
        phone->command("detach");
        expectUnreachable(process.wait(), "/PhotoData/Photos.sqlite on the device cannot be ");
        phone->clear();
        phone->command("attach");
    }
    phone->command("fault stall times=always operation=FileRefRead");
    expectUnreachable(run({"--timeout", "1", "info", "usb"}), "the device does not answer");
}

// What agreeing upon encryption leaves behind must not be taken down under it; when it is, that ends in a signal now
// and then.
TEST_F(UsbDeviceCommands, EndInOrderWhenEncryptionIsNotAgreedUponInTime)
{
    start(1, true);
    for (int number = 1; number <= 2; ++number) { // of the session, and of the file service
        phone->command("fault stall service=tls times=always at=" + QByteArray::number(number));
        for (int round = 0; round < 5; ++round)
            expectUnreachable(run({"--timeout", "1", "info", "usb"}), "the device does not answer");
        phone->clear();
    }
}

TEST_F(UsbDeviceCommands, GiveASilentPhoneUp)
{
    start(1);
    phone->command("fault stall service=lockdown times=always");
    expectUnreachable(run({"info", "usb", "--timeout", "1"}), "the device does not answer");
    for (const char *wrong : {"0", "-1", "3601", "soon", "nan", ""})
        EXPECT_EQ(run({"info", "usb", "--timeout", wrong}).code, 2) << wrong;
}

// Were the reading not ended, it would take an hour.
TEST_F(UsbDeviceCommands, EndAtOnceWhenTheUserInterrupts)
{
    ::signal(SIGINT, SIG_DFL); // the test may have been started in the background, where shells ignore it
    start(5);
    for (const char *file : {"/PhotoData/Photos.sqlite", "/DCIM/100APPLE/IMG_0003.JPG"}) {
        phone->command(QByteArray("fault stall operation=FileRefRead reply-bytes=700 path=") + file);
        const QTemporaryDir folder;
        CommandProcess process;
        process.startCommand({"--timeout", "3600", "export", "usb", folder.filePath("usb")});
        phone->waitFor("stalled", 1);
        ::kill(static_cast<pid_t>(process.processId()), SIGINT);
        const RunResult result = process.wait();
        EXPECT_EQ(result.code, 130) << file << result.err.toStdString();
        EXPECT_TRUE(result.leftovers.isEmpty());
        phone->clear();
        phone->waitFor("connections", 0);
    }
}

TEST_F(UsbDeviceCommands, RemoveAPartialPageWhenTheUserInterrupts)
{
    ::signal(SIGINT, SIG_DFL); // the test may have been started in the background, where shells ignore it
    start(5);
    phone->command("fault stall path=/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0003.JPG/5005.JPG");
    const QTemporaryDir folder;
    CommandProcess process;
    process.startCommand({"--timeout", "3600", "contact-sheet", "usb", "-o", folder.filePath("page.html")});
    phone->waitFor("stalled", 1);
    const QStringList partial = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(partial.size(), 1);
    EXPECT_FALSE(partial.contains("page.html"));
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    const RunResult result = process.wait();
    EXPECT_EQ(result.code, 130);
    EXPECT_EQ(result.err, QByteArray("photolib: interrupted\n"));
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(UsbDeviceCommands, ListThePhones)
{
    start(1);
    phone->command("lock");
    const RunResult json = run({"devices", "--json"});
    ASSERT_EQ(json.code, 0) << json.err.toStdString();
    ASSERT_EQ(json.json().array().size(), 1);
    const QJsonObject listed = json.json().array().at(0).toObject();
    EXPECT_EQ(listed.value("device").toString(), deviceName());
    EXPECT_EQ("afc:" + listed.value("udid").toString(), deviceName());
    EXPECT_EQ(listed.value("name").toString(), "Simulated phone");
    EXPECT_EQ(listed.value("systemVersion").toString(), "16.7");
    EXPECT_EQ(listed.value("connection").toString(), "usb");
    EXPECT_EQ(listed.value("lock").toString(), "locked");
    EXPECT_EQ(listed.value("trust").toString(), "trusted");
    const QByteArray table = run({"devices"}).out;
    EXPECT_TRUE(table.startsWith("NAME ")) << table.toStdString();
    for (const QByteArray &part :
         {QByteArray("Simulated phone"), deviceName().toLatin1(), QByteArray("locked; unlock")})
        EXPECT_TRUE(table.contains(part)) << table.toStdString();
}

TEST_F(UsbDeviceCommands, FindAPhoneOnTheNetwork)
{
    device.addPhoto(QStringLiteral("IMG_0001.JPG"), 1000);
    device.write();
    testkit::SimulatedPhoneOptions options;
    options.usb = false;
    options.network = true;
    phone = std::make_unique<SimulatedPhone>(device.path(), options);
    phone->useHere();
    EXPECT_EQ(dumped("usb"), dumped(device.path()));
    EXPECT_EQ(dumped(deviceName()), dumped(device.path()));
    const RunResult json = run({"devices", "--json"});
    EXPECT_EQ(json.json().array().at(0).toObject().value("connection").toString(), "network");
    EXPECT_TRUE(run({"devices"}).out.contains(" network "));
}

TEST_F(UsbDeviceCommands, ListNoPhones)
{
    start(1);
    phone->command("detach");
    const RunResult none = run({"devices"});
    EXPECT_EQ(none.code, 0);
    EXPECT_EQ(none.out, QByteArray());
    EXPECT_THAT(none.err.toStdString(), HasSubstr("no device is connected; connect it"));
    EXPECT_EQ(run({"devices", "--json"}).json().array().size(), 0);
}

} // namespace clitest

#endif
