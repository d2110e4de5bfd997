#ifndef TESTS_BROWSER_WINDOW_WINDOW_FIXTURE_H
#define TESTS_BROWSER_WINDOW_WINDOW_FIXTURE_H

#include "apps/browser/window/main_window.h"
#include "apps/browser/window/window_keeper.h"
#include "tests/browser/support/opening.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

class SampleFolder;

/// Real windows on a made-up device, with settings and local copies in folders of their own.
class WindowTest : public testing::Test
{
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    WindowTest();
    ~WindowTest() override;

    browser::MainWindow *openWindow() { return keeper->open(); }
    /// A window that shows the sample.
    browser::MainWindow *openSample();

    static bool isSeen(const QWidget *widget) { return widget != nullptr && widget->isVisible(); }

    /// The widget of this name in the window, when people can see it.
    template <class Kind>
    static Kind *shown(QWidget *window, const char *name)
    {
        for (Kind *const widget : window->findChildren<Kind *>(QLatin1String(name)))
            if (widget->isVisible())
                return widget;
        return nullptr;
    }
    template <class Kind>
    static Kind *waitForShown(QWidget *window, const char *name)
    {
        comesTrueSoon([=] { return shown<Kind>(window, name) != nullptr; });
        return shown<Kind>(window, name);
    }
    /// Presses a button as people do. False when there is none to be seen.
    static bool press(QWidget *window, const char *button);
    static QString textOf(QWidget *window, const char *label);

    /// Copies the sample's database to a device of its own.
    QString copyOfSample(const QString &name);

    static SampleFolder *sample;
    QTemporaryDir place;
    std::unique_ptr<browser::WindowKeeper> keeper = std::make_unique<browser::WindowKeeper>();
};

#endif
