#include "tests/cli/command_run.h"

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

#include <unistd.h>

namespace clitest
{

QByteArrayList RunResult::outLines() const
{
    QByteArrayList lines = out.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

CommandProcess::CommandProcess()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), temporary.path());
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    setProcessEnvironment(environment);
    setInputChannelMode(QProcess::ManagedInputChannel);
}

void CommandProcess::startCommand(const QStringList &arguments)
{
    start(QStringLiteral(PHOTOLIB_COMMAND), arguments);
    waitForStarted(-1);
}

void CommandProcess::setupChildProcess()
{
    if (output >= 0)
        ::dup2(output, STDOUT_FILENO);
    if (errors >= 0)
        ::dup2(errors, STDERR_FILENO);
    const unsigned nobody = 65534;
    if (withoutRoot && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
        ::_exit(99);
}

bool CommandProcess::catches(int signalNumber) const
{
    QFile status(QStringLiteral("/proc/%1/status").arg(processId()));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = status.readAll();
    const QByteArray name = "SigCgt:\t";
    const int at = text.indexOf(name);
    const qulonglong mask = at < 0 ? 0 : text.mid(at + name.size(), 16).toULongLong(nullptr, 16);
    return (mask >> (signalNumber - 1) & 1) != 0;
}

void CommandProcess::dropRoot()
{
    withoutRoot = ::geteuid() == 0;
    QFile::setPermissions(temporary.path(), QFile::Permissions(0x7777));
}

RunResult CommandProcess::wait()
{
    RunResult result;
    waitForFinished(-1);
    if (exitStatus() == QProcess::NormalExit && error() != QProcess::FailedToStart)
        result.code = exitCode();
    result.out = readAllStandardOutput();
    result.err = readAllStandardError();
    result.leftovers = QDir(temporary.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    return result;
}

RunResult run(const QStringList &arguments, const QString &outputFile)
{
    CommandProcess process;
    if (!outputFile.isEmpty())
        process.setStandardOutputFile(outputFile);
    process.startCommand(arguments);
    return process.wait();
}

} // namespace clitest
