#include "testing/operation.h"

#include <sqlite3.h>

namespace testkit
{
namespace
{

bool isUtf8(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).toUtf8() == bytes;
}

/// Length of the UTF-8 sequence at `position`, 0 when there is none.
int sequenceLength(const QByteArray &bytes, int position)
{
    for (int length = 1; length <= 4 && position + length <= bytes.size(); ++length) {
        if (isUtf8(bytes.mid(position, length)))
            return length;
    }
    return 0;
}

QString quoted(const QByteArray &bytes)
{
    QString text = readableText(bytes);
    text.replace('"', "\\\"");
    return '"' + text + '"';
}

QString handleName(const char *prefix, qint64 number)
{
    return number == 0 ? QString("null") : prefix + QString::number(number);
}

QString deviceName(qint64 number)
{
    return handleName("dev", number);
}

QString fileName(qint64 number)
{
    return handleName("file", number);
}

QString yesOrNo(qint64 value)
{
    return value != 0 ? QString("true") : QString("false");
}

} // namespace

QString readableText(const QByteArray &bytes)
{
    if (isUtf8(bytes))
        return QString::fromUtf8(bytes);
    QString text;
    for (int position = 0; position < bytes.size();) {
        const int length = sequenceLength(bytes, position);
        if (length == 0)
            text += "\\x" + QString::fromLatin1(bytes.mid(position, 1).toHex().toUpper());
        else
            text += QString::fromUtf8(bytes.mid(position, length));
        position += length == 0 ? 1 : length;
    }
    return text;
}

QString Operation::text() const
{
    const QString path = quoted(shownPath);
    const QString answer = " = " + QString::number(result);
    switch (kind) {
    case OperationKind::OpenDevice:
        return "vDevOpen " + QString::number(fileSystem) + ' ' + path + " = " + deviceName(result);
    case OperationKind::CloseDevice:
        return "vDevClose " + deviceName(device);
    case OperationKind::CreateFolder:
        return "vDevCreateDir " + deviceName(device) + ' ' + path + answer;
    case OperationKind::OpenFile:
        return "vFileOpen " + deviceName(device) + ' ' + path + ' ' + QString::number(mode) + " = " + fileName(result);
    case OperationKind::CloseFile:
        return "vFileClose " + fileName(file);
    case OperationKind::Read:
        return "vFileRead " + fileName(file) + ' ' + QString::number(size) + answer;
    case OperationKind::Write:
        return "vFileWrite " + fileName(file) + ' ' + QString::number(size) + answer;
    case OperationKind::Seek:
        return "vFileSeek " + fileName(file) + ' ' + QString::number(offset) + ' ' + QString::number(origin) + answer;
    case OperationKind::Tell:
        return "vFileTell " + fileName(file) + answer;
    case OperationKind::OpenSqlite:
        return "openSqlite " + path + answer;
    case OperationKind::PrepareSqlite:
        return "prepareSqlite " + path + answer;
    case OperationKind::CloseSqlite:
        return "closeSqlite";
    case OperationKind::ShouldStop:
        return "shouldStop = " + yesOrNo(result);
    case OperationKind::DevicePath:
        return "devicePath = " + path;
    case OperationKind::IsAvailable:
        return "isAvailable = " + yesOrNo(result);
    case OperationKind::LocalDataFolder:
        return "localDataFolder = " + path;
    }
    return QString();
}

void Operation::fail()
{
    switch (kind) {
    case OperationKind::OpenDevice:
    case OperationKind::OpenFile:
        result = 0;
        break;
    case OperationKind::OpenSqlite:
        *openedConnection = nullptr;
        result = SQLITE_CANTOPEN;
        break;
    case OperationKind::PrepareSqlite:
        *statement = nullptr;
        result = SQLITE_ERROR;
        break;
    default:
        result = -1;
        break;
    }
}

} // namespace testkit
