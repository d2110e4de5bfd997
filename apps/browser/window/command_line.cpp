#include "apps/browser/window/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace browser
{

namespace
{

constexpr qint64 longestPassword = 4096; ///< bytes

class CommandLineWords
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    static QString description()
    {
        return tr("Shows the photo library of a phone: its albums, people, places and every photo, and exports them.\n"
                  "Without DEVICE it lists the phones, backups and folders that there are.");
    }
    static QString device()
    {
        return tr("The media folder of a phone, a backup of a phone, or \"usb\" for the phone on the cable.");
    }
    static QString passwordFile()
    {
        return tr("Take the first line of FILE (\"-\" is standard input) for the password of an encrypted backup.");
    }
    static QString help() { return tr("Show this help."); }
    static QString version() { return tr("Show the version."); }
    static QString tooMany() { return tr("Give one device at most."); }
    static QString unreadable(const QString &path, const QString &reason)
    {
        return tr("The password file %1 cannot be read: %2. Name another file.").arg(path, reason);
    }
    static QString empty(const QString &path)
    {
        return tr("The password file %1 has no password in its first line. Name another file.").arg(path);
    }
};

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, CommandLineWords::help());
    const QCommandLineOption version(QStringLiteral("version"), CommandLineWords::version());
    const QCommandLineOption passwordFile(QStringLiteral("password-file"), CommandLineWords::passwordFile(),
                                          QStringLiteral("FILE"));
    QCommandLineParser parser;
    parser.setApplicationDescription(CommandLineWords::description());
    parser.addOptions({help, version, passwordFile});
    parser.addPositionalArgument(QStringLiteral("DEVICE"), CommandLineWords::device(), QStringLiteral("[DEVICE]"));
    CommandLine result;
    const bool understood = parser.parse(arguments);
    if (!understood || parser.positionalArguments().size() > 1) {
        result.wish = CommandLine::Wish::Wrong;
        result.message = understood ? CommandLineWords::tooMany() : parser.errorText();
        return result;
    }
    if (parser.isSet(help))
        result.wish = CommandLine::Wish::Help;
    else if (parser.isSet(version))
        result.wish = CommandLine::Wish::Version;
    result.message = parser.helpText();
    result.device = parser.positionalArguments().value(0);
    result.passwordFile = parser.value(passwordFile);
    return result;
}

bool readPasswordFile(const QString &path, QByteArray *password, QString *error)
{
    QFile file(path);
    const bool isInput = path == QLatin1String("-");
    if (!(isInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly))) {
        *error = CommandLineWords::unreadable(path, file.errorString());
        return false;
    }
    QByteArray line = file.readLine(longestPassword);
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    *password = line;
    if (line.isEmpty())
        *error = CommandLineWords::empty(path);
    return !line.isEmpty();
}

} // namespace browser
