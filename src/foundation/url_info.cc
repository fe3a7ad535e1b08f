#include "foundation/url_info.h"

#include <algorithm>

#include "foundation/ascii.h"
#include "foundation/character_set.h"

namespace {

constexpr CharacterSet kSchemeEnd(":/?#");
constexpr CharacterSet kAuthorityEnd("/?#");
constexpr CharacterSet kPathEnd("?#");
constexpr CharacterSet kQueryEnd("#");

// Takes from `text` what stands before the first byte of `ends`.
ConstData TakeUpTo(ConstData& text, const CharacterSet& ends) {
    const unsigned char* const begin = text.begin;
    text.begin = std::find_if(begin, text.end, [&](unsigned char byte) { return ends.Contains(byte); });
    return {begin, text.begin};
}

// Takes `prefix` from the beginning of `text`, if it stands there.
bool Take(ConstData& text, std::string_view prefix) {
    const bool found = text.View().starts_with(prefix);
    text.begin += found ? prefix.size() : 0;
    return found;
}

// The last `byte` of the range, or its end.
const unsigned char* FindLast(ConstData text, unsigned char byte) {
    for (const unsigned char* at = text.end; at != text.begin;) {
        if (*--at == byte) {
            return at;
        }
    }
    return text.end;
}

// The path that `reference` leads to from the place of `base`.
std::string Merge(std::string_view base, bool baseHasAuthority, std::string_view reference) {
    if (reference.starts_with('/')) {
        return std::string(reference);
    }
    if (baseHasAuthority && base.empty()) {
        return "/" + std::string(reference);
    }
    return std::string(base.substr(0, base.rfind('/') + 1)).append(reference);
}

}  // namespace

URLInfo::URLInfo(ConstData text) : text_(text) {
    ConstData rest = text;
    const ConstData scheme = TakeUpTo(rest, kSchemeEnd);
    if (Take(rest, ":")) {
        scheme_ = scheme;
    } else {
        rest = text;
    }
    if (Take(rest, "//")) {
        authority_ = TakeUpTo(rest, kAuthorityEnd);
        SplitAuthority();
    }
    const ConstData path = TakeUpTo(rest, kPathEnd);
    if (!path.Empty()) {
        path_ = path;
    }
    if (Take(rest, "?")) {
        query_ = TakeUpTo(rest, kQueryEnd);
    }
    if (Take(rest, "#")) {
        fragment_ = rest;
    }
}

void URLInfo::SplitAuthority() {
    ConstData rest = *authority_;
    const unsigned char* const at = FindLast(rest, '@');
    if (at != rest.end) {
        userInfo_ = ConstData(rest.begin, at);
        rest.begin = at + 1;
    }
    // The colons of a bracketed host are its own; a bracket that is never closed keeps all.
    ConstData afterBrackets = rest;
    if (rest.View().starts_with('[')) {
        afterBrackets.begin = std::find(rest.begin, rest.end, ']');
    }
    const unsigned char* const colon = FindLast(afterBrackets, ':');
    host_ = ConstData(rest.begin, colon);
    if (colon != rest.end) {
        port_ = ConstData(colon + 1, rest.end);
    }
}

uint16_t URLInfo::Port() const {
    const ConstData text = PortText();
    uint32_t port = 0;
    for (const unsigned char* at = text.begin; at != text.end; ++at) {
        if (!CharacterSets::digits.Contains(*at)) {
            throw InvalidPortNumber();
        }
        port = port * 10 + (*at - '0');
        if (port > 0xffff) {
            throw InvalidPortNumber();
        }
    }
    if (text.Empty()) {
        throw InvalidPortNumber();
    }
    return static_cast<uint16_t>(port);
}

bool URLInfo::IsFileURL() const {
    return scheme_ && Ascii::CompareIgnoringCase(*scheme_, ConstData(std::string_view("file"))) == 0;
}

std::string URLInfo::Combine(const URLInfo& base, const URLInfo& reference) {
    const bool ownScheme = reference.HasScheme();
    const bool ownAuthority = ownScheme || reference.HasAuthority();
    const bool ownPath = ownAuthority || reference.HasPath();
    const bool ownQuery = ownPath || reference.HasQuery();

    const Part& scheme = ownScheme ? reference.scheme_ : base.scheme_;
    const Part& authority = ownAuthority ? reference.authority_ : base.authority_;
    const Part& query = ownQuery ? reference.query_ : base.query_;

    std::string result;
    result.reserve(base.text_.Length() + reference.text_.Length() + 1);
    if (scheme) {
        result.append(scheme->View()).append(":");
    }
    if (authority) {
        result.append("//").append(authority->View());
    }
    if (ownAuthority) {
        result += RemoveDotSegments(reference.PathText());
    } else if (ownPath) {
        result += RemoveDotSegments(Merge(base.PathText(), base.HasAuthority(), reference.PathText()));
    } else {
        result += base.PathText();
    }
    if (query) {
        result.append("?").append(query->View());
    }
    if (reference.fragment_) {
        result.append("#").append(reference.fragment_->View());
    }
    return result;
}

std::string URLInfo::RemoveDotSegments(std::string_view path) {
    std::string output;
    output.reserve(path.size());
    const auto eraseLastSegment = [&output] {
        const size_t slash = output.rfind('/');
        output.erase(slash == std::string::npos ? 0 : slash);
    };
    while (!path.empty()) {
        if (path.starts_with("../")) {
            path.remove_prefix(3);
        } else if (path.starts_with("./")) {
            path.remove_prefix(2);
        } else if (path.starts_with("/./")) {
            path.remove_prefix(2);
        } else if (path == "/.") {
            path = "/";
        } else if (path.starts_with("/../")) {
            path.remove_prefix(3);
            eraseLastSegment();
        } else if (path == "/..") {
            path = "/";
            eraseLastSegment();
        } else if (path == "." || path == "..") {
            path = {};
        } else {
            const size_t length = std::min(path.find('/', 1), path.size());
            output += path.substr(0, length);
            path.remove_prefix(length);
        }
    }
    return output;
}

const URLPathComponent URLPathComponent::dot{ConstData(std::string_view(".")), false};
const URLPathComponent URLPathComponent::dotDot{ConstData(std::string_view("..")), false};

URLPathComponent URLPath::From(const unsigned char* begin) const {
    return {{begin, std::find(begin, path_.end, '/')}, false};
}

const URLPathComponent& URLPath::Forward() {
    if (current_.end) {
        throw NoSuchURLPathComponent();
    }
    const unsigned char* const slash = current_.range.end;
    current_ = slash == path_.end ? End() : From(slash + 1);
    return current_;
}

const URLPathComponent& URLPath::Backward() {
    // Behind the last component it is as if one more "/" stood there.
    const unsigned char* at = current_.end ? path_.end : current_.range.begin;
    if (path_.Empty() || at == path_.begin) {
        throw NoSuchURLPathComponent();
    }
    at -= current_.end ? 0 : 1;
    while (at != path_.begin && at[-1] != '/') {
        --at;
    }
    current_ = From(at);
    return current_;
}
