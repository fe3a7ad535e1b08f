// URLs and relative references: their parts, their combination with a base, and the walk over a path.
//
// Splitting never fails and never copies: any text is a relative reference, and every part is a range of the text that
// was given, which must outlive the URLInfo.
#ifndef FOUNDATION_URL_INFO_H
#define FOUNDATION_URL_INFO_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/const_data.h"
#include "foundation/debuggable_exception.h"

class InvalidURLInfoUse : public DebuggableException {
public:
    using DebuggableException::DebuggableException;
};
struct NoSchemeError : InvalidURLInfoUse {
    NoSchemeError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing Scheme.") {}
};
struct NoAuthorityError : InvalidURLInfoUse {
    NoAuthorityError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing Authority.") {}
};
struct NoUserInfoError : InvalidURLInfoUse {
    NoUserInfoError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing UserInfo.") {}
};
struct NoHostError : InvalidURLInfoUse {
    NoHostError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing Host.") {}
};
struct NoPortError : InvalidURLInfoUse {
    NoPortError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing Port.") {}
};
struct InvalidPortNumber : InvalidURLInfoUse {
    InvalidPortNumber() noexcept : InvalidURLInfoUse("URLInfo: Invalid port number.") {}
};
struct NoPathError : InvalidURLInfoUse {
    NoPathError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing Path.") {}
};
struct NoQueryError : InvalidURLInfoUse {
    NoQueryError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing Query.") {}
};
struct NoFragmentError : InvalidURLInfoUse {
    NoFragmentError() noexcept : InvalidURLInfoUse("URLInfo: Attempt to use missing Fragment.") {}
};

// The parts of one URL.  A part that is absent differs from one that is empty: "a?" has a query, "a" has none.  A path
// has no delimiter that could tell the two apart, so an empty path is absent; a host is there when an authority is.
class URLInfo {
public:
    explicit URLInfo(ConstData text);
    explicit URLInfo(std::string_view text) : URLInfo(ConstData(text)) {}

    ConstData Text() const { return text_; }

    bool HasScheme() const { return scheme_.has_value(); }
    bool HasAuthority() const { return authority_.has_value(); }
    bool HasUserInfo() const { return userInfo_.has_value(); }
    bool HasHost() const { return host_.has_value(); }
    bool HasPort() const { return port_.has_value(); }
    bool HasPath() const { return path_.has_value(); }
    bool HasQuery() const { return query_.has_value(); }
    bool HasFragment() const { return fragment_.has_value(); }

    // Each without its delimiters, but for the brackets of a host.  Throws the class of its name when it is absent.
    ConstData Scheme() const { return Present<NoSchemeError>(scheme_); }
    ConstData Authority() const { return Present<NoAuthorityError>(authority_); }
    ConstData UserInfo() const { return Present<NoUserInfoError>(userInfo_); }
    ConstData Host() const { return Present<NoHostError>(host_); }
    ConstData PortText() const { return Present<NoPortError>(port_); }
    ConstData Path() const { return Present<NoPathError>(path_); }
    ConstData Query() const { return Present<NoQueryError>(query_); }
    ConstData Fragment() const { return Present<NoFragmentError>(fragment_); }

    // The port as a number; throws NoPortError, or InvalidPortNumber when it is empty, no decimal number or above
    // 65535.
    uint16_t Port() const;

    bool IsFileURL() const;

    // What `reference` means where `base` is the URL of the text that it stands in.  The fragment of the base has no
    // part in it.
    static std::string Combine(const URLInfo& base, const URLInfo& reference);

    // The path without its "." and ".." segments.
    static std::string RemoveDotSegments(std::string_view path);

private:
    using Part = std::optional<ConstData>;

    template <class Missing>
    static ConstData Present(const Part& part) {
        if (!part) {
            throw Missing();
        }
        return *part;
    }

    void SplitAuthority();
    std::string_view PathText() const { return path_ ? path_->View() : std::string_view(); }

    ConstData text_;
    Part scheme_;
    Part authority_;
    Part userInfo_;
    Part host_;
    Part port_;
    Part path_;
    Part query_;
    Part fragment_;
};

struct NoSuchURLPathComponent : DebuggableException {
    NoSuchURLPathComponent() noexcept : DebuggableException("NoSuchURLPathComponent") {}
};

// One segment of a path with its parameters, which begin at ";", or the end of the path.
struct URLPathComponent {
    static const URLPathComponent dot;
    static const URLPathComponent dotDot;

    ConstData range;
    bool end = false;

    bool HasTextOf(const URLPathComponent& other) const {
        return !end && !other.end && range.View() == other.range.View();
    }

    // Whether these are the same place of the same path, whatever the text there.
    friend bool operator==(const URLPathComponent& a, const URLPathComponent& b) {
        return a.end || b.end ? a.end && b.end : a.range.begin == b.range.begin;
    }
};

// A cursor over what stands before, between and after the "/" of a path: "/a/b" has the components "", "a" and "b", and
// "a/" has "a" and "".  An empty path has none.  It stands on a component or at the end, behind the last.
class URLPath {
public:
    // Stands on the first component.  `path` must outlive the cursor.
    explicit URLPath(ConstData path) : path_(path), current_(path.Empty() ? End() : From(path.begin)) {}

    const URLPathComponent& Current() const { return current_; }

    // Steps, and returns where it then stands.  Throws NoSuchURLPathComponent, and stays, for a step forward from the
    // end or back from the first component.
    const URLPathComponent& Forward();
    const URLPathComponent& Backward();

private:
    static URLPathComponent End() { return {ConstData(), true}; }
    URLPathComponent From(const unsigned char* begin) const;

    ConstData path_;
    URLPathComponent current_;
};

#endif
