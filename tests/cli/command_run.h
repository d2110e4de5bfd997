#ifndef TESTS_CLI_COMMAND_RUN_H
#define TESTS_CLI_COMMAND_RUN_H

#include <QByteArray>
#include <QJsonDocument>
#include <QList>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace clitest
{

/// What a run of the command left behind.
struct RunResult {
    int code = -1; ///< exit status; -1 when it did not start or was killed
    QByteArray out;
    QByteArray err;
    QStringList leftovers; ///< what lies in its folder for temporary files after the end

    QByteArrayList outLines() const;
    QJsonDocument json() const { return QJsonDocument::fromJson(out); }
};

/// The command as a process with a folder for temporary files of its own and UTC as its time zone.
class CommandProcess : public QProcess
{
public:
    CommandProcess();
    void startCommand(const QStringList &arguments);
    RunResult wait();

    /// Makes this descriptor of the test the command's standard output.
    void setOutput(int descriptor) { output = descriptor; }

    /// The same for its standard error.
    void setError(int descriptor) { errors = descriptor; }

    /// Whether the command has a handler for the signal.
    bool catches(int signalNumber) const;

    /// Makes file permissions count for the command when the tests run as root.
    void dropRoot();

protected:
    void setupChildProcess() override;

private:
    int output = -1;
    int errors = -1;
    bool withoutRoot = false;
    QTemporaryDir temporary;
};

/// Runs the command to its end. `outputFile` takes its standard output when given.
RunResult run(const QStringList &arguments, const QString &outputFile = QString());

} // namespace clitest

#endif
