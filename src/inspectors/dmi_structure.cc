#include "inspectors/dmi_structure.h"

#include "foundation/little_endian.h"

bool DmiStructure::IsWhole(ConstData bytes) {
    return bytes.Length() >= kHeaderLength && bytes.begin[1] >= kHeaderLength && bytes.begin[1] <= bytes.Length();
}

std::optional<std::string_view> DmiStructure::Bytes(size_t offset, size_t length) const {
    if (offset + length > Length()) {
        return std::nullopt;
    }
    return All().View().substr(offset, length);
}

std::optional<uint64_t> DmiStructure::Number(size_t offset, size_t width) const {
    const std::optional<std::string_view> bytes = Bytes(offset, width);
    return bytes ? std::optional(LittleEndian(*bytes)) : std::nullopt;
}

std::optional<std::string_view> DmiStructure::StringAt(size_t offset) const {
    const std::optional<uint64_t> number = Number(offset, 1);
    return number ? NumberedString(*number) : std::nullopt;
}

std::optional<std::string_view> DmiStructure::NumberedString(uint64_t number) const {
    if (number == 0) {
        return std::nullopt;
    }
    std::string_view rest = All().View().substr(Length());
    for (;; --number) {
        const size_t end = rest.find('\0');
        // The empty string closes the set; one without its end is none of it.
        if (end == std::string_view::npos || end == 0) {
            return std::nullopt;
        }
        if (number == 1) {
            return rest.substr(0, end);
        }
        rest.remove_prefix(end + 1);
    }
}
