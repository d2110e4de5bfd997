#include "devicehost/log_sink.h"

#include "devicehost/local_path.h"
#include "photolib/host/log.h"

#include <QFile>
#include <QLoggingCategory>

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace devicehost
{

namespace
{

// Silent unless asked for, as with QT_LOGGING_RULES="photolib=true".
Q_LOGGING_CATEGORY(category, "photolib", QtCriticalMsg)

using Listener = std::function<void(const LogLine &)>;

struct Sinks {
    std::mutex mutex;
    std::unique_ptr<QFile> file;
    std::shared_ptr<const Listener> listener;
};

Sinks &sinks()
{
    // Never destroyed: destructors of static objects may still log.
    static Sinks &instance = *new Sinks;
    return instance;
}

/// One call is one line, and no byte of a foreign name steers a terminal.
QString onOneLine(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            line += QLatin1String("\\n");
        else if (c == QLatin1Char('\r'))
            line += QLatin1String("\\r");
        else if (c.category() == QChar::Other_Control && c != QLatin1Char('\t'))
            line += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            line += c;
    }
    return line;
}

__attribute__((format(printf, 1, 0))) QString formatted(const char *format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::vector<char> buffer(length < 0 ? 1 : static_cast<std::size_t>(length) + 1);
    if (length >= 0)
        std::vsnprintf(buffer.data(), buffer.size(), format, again);
    va_end(again);
    return length < 0 ? QString::fromUtf8(format) : QString::fromUtf8(buffer.data(), length);
}

void writeToCategory(const LogLine &line)
{
    const QString text = onOneLine(line.tag + QLatin1Char(' ') + line.message);
    if (line.level >= 2)
        qCWarning(category).noquote() << text;
    else
        qCInfo(category).noquote() << text;
}

void deliver(const LogLine &line)
{
    writeToCategory(line);
    std::shared_ptr<const Listener> listener;
    {
        Sinks &targets = sinks();
        const std::lock_guard<std::mutex> lock(targets.mutex);
        listener = targets.listener;
        if (targets.file != nullptr) {
            const QString text = onOneLine(QStringLiteral("%1 %2 ").arg(line.tag).arg(line.level) + line.message);
            targets.file->write(text.toUtf8() + '\n');
        }
    }
    if (listener != nullptr) // without the lock: a listener may log, too
        (*listener)(line);
}

} // namespace

bool setLogFile(const QString &path, QString *error)
{
    std::unique_ptr<QFile> file;
    if (!path.isEmpty()) {
        file = std::make_unique<QFile>(absoluteLocalPath(path));
        // Unbuffered: every line is in the file when the program dies.
        if (!file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
            if (error != nullptr)
                *error = file->errorString();
            return false;
        }
    }
    const std::lock_guard<std::mutex> lock(sinks().mutex);
    sinks().file = std::move(file);
    return true;
}

void setLogListener(std::function<void(const LogLine &)> listener)
{
    auto next = listener ? std::make_shared<const Listener>(std::move(listener)) : nullptr;
    const std::lock_guard<std::mutex> lock(sinks().mutex);
    sinks().listener = std::move(next);
}

} // namespace devicehost

void Log(const char *tag, int level, const char *format, ...)
{
    if (format == nullptr)
        return;
    va_list arguments;
    va_start(arguments, format);
    try {
        devicehost::deliver({QString::fromUtf8(tag), level, devicehost::formatted(format, arguments)});
    } catch (const std::bad_alloc &) { // the library logs where nothing may be thrown; a line is less than the program
    }
    va_end(arguments);
}
