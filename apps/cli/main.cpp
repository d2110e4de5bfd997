#include "apps/cli/command_line.h"
#include "apps/cli/messages.h"
#include "apps/cli/process_end.h"
#include "apps/cli/standard_streams.h"
#include "devicehost/device_host.h"

#include <QTextCodec>

int main(int argc, char **argv)
{
    photocli::prepareStandardStreams();
    // Possible only before SQLite is used for the first time.
    if (!devicehost::watchDatabaseErrors())
        photocli::printWarning(QStringLiteral("damage of a database will not be noticed"));
    // The locale of scripts is often "C", in which Qt would lose every letter beyond ASCII of a path.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return photocli::endProcess(photocli::runCommandLine(argc, argv));
}
