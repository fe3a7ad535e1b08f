// One component of a path, checked when it is made.
#ifndef FOUNDATION_FILE_NAME_H
#define FOUNDATION_FILE_NAME_H

#include <string_view>

#include "foundation/file_error.h"
#include "foundation/inline_text.h"

// 1 to 255 bytes without "/", and neither "." nor "..".  The one exception is the empty name, which only
// FileLocation::Name gives, for the empty location.  Names of up to 23 bytes do not touch the heap.
//
// Wherever `ignoreCase` is asked for, ASCII case is meant.  What an operation cuts out of a name is checked like any
// other name.
class FileName {
public:
    // Throws IllegalFileNameLength or IllegalFileName.
    explicit FileName(std::string_view text) : text_(Checked(text)) {}

    // Returns `text`, or throws as the constructor does.
    static std::string_view Checked(std::string_view text);

    // The name that is not checked: no text at all.
    static FileName Empty() noexcept { return FileName(); }

    std::string_view Text() const noexcept { return text_.View(); }
    const char* CString() const noexcept { return text_.CString(); }
    size_t Length() const noexcept { return text_.Length(); }

    bool hasSuffix(std::string_view suffix, bool ignoreCase) const;
    bool hasPrefix(std::string_view prefix, bool ignoreCase) const;

    // True when the name ends in `extension` and the dot that sets it off is there, as the extension's own first byte
    // or before it.
    bool hasExtension(std::string_view extension, bool ignoreCase) const;

    // The name before the extension and its dot.  Throws ExtensionDoesNotMatch, and IllegalFileName when nothing would
    // remain.
    FileName withoutExtension(std::string_view extension, bool ignoreCase) const;

    // The name after the prefix.  Throws PrefixDoesNotMatch, and IllegalFileName when nothing would remain.
    FileName withoutPrefix(std::string_view prefix, bool ignoreCase) const;

    // The digits that the name begins with.  Throws IllegalFileName when it begins with none.
    FileName leadingDigits() const;

    // The name before its last dot, or all of a name that has none.
    FileName stem() const;

    // The wildcard match of MatchesWildcard.
    bool matches(std::string_view pattern) const;

    // The order of names, which does not regard ASCII case: negative, 0 or positive.
    int Compare(const FileName& other) const;

    friend bool operator==(const FileName& a, const FileName& b) { return a.Compare(b) == 0; }
    friend bool operator!=(const FileName& a, const FileName& b) { return a.Compare(b) != 0; }
    friend bool operator<(const FileName& a, const FileName& b) { return a.Compare(b) < 0; }

    // Joined names end at 254 bytes, one less than a single name may have: kept as it stands.  A longer one throws
    // IllegalFileName.
    friend FileName operator+(const FileName& a, const FileName& b) { return Joined(a.Text(), b.Text()); }
    friend FileName operator+(const FileName& a, std::string_view b) { return Joined(a.Text(), b); }
    friend FileName operator+(std::string_view a, const FileName& b) { return Joined(a, b.Text()); }

private:
    FileName() noexcept = default;
    static FileName Joined(std::string_view a, std::string_view b);

    InlineText<24> text_;
};

#endif
