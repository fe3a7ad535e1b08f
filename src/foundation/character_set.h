// Sets of byte values, as lexemes and fields ask for them: one bit for each byte, fixed at compile time.
//
// All sets are of ASCII; no locale has a say in them.
#ifndef FOUNDATION_CHARACTER_SET_H
#define FOUNDATION_CHARACTER_SET_H

#include <array>
#include <cstdint>
#include <string_view>

#include "foundation/const_data.h"

// Byte c is bit (c & 31) of word (c >> 5).
class CharacterSet {
public:
    constexpr CharacterSet() = default;
    constexpr explicit CharacterSet(std::string_view members) {
        for (const char c : members) {
            Add(static_cast<unsigned char>(c));
        }
    }

    // The bytes from `first` to `last`, both included.
    static constexpr CharacterSet Between(unsigned char first, unsigned char last) {
        CharacterSet set;
        for (unsigned c = first; c <= last; ++c) {
            set.Add(static_cast<unsigned char>(c));
        }
        return set;
    }

    constexpr bool Contains(unsigned char c) const { return (words_[c >> 5] >> (c & 31) & 1) != 0; }

    constexpr CharacterSet operator|(const CharacterSet& other) const {
        CharacterSet set;
        for (size_t i = 0; i < words_.size(); ++i) {
            set.words_[i] = words_[i] | other.words_[i];
        }
        return set;
    }

    // Where the members that `text` begins with end.
    const unsigned char* Span(ConstData text) const {
        while (text.begin != text.end && Contains(*text.begin)) {
            ++text.begin;
        }
        return text.begin;
    }

private:
    constexpr void Add(unsigned char c) { words_[c >> 5] |= uint32_t{1} << (c & 31); }

    std::array<uint32_t, 8> words_{};
};

namespace CharacterSets {

inline constexpr CharacterSet whiteSpace(" \t");
inline constexpr CharacterSet lineWhiteSpace(" \t\n\r");
inline constexpr CharacterSet digits = CharacterSet::Between('0', '9');
inline constexpr CharacterSet hexadecimalDigits =
    digits | CharacterSet::Between('A', 'F') | CharacterSet::Between('a', 'f');
inline constexpr CharacterSet upperLetters = CharacterSet::Between('A', 'Z');
inline constexpr CharacterSet lowerLetters = CharacterSet::Between('a', 'z');
inline constexpr CharacterSet letters = upperLetters | lowerLetters;
inline constexpr CharacterSet lettersAndDigits = letters | digits;
inline constexpr CharacterSet lettersAndUnderscore = letters | CharacterSet("_");
inline constexpr CharacterSet wordCharacters = lettersAndDigits | CharacterSet("_");
inline constexpr CharacterSet punctuation = CharacterSet::Between('!', '/') | CharacterSet::Between(':', '@') |
                                            CharacterSet::Between('[', '`') | CharacterSet::Between('{', '~');
inline constexpr CharacterSet lowHalf = CharacterSet::Between(0, 127);
inline constexpr CharacterSet highHalf = CharacterSet::Between(128, 255);

}  // namespace CharacterSets

// The value of a hexadecimal digit of either case; `digit` must be one.
constexpr unsigned HexadecimalDigitValue(unsigned char digit) {
    return digit <= '9' ? digit - '0' : (digit | 0x20u) - 'a' + 10;
}

#endif
