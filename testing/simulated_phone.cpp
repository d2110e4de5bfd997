#include "testing/simulated_phone.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace testkit
{
namespace
{

constexpr const char *addressVariable = "USBMUXD_SOCKET_ADDRESS";
/// Far beyond what any answer takes, and `wait` itself gives up after a minute.
constexpr int answerLimitMilliseconds = 100 * 1000;

[[noreturn]] void fail(const QByteArray &text)
{
    throw std::runtime_error("simulated phone: " + text.toStdString());
}

QByteArray settingsOf(const SimulatedPhoneOptions &options)
{
    QJsonObject object{{QStringLiteral("root"), options.root},
                       {QStringLiteral("name"), QString::fromUtf8(options.name)},
                       {QStringLiteral("product_version"), QString::fromUtf8(options.productVersion)},
                       {QStringLiteral("tls"), options.tls},
                       {QStringLiteral("paired"), options.paired},
                       {QStringLiteral("locked"), options.locked},
                       {QStringLiteral("attached"), options.attached},
                       {QStringLiteral("usb"), options.usb},
                       {QStringLiteral("network"), options.network},
                       {QStringLiteral("max_handles"), options.maxHandles}};
    object[QStringLiteral("udid")] =
        QString::fromUtf8(options.udid.isEmpty() ? SimulatedPhone::defaultUdid() : options.udid);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// Starts the program with ends of the two pairs as its input and output, and returns its id. Everything else that is
/// open here is closed there, as it was opened so.
pid_t spawn(const QList<QByteArray> &arguments, int input, int output)
{
    std::vector<char *> pointers;
    for (const QByteArray &argument : arguments)
        pointers.push_back(const_cast<char *>(argument.constData()));
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t id = -1;
    const int error = posix_spawn(&id, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        fail(arguments[0] + " does not start: " + QByteArray(std::strerror(error)));
    return id;
}

} // namespace

SimulatedPhone::SimulatedPhone(const QString &root, SimulatedPhoneOptions options)
{
    options.root = root;
    start({options});
}

SimulatedPhone::SimulatedPhone(const QList<SimulatedPhoneOptions> &phones)
{
    start(phones);
}

SimulatedPhone::~SimulatedPhone()
{
    stop();
    if (!used)
        return;
    if (earlierAddress.isNull())
        qunsetenv(addressVariable);
    else
        qputenv(addressVariable, earlierAddress);
}

QByteArray SimulatedPhone::defaultUdid()
{
    return "5133a1a7ed9403e0000000000000000000000001";
}

void SimulatedPhone::start(const QList<SimulatedPhoneOptions> &phones)
{
    QList<QByteArray> arguments{SIMULATED_PHONE_PYTHON,      "-I", "-B", SIMULATED_PHONE_PROGRAM, "--certificates",
                                SIMULATED_PHONE_CERTIFICATES};
    if (!phones.value(0).overPort) {
        const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("usbmuxd")));
        if (!folder.isValid() || path.size() >= static_cast<int>(sizeof(sockaddr_un::sun_path)))
            fail("no socket can be made at " + path);
        arguments << "--socket" << path;
    }
    for (const SimulatedPhoneOptions &phone : phones)
        arguments << "--phone" << settingsOf(phone);

    // Socket pairs, as a write to a program that has ended must raise no SIGPIPE here.
    int inputs[2];
    int outputs[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, inputs) != 0)
        fail(std::strerror(errno));
    input = inputs[0];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, outputs) != 0) {
        ::close(inputs[1]);
        stop();
        fail(std::strerror(errno));
    }
    output = outputs[0];
    try {
        process = spawn(arguments, inputs[1], outputs[1]);
    } catch (...) {
        ::close(inputs[1]);
        ::close(outputs[1]);
        stop();
        throw;
    }
    ::close(inputs[1]);
    ::close(outputs[1]);
    try {
        const QByteArray line = readLine();
        if (!line.startsWith("ready "))
            fail("unexpected first line: " + line);
        reachedAt = line.mid(6);
    } catch (...) {
        stop();
        throw;
    }
}

void SimulatedPhone::stop()
{
    if (input >= 0)
        ::close(input);
    if (output >= 0)
        ::close(output);
    input = output = -1;
    if (process <= 0)
        return;
    ::kill(process, SIGKILL);
    while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
    process = -1;
}

void SimulatedPhone::useHere()
{
    if (!used)
        earlierAddress = qEnvironmentVariableIsSet(addressVariable) ? qgetenv(addressVariable) : QByteArray();
    used = true;
    qputenv(addressVariable, reachedAt);
}

QByteArray SimulatedPhone::readLine() const
{
    while (!received.contains('\n')) {
        pollfd waiting{output, POLLIN, 0};
        const int ready = ::poll(&waiting, 1, answerLimitMilliseconds);
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0)
            fail("no answer");
        char buffer[4096];
        const ssize_t count = ::read(output, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            fail("its process has ended");
        received.append(buffer, static_cast<int>(count));
    }
    const int end = received.indexOf('\n');
    const QByteArray line = received.left(end);
    received.remove(0, end + 1);
    return line;
}

QByteArray SimulatedPhone::command(const QByteArray &line) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (line.contains('\n'))
        fail("a command is one line");
    const QByteArray text = line + '\n';
    for (int sent = 0; sent < text.size();) {
        const ssize_t count =
            ::send(input, text.constData() + sent, static_cast<size_t>(text.size() - sent), MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            fail("its process has ended");
        sent += static_cast<int>(count);
    }
    const QByteArray answer = readLine();
    if (answer != "ok" && !answer.startsWith("ok "))
        fail("'" + line + "': " + answer);
    return answer.mid(3);
}

void SimulatedPhone::cutAfterBytes(qint64 bytes) const
{
    command("fault cut after-bytes=" + QByteArray::number(bytes));
}

void SimulatedPhone::cutAtOperation(qint64 number) const
{
    command("fault cut at=" + QByteArray::number(number));
}

void SimulatedPhone::stallAtOperation(qint64 number) const
{
    command("fault stall at=" + QByteArray::number(number));
}

void SimulatedPhone::failOperation(qint64 number, int statusCode) const
{
    command("fault status at=" + QByteArray::number(number) + " code=" + QByteArray::number(statusCode));
}

void SimulatedPhone::failPath(const QByteArray &path, int statusCode) const
{
    command("fault status times=always code=" + QByteArray::number(statusCode) + " path=" + quotedWord(path));
}

SimulatedPhone::Counters SimulatedPhone::counters() const
{
    Counters values;
    const QList<QByteArray> words = command("counters").split(' ');
    for (const QByteArray &word : words) {
        const int equals = word.indexOf('=');
        values[word.left(equals)] = word.mid(equals + 1).toLongLong();
    }
    return values;
}

void SimulatedPhone::waitFor(const QByteArray &counter, qint64 value) const
{
    command("wait " + counter + ' ' + QByteArray::number(value));
}

QByteArray quotedWord(const QByteArray &word)
{
    QByteArray text = word;
    return '\'' + text.replace("'", "'\"'\"'") + '\'';
}

} // namespace testkit
