#include "tests/browser/window/window_fixture.h"

#include "apps/browser/library/background.h"
#include "tests/cli/sample/sample_folder.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTest>

SampleFolder *WindowTest::sample = nullptr;

void WindowTest::SetUpTestSuite()
{
    sample = new SampleFolder({}, SampleParts::DatabaseOnly);
}

void WindowTest::TearDownTestSuite()
{
    delete sample;
    sample = nullptr;
}

WindowTest::WindowTest()
{
    QDir(place.path()).mkdir(QStringLiteral("local"));
    qputenv("TMPDIR", QFile::encodeName(place.filePath(QStringLiteral("local"))));
    QSettings().clear();
}

WindowTest::~WindowTest()
{
    keeper.reset();
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    browser::waitForRetired();
    const QStringList left =
        QDir(place.filePath(QStringLiteral("local"))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    EXPECT_EQ(left, QStringList()) << "a window left local copies behind";
    qunsetenv("TMPDIR");
}

browser::MainWindow *WindowTest::openSample()
{
    browser::MainWindow *const window = openWindow();
    window->openDevice(sample->root());
    EXPECT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    return window;
}

bool WindowTest::press(QWidget *window, const char *button)
{
    auto *const found = waitForShown<QAbstractButton>(window, button);
    if (found == nullptr || !found->isEnabled())
        return false;
    QTest::mouseClick(found, Qt::LeftButton);
    return true;
}

QString WindowTest::textOf(QWidget *window, const char *label)
{
    const QLabel *const found = shown<QLabel>(window, label);
    return found == nullptr ? QString() : found->text();
}

QString WindowTest::copyOfSample(const QString &name)
{
    const QString root = place.filePath(name);
    QDir().mkpath(root + QStringLiteral("/PhotoData"));
    for (const char *file : {"PhotoData/Photos.sqlite", "PhotoData/Photos.sqlite-wal", "PhotoData/Photos.sqlite-shm"})
        QFile::copy(sample->path(QLatin1String(file)), root + QLatin1Char('/') + QLatin1String(file));
    return root;
}
