#include "photolib/db/key_set.h"

#include <QRandomGenerator>

namespace photolib
{

quint64 KeyHash::secret() noexcept
{
    static const quint64 value = QRandomGenerator::system()->generate64();
    return value;
}

} // namespace photolib
