#ifndef APPS_CLI_OUTPUT_OUTPUT_H
#define APPS_CLI_OUTPUT_OUTPUT_H

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <memory>

namespace photocli
{

/// Buffered bytes to a file descriptor, with every write checked. The first error sticks: later bytes are dropped.
/// Used by one thread.
class Output
{
public:
    /// Does not own `descriptor`. `name` is what messages call it.
    explicit Output(int descriptor = 1, QString name = QStringLiteral("standard output"));

    /// Does not flush: finish() does, and reports.
    ~Output() = default;
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void write(const QByteArray &bytes);
    void write(const QString &text) { write(text.toUtf8()); }
    void write(const char *text) { write(QByteArray::fromRawData(text, static_cast<int>(qstrlen(text)))); }

    /// One byte.
    void put(char byte)
    {
        if (used == capacity)
            flush();
        buffer[used++] = byte;
    }

    /// Hands everything written so far to the system.
    void flush();

    /// False once there is no point in writing more: an error was met, the reader has gone, or the user interrupts.
    bool wanted() const;

    /// Flushes and throws a Failure when something could not be written. A reader that closed its end of a pipe, such
    /// as `head`, has seen what it wanted: no failure.
    void finish();

    /// Whether the bytes go straight to a terminal.
    bool isTerminal() const { return terminal; }

private:
    int fd;
    QString title;
    bool terminal;
    int error = 0; ///< errno of the first failed write
    static constexpr size_t capacity = 64 * 1024;
    size_t used = 0;
    std::unique_ptr<char[]> buffer;
};

} // namespace photocli

#endif
