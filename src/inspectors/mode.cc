#include "inspectors/mode.h"

#include <sys/stat.h>

#include <array>

#include "evaluator/adapters.h"
#include "values/integer.h"

namespace {

template <size_t Count>
inspector_string InMemory(const std::array<char, Count>& characters) {
    auto* const text = static_cast<char*>(InspectorAllocate(Count));
    std::copy(characters.begin(), characters.end(), text);
    return {text, Count};
}

template <uint32_t Bit>
boolean Has(const mode& m) {
    return m.Has(Bit);
}

template <unsigned Shift>
mode_mask Mask(const mode& m) {
    return mode_mask(m.Digit(Shift));
}

template <uint8_t Bit>
boolean Allows(const mode_mask& mask) {
    return (mask.Bits() & Bit) != 0;
}

std::array<char, 3> Letters(unsigned bits) {
    return {(bits & 4) != 0 ? 'r' : '-', (bits & 2) != 0 ? 'w' : '-', (bits & 1) != 0 ? 'x' : '-'};
}

// The third letter of a class whose special bit is set: small where the class may execute, capital where not.
char SpecialLetter(char execute, char special) {
    return execute == 'x' ? special : static_cast<char>(special - 'a' + 'A');
}

// As in a long listing of files.
inspector_string ModeAsString(const mode& m) {
    struct Class {
        unsigned shift;
        uint32_t specialBit;
        char special;
    };
    static constexpr Class kClasses[] = {{6, S_ISUID, 's'}, {3, S_ISGID, 's'}, {0, S_ISVTX, 't'}};
    std::array<char, 9> text{};
    auto at = text.begin();
    for (const Class& users : kClasses) {
        std::array<char, 3> letters = Letters(m.Digit(users.shift));
        if (m.Has(users.specialBit)) {
            letters[2] = SpecialLetter(letters[2], users.special);
        }
        at = std::copy(letters.begin(), letters.end(), at);
    }
    return InMemory(text);
}

inspector_string ModeAsOctalString(const mode& m) {
    const auto digit = [&m](unsigned shift) { return static_cast<char>('0' + m.Digit(shift)); };
    return InMemory(std::array<char, 4>{digit(9), digit(6), digit(3), digit(0)});
}

inspector_string MaskAsString(const mode_mask& mask) { return InMemory(Letters(mask.Bits())); }

integer MaskAsInteger(const mode_mask& mask) { return mask.Bits(); }

// clang-format off
Type<mode>                                                          type;
Type<mode_mask>                                                     maskType;

Property<mode, boolean, Has<S_ISUID>>                               setUid        {"setuid", "setuids"};
Property<mode, boolean, Has<S_ISGID>>                               setGid        {"setgid", "setgids"};
Property<mode, boolean, Has<S_ISVTX>>                               sticky        {"sticky", "stickies"};
Property<mode, mode_mask, Mask<6>>                                  userMask      {"user mask", "user masks"};
Property<mode, mode_mask, Mask<3>>                                  groupMask     {"group mask", "group masks"};
Property<mode, mode_mask, Mask<0>>                                  otherMask     {"other mask", "other masks"};
Property<mode_mask, boolean, Allows<4>>                             read          {"read", "reads"};
Property<mode_mask, boolean, Allows<2>>                             write         {"write", "writes"};
Property<mode_mask, boolean, Allows<1>>                             execute       {"execute", "executes"};
Cast<inspector_string, mode, ModeAsString>                          toString      {"string"};
Cast<inspector_string, mode_mask, MaskAsString>                     maskToString  {"string"};
Cast<inspector_string, mode, ModeAsOctalString>                     toOctalString {"octal string"};
Cast<integer, mode_mask, MaskAsInteger>                             maskToInteger {"integer"};
// clang-format on

}  // namespace
