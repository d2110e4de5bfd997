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

quint64 draw()
{
    const auto high = static_cast<quint64>(qrand());
    const auto low = static_cast<quint64>(qrand()); // widened with its sign, as `high` is
    return (high << 32) | low;
}

QT_WARNING_POP

QByteArray identifierOf(quint64 drawn)
{
    QByteArray raw(uuidSize, '\0');
    qToLittleEndian(drawn, raw.data() + uuidSize / 2);
    return raw;
}

} // namespace

// Every call seeds anew, so two calls within a second draw the same numbers: the second finds its first draw taken and
// goes on drawing. An identifier that was taken stays so, and need not be looked up again when it is drawn again.
QByteArray photo_manager::generateUuid()
{
    const QMutexLocker lock(&uuidMutex);
    seed();
    for (std::size_t count = 0;; ++count) {
        if (!photosDb)
            return QByteArray(uuidSize, 'a');
        const quint64 drawn = draw();
        if (count < passedDraws.size() && passedDraws[count] == drawn)
            continue;
        const QByteArray raw = identifierOf(drawn);
        const bool isTaken = knownUuids.contains(raw) || knownUuids.contains(textOf(raw));
        passedDraws.resize(count); // what follows is of another second
        if (passedDraws.capacity() == count)
            passedDraws.reserve(2 * count + 16); // before anything is taken: memory may be short
        if (!isTaken)
            knownUuids.insert(raw, true);
        passedDraws.push_back(drawn);
        if (!isTaken)
            return raw;
    }
}
