#include "devicehost/afc/errors.h"

#include <gtest/gtest.h>

#include <cerrno>

using namespace devicehost;
using namespace devicehost::afc;

TEST(AfcErrors, EveryNumberHasWordsAndAdvice)
{
    for (const ErrorSource source :
         {ErrorSource::Service, ErrorSource::Lockdown, ErrorSource::Link, ErrorSource::Client}) {
        for (qint64 code = -300; code <= 300; ++code) {
            const VError error = explain(source, code);
            EXPECT_NE(error.code, 0) << code;
            EXPECT_NE(error.code, EINTR) << code; // would be repeated for ever
            for (const QString &text : {error.text, error.advice}) {
                EXPECT_FALSE(text.isEmpty()) << code;
                EXPECT_FALSE(text.endsWith(QChar('.'))) << code;
                EXPECT_FALSE(text.contains(QChar('\n'))) << code;
            }
        }
    }
}

TEST(AfcErrors, PeopleAreToldWhatToDo)
{
    const struct {
        ErrorSource source;
        int number;
        const char *text;
        const char *advice;
    } cases[] = {
        {ErrorSource::Lockdown, -17, "locked", "unlock it"},
        {ErrorSource::Lockdown, -18, "refused", "tap Trust"},
        {ErrorSource::Lockdown, -19, "trust this computer", "tap Trust"},
        {ErrorSource::Lockdown, -21, "does not know this computer", "--pair"},
        {ErrorSource::Lockdown, -27, "does not give its media files", "managed"},
        {ErrorSource::Lockdown, -34, "does not give its media files", "managed"},
        {ErrorSource::Lockdown, -3, "connection to the device was lost", "cable"},
        {ErrorSource::Lockdown, -7, "connection to the device was lost", "cable"},
        {ErrorSource::Lockdown, -8, "connection to the device was lost", "cable"},
        {ErrorSource::Service, 30, "connection to the device was lost", "cable"},
        {ErrorSource::Link, -3, "not connected", "cable"},
        {ErrorSource::Service, 8, "no such file", "right one"},
        {ErrorSource::Service, 10, "does not permit", "unlock"},
    };
    for (const auto &expected : cases) {
        const VError error = explain(expected.source, expected.number);
        EXPECT_TRUE(error.text.contains(QLatin1String(expected.text))) << error.text.toStdString();
        EXPECT_TRUE(error.advice.contains(QLatin1String(expected.advice))) << error.advice.toStdString();
    }
    EXPECT_TRUE(isAbsence(explain(ErrorSource::Service, 8)));
}

TEST(AfcErrors, AFileThatIsRefusedIsNotADeviceThatIsGone)
{
    for (const int number : {1, 4, 8, 9, 10, 12, 77})
        EXPECT_FALSE(explain(ErrorSource::Service, number).deviceUnreachable) << number;
    for (const ClientError error : {Stopped, BadFileInfo, EndedEarly, Changed, LeadsOut})
        EXPECT_FALSE(explain(ErrorSource::Client, error).deviceUnreachable) << error;
    for (const ClientError error : {TimedOut, Disconnected})
        EXPECT_TRUE(explain(ErrorSource::Client, error).deviceUnreachable) << error;
    EXPECT_TRUE(explain(ErrorSource::Service, 30).deviceUnreachable);
    EXPECT_TRUE(explain(ErrorSource::Lockdown, -17).deviceUnreachable);
    EXPECT_TRUE(explain(ErrorSource::Link, -99).deviceUnreachable);
}

TEST(AfcErrors, AnUnknownNumberIsShown)
{
    EXPECT_EQ(explain(ErrorSource::Service, 77).text, "the device reports error 77 (file service)");
    EXPECT_EQ(explain(ErrorSource::Lockdown, -77).text, "the device reports error -77 (pairing)");
}
