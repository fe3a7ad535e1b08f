// The receivers and readers that need no file: receivers of strings and buffers, flatteners, the pull side.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "foundation/buffer_filler.h"
#include "foundation/data_reader.h"
#include "foundation/data_receiver.h"
#include "foundation/line_flattener.h"
#include "foundation/line_maker.h"
#include "foundation/line_receiver.h"

namespace {

// Brackets the stream visibly: "<text>".
class BracketingReceiver final : public DataReceiver {
public:
    void Start() override { text += '<'; }
    void Data(const unsigned char* begin, const unsigned char* end) override { text.append(begin, end); }
    void Finish() override { text += '>'; }
    std::string text;
};

// Gives its text in pieces of at most three bytes.
class PieceReader final : public DataReader {
public:
    explicit PieceReader(std::string_view text) : text_(text) {}
    bool AtEnd() override { return text_.Empty(); }
    void Fill(Buffer& out) override {
        const size_t count = std::min({size_t{3}, out.Room(), text_.Length()});
        std::memcpy(out.write, text_.begin, count);
        out.write += count;
        text_.begin += count;
    }

private:
    ConstData text_;
};

TEST(DataReceiver, TheShorthandGivesDataAndReturnsTheReceiver) {
    std::string text;
    StringReceiver receiver(text);
    const ConstData ab(std::string_view("ab"));
    EXPECT_EQ(&receiver(ab.begin, ab.end)(ab), &receiver);
    EXPECT_EQ(text, "abab");
}

TEST(StringReceiver, AppendsToWhatIsThere) {
    std::string text = "x";
    StringReceiver receiver(text);
    receiver.Start();
    receiver(ConstData(std::string_view("yz")));
    receiver(ConstData());
    receiver.Finish();
    EXPECT_EQ(text, "xyz");
}

TEST(BufferFiller, CopiesRunsOneBehindTheOther) {
    unsigned char space[4];
    Buffer buffer(space, space + sizeof space);
    BufferFiller filler(&buffer);
    filler.Start();
    filler(ConstData(std::string_view("ab")))(ConstData())(ConstData(std::string_view("cd")));
    filler.Finish();
    EXPECT_EQ(buffer.Filled().View(), "abcd");
}

TEST(BufferFiller, ARunThatDoesNotFitOverflowsAndIsNotCopied) {
    unsigned char space[3];
    Buffer buffer(space, space + sizeof space);
    BufferFiller filler(&buffer);
    filler(ConstData(std::string_view("ab")));
    EXPECT_THROW(filler(ConstData(std::string_view("cd"))), DataOverflow);
    EXPECT_EQ(buffer.Filled().View(), "ab");
}

TEST(BufferFiller, WithoutABufferItThrows) {
    BufferFiller filler(nullptr);
    EXPECT_THROW(filler.Start(), NullBufferFiller);
    EXPECT_THROW(filler(ConstData(std::string_view("a"))), NullBufferFiller);
}

TEST(LineFlattener, TheTerminatorsAreTheirTexts) {
    EXPECT_EQ(LineFlattener::cr.View(), "\r");
    EXPECT_EQ(LineFlattener::lf.View(), "\n");
    EXPECT_EQ(LineFlattener::crlf.View(), "\r\n");
    EXPECT_EQ(LineFlattener::space.View(), " ");
    EXPECT_EQ(LineFlattener::nothing.View(), "");
}

TEST(LineFlattener, EveryLineEndBecomesTheTerminator) {
    BracketingReceiver out;
    LineFlattener flattener(LineFlattener::crlf, out);
    LineMaker lines(flattener);
    lines.Start();
    lines(ConstData(std::string_view("a\nb\r\n\rc")));
    lines.Finish();
    EXPECT_EQ(out.text, "<a\r\nb\r\n\r\nc>");
}

TEST(LineFlattener, FinishLetsGoOfTheNextReceiver) {
    BracketingReceiver out;
    LineFlattener flattener(LineFlattener::space, out);
    flattener.Start(0);
    flattener.Finish(0);
    flattener.EndOfLine(0, 1);
    flattener.Finish(1);
    EXPECT_EQ(out.text, "<>");
}

TEST(DataReader, ReadFillsTheRangeFromManyPieces) {
    PieceReader reader("abcdefgh");
    unsigned char range[7];
    reader.Read(range, range + sizeof range);
    EXPECT_EQ(ConstData(range, sizeof range).View(), "abcdefg");
    EXPECT_TRUE(reader.HasData());
}

TEST(DataReader, ReadOverMoreThanTheDataThrows) {
    PieceReader reader("abc");
    unsigned char range[4];
    EXPECT_THROW(reader.Read(range, range + sizeof range), NoMoreData);
}

TEST(DataReader, AnEmptyRangeIsReadFromAnyReader) {
    EmptyDataReader reader;
    unsigned char byte;
    EXPECT_NO_THROW(reader.Read(&byte, &byte));
}

TEST(EmptyDataReader, IsAlwaysAtEnd) {
    EmptyDataReader reader;
    unsigned char byte;
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_FALSE(reader.HasData());
    EXPECT_THROW(reader.Read(&byte, &byte + 1), NoMoreData);
}

TEST(StreamExceptions, TheTextIsTheNameOfTheClass) {
    EXPECT_STREQ(ConstDataCapacityExceeded().what(), "ConstDataCapacityExceeded");
    EXPECT_STREQ(ConstDataTooSmall().what(), "ConstDataTooSmall");
    EXPECT_STREQ(DataOverflow().what(), "DataOverflow");
    EXPECT_STREQ(DataTooSmall().what(), "DataTooSmall");
    EXPECT_STREQ(NoMoreData().what(), "NoMoreData");
    EXPECT_STREQ(NullBufferFiller().what(), "NullBufferFiller");
}

}  // namespace
