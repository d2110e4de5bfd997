/// Other people's tools find the simulated phone to be a phone.
#include "testing/simulated_phone.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>

namespace
{

using testkit::SimulatedPhone;
using testkit::SimulatedPhoneOptions;

struct ToolRun {
    int status;
    QByteArray out;
    QByteArray errors;
};

class IdeviceTools : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char *tool : {"idevice_id", "ideviceinfo", "idevicepair"}) {
            if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
                GTEST_SKIP() << tool << " is missing: install libimobiledevice-utils";
        }
    }

    void start(SimulatedPhoneOptions options = {})
    {
        options.root = root.path();
        phone = std::make_unique<SimulatedPhone>(QList<SimulatedPhoneOptions>{options});
    }

    ToolRun run(const QString &tool, const QStringList &arguments) const
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("USBMUXD_SOCKET_ADDRESS"), QString::fromUtf8(phone->address()));
        environment.insert(QStringLiteral("HOME"), root.path());
        process.setProcessEnvironment(environment);
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished(60 * 1000)) << "no end of " << tool.toStdString();
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

    QByteArrayList listed() const
    {
        const ToolRun list = run(QStringLiteral("idevice_id"), {QStringLiteral("-l")});
        QByteArrayList udids = list.out.split('\n');
        udids.removeAll({});
        return udids;
    }

    ToolRun value(const QString &key) const { return run(QStringLiteral("ideviceinfo"), {QStringLiteral("-k"), key}); }

    /// What ideviceinfo says for a value that only sessions show.
    QByteArray serialNumber() const { return value(QStringLiteral("SerialNumber")).out; }
    QByteArray refusal() const
    {
        const ToolRun info = value(QStringLiteral("SerialNumber"));
        EXPECT_NE(info.status, 0) << info.out.constData();
        return info.errors + info.out;
    }

    QTemporaryDir root;
    std::unique_ptr<SimulatedPhone> phone;
};

SimulatedPhoneOptions encrypted()
{
    SimulatedPhoneOptions options;
    options.tls = true;
    return options;
}

SimulatedPhoneOptions unpaired(bool tls)
{
    SimulatedPhoneOptions options;
    options.tls = tls;
    options.paired = false;
    return options;
}

TEST_F(IdeviceTools, ListThePhonesThatAreThere)
{
    SimulatedPhoneOptions one;
    one.root = root.path();
    SimulatedPhoneOptions two = one;
    two.udid = "5133a1a7ed9403e0000000000000000000000002";
    phone = std::make_unique<SimulatedPhone>(QList<SimulatedPhoneOptions>{one, two});
    EXPECT_EQ(listed(), QByteArrayList({SimulatedPhone::defaultUdid(), two.udid}));
    phone->command("detach");
    EXPECT_EQ(listed(), QByteArrayList({two.udid}));
}

TEST_F(IdeviceTools, ListAPhoneOnAPort)
{
    SimulatedPhoneOptions options;
    options.overPort = true;
    start(options);
    EXPECT_EQ(listed(), QByteArrayList({SimulatedPhone::defaultUdid()}));
}

TEST_F(IdeviceTools, ShowEveryValue)
{
    start();
    const ToolRun info = run(QStringLiteral("ideviceinfo"), {});
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.errors, QByteArray());
    for (const char *line :
         {"DeviceClass: Phone\n", "DeviceName: Simulated phone\n", "ProductVersion: 16.7\n",
          "SerialNumber: SIMULATED001\n", "UniqueDeviceID: 5133a1a7ed9403e0000000000000000000000001\n"})
        EXPECT_TRUE(info.out.contains(line)) << line << info.out.constData();
}

TEST_F(IdeviceTools, ShowValuesOfSessionsWithTls)
{
    start(encrypted());
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
}

TEST_F(IdeviceTools, ShowNoValueWhereTheSessionsTlsIsCut)
{
    start(encrypted());
    phone->command("fault cut service=tls");
    refusal();
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
}

TEST_F(IdeviceTools, PairWithAPhoneThatTrustsThem)
{
    start(unpaired(false));
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
    const ToolRun validation = run(QStringLiteral("idevicepair"), {QStringLiteral("validate")});
    EXPECT_TRUE(validation.out.startsWith("SUCCESS")) << validation.out.constData();
}

TEST_F(IdeviceTools, UseTheCertificatesOfTheirPairing)
{
    start(unpaired(true));
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
}

TEST_F(IdeviceTools, AreToldThatTheTrustQuestionWaits)
{
    start(unpaired(true));
    phone->command("trust pending");
    const QByteArray text = refusal();
    EXPECT_TRUE(text.contains("(-19)")) << text.constData();
}

TEST_F(IdeviceTools, AreToldThatTrustWasRefused)
{
    start(unpaired(true));
    phone->command("trust refused");
    const QByteArray text = refusal();
    EXPECT_TRUE(text.contains("(-18)")) << text.constData();
}

TEST_F(IdeviceTools, AreToldThatALockedPhonePairsWithNobody)
{
    start(unpaired(true));
    phone->command("lock");
    const QByteArray text = refusal();
    EXPECT_TRUE(text.contains("(-17)")) << text.constData();
}

TEST_F(IdeviceTools, AreUnknownToAPhoneThatForgotUntilTheyPairAgain)
{
    start(encrypted());
    phone->command("forget");
    for (int attempt = 0; attempt < 2; ++attempt) {
        const QByteArray text = refusal();
        EXPECT_TRUE(text.contains("(-21)")) << text.constData();
    }
    const ToolRun pairing = run(QStringLiteral("idevicepair"), {QStringLiteral("pair")});
    EXPECT_TRUE(pairing.out.startsWith("SUCCESS")) << pairing.out.constData();
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
}

TEST_F(IdeviceTools, ReadValuesOfALockedPhoneUnlessItStartsNoSession)
{
    start(encrypted());
    phone->command("lock");
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
    phone->command("lock sessions");
    const QByteArray text = refusal();
    EXPECT_TRUE(text.contains("(-17)")) << text.constData();
    phone->command("unlock");
    EXPECT_EQ(serialNumber(), QByteArray("SIMULATED001\n"));
}

} // namespace
