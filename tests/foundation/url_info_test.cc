#include "foundation/url_info.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

// Every part that is present: "scheme=x authority=... ".
std::string Parts(std::string_view text) {
    const URLInfo url(text);
    std::string parts;
    const auto say = [&](const char* name, bool has, ConstData (URLInfo::*get)() const) {
        if (has) {
            parts.append(parts.empty() ? "" : " ").append(name).append("=").append((url.*get)().View());
        }
    };
    say("scheme", url.HasScheme(), &URLInfo::Scheme);
    say("authority", url.HasAuthority(), &URLInfo::Authority);
    say("user", url.HasUserInfo(), &URLInfo::UserInfo);
    say("host", url.HasHost(), &URLInfo::Host);
    say("port", url.HasPort(), &URLInfo::PortText);
    say("path", url.HasPath(), &URLInfo::Path);
    say("query", url.HasQuery(), &URLInfo::Query);
    say("fragment", url.HasFragment(), &URLInfo::Fragment);
    return parts;
}

TEST(URLInfo, SplitsEveryPart) {
    EXPECT_EQ(Parts("x-scheme://a:80/b?c#d"),
              "scheme=x-scheme authority=a:80 host=a port=80 path=/b query=c fragment=d");
    EXPECT_EQ(Parts("s://u:p@h:1/p;x=1/q?k=v&w#f"),
              "scheme=s authority=u:p@h:1 user=u:p host=h port=1 path=/p;x=1/q query=k=v&w fragment=f");
    EXPECT_EQ(URLInfo("x-scheme://a:80/b?c#d").Port(), 80);
}

TEST(URLInfo, AURLMayHaveNoAuthority) { EXPECT_EQ(Parts("mailto:x"), "scheme=mailto path=x"); }

TEST(URLInfo, AnEmptyPartIsNotAnAbsentOne) {
    EXPECT_EQ(Parts(""), "");
    EXPECT_EQ(Parts("//"), "authority= host=");
    EXPECT_EQ(Parts("//@:"), "authority=@: user= host= port=");
    EXPECT_EQ(Parts("?"), "query=");
    EXPECT_EQ(Parts("#"), "fragment=");
    EXPECT_EQ(Parts("a?#"), "path=a query= fragment=");
    EXPECT_EQ(Parts(":x"), "scheme= path=x");
    EXPECT_EQ(Parts("file:///x"), "scheme=file authority= host= path=/x");
}

TEST(URLInfo, ASchemeComesBeforeAnySlashQuestionMarkOrHash) {
    EXPECT_EQ(Parts("a/b:c"), "path=a/b:c");
    EXPECT_EQ(Parts("a?b:c"), "path=a query=b:c");
    EXPECT_EQ(Parts("a#b:c"), "path=a fragment=b:c");
    EXPECT_EQ(Parts("a:b:c"), "scheme=a path=b:c");
}

TEST(URLInfo, AnAuthorityEndsAtSlashQuestionMarkHashOrTheEnd) {
    EXPECT_EQ(Parts("//h"), "authority=h host=h");
    EXPECT_EQ(Parts("//h/p"), "authority=h host=h path=/p");
    EXPECT_EQ(Parts("//h?q"), "authority=h host=h query=q");
    EXPECT_EQ(Parts("//h#f"), "authority=h host=h fragment=f");
    EXPECT_EQ(Parts("/a//b"), "path=/a//b");
}

TEST(URLInfo, UserInformationEndsAtTheLastAtAndThePortBeginsAtTheLastColonBehind) {
    EXPECT_EQ(Parts("//a@b@c:1:2"), "authority=a@b@c:1:2 user=a@b host=c:1 port=2");
    EXPECT_EQ(Parts("//a:1@b"), "authority=a:1@b user=a:1 host=b");
}

TEST(URLInfo, BracketsKeepTheirColonsInTheHost) {
    EXPECT_EQ(Parts("//[::1]"), "authority=[::1] host=[::1]");
    EXPECT_EQ(Parts("//[::1]:80"), "authority=[::1]:80 host=[::1] port=80");
    EXPECT_EQ(Parts("//u@[::1]:80/x"), "authority=u@[::1]:80 user=u host=[::1] port=80 path=/x");
    EXPECT_EQ(Parts("//[::1"), "authority=[::1 host=[::1");
    EXPECT_EQ(Parts("//a[:1]"), "authority=a[:1] host=a[ port=1]");
}

TEST(URLInfo, AFragmentRunsToTheEnd) { EXPECT_EQ(Parts("#a?b/c#d"), "fragment=a?b/c#d"); }
TEST(URLInfo, AQueryMayHoldSlashesAndQuestionMarks) { EXPECT_EQ(Parts("a?b/c?d#e"), "path=a query=b/c?d fragment=e"); }

TEST(URLInfo, PartsAreRangesOfTheText) {
    const std::string text = "s://h/p?q#f";
    const URLInfo url(text);
    const auto* const begin = reinterpret_cast<const unsigned char*>(text.data());
    EXPECT_EQ(url.Host().begin, begin + 4);
    EXPECT_EQ(url.Path().begin, begin + 5);
    EXPECT_EQ(url.Fragment().end, begin + text.size());
    EXPECT_EQ(url.Text().View(), text);
}

template <class Exception, class Action>
void ExpectThrows(Action action, const char* text) {
    try {
        action();
        ADD_FAILURE() << "nothing was thrown for " << text;
    } catch (const InvalidURLInfoUse& exception) {
        EXPECT_NE(dynamic_cast<const Exception*>(&exception), nullptr) << text;
        EXPECT_STREQ(exception.what(), text);
    }
}

TEST(URLInfo, AnAbsentPartIsAnExceptionOfItsOwn) {
    const URLInfo nothing("");
    ExpectThrows<NoSchemeError>([&] { nothing.Scheme(); }, "URLInfo: Attempt to use missing Scheme.");
    ExpectThrows<NoAuthorityError>([&] { nothing.Authority(); }, "URLInfo: Attempt to use missing Authority.");
    ExpectThrows<NoUserInfoError>([&] { nothing.UserInfo(); }, "URLInfo: Attempt to use missing UserInfo.");
    ExpectThrows<NoHostError>([&] { nothing.Host(); }, "URLInfo: Attempt to use missing Host.");
    ExpectThrows<NoPortError>([&] { nothing.PortText(); }, "URLInfo: Attempt to use missing Port.");
    ExpectThrows<NoPortError>([&] { nothing.Port(); }, "URLInfo: Attempt to use missing Port.");
    ExpectThrows<NoPathError>([&] { nothing.Path(); }, "URLInfo: Attempt to use missing Path.");
    ExpectThrows<NoQueryError>([&] { nothing.Query(); }, "URLInfo: Attempt to use missing Query.");
    ExpectThrows<NoFragmentError>([&] { nothing.Fragment(); }, "URLInfo: Attempt to use missing Fragment.");
}

TEST(URLInfo, APortIsADecimalNumberOf16Bits) {
    EXPECT_EQ(URLInfo("//a:0").Port(), 0);
    EXPECT_EQ(URLInfo("//a:65535").Port(), 65535);
    EXPECT_EQ(URLInfo("//a:000000000000080").Port(), 80);
    for (const char* const text : {"x-scheme://a:x/", "//a:", "//a:65536", "//a:4294967376", "//a:99999999999999999999",
                                   "//a:-1", "//a:+1", "//a: 1", "//a:1x", "//a:0x10", "//[::1]:"}) {
        ExpectThrows<InvalidPortNumber>([&] { URLInfo(std::string_view(text)).Port(); },
                                        "URLInfo: Invalid port number.");
    }
    EXPECT_EQ(URLInfo("x-scheme://a:x/").PortText().View(), "x");
}

TEST(URLInfo, AFileURLIsOneOfTheSchemeFileInAnyCase) {
    EXPECT_TRUE(URLInfo("file:///x").IsFileURL());
    EXPECT_TRUE(URLInfo("FiLe:x").IsFileURL());
    EXPECT_FALSE(URLInfo("files:///x").IsFileURL());
    EXPECT_FALSE(URLInfo("fil:///x").IsFileURL());
    EXPECT_FALSE(URLInfo("file/x").IsFileURL());
    EXPECT_FALSE(URLInfo("").IsFileURL());
}

std::string Combined(std::string_view base, std::string_view reference) {
    return URLInfo::Combine(URLInfo(base), URLInfo(reference));
}

struct Example {
    std::string_view reference;
    std::string_view result;
};

// The examples of RFC 3986, section 5.4, whose base they share.
constexpr Example kExamples[] = {
    // 5.4.1, normal
    {"g:h", "g:h"},
    {"g", "http://a/b/c/g"},
    {"./g", "http://a/b/c/g"},
    {"g/", "http://a/b/c/g/"},
    {"/g", "http://a/g"},
    {"//g", "http://g"},
    {"?y", "http://a/b/c/d;p?y"},
    {"g?y", "http://a/b/c/g?y"},
    {"#s", "http://a/b/c/d;p?q#s"},
    {"g#s", "http://a/b/c/g#s"},
    {"g?y#s", "http://a/b/c/g?y#s"},
    {";x", "http://a/b/c/;x"},
    {"g;x", "http://a/b/c/g;x"},
    {"g;x?y#s", "http://a/b/c/g;x?y#s"},
    {"", "http://a/b/c/d;p?q"},
    {".", "http://a/b/c/"},
    {"./", "http://a/b/c/"},
    {"..", "http://a/b/"},
    {"../", "http://a/b/"},
    {"../g", "http://a/b/g"},
    {"../..", "http://a/"},
    {"../../", "http://a/"},
    {"../../g", "http://a/g"},
    // 5.4.2, abnormal
    {"../../../g", "http://a/g"},
    {"../../../../g", "http://a/g"},
    {"/./g", "http://a/g"},
    {"/../g", "http://a/g"},
    {"g.", "http://a/b/c/g."},
    {".g", "http://a/b/c/.g"},
    {"g..", "http://a/b/c/g.."},
    {"..g", "http://a/b/c/..g"},
    {"./../g", "http://a/b/g"},
    {"./g/.", "http://a/b/c/g/"},
    {"g/./h", "http://a/b/c/g/h"},
    {"g/../h", "http://a/b/c/h"},
    {"g;x=1/./y", "http://a/b/c/g;x=1/y"},
    {"g;x=1/../y", "http://a/b/c/y"},
    {"g?y/./x", "http://a/b/c/g?y/./x"},
    {"g?y/../x", "http://a/b/c/g?y/../x"},
    {"g#s/./x", "http://a/b/c/g#s/./x"},
    {"g#s/../x", "http://a/b/c/g#s/../x"},
    {"http:g", "http:g"},
};

TEST(Combine, TheExamplesOfTheStandard) {
    for (const Example& example : kExamples) {
        EXPECT_EQ(Combined("http://a/b/c/d;p?q", example.reference), example.result) << example.reference;
    }
}

TEST(Combine, TheFragmentOfTheBaseHasNoPartInIt) {
    EXPECT_EQ(Combined("http://a/b#f", ""), "http://a/b");
    EXPECT_EQ(Combined("http://a/b#f", "c"), "http://a/c");
}

TEST(Combine, AReferenceWithASchemeOrAnAuthorityKeepsItsOwnQueryOrNone) {
    EXPECT_EQ(Combined("http://a/b?q", "x:"), "x:");
    EXPECT_EQ(Combined("http://a/b?q", "//h"), "http://h");
    EXPECT_EQ(Combined("http://a/b?q", "x://h/a/../b?r"), "x://h/b?r");
}

TEST(Combine, AnEmptyPathUnderAnAuthorityIsTheRoot) {
    EXPECT_EQ(Combined("http://a", "g"), "http://a/g");
    EXPECT_EQ(Combined("http://a", "a/../b"), "http://a/b");
    EXPECT_EQ(Combined("http://a?q", ""), "http://a?q");
}

TEST(Combine, ABasePathWithoutASlashGivesNothing) {
    EXPECT_EQ(Combined("x:b", "g"), "x:g");
    EXPECT_EQ(Combined("x:", "g"), "x:g");
    EXPECT_EQ(Combined("b", "g"), "g");
    EXPECT_EQ(Combined("", "g"), "g");
}

TEST(Combine, ABaseMayBeRelative) {
    EXPECT_EQ(Combined("a/b", "c?d"), "a/c?d");
    EXPECT_EQ(Combined("", ""), "");
    EXPECT_EQ(Combined("a?b", "#c"), "a?b#c");
}

TEST(Combine, EmptyPartsStayPresent) {
    EXPECT_EQ(Combined("http://a/b?q", "?"), "http://a/b?");
    EXPECT_EQ(Combined("http://a/b?q", "#"), "http://a/b?q#");
    EXPECT_EQ(Combined("file:///a/b", "c"), "file:///a/c");
}

TEST(RemoveDotSegments, TakesThePrefixesInTheirOrder) {
    const Example examples[] = {
        {"/a/b/c/./../../g", "/a/g"},
        {"mid/content=5/../6", "mid/6"},
        {"a/../b", "/b"},
        {"/a/../b", "/b"},
        {"../a", "a"},
        {"./a", "a"},
        {"../../a", "a"},
        {"/./a", "/a"},
        {"/.", "/"},
        {"/..", "/"},
        {"/../a", "/a"},
        {"/a/..", "/"},
        {"/a/b/..", "/a/"},
        {"/a/b/.", "/a/b/"},
        {".", ""},
        {"..", ""},
        {"", ""},
        {"/", "/"},
        {"//", "//"},
        {"//..", "/"},
        {"/a//../b", "/a/b"},
        {"...", "..."},
        {"/.../a", "/.../a"},
        {"/.a/..b", "/.a/..b"},
        {"a/b", "a/b"},
    };
    for (const Example& example : examples) {
        EXPECT_EQ(URLInfo::RemoveDotSegments(example.reference), example.result) << example.reference;
    }
}

TEST(RemoveDotSegments, AMillionSegmentsTakeLinearTime) {
    std::string path;
    for (int i = 0; i < 1000000; ++i) {
        path += "/a";
    }
    for (int i = 0; i < 1000000; ++i) {
        path += "/..";
    }
    EXPECT_EQ(URLInfo::RemoveDotSegments(path), "/");
}

// Forward to the end and back to the first again, which must be the same components.
std::vector<std::string> Components(std::string_view text) {
    std::vector<std::string> components;
    std::vector<URLPathComponent> places;
    URLPath path{ConstData(text)};
    for (; !path.Current().end; path.Forward()) {
        components.emplace_back(path.Current().range.View());
        places.push_back(path.Current());
    }
    for (size_t i = places.size(); i != 0; --i) {
        EXPECT_EQ(path.Backward(), places[i - 1]) << text;
        EXPECT_EQ(path.Current().range.View(), components[i - 1]) << text;
    }
    EXPECT_THROW(path.Backward(), NoSuchURLPathComponent) << text;
    return components;
}

TEST(URLPath, WalksBothWays) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(Components("/a/b"), (Names{"", "a", "b"}));
    EXPECT_EQ(Components("a/b"), (Names{"a", "b"}));
    EXPECT_EQ(Components("a/"), (Names{"a", ""}));
    EXPECT_EQ(Components("/"), (Names{"", ""}));
    EXPECT_EQ(Components("//a//"), (Names{"", "", "a", "", ""}));
    EXPECT_EQ(Components("a"), (Names{"a"}));
    EXPECT_EQ(Components(""), Names{});
}

TEST(URLPath, ParametersComeWithTheirSegment) {
    EXPECT_EQ(Components("/a;x=1/b;y"), (std::vector<std::string>{"", "a;x=1", "b;y"}));
}

TEST(URLPath, AStepPastTheEndsThrowsAndStays) {
    URLPath path{ConstData(std::string_view("a/b"))};
    EXPECT_THROW(path.Backward(), NoSuchURLPathComponent);
    EXPECT_EQ(path.Current().range.View(), "a");
    path.Forward();
    EXPECT_TRUE(path.Forward().end);
    EXPECT_THROW(path.Forward(), NoSuchURLPathComponent);
    EXPECT_TRUE(path.Current().end);
    EXPECT_EQ(path.Backward().range.View(), "b");
}

TEST(URLPathComponent, ComparesPlacesAndNotTexts) {
    const std::string_view text = "a/a";
    URLPath one{ConstData(text)};
    URLPath other{ConstData(text)};
    EXPECT_EQ(one.Current(), other.Current());
    other.Forward();
    EXPECT_FALSE(one.Current() == other.Current());
    EXPECT_TRUE(one.Current().HasTextOf(other.Current()));
    one.Forward();
    one.Forward();
    other.Forward();
    EXPECT_EQ(one.Current(), other.Current());
    // Any end is the end.
    EXPECT_EQ(one.Current(), URLPath(ConstData()).Current());
}

TEST(URLPathComponent, TheLastEmptyComponentIsNotTheEnd) {
    URLPath path{ConstData(std::string_view("a/"))};
    const URLPathComponent last = path.Forward();
    EXPECT_FALSE(last == path.Forward());
}

TEST(URLPathComponent, DotAndDotDot) {
    EXPECT_EQ(URLPathComponent::dot.range.View(), ".");
    EXPECT_EQ(URLPathComponent::dotDot.range.View(), "..");
    URLPath path{ConstData(std::string_view("./.."))};
    EXPECT_TRUE(path.Current().HasTextOf(URLPathComponent::dot));
    EXPECT_FALSE(path.Current().HasTextOf(URLPathComponent::dotDot));
    EXPECT_TRUE(path.Forward().HasTextOf(URLPathComponent::dotDot));
    EXPECT_FALSE(path.Forward().HasTextOf(URLPathComponent::dotDot));
}

}  // namespace
