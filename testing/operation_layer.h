#ifndef TESTING_OPERATION_LAYER_H
#define TESTING_OPERATION_LAYER_H

#include "testing/operation.h"

namespace testkit
{

/// Something that carries out host operations: the made-up files themselves, or a layer above that spoils some
/// operations and passes the others on.
class OperationLayer
{
public:
    /// Carries out `operation` and sets its `result`. Handles are numbers here, and only such as are open. Calls come
    /// one at a time.
    virtual void perform(Operation &operation) = 0;

protected:
    OperationLayer() = default;
    ~OperationLayer() = default;
    OperationLayer(const OperationLayer &) = default;
    OperationLayer &operator=(const OperationLayer &) = default;
};

} // namespace testkit

#endif
