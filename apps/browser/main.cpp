#include "apps/browser/window/program.h"
#include "devicehost/device_host.h"

#include <QApplication>

int main(int argc, char **argv)
{
    devicehost::watchDatabaseErrors();
    if (browser::printedHelp(argc, argv))
        return 0;
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    browser::setUpApplication(application);
    return browser::runProgram(application);
}
