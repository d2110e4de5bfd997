#include "photolib/photo_manager.h"

#include <QDateTime>
#include <QMutexLocker>
#include <QtEndian>

namespace
{

constexpr int uuidSize = 16;

// 36 characters, the bytes in memory order: no field is swapped.
QByteArray textOf(const QByteArray &raw)
{
    const QByteArray digits = raw.toHex().toUpper();
    return digits.mid(0, 8) + '-' + digits.mid(8, 4) + '-' + digits.mid(12, 4) + '-' + digits.mid(16, 4) + '-' +
           digits.mid(20);
}

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

// Hosts know the identifiers that Qt's old generator gives.
void seed()
{
    qsrand(QDateTime::currentDateTime().toTime_t());
}

QByteArray draw()
{
    const auto high = static_cast<quint64>(qrand());
    const auto low = static_cast<quint64>(qrand()); // widened with its sign, as `high` is
    QByteArray raw(uuidSize, '\0');
    qToLittleEndian((high << 32) | low, raw.data() + uuidSize / 2);
    return raw;
}

QT_WARNING_POP

} // namespace

// Every call seeds anew, so two calls within a second draw the same numbers: the second finds its first draw taken and
// goes on drawing.
QByteArray photo_manager::generateUuid()
{
    const QMutexLocker lock(&uuidMutex);
    seed();
    for (;;) {
        if (!photosDb)
            return QByteArray(uuidSize, 'a');
        const QByteArray raw = draw();
        if (knownUuids.contains(raw) || knownUuids.contains(textOf(raw)))
            continue;
        knownUuids.insert(raw, true);
        return raw;
    }
}
