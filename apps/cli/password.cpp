#include "apps/cli/password.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "devicehost/backup/secret_bytes.h"
#include "devicehost/vdev/unique_fd.h"
#include "devicehost/vdev/verror.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

namespace photocli
{

namespace
{

constexpr int mostBytes = 4096; ///< of a password

volatile std::sig_atomic_t caughtSignal = 0;

void noteSignal(int number)
{
    caughtSignal = number;
}

/// Shows nothing that is typed, for as long as it lives. A signal that would end the program ends the typing.
class SilentTerminal
{
public:
    SilentTerminal()
    {
        ::tcgetattr(STDIN_FILENO, &before);
        termios silent = before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        silent.c_lflag |= ECHONL | ICANON | ISIG;
        caughtSignal = 0;
        struct sigaction action = {};
        action.sa_handler = &noteSignal; // without SA_RESTART: read() returns
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], &action, &handlers[i]);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }

    ~SilentTerminal()
    {
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before);
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], &handlers[i], nullptr);
    }

    SilentTerminal(const SilentTerminal &) = delete;
    SilentTerminal &operator=(const SilentTerminal &) = delete;

private:
    static constexpr std::array<int, 4> signals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
    termios before = {};
    std::array<struct sigaction, 4> handlers = {};
};

/// Up to the end of the first line. An errno value; 0 on success. EFBIG for a line without end.
int readLine(int file, QByteArray *line)
{
    line->reserve(mostBytes + 1); // so that no copy of it stays behind
    for (;;) {
        char byte = 0;
        const ssize_t count = ::read(file, &byte, 1);
        if (count < 0 && errno == EINTR && caughtSignal == 0)
            continue;
        if (count < 0)
            return errno;
        if (count == 0 || byte == '\n')
            break;
        if (line->size() == mostBytes)
            return EFBIG;
        line->append(byte);
    }
    if (line->endsWith('\r'))
        line->chop(1);
    return 0;
}

QString reasonFor(int code)
{
    return code == EFBIG ? QStringLiteral("its first line is longer than any password") : devicehost::errnoText(code);
}

int askOnTerminal(const QString &device, QByteArray *password)
{
    const SilentTerminal silence; // from before the question on: nothing of the answer is shown or lost
    printPrompt(QStringLiteral("Password of %1: ").arg(device));
    return readLine(STDIN_FILENO, password);
}

int readFrom(const QString &file, QByteArray *password)
{
    if (file == QChar('-'))
        return readLine(STDIN_FILENO, password);
    const devicehost::UniqueFd opened(::open(file.toUtf8().constData(), O_RDONLY | O_CLOEXEC));
    return opened ? readLine(opened.get(), password) : errno;
}

} // namespace

Password::Password(const QString &file, const QString &device)
{
    const bool onTerminal = (file.isEmpty() || file == QChar('-')) && ::isatty(STDIN_FILENO) == 1;
    if (file.isEmpty() && !onTerminal)
        throw Failure{
            ExitDeviceUnreachable,
            QStringLiteral("%1 is encrypted, and there is no terminal to ask for its password on; give it with "
                           "--password-file FILE")
                .arg(device)};
    const int code = onTerminal ? askOnTerminal(device, &password) : readFrom(file, &password);
    if (code == 0)
        return;
    devicehost::wipe(&password);
    if (code == EINTR)
        throw Failure{ExitInterrupted, QStringLiteral("interrupted")};
    throw Failure{ExitUsage, QStringLiteral("the password cannot be read from %1: %2; name a file whose first line is "
                                            "the password")
                                 .arg(onTerminal ? QStringLiteral("the terminal") : quoted(file), reasonFor(code))};
}

Password::~Password()
{
    devicehost::wipe(&password);
}

} // namespace photocli
