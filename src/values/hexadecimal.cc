// Strings as hexadecimal text and back: two digits to a byte, the high half first.
#include <array>

#include "evaluator/adapters.h"

namespace {

constexpr char kDigits[] = "0123456789abcdef";

// The value of each digit of either case, -1 for any other byte.
constexpr auto kValues = [] {
    std::array<signed char, 256> values{};
    values.fill(-1);
    for (signed char i = 0; i < 16; ++i) {
        const auto digit = static_cast<unsigned char>(kDigits[i]);
        values[digit] = i;
        if (i >= 10) {
            values[digit - 'a' + 'A'] = i;
        }
    }
    return values;
}();

int ValueOf(char digit) { return kValues[static_cast<unsigned char>(digit)]; }

inspector_string AsHexadecimalString(const inspector_string& bytes) {
    char* text = static_cast<char*>(InspectorAllocate(2 * bytes.length));
    for (size_t i = 0; i < bytes.length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes.start[i]);
        text[2 * i] = kDigits[byte >> 4];
        text[2 * i + 1] = kDigits[byte & 15];
    }
    return {text, 2 * bytes.length};
}

std::optional<inspector_string> string_of_hexadecimal(const inspector_string& text) {
    if (text.length % 2 != 0) {
        return std::nullopt;
    }
    const size_t length = text.length / 2;
    char* bytes = static_cast<char*>(InspectorAllocate(length));
    for (size_t i = 0; i < length; ++i) {
        const int high = ValueOf(text.start[2 * i]);
        const int low = ValueOf(text.start[2 * i + 1]);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        bytes[i] = static_cast<char>(high << 4 | low);
    }
    return inspector_string(bytes, length);
}

// clang-format off
NamedGlobalProperty<inspector_string, string_of_hexadecimal>                ofHexadecimal  {"hexadecimal string", "hexadecimal strings"};
Cast<inspector_string, inspector_string, AsHexadecimalString>               toHexadecimal  {"hexadecimal"};
// clang-format on

}  // namespace
