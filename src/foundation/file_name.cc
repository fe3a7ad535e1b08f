#include "foundation/file_name.h"

#include <algorithm>

#include "foundation/ascii.h"
#include "foundation/wildcard.h"

namespace {

constexpr size_t longestName = 255;

bool SameText(std::string_view a, std::string_view b, bool ignoreCase) {
    return ignoreCase ? Ascii::CompareIgnoringCase(ConstData(a), ConstData(b)) == 0 : a == b;
}

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

// What is cut from a name and leaves nothing is a wrong name, not one of a wrong length.
FileName Remainder(std::string_view text) {
    if (text.empty()) {
        throw IllegalFileName();
    }
    return FileName(text);
}

}  // namespace

std::string_view FileName::Checked(std::string_view text) {
    if (text.empty() || text.size() > longestName) {
        throw IllegalFileNameLength();
    }
    if (text == "." || text == ".." || text.find('/') != std::string_view::npos) {
        throw IllegalFileName();
    }
    return text;
}

bool FileName::hasSuffix(std::string_view suffix, bool ignoreCase) const {
    return suffix.size() <= Length() && SameText(Text().substr(Length() - suffix.size()), suffix, ignoreCase);
}

bool FileName::hasPrefix(std::string_view prefix, bool ignoreCase) const {
    return prefix.size() <= Length() && SameText(Text().substr(0, prefix.size()), prefix, ignoreCase);
}

bool FileName::hasExtension(std::string_view extension, bool ignoreCase) const {
    if (!hasSuffix(extension, ignoreCase)) {
        return false;
    }
    if (!extension.empty() && extension.front() == '.') {
        return true;
    }
    return Length() > extension.size() && Text()[Length() - extension.size() - 1] == '.';
}

FileName FileName::withoutExtension(std::string_view extension, bool ignoreCase) const {
    if (!hasExtension(extension, ignoreCase)) {
        throw ExtensionDoesNotMatch();
    }
    const size_t dot = !extension.empty() && extension.front() == '.' ? 0 : 1;
    return Remainder(Text().substr(0, Length() - extension.size() - dot));
}

FileName FileName::withoutPrefix(std::string_view prefix, bool ignoreCase) const {
    if (!hasPrefix(prefix, ignoreCase)) {
        throw PrefixDoesNotMatch();
    }
    return Remainder(Text().substr(prefix.size()));
}

FileName FileName::leadingDigits() const {
    const std::string_view text = Text();
    const size_t count = static_cast<size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
    return Remainder(text.substr(0, count));
}

FileName FileName::stem() const {
    const size_t dot = Text().rfind('.');
    return dot == std::string_view::npos ? *this : FileName(Text().substr(0, dot));
}

bool FileName::matches(std::string_view pattern) const { return MatchesWildcard(Text(), pattern); }

int FileName::Compare(const FileName& other) const {
    return Ascii::CompareIgnoringCase(ConstData(Text()), ConstData(other.Text()));
}

FileName FileName::Joined(std::string_view a, std::string_view b) {
    const size_t length = a.size() + b.size();
    if (length + 1 > longestName) {
        throw IllegalFileName();
    }
    char buffer[longestName];
    std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), buffer));
    return FileName(std::string_view(buffer, length));
}
