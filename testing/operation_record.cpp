#include "testing/operation_record.h"

#include <algorithm>

namespace testkit
{

void OperationRecord::append(const Operation &operation)
{
    QString line = operation.text();
    const std::lock_guard<std::mutex> lock(mutex);
    entries.push_back({operation.kind, line});
}

QStringList OperationRecord::lines(OperationKinds kinds) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    QStringList result;
    for (const Entry &entry : entries) {
        if (kinds.testFlag(entry.kind))
            result.append(entry.line);
    }
    return result;
}

int OperationRecord::count(OperationKinds kinds) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return static_cast<int>(std::count_if(entries.begin(), entries.end(),
                                          [kinds](const Entry &entry) { return kinds.testFlag(entry.kind); }));
}

void OperationRecord::clear()
{
    const std::lock_guard<std::mutex> lock(mutex);
    entries.clear();
}

} // namespace testkit
