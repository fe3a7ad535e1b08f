// Feeds arbitrary bytes to versions and to site version lists.
//
// Whatever two texts are, their versions compare the same from either side, the text rule calls none but the same texts
// equal, and what is kept of a version is its text.  A list is what a plain scan for numbers finds, wherever its text
// is cut.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "foundation/stack_allocator.h"
#include "fuzz/expect.h"
#include "values/site_version_list.h"
#include "values/version.h"
#include "values/version_text_rule.h"

namespace {

template <class Version>
void ExpectLaws(const Version& a, const Version& b) {
    Expect((a == b) == (b == a));
    Expect((a < b) == !(b <= a));
    Expect((b < a) == !(a <= b));
    Expect(a <= b || b <= a);
    Expect((a == b) == (a <= b && b <= a));
    Expect(a == a && a <= a && !(a < a));
    const Kept<Version> kept(a);
    Expect(kept.Value().Text() != a.Text() && std::strcmp(kept.Value().Text(), a.Text()) == 0);
    Expect(kept.Value() == a && (kept.Value() < b) == (a < b));
}

void CompareVersions(std::string_view left, std::string_view right) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    const inspector_version a{inspector_string(left)};
    const inspector_version b{inspector_string(right)};
    ExpectLaws(a, b);
    const inspector_strverscmp_version c{inspector_string(left)};
    const inspector_strverscmp_version d{inspector_string(right)};
    ExpectLaws(c, d);
    ExpectLaws<inspector_version>(c, b);
    const int order = CompareVersionTexts(a.Text(), b.Text());
    Expect((order < 0) == (CompareVersionTexts(b.Text(), a.Text()) > 0));
    Expect((order == 0) == (std::strcmp(a.Text(), b.Text()) == 0));
}

SiteVersionList Scanned(std::string_view text) {
    SiteVersionList list;
    size_t count = 0;
    for (size_t i = 0; i < text.size() && count < SiteVersionList::kComponents;) {
        uint64_t number = 0;
        const size_t start = i;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
            number = std::min<uint64_t>(number * 10 + static_cast<uint64_t>(text[i] - '0'), UINT32_MAX);
        }
        if (i == start) {
            ++i;
        } else {
            list[count++] = static_cast<uint32_t>(number);
        }
    }
    return list;
}

void ReadList(ConstData text, size_t cut) {
    ManyVersionMaker maker;
    ManyVersionLexer lexer(maker);
    lexer.Start();
    lexer.Data(text.begin, text.begin + cut);
    lexer.Data(text.begin + cut, text.end);
    lexer.Finish();
    Expect(maker.List() == Scanned({reinterpret_cast<const char*>(text.begin), text.Length()}));
}

}  // namespace

// The first two bytes say where the rest is cut: into two texts to compare, and into two runs of one list.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    const ConstData text(data + 2, data + size);
    const size_t cut = (data[0] * size_t{256} + data[1]) % (text.Length() + 1);
    const std::string_view bytes(reinterpret_cast<const char*>(text.begin), text.Length());
    CompareVersions(bytes.substr(0, cut), bytes.substr(cut));
    ReadList(text, cut);
    return 0;
}
