#include "inspectors/file_content.h"

#include <unistd.h>

#include <random>

#include "evaluator/inspector_context.h"
#include "tests/inspectors/file_tree.h"
#include "tests/inspectors/property_of.h"
#include "values/integer.h"
#include "values/string.h"

namespace {

// The text in blocks of the given sizes, over and over.
bool FindInBlocks(std::string_view text, std::string_view sought, const std::vector<size_t>& sizes) {
    BlockSearch search(sought);
    for (size_t i = 0; !text.empty(); ++i) {
        const size_t count = std::min(sizes[i % sizes.size()], text.size());
        std::memcpy(search.Block().begin, text.data(), count);
        text.remove_prefix(count);
        if (search.Take(count)) {
            return true;
        }
    }
    return false;
}

TEST(BlockSearch, FindsWhatTheWholeTextHas) {
    std::mt19937 random(31);
    int found = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string text(random() % 200, 'a');
        for (char& c : text) {
            c = static_cast<char>('a' + random() % 2);
        }
        std::string sought(1 + random() % 8, 'a');
        for (char& c : sought) {
            c = static_cast<char>('a' + random() % 2);
        }
        const bool expected = text.find(sought) != std::string::npos;
        found += expected ? 1 : 0;
        ASSERT_EQ(FindInBlocks(text, sought, {1}), expected) << text << " " << sought;
        ASSERT_EQ(FindInBlocks(text, sought, {1 + random() % 9, 1 + random() % 9}), expected) << text << " " << sought;
        ASSERT_EQ(FindInBlocks(text, sought, {BlockSearch::kBlock}), expected) << text << " " << sought;
    }
    EXPECT_GT(found, 500);
    EXPECT_LT(found, 2500);
}

TEST(BlockSearch, NothingIsFoundInWhatWasNeverRead) {
    const std::string zeros(3, '\0');
    EXPECT_FALSE(FindInBlocks(std::string(2, '\0'), zeros, {1}));
    EXPECT_TRUE(FindInBlocks(zeros, zeros, {1}));
    EXPECT_FALSE(FindInBlocks("", "a", {1}));
}

class FileContents : public testing::Test {
protected:
    bool Contains(const std::string& content, std::string_view sought,
                  file_content::Mode mode = file_content::Mode::Plain) {
        place_.File("f", content);
        const std::optional<file> f = At<file>(place_.Location("f"));
        return *file_content(*f, mode).Contains(sought);
    }

    TemporaryPlace place_;
};

TEST_F(FileContents, AreSearchedAcrossEveryBorderOfBlocks) {
    std::mt19937 random(5);
    for (const size_t border : {BlockSearch::kBlock, 2 * BlockSearch::kBlock}) {
        for (const size_t length : {1, 2, 3, 17}) {
            const std::string sought = "Needle in the hay";
            const std::string part = sought.substr(0, length);
            for (size_t at = border - length - 1; at <= border + 1; ++at) {
                std::string content(border + 40, '.');
                content.replace(at, length, part);
                ASSERT_TRUE(Contains(content, part)) << at;
                content[at + random() % length] = '!';
                ASSERT_FALSE(Contains(content, part)) << at;
            }
        }
    }
}

TEST_F(FileContents, OfRandomBytesHaveWhatAPlainSearchFinds) {
    std::mt19937 random(8);
    std::string content(150000, '\0');
    for (char& c : content) {
        c = static_cast<char>(random());
    }
    for (int i = 0; i < 60; ++i) {
        const size_t length = 1 + random() % (i % 3 == 0 ? 32768 : 4);
        const size_t at = random() % (content.size() - length);
        std::string sought = content.substr(at, length);
        if (i % 2 == 0) {
            sought[random() % length] ^= 1;
        }
        ASSERT_EQ(Contains(content, sought), content.find(sought) != std::string::npos) << at << " " << length;
    }
}

TEST_F(FileContents, OfTheGreatestLengthAndOneMore) {
    const std::string most(32768, 'y');
    EXPECT_TRUE(Contains(std::string(32768, 'y'), most));
    EXPECT_FALSE(Contains(std::string(32767, 'y'), most));
    EXPECT_TRUE(Contains("x" + std::string(32768, 'y'), most));
    EXPECT_FALSE(Contains(std::string(32767, 'y') + "x" + std::string(32767, 'y'), most));
    place_.File("f", std::string(40000, 'y'));
    const std::optional<file> f = At<file>(place_.Location("f"));
    EXPECT_EQ(file_content(*f).Contains(most + "y"), std::nullopt);
    ASSERT_EQ(unlink(place_.Path("f").c_str()), 0);
    EXPECT_EQ(file_content(*f).Contains(most + "y"), std::nullopt) << "it is not opened for that";
    EXPECT_EQ(file_content(*f).Contains(""), true);
    EXPECT_THROW(file_content(*f).Contains("y"), FileNotFoundError);
}

TEST_F(FileContents, InOneCaseAreComparedToTheTextAsItStands) {
    using enum file_content::Mode;
    const std::string content = "Hello [World] \xe4\xc4 @`{z";
    EXPECT_TRUE(Contains(content, "HELLO [WORLD] \xe4\xc4 @`{Z", Uppercase));
    EXPECT_FALSE(Contains(content, "Hello", Uppercase));
    EXPECT_TRUE(Contains(content, "hello [world] \xe4\xc4 @`{z", Lowercase));
    EXPECT_FALSE(Contains(content, "Hello", Lowercase));
    // A block's end that is carried over has its case already.
    for (size_t at = 32765; at <= 32769; ++at) {
        EXPECT_TRUE(Contains(std::string(at, '.') + "nEEdle", "NEEDLE", Uppercase));
        EXPECT_TRUE(Contains(std::string(at, '.') + "nEEdle", "needle", Lowercase));
    }
}

// A search that compares at every place anew would take an hour for it.
TEST_F(FileContents, TextsThatAlmostOccurEverywhereTakeNoLongTime) {
    const std::string content(2000000, 'a');
    EXPECT_FALSE(Contains(content, std::string(16000, 'a') + "b" + std::string(16000, 'a')));
    EXPECT_FALSE(Contains(content, "b" + std::string(32767, 'a')));
    EXPECT_FALSE(Contains(content, std::string(32767, 'a') + "b"));
}

TEST(FileContentPhrases, AreAskedInBothNumbers) {
    const FileTree tree;
    EXPECT_EQ(tree.Ask("content of file \"@/reg\" contains \"lo wo\""), Values({"True"}));
    EXPECT_EQ(tree.Ask("content of file \"@/reg\" contains \"hello world%0a%0a\""), Values({"False"}));
    EXPECT_EQ(tree.Ask("(it contains \"o\") of contents of files (\"@/reg\"; \"@/empty\"; \"@/dir/a.txt\")"),
              Values({"True", "False", "False"}));
    EXPECT_EQ(tree.Ask("content of file \"@/reg\" as uppercase contains \"HELLO\""), Values({"True"}));
    EXPECT_EQ(tree.Ask("content of file \"@/reg\" as uppercase contains \"hello\""), Values({"False"}));
    EXPECT_EQ(tree.Ask("content of file \"@/reg\" as uppercase as lowercase contains \"hello\""), Values({"True"}));
    EXPECT_EQ(tree.Ask("content of file \"@/empty\" contains \"\""), Values({"True"}));
    EXPECT_EQ(tree.Ask("\"zz\" is contained by content of file \"@/reg\""), Values({"False"}));
    EXPECT_EQ(Ask("content of file \"/proc/kmsg\" contains \"\""), Values({"True"}));
    EXPECT_EQ(Ask("content of file \"/proc/kmsg\" contains \"a\"").failure, "FileIOError");
    EXPECT_EQ(tree.Ask("content of file \"@/reg\"").failure, "OperationNotDefined");
}

TEST(FileContentPhrases, FilesThatAreMadeAsTheyAreRead) {
    EXPECT_EQ(Ask("content of file \"/proc/cpuinfo\" contains \"processor\""), Values({"True"}));
    EXPECT_EQ(Ask("content of file \"/proc/self/status\" contains \"no such words\""), Values({"False"}));
}

// Its length is that of a page; what it gives is a number and a line feed.
TEST(FileContentPhrases, AFileThatClaimsMoreThanItGives) {
    if (access("/sys/kernel/uevent_seqnum", R_OK) != 0) {
        GTEST_SKIP() << "this machine has no /sys";
    }
    const std::string of = " of file \"/sys/kernel/uevent_seqnum\"";
    ASSERT_EQ(Ask("(size of it > 100)" + of), Values({"True"}));
    EXPECT_EQ(Ask("(it contains \"%0a\", it contains \"no such\") of content" + of), Values({"True, False"}));
    EXPECT_EQ(Ask("number of lines" + of), Values({"1"}));
    EXPECT_EQ(Ask("byte 100" + of), DoesNotExist());
}

// The length is that of the moment when the file was looked at.
TEST(FileContentPhrases, BytesOfAFileThatHasBecomeShorter) {
    const TemporaryPlace place;
    place.File("f", "0123456789");
    const std::optional<file> f = At<file>(place.Location("f"));
    ASSERT_EQ(truncate(place.Path("f").c_str(), 5), 0);
    EXPECT_EQ(PropertyOf<integer>(*f, "byte", integer(4)), integer('4'));
    EXPECT_EQ(PropertyOf<integer>(*f, "byte", integer(5)), std::nullopt);
    EXPECT_EQ(PropertyOf<integer>(*f, "byte", integer(9)), std::nullopt);
    place.File("f", "0123456789ab");
    EXPECT_EQ(PropertyOf<integer>(*f, "byte", integer(9)), integer('9'));
    EXPECT_EQ(PropertyOf<integer>(*f, "byte", integer(10)), std::nullopt) << "it had ten then";
}

TEST(FileContentPhrases, BytesAreThoseOfRegularFiles) {
    const FileTree tree;
    EXPECT_EQ(tree.Ask("byte 0 of file \"@/dir/pipe\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("byte 0 of file \"/dev/zero\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("byte 0 of file \"@/dir/a.txt\""), Values({"97"}));
}

TEST(FileContentPhrases, BytesAreCountedFromZero) {
    const FileTree tree;
    tree.place.File("bytes", std::string("\0\x7f\x80\xff", 4));
    EXPECT_EQ(tree.Ask("byte 0 of file \"@/bytes\""), Values({"0"}));
    EXPECT_EQ(tree.Ask("bytes (1; 2; 3; 4; -1; 9223372036854775807; 0) of file \"@/bytes\""),
              Values({"127", "128", "255", "0"}));
    EXPECT_EQ(tree.Ask("byte 4 of file \"@/bytes\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("byte (-1) of file \"@/bytes\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("byte 0 of file \"@/empty\""), DoesNotExist());
    EXPECT_EQ(Ask("byte 0 of file \"/proc/kmsg\""), DoesNotExist()) << "it has no length, so it is not opened";
}

// A host that digests nothing but tells what it was asked.
class Host : public InspectorContext, public CryptoInspectorContext {
public:
    Host() {
        sha1OfFile = [](const FileLocation& location) { return CopiedString("file " + std::string(location.Text())); };
        sha1OfBytes = [](const unsigned char* begin, const unsigned char* end) {
            return CopiedString("bytes " + std::string(begin, end));
        };
    }
};

TEST(FileDigests, AreTheHosts) {
    Host host;
    EXPECT_EQ(Ask("sha1 of file \"/etc/passwd\"", &host), Values({"file /etc/passwd"}));
    EXPECT_EQ(Ask("sha1s of files (\"/etc/passwd\"; \"/etc/group\"; \"/etc/none\")", &host),
              Values({"file /etc/passwd", "file /etc/group"}));
    EXPECT_EQ(Ask("sha1 of first 5 of line 1 of file \"/proc/version\"", &host), Values({"bytes Linux"}))
        << "a line is a string";
}

TEST(FileDigests, AreNotToBeHadWithoutOne) {
    InspectorContext poor;
    EXPECT_EQ(Ask("sha1 of file \"/etc/passwd\"").failure, "NoInspectorContext");
    EXPECT_EQ(Ask("sha1 of file \"/etc/passwd\"", &poor).failure, "NoInspectorContext");
    Host host;
    host.sha1OfFile = nullptr;
    EXPECT_EQ(Ask("sha1 of file \"/etc/passwd\"", &host).failure, "NoInspectorContext");
    EXPECT_EQ(Ask("sha1 of file \"/etc/none\""), DoesNotExist());
}

class Impatient : public InspectorContext, public InspectorInterrupter {
public:
    bool ShouldContinue() override { return left-- > 0; }
    void Interrupted() override { throw InspectorInterruption(); }
    int left = 5;
};

TEST(FileInterruptions, EndLongReadings) {
    const TemporaryPlace place;
    place.File("big", std::string(400000, 'x'));
    for (const std::string question :
         {"content of file \"@\" contains \"y\"", "line 400000 of file \"@\"", "lines containing \"y\" of file \"@\"",
          "key \"y\" of file \"@\"", "exists section \"y\" of file \"@\"", "exists grub config file \"@\""}) {
        std::string asked = question;
        asked.replace(asked.find('@'), 1, place.Path("big"));
        Impatient host;
        EXPECT_EQ(Ask(asked, &host).failure, "InspectorInterruption") << question;
    }
}

}  // namespace
