#ifndef TESTING_OPERATION_RECORD_H
#define TESTING_OPERATION_RECORD_H

#include "testing/operation.h"

#include <QString>
#include <QStringList>

#include <mutex>
#include <vector>

namespace testkit
{

/// The operations that were carried out, in order. Threads: any; nothing else is called while its lock is held.
class OperationRecord
{
public:
    void append(const Operation &operation);

    /// The lines of the operations of these kinds.
    QStringList lines(OperationKinds kinds) const;

    int count(OperationKinds kinds) const;
    void clear();

private:
    struct Entry {
        OperationKind kind;
        QString line;
    };

    mutable std::mutex mutex;
    std::vector<Entry> entries;
};

} // namespace testkit

#endif
