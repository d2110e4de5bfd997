#ifndef PHOTOLIB_DB_TEXT_POOL_H
#define PHOTOLIB_DB_TEXT_POOL_H

#include "photolib/db/statement.h"

#include <QString>

#include <functional>
#include <map>
#include <string>

namespace photolib
{

/// Texts of one column that come again and again, such as directories: equal ones share their characters. One pool a
/// column, for as long as its statement runs.
class TextPool
{
public:
    TextPool() = default;
    TextPool(const TextPool &) = delete;
    TextPool &operator=(const TextPool &) = delete;

    /// The same as Row::text().
    QString text(const Row &row, int column);

private:
    /// A column whose every row has another text gains nothing here, and must not be held twice for it.
    static constexpr std::size_t mostTexts = 4096;

    using Texts = std::map<std::string, QString, std::less<>>;
    Texts texts;
    Texts::const_iterator last = texts.end();
};

} // namespace photolib

#endif
