#include "apps/cli/password.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "devicehost/backup/secret_bytes.h"
#include "devicehost/vdev/unique_fd.h"
#include "devicehost/vdev/verror.h"

#include <fcntl.h>
#include <poll.h>
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

/// Shows nothing that is typed, for as long as it lives. A signal that would end the program is held back, and noted
/// when waitForInput() lets it through: one that came between a look and the wait would be slept over.
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
        sigset_t held;
        ::sigemptyset(&held);
        for (const int number : signals)
            ::sigaddset(&held, number);
        ::sigprocmask(SIG_BLOCK, &held, &maskBefore);
        struct sigaction action = {};
        action.sa_handler = &noteSignal;
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], &action, &handlers[i]);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }

    ~SilentTerminal()
    {
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before);
        ::sigprocmask(SIG_SETMASK, &maskBefore, nullptr); // what is pending is noted now
        for (std::size_t i = 0; i < signals.size(); ++i)
            ::sigaction(signals[i], &handlers[i], nullptr);
    }

    /// False when a signal came.
    bool waitForInput() const
    {
        pollfd input = {STDIN_FILENO, POLLIN, 0};
        while (caughtSignal == 0 && ::ppoll(&input, 1, nullptr, &maskBefore) < 0 && errno == EINTR) {
        }
        return caughtSignal == 0;
    }

    SilentTerminal(const SilentTerminal &) = delete;
    SilentTerminal &operator=(const SilentTerminal &) = delete;

private:
    static constexpr std::array<int, 4> signals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
    termios before = {};
    sigset_t maskBefore = {};
    std::array<struct sigaction, 4> handlers = {};
};

/// Up to the end of the first line. An errno value; 0 on success. EFBIG for a line without end.
int readLine(int file, QByteArray *line)
{
    line->reserve(mostBytes + 1); // so that no copy of it stays behind
    for (;;) {
        char byte = 0;
        const ssize_t count = ::read(file, &byte, 1);
        if (count < 0 && errno == EINTR)
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
    int code = EINTR;
    {
        const SilentTerminal silence; // from before the question on: nothing of the answer is shown or lost
        printPrompt(QStringLiteral("Password of %1: ").arg(device));
        if (silence.waitForInput()) // a terminal gives whole lines
            code = readLine(STDIN_FILENO, password);
    }
    return caughtSignal == 0 ? code : EINTR;
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
