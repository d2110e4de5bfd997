#ifndef TESTS_UNIT_PHOTOLIB_PHOTO_ITEM_FIELDS_H
#define TESTS_UNIT_PHOTOLIB_PHOTO_ITEM_FIELDS_H

#include "photolib/photo_item.h"

#include <cstddef>
#include <functional>
#include <ostream>
#include <vector>

/// One field of photoItem, for tests that go over all of them.
struct PhotoField {
    const char *name;
    std::size_t offset;
    std::function<bool(const photoItem &)> hasDefault;
    std::function<void(photoItem &)> change; ///< gives the field a value that is not its default
    std::function<bool(const photoItem &, const photoItem &)> isSame;
};

inline void PrintTo(const PhotoField &field, std::ostream *out)
{
    *out << field.name;
}

/// All fields in the order of the binary interface.
const std::vector<PhotoField> &photoFields();

#endif
