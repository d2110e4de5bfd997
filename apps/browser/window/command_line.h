#ifndef APPS_BROWSER_WINDOW_COMMAND_LINE_H
#define APPS_BROWSER_WINDOW_COMMAND_LINE_H

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace browser
{

/// What the command line asks for. A plain value.
struct CommandLine {
    enum class Wish { Open, Help, Version, Wrong };
    Wish wish = Wish::Open;
    QString device;       ///< what resolveDevice() takes; empty: the start page
    QString passwordFile; ///< "-" is standard input; empty: ask when there is need
    QString message;      ///< for Help and Wrong
};

/// Needs a QCoreApplication. `arguments` begin with the program's name.
CommandLine parseCommandLine(const QStringList &arguments);

/// The first line of the file. False when it cannot be read, with the reason for people.
bool readPasswordFile(const QString &path, QByteArray *password, QString *error);

} // namespace browser

#endif
