#include "inspectors/file_keys.h"

#include <unistd.h>

#include <random>

#include "foundation/stack_allocator.h"
#include "inspectors/file.h"
#include "tests/inspectors/file_tree.h"
#include "tests/inspectors/naive_lines.h"
#include "tests/inspectors/property_of.h"
#include "tests/inspectors/text_reader.h"

namespace {

std::vector<NaiveLine> RawLines(std::string_view text, size_t piece = SIZE_MAX) {
    TextReader reader(text, piece);
    RawLineReader lines(reader);
    std::vector<NaiveLine> read;
    uint64_t start = 0;
    while (lines.Next()) {
        read.push_back({std::string(lines.Text()), start, lines.Offset()});
        start = lines.Offset();
    }
    EXPECT_FALSE(lines.Next());
    return read;
}

std::vector<NaiveLine> NaiveRawLines(std::string_view text) {
    constexpr size_t kMost = 65535;
    std::vector<NaiveLine> lines;
    for (size_t at = 0; at < text.size();) {
        const std::string_view piece = text.substr(at, kMost);
        const size_t length = std::min(piece.find_first_of("\r\n"), piece.size());
        size_t next = at + length;
        if (length != piece.size()) {
            next += text.substr(next).starts_with("\r\n") ? 2 : 1;
        }
        lines.push_back({std::string(piece.substr(0, length)), at, next});
        at = next;
    }
    return lines;
}

using Texts = std::vector<std::string>;

Texts TextsOf(std::string_view text) {
    Texts texts;
    for (const NaiveLine& line : RawLines(text)) {
        texts.push_back(line.text);
    }
    return texts;
}

TEST(RawLines, OnlyALineFeedBehindACarriageReturnBelongsToIt) {
    EXPECT_EQ(TextsOf(""), Texts({}));
    EXPECT_EQ(TextsOf("a"), Texts({"a"}));
    EXPECT_EQ(TextsOf("a\r\nb\n\rc\rd\n"), Texts({"a", "b", "", "c", "d"}));
    EXPECT_EQ(TextsOf("\r\r\n\n"), Texts({"", "", ""}));
    EXPECT_EQ(TextsOf("a\r"), Texts({"a"}));
}

TEST(RawLines, AreCutAt65535Bytes) {
    const std::string x(65534, 'x');
    EXPECT_EQ(TextsOf(x + "\nz"), Texts({x, "z"}));
    EXPECT_EQ(TextsOf(x + "\r\nz"), Texts({x, "z"}));
    EXPECT_EQ(TextsOf(x + "y\nz"), Texts({x + "y", "", "z"}));
    EXPECT_EQ(TextsOf(x + "y"), Texts({x + "y"}));
    EXPECT_EQ(TextsOf(x + "yz\n"), Texts({x + "y", "z"}));
}

TEST(RawLines, OfRandomTextsAreThoseOfTheRule) {
    std::mt19937 random(4);
    for (const unsigned density : {0u, 1u, 30u, 2000u}) {
        for (int i = 0; i < 6; ++i) {
            const std::string text = RandomText(random, random() % 200000, density);
            const std::vector<NaiveLine> expected = NaiveRawLines(text);
            for (const size_t piece : {size_t{777}, size_t{65536}, SIZE_MAX}) {
                ASSERT_EQ(RawLines(text, piece), expected) << density << ", read by " << piece;
            }
        }
    }
    for (size_t before = 65530; before < 65540; ++before) {
        for (const char* end : {"\n", "\r", "\r\n", "\n\r", "\r\r\n"}) {
            const std::string text = "a\n" + std::string(before, 'x') + end + std::string(before, 'y') + end + "tail";
            for (const size_t piece : {size_t{1000}, size_t{65537}, SIZE_MAX}) {
                ASSERT_EQ(RawLines(text, piece), NaiveRawLines(text)) << before << ", read by " << piece;
            }
        }
    }
}

TEST(Keys, AreWhatStandsBeforeAnEqualsSignOrAColon) {
    EXPECT_EQ(ValueOfKey("  A = 1 ; comment  ", "a"), "1");
    EXPECT_EQ(ValueOfKey("a=", "a"), "");
    EXPECT_EQ(ValueOfKey("a=;c", "a"), "");
    EXPECT_EQ(ValueOfKey("a:1", "a"), "1");
    EXPECT_EQ(ValueOfKey("a \t:\t 1 2\t ", "A"), "1 2");
    EXPECT_EQ(ValueOfKey("a==1", "a"), "=1");
    EXPECT_EQ(ValueOfKey("a=b=c:d", "a"), "b=c:d");
    EXPECT_EQ(ValueOfKey("a=x;y;z", "a"), "x");
    EXPECT_EQ(ValueOfKey("a=#x", "a"), "#x");
    EXPECT_EQ(ValueOfKey("two words=1", "Two Words"), "1");
    EXPECT_EQ(ValueOfKey("=1", ""), "1");
    EXPECT_EQ(ValueOfKey(std::string_view("a=x\0y", 5), "a"), std::string_view("x\0y", 3));
    EXPECT_EQ(ValueOfKey(std::string_view("a=x\0", 4), "a"), std::string_view("x\0", 2));
    EXPECT_EQ(ValueOfKey("a=x\v", "a"), "x\v") << "a blank is a space or a tab";
    for (const char* line : {"", "a", "a ", "ab=1", "b=1", "a b=1", ";a=1", "[a=1]", "a;=1", "\va=1"}) {
        EXPECT_EQ(ValueOfKey(line, "a"), std::nullopt) << line;
    }
    EXPECT_EQ(ValueOfKey("foobar=1", "foo"), std::nullopt);
    EXPECT_EQ(ValueOfKey("\xc4=1", "\xe4"), std::nullopt) << "case is ASCII's";
}

TEST(Sections, BeginWithTheNameBetweenAnOpenerAndItsCloser) {
    EXPECT_EQ(OpenerOfSection("[sect]", "sect"), '[');
    EXPECT_EQ(OpenerOfSection(" { sect } ", "SECT"), '{');
    EXPECT_EQ(OpenerOfSection("<sect>", "sect"), '<');
    EXPECT_EQ(OpenerOfSection("\t(\tsect\t)rest", "sect"), '(');
    EXPECT_EQ(OpenerOfSection("[]", ""), '[');
    EXPECT_EQ(OpenerOfSection("[two words]", "two words"), '[');
    for (const char* line : {"", "[", "[sect", "[sect}", "sect]", "sect", "[sects]", "[a sect]", "\"sect\"", "]sect[",
                             "[[sect]]", "[sect x]"}) {
        EXPECT_EQ(OpenerOfSection(line, "sect"), std::nullopt) << line;
    }
    for (const std::string_view pair : {"[]", "{}", "<>", "()"}) {
        for (const char closer : std::string_view("]}>)")) {
            const std::string line = std::string(1, pair[0]) + "s" + closer;
            EXPECT_EQ(OpenerOfSection(line, "s").has_value(), closer == pair[1]) << line;
            EXPECT_EQ(IsHeaderOfStyle(line, pair[0]), closer == pair[1]) << line;
        }
        EXPECT_EQ(OpenerOfSection("s" + std::string(1, pair[1]), "s"), std::nullopt);
    }
}

TEST(Sections, EndAtAHeaderOfTheSameStyle) {
    EXPECT_TRUE(IsHeaderOfStyle(" \t[x] y", '['));
    EXPECT_TRUE(IsHeaderOfStyle("[x = 1 ; ]", '['));
    EXPECT_FALSE(IsHeaderOfStyle("[x", '['));
    EXPECT_FALSE(IsHeaderOfStyle("{x}", '['));
    EXPECT_FALSE(IsHeaderOfStyle("x [y]", '['));
    EXPECT_FALSE(IsHeaderOfStyle("", '['));
}

std::optional<std::pair<uint64_t, uint64_t>> Range(std::string_view text, std::string_view name) {
    TextReader reader(text);
    RawLineReader lines(reader);
    const std::optional<SectionRange> range = FindSection(lines, name);
    return range ? std::optional(std::pair(range->start, range->end)) : std::nullopt;
}

TEST(Sections, GoFromBehindTheirHeaderToBehindTheNext) {
    using R = std::pair<uint64_t, uint64_t>;
    EXPECT_EQ(Range("a=1\n[s]\nb=2\n[t]\nc=3\n", "s"), R(8, 16));
    EXPECT_EQ(Range("a=1\n[s]\nb=2\n[t]\nc=3\n", "t"), R(16, 20));
    EXPECT_EQ(Range("[s]\r\nb=2\r\n{t}\r\n[u]\r\n", "s"), R(5, 20));
    EXPECT_EQ(Range("[s]\n[s]\n", "s"), R(4, 8));
    EXPECT_EQ(Range("x\n[s]\n", "s"), R(6, 0)) << "a section without lines has no end";
    EXPECT_EQ(Range("x\n[s]", "s"), R(5, 0));
    EXPECT_EQ(Range("[s\n", "s"), std::nullopt);
    EXPECT_EQ(Range("", "s"), std::nullopt);
}

TEST(Keys, OfASectionAreReadUpToBehindTheHeaderThatEndsIt) {
    const FileTree tree;
    tree.place.File("ini",
                    "k=before\n[one]\nk = 1\nonly=one\n[k=2]\nk=3\n{style}\nk=brace\n[two]\r\nk=two\r\n[empty]\n"
                    "[last]\nk=last");
    EXPECT_EQ(tree.Ask("key \"k\" of file \"@/ini\""), Values({"before"}));
    EXPECT_EQ(tree.Ask("keys (\"only\"; \"none\"; \"K\") of files \"@/ini\""), Values({"one", "before"}));
    EXPECT_EQ(tree.Ask("keys \"k\" of sections (\"one\"; \"none\"; \"TWO\"; \"style\"; \"last\") of file \"@/ini\""),
              Values({"1", "two", "brace", "last"}));
    EXPECT_EQ(tree.Ask("key \"only\" of section \"two\" of file \"@/ini\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("key \"k\" of section \"none\" of file \"@/ini\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("key \"k\" of section \"empty\" of file \"@/ini\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("exists section \"empty\" of file \"@/ini\""), Values({"True"}));
    EXPECT_EQ(tree.Ask("section \"one\" of file \"@/ini\"").failure, "OperationNotDefined");
}

// The header that ends a section is read with it, and nothing behind it is.
TEST(Keys, OfASectionMayStandInTheHeaderThatEndsIt) {
    const FileTree tree;
    tree.place.File("ini", "[s]\na=1\n[t] = 5\nb=2\n[a=7]\nc=3\n");
    EXPECT_EQ(tree.Ask("key \"[t]\" of section \"s\" of file \"@/ini\""), Values({"5"}));
    EXPECT_EQ(tree.Ask("key \"b\" of section \"s\" of file \"@/ini\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("key \"[t]\" of section \"t\" of file \"@/ini\""), DoesNotExist()) << "that is before it";
    EXPECT_EQ(tree.Ask("key \"a\" of section \"t\" of file \"@/ini\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("key \"[a\" of section \"t\" of file \"@/ini\""), Values({"7]"}));
    EXPECT_EQ(tree.Ask("key \"c\" of section \"t\" of file \"@/ini\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("key \"c\" of section \"a=7\" of file \"@/ini\""), Values({"3"}));
}

TEST(Keys, LongLinesAndZeroBytes) {
    const FileTree tree;
    tree.place.File("cut", std::string(65535, 'x') + "deep=found\nlong=" + std::string(70000, 'y') + "\n");
    EXPECT_EQ(tree.Ask("key \"deep\" of file \"@/cut\""), Values({"found"}));
    EXPECT_EQ(tree.Ask("length of key \"long\" of file \"@/cut\""), Values({"65530"}));
    tree.place.File("whole", std::string(65534, 'x') + "deep=found\n");
    EXPECT_EQ(tree.Ask("key \"deep\" of file \"@/whole\""), DoesNotExist());
    tree.place.File("zero", std::string("a=x\0y\n", 6));
    EXPECT_EQ(tree.Ask("length of key \"a\" of file \"@/zero\""), Values({"3"}));
}

TEST(Keys, OfFilesThatCannotBeRead) {
    EXPECT_EQ(Ask("key \"a\" of file \"/proc/kmsg\""), DoesNotExist());
    EXPECT_EQ(Ask("exists section \"a\" of file \"/proc/kmsg\""), Values({"False"}));
    EXPECT_EQ(Ask("key \"MemTotal\" of file \"/proc/meminfo\"").values.size(), 1u);
    const FileTree tree;
    EXPECT_EQ(tree.Ask("key \"a\" of file \"@/empty\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("exists section \"a\" of file \"@/empty\""), Values({"False"}));
    // A file that refuses the read.
    const Answer refused = Ask("key \"a\" of file \"/proc/self/mem\"");
    EXPECT_EQ(refused.failure, "FileIOError");
    EXPECT_EQ(refused.text, "File error \"11FileIOError\" on \"/proc/self/mem\": Unknown error: 5");
}

// The section remembers a place and no more: what stands there is read when it is asked.
TEST(Keys, OfASectionWhoseFileHasChanged) {
    const FileTree tree;
    tree.place.File("ini", "[s]\nk=1\n");
    const std::string question = "(key \"k\" of it, key \"k\" of it) of section \"s\" of file \"@/ini\"";
    EXPECT_EQ(tree.Ask(question), Values({"1, 1"}));
    const file_section section(tree.place.Location("ini"), {4, 0});
    StackAllocator<1024> memory;
    const AllocatorInstaller installed(memory);
    const auto get = [&]() -> std::optional<std::string> {
        const auto value = PropertyOf<inspector_string>(section, "key", inspector_string("k"));
        return value ? std::optional<std::string>(value->View()) : std::nullopt;
    };
    EXPECT_EQ(get(), "1");
    tree.place.File("ini", "[x]\nk=other\n");
    EXPECT_EQ(get(), "other");
    tree.place.File("ini", "[s]");
    EXPECT_EQ(get(), std::nullopt) << "the start lies behind the end";
    tree.place.File("ini");
    EXPECT_EQ(get(), std::nullopt);
    ASSERT_EQ(unlink(tree.Path("ini").c_str()), 0);
    EXPECT_THROW(get(), FileIOError);
}

}  // namespace
