#include "testing/log_recorder.h"

#include "photolib/host/log.h"
#include "testing/operation.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <utility>
#include <vector>

namespace testkit
{
namespace
{

struct Recorders {
    std::mutex mutex;
    std::vector<LogRecorder *> alive; ///< oldest first
};

Recorders &recorders()
{
    static Recorders instance;
    return instance;
}

LogRecorder *newestRecorder()
{
    Recorders &all = recorders();
    const std::lock_guard<std::mutex> lock(all.mutex);
    return all.alive.empty() ? nullptr : all.alive.back();
}

QByteArray __attribute__((format(printf, 1, 0))) formatted(const char *format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0)
        return "(a message that cannot be formatted)";
    QByteArray message(length + 1, '\0');
    std::vsnprintf(message.data(), static_cast<std::size_t>(length) + 1, format, arguments);
    message.chop(1);
    return message;
}

} // namespace

LogRecorder::LogRecorder()
{
    Recorders &all = recorders();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.alive.push_back(this);
}

LogRecorder::~LogRecorder()
{
    {
        Recorders &all = recorders();
        const std::lock_guard<std::mutex> lock(all.mutex);
        for (auto recorder = all.alive.begin(); recorder != all.alive.end();)
            recorder = *recorder == this ? all.alive.erase(recorder) : std::next(recorder);
    }
    for (const QString &line : unconsumed)
        ADD_FAILURE() << "unexpected log line: " << line.toStdString();
}

void LogRecorder::expectLine(const QString &line, const char *file, int atLine)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (unconsumed.isEmpty())
        ADD_FAILURE_AT(file, atLine) << "no log line is left, expected: " << line.toStdString();
    else if (unconsumed.first() != line)
        ADD_FAILURE_AT(file, atLine) << "expected log line: " << line.toStdString()
                                     << "\n     the next one is: " << unconsumed.first().toStdString();
    else
        unconsumed.removeFirst();
}

void LogRecorder::expectLines(const QStringList &lines, const char *file, int atLine)
{
    for (const QString &line : lines)
        expectLine(line, file, atLine);
}

QStringList LogRecorder::takeAll()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(unconsumed, QStringList());
}

QStringList LogRecorder::consumeMatching(const QString &part)
{
    const std::lock_guard<std::mutex> lock(mutex);
    QStringList consumed;
    QStringList others;
    for (const QString &line : std::as_const(unconsumed))
        (line.contains(part) ? consumed : others).append(line);
    unconsumed = others;
    return consumed;
}

QStringList LogRecorder::lines() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return unconsumed;
}

void LogRecorder::onLine(std::function<void(const QString &)> newHook)
{
    const std::lock_guard<std::mutex> lock(mutex);
    hook = std::move(newHook);
}

void LogRecorder::receive(const QString &line)
{
    std::function<void(const QString &)> called;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        unconsumed.append(line);
        called = hook;
    }
    if (called)
        called(line);
}

} // namespace testkit

void Log(const char *tag, int level, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QByteArray message = testkit::formatted(format, arguments);
    va_end(arguments);
    const QString line = testkit::readableText(QByteArray(tag) + ' ' + QByteArray::number(level) + ' ' + message);
    testkit::LogRecorder *recorder = testkit::newestRecorder();
    if (recorder == nullptr)
        ADD_FAILURE() << "log line with no LogRecorder alive: " << line.toStdString();
    else
        recorder->receive(line);
}
