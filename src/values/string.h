// Making strings: what several units need to place text of their own in evaluation memory.
#ifndef VALUES_STRING_H
#define VALUES_STRING_H

#include <initializer_list>
#include <string_view>

#include "foundation/data_filter.h"
#include "registry/core_values.h"

// The text that `filter` makes of `text`, its held-back rest included, in evaluation memory.  `capacity` is the most
// that it can make.  Throws DataOverflow where that was wrong, NoInspectorAllocator, std::bad_alloc.
inspector_string FilteredString(const inspector_string& text, DataFilter& filter, size_t capacity);

// A copy of the bytes in evaluation memory.  Throws NoInspectorAllocator, std::bad_alloc.
inspector_string CopiedString(std::string_view text);

// The pieces one behind the other, in evaluation memory.  Throws as CopiedString does.
inspector_string JoinedString(std::initializer_list<std::string_view> pieces);

#endif
