#ifndef TESTING_SQL_VALUE_H
#define TESTING_SQL_VALUE_H

#include <QByteArray>
#include <QLatin1String>
#include <QString>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <variant>

namespace testkit
{

/// A value for any column of any row: one of SQLite's five storage classes.
///
/// Converts implicitly, so that a test can write {"ZUUID", nullptr}, {"ZKIND", "1"} or {"ZWIDTH", 2.5}. A plain value
/// type. The column's declared type may still convert what is stored, as SQLite does with every value.
class SqlValue
{
public:
    /// Text whose bytes are stored as they stand, valid UTF-8 or not.
    struct TextBytes {
        QByteArray bytes;
        friend bool operator==(const TextBytes &a, const TextBytes &b) { return a.bytes == b.bytes; }
    };
    using Storage = std::variant<std::monostate, qint64, double, TextBytes, QByteArray>;

    SqlValue() = default; ///< NULL
    SqlValue(std::nullptr_t) {}
    template <typename Integer, std::enable_if_t<std::is_integral_v<Integer>, int> = 0>
    SqlValue(Integer value) : held(static_cast<qint64>(value))
    {
    }
    SqlValue(double value) : held(value) {}
    SqlValue(const char *text) : held(TextBytes{QByteArray(text)}) {}
    SqlValue(QLatin1String text) : SqlValue(QString(text)) {}
    SqlValue(const QString &text) : held(TextBytes{text.toUtf8()}) {}
    SqlValue(TextBytes text) : held(std::move(text)) {}
    SqlValue(QByteArray blob) : held(std::move(blob)) {}

    /// NULL for a null QString, text (also the empty one) for any other.
    static SqlValue textOrNull(const QString &text) { return text.isNull() ? SqlValue() : SqlValue(text); }

    bool isNull() const { return std::holds_alternative<std::monostate>(held); }
    const Storage &storage() const { return held; }

    /// As an SQL literal: NULL, 5, 2.5, 'text', x'00ff'.
    QString literal() const
    {
        if (const auto *number = std::get_if<qint64>(&held))
            return QString::number(*number);
        if (const auto *real = std::get_if<double>(&held)) {
            const QString digits = QString::number(*real, 'g', 17);
            return digits.contains(QLatin1Char('.')) || digits.contains(QLatin1Char('e'))
                       ? digits
                       : digits + QLatin1String(".0");
        }
        if (const auto *text = std::get_if<TextBytes>(&held))
            return QLatin1Char('\'') + QString::fromUtf8(text->bytes).replace(QLatin1Char('\''), QLatin1String("''")) +
                   QLatin1Char('\'');
        if (const auto *blob = std::get_if<QByteArray>(&held))
            return QLatin1String("x'") + QString::fromLatin1(blob->toHex()) + QLatin1Char('\'');
        return QStringLiteral("NULL");
    }

    /// Equal only when the storage class is the same too: 5 is not 5.0, and 'a' is not x'61'.
    friend bool operator==(const SqlValue &a, const SqlValue &b) { return a.held == b.held; }
    friend bool operator!=(const SqlValue &a, const SqlValue &b) { return !(a == b); }

private:
    Storage held;
};

} // namespace testkit

#endif
