#include "photolib/db/text_pool.h"

#include <string_view>

namespace photolib
{

QString TextPool::text(const Row &row, int column)
{
    const char *const utf8 = row.utf8(column);
    if (!utf8)
        return QString(QLatin1String(""));
    const std::string_view wanted(utf8);
    if (last != texts.end() && last->first == wanted)
        return last->second;
    auto known = texts.find(wanted);
    if (known == texts.end()) {
        if (texts.size() == mostTexts) {
            texts.clear();
            last = texts.end();
        }
        known = texts.emplace(wanted, row.text(column)).first;
    }
    last = known;
    return last->second;
}

} // namespace photolib
