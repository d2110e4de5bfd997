#ifndef TESTS_UNIT_DEVICEHOST_AFC_USB_PHONE_TEST_H
#define TESTS_UNIT_DEVICEHOST_AFC_USB_PHONE_TEST_H

#include "phone_reading.h"

#include "devicehost/afc/bounded.h"
#include "devicehost/usb_devices.h"
#include "testing/simulated_phone.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// A phone on USB with one file, /a.
class UsbPhoneTest : public testing::Test
{
protected:
    static constexpr std::chrono::milliseconds usualTimeout{30000};

    ~UsbPhoneTest() override
    {
        // Calls that were given up end with the phone; no thread may run when the process ends.
        phone.reset();
        while (devicehost::afc::abandonedCalls > 0)
            std::this_thread::yield();
        devicehost::setUsbTimeout(usualTimeout);
    }

    void startPhone(testkit::SimulatedPhoneOptions options = {})
    {
        QFile file(media.filePath(QStringLiteral("a")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
        file.close();
        phone = std::make_unique<testkit::SimulatedPhone>(media.path(), options);
        phone->useHere();
    }

    static QString name() { return QStringLiteral("afc:") + QString::fromLatin1(udid()); }
    static QByteArray udid() { return testkit::SimulatedPhone::defaultUdid(); }

    QTemporaryDir media;
    QByteArray content = patterned(100000);
    std::unique_ptr<testkit::SimulatedPhone> phone;
};

#endif
