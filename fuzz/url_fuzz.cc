// Feeds arbitrary bytes to the readers and filters of URLs.
//
// Splitting never fails, and its parts put together again are the text; a combined URL splits again; a path walks to
// its end and back; the filters give the same with every room, and decoding undoes encoding.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "foundation/file_location.h"
#include "foundation/file_url.h"
#include "foundation/url_filters.h"
#include "foundation/url_info.h"
#include "fuzz/expect.h"

namespace {

std::string PutTogether(const URLInfo& url) {
    std::string text;
    if (url.HasScheme()) {
        text.append(url.Scheme().View()).append(":");
    }
    if (url.HasAuthority()) {
        std::string authority;
        if (url.HasUserInfo()) {
            authority.append(url.UserInfo().View()).append("@");
        }
        authority.append(url.Host().View());
        if (url.HasPort()) {
            authority.append(":").append(url.PortText().View());
        }
        Expect(authority == url.Authority().View());
        text.append("//").append(authority);
    }
    text.append(url.HasPath() ? url.Path().View() : std::string_view());
    if (url.HasQuery()) {
        text.append("?").append(url.Query().View());
    }
    if (url.HasFragment()) {
        text.append("#").append(url.Fragment().View());
    }
    return text;
}

std::string Filtered(DataFilter& filter, std::string_view text, size_t room) {
    std::string result;
    unsigned char space[256];
    ConstData in(text);
    while (!in.Empty() || !filter.IsFinished()) {
        Buffer out(space, space + room);
        filter.Filter(in, out);
        result.append(out.Filled().View());
    }
    return result;
}

void WalkThePath(const URLInfo& url) {
    URLPath path(url.HasPath() ? url.Path() : ConstData());
    size_t steps = 0;
    size_t length = 0;
    for (; !path.Current().end; path.Forward()) {
        length += path.Current().range.Length() + 1;
        ++steps;
    }
    Expect(length == (url.HasPath() ? url.Path().Length() + 1 : 0));
    for (; steps != 0; --steps) {
        path.Backward();
    }
    try {
        path.Backward();
        std::abort();
    } catch (const NoSuchURLPathComponent&) {
    }
}

}  // namespace

// The first byte is a room for the filters, and the second the length of the base; the rest is the reference.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
    const size_t room = data[0] % 8 + 1;
    const size_t baseLength = data[1] % (text.size() + 1);
    const URLInfo base(text.substr(0, baseLength));
    const URLInfo reference(text.substr(baseLength));
    for (const URLInfo& url : {base, reference}) {
        Expect(PutTogether(url) == url.Text().View());
        WalkThePath(url);
        if (url.HasPort()) {
            try {
                url.Port();
            } catch (const InvalidPortNumber&) {
            }
        }
        if (url.HasPath()) {
            FileLocationOfURL(url);
        }
    }

    const std::string combined = URLInfo::Combine(base, reference);
    Expect(combined.size() <= text.size() + 4);
    const std::string path = URLInfo::RemoveDotSegments(text);
    Expect(URLInfo::RemoveDotSegments(path) == path);

    URLDecoder decoder;
    URLDecoder narrowDecoder;
    Expect(Filtered(narrowDecoder, text, room) == Filtered(decoder, text, 256));
    URLEncoder encoder;
    const std::string encoded = Filtered(encoder, text, 256);
    URLEncoder narrowEncoder;
    Expect(Filtered(narrowEncoder, text, room) == encoded);
    decoder.Reset();
    Expect(Filtered(decoder, encoded, room) == text);

    const std::string fileURL = FileURL(text);
    if (!text.empty()) {
        const std::string place = text.front() == '/' ? std::string(text) : "/" + std::string(text);
        Expect(FileLocationOfURL(URLInfo(fileURL)).Text() == FileLocation(place).Text());
    }
    return 0;
}
