#include "testing/made_values.h"

namespace testkit
{

namespace
{

// The finaliser of the SplitMix64 generator: neighbouring inputs give unrelated outputs.
quint64 mix(quint64 value)
{
    value += Q_UINT64_C(0x9E3779B97F4A7C15);
    value = (value ^ (value >> 30)) * Q_UINT64_C(0xBF58476D1CE4E5B9);
    value = (value ^ (value >> 27)) * Q_UINT64_C(0x94D049BB133111EB);
    return value ^ (value >> 31);
}

} // namespace

QString madeUuid(UuidUse use, qint64 ordinal)
{
    const quint64 seed = mix(static_cast<quint64>(use)) ^ static_cast<quint64>(ordinal);
    const quint64 high = mix(seed);
    const quint64 low = mix(high ^ seed);
    const quint64 bits[2] = {(high & ~Q_UINT64_C(0xF000)) | 0x4000,
                             (low & ~(Q_UINT64_C(3) << 62)) | (Q_UINT64_C(2) << 62)};
    constexpr char digits[] = "0123456789ABCDEF";
    QString text;
    text.reserve(36);
    for (int digit = 0; digit < 32; ++digit) {
        if (digit == 8 || digit == 12 || digit == 16 || digit == 20)
            text += QLatin1Char('-');
        text += QLatin1Char(digits[(bits[digit / 16] >> (60 - 4 * (digit % 16))) & 15]);
    }
    return text;
}

QString cameraRollFolder(qint64 ordinal)
{
    return QStringLiteral("DCIM/%1APPLE").arg(100 + ordinal / 1000);
}

QString cameraRollName(qint64 ordinal, const QString &suffix)
{
    return QStringLiteral("IMG_%1.%2").arg(ordinal % 10000, 4, 10, QLatin1Char('0')).arg(suffix);
}

} // namespace testkit
