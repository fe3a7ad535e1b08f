#include "values/registry_walk.h"

#include <algorithm>

#include "foundation/stack_allocator.h"

inspector_string Joined(std::initializer_list<std::string_view> pieces) {
    size_t length = 0;
    for (std::string_view piece : pieces) {
        length += piece.size();
    }
    char* const start = static_cast<char*>(InspectorAllocate(length));
    char* out = start;
    for (std::string_view piece : pieces) {
        out = std::copy(piece.begin(), piece.end(), out);
    }
    return {start, length};
}
