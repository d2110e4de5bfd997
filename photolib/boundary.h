#ifndef PHOTOLIB_BOUNDARY_H
#define PHOTOLIB_BOUNDARY_H

namespace photolib
{

/// Runs the body of a slot so that no exception crosses into the host: when memory runs short, the slot answers
/// `onFailure`.
template <typename Result, typename Body>
Result guarded(Result onFailure, Body body) noexcept
{
    try {
        return body();
    } catch (...) {
        return onFailure;
    }
}

} // namespace photolib

#endif
