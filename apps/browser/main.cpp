#include "devicehost/device_host.h"

#include <QApplication>

int main(int argc, char **argv)
{
    devicehost::watchDatabaseErrors();
    const QApplication application(argc, argv);
    return QApplication::exec();
}
