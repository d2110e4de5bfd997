#ifndef PHOTOLIB_DB_KEY_SET_H
#define PHOTOLIB_DB_KEY_SET_H

#include <QtGlobal>

#include <cstddef>
#include <unordered_map>
#include <unordered_set>

namespace photolib
{

/// Hashes keys that a stranger has chosen. Qt's own hash of numbers only folds their halves together, so a database can
/// hold any number of keys that all fall on one place, and each insertion then looks at all the others.
class KeyHash
{
public:
    std::size_t operator()(qint64 key) const noexcept
    {
        quint64 value = static_cast<quint64>(key) + secret();
        value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
        value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
        return value ^ (value >> 31U);
    }

private:
    /// Another one in each process.
    static quint64 secret() noexcept;
};

using KeySet = std::unordered_set<qint64, KeyHash>;

template <typename Value>
using KeyMap = std::unordered_map<qint64, Value, KeyHash>;

} // namespace photolib

#endif
