#include "foundation/structured_field_maker.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/foundation/cut_everywhere.h"

namespace {

// Writes down lexemes: "a{atom} q{quoted} d{domain} c{comment} ;".
class Recorder final : public StructuredFieldReceiver, private DataReceiver {
public:
    void StartField() override { record += '<'; }
    void Special(unsigned char byte) override { record += static_cast<char>(byte); }
    DataReceiver& StartAtom() override { return Lexeme('a'); }
    DataReceiver& StartQuotedString() override { return Lexeme('q'); }
    DataReceiver& StartDomainLiteral() override { return Lexeme('d'); }
    DataReceiver& StartComment() override { return Lexeme('c'); }
    void EndField() override { record += '>'; }
    std::string record;

private:
    DataReceiver& Lexeme(char kind) {
        record += kind;
        return *this;
    }
    void Start() override { record += '{'; }
    void Data(const unsigned char* begin, const unsigned char* end) override {
        EXPECT_NE(begin, end);
        record.append(begin, end);
    }
    void Finish() override { record += '}'; }
};

std::string Read(std::string_view text, const CharacterSet& extra = CharacterSet()) {
    return CutEverywhere(text, [&](const Runs& runs) {
        Recorder recorder;
        StructuredFieldMaker maker(recorder, extra);
        maker.Start();
        for (const std::string_view run : runs) {
            const ConstData data(run);
            maker.Data(data.begin, data.end);
        }
        maker.Finish();
        return recorder.record;
    });
}

TEST(StructuredFieldMaker, AnEmptyFieldHasNoLexemes) {
    EXPECT_EQ(Read(""), "<>");
    EXPECT_EQ(Read(" \t\r\n "), "<>");
}

TEST(StructuredFieldMaker, CutsAtomsAtWhiteSpaceAndSpecials) {
    EXPECT_EQ(Read("one two;three <four>"), "<a{one}a{two};a{three}<a{four}>>");
}

TEST(StructuredFieldMaker, EveryStandardSpecialIsALexeme) { EXPECT_EQ(Read("a)<>@,;:\\]b"), "<a{a})<>@,;:\\]a{b}>"); }

TEST(StructuredFieldMaker, TheFullStopIsSpecialOnlyWhenItIsPassed) {
    EXPECT_EQ(Read("a.b"), "<a{a.b}>");
    EXPECT_EQ(Read("a.b", CharacterSet(".")), "<a{a}.a{b}>");
}

TEST(StructuredFieldMaker, ExtraSpecialsAreBeyondTheStandardOnes) {
    EXPECT_EQ(Read("a/b=c;d"), "<a{a/b=c};a{d}>");
    EXPECT_EQ(Read("a/b=c;d", CharacterSet("/=")), "<a{a}/a{b}=a{c};a{d}>");
}

TEST(StructuredFieldMaker, AnExtraSpecialComesBeforeTheRulesForLexemes) {
    EXPECT_EQ(Read("(a)", CharacterSet("(")), "<(a{a})>");
}

TEST(StructuredFieldMaker, OpeningBytesEndAnAtom) {
    EXPECT_EQ(Read("a(b)c\"d\"e[f]g"), "<a{a}c{b}a{c}q{d}a{e}d{f}a{g}>");
}

TEST(StructuredFieldMaker, ControlAndHighBytesAreBytesOfAtoms) {
    const std::string text("\x01\x7f\x80\xff\0x", 6);
    EXPECT_EQ(Read(text), "<a{" + text + "}>");
}

TEST(StructuredFieldMaker, QuotesAreTakenOff) {
    EXPECT_EQ(Read("\"a b\""), "<q{a b}>");
    EXPECT_EQ(Read("\"\""), "<q{}>");
    EXPECT_EQ(Read("\"a(b)[c];d\""), "<q{a(b)[c];d}>");
}

TEST(StructuredFieldMaker, ABackslashKeepsTheNextByteAndIsNotPassedOn) {
    EXPECT_EQ(Read(R"("a\"b\\c\d")"), R"(<q{a"b\cd}>)");
    EXPECT_EQ(Read(R"([a\]b\[c])"), "<d{a]b[c}>");
    EXPECT_EQ(Read(R"((a\)b\(c\\)x)"), R"(<c{a)b(c\}a{x}>)");
    EXPECT_EQ(Read(R"("\\")"), R"(<q{\}>)");
}

TEST(StructuredFieldMaker, AnEscapeIsKeptOverTheEndOfARun) {
    Recorder recorder;
    StructuredFieldMaker maker(recorder);
    maker.Start();
    for (const std::string_view run : {"\"a\\", "\"b\""}) {
        const ConstData data(run);
        maker.Data(data.begin, data.end);
    }
    maker.Finish();
    EXPECT_EQ(recorder.record, "<q{a\"b}>");
}

TEST(StructuredFieldMaker, CommentsNest) {
    EXPECT_EQ(Read("a (b (c) (d (e))) f"), "<a{a}c{b (c) (d (e))}a{f}>");
    EXPECT_EQ(Read("()"), "<c{}>");
    EXPECT_EQ(Read("(\")"), "<c{\"}>");
}

TEST(StructuredFieldMaker, BracketsDoNotNest) { EXPECT_EQ(Read("[a[b]c]"), "<d{a[b}a{c}]>"); }

TEST(StructuredFieldMaker, ALexemeThatIsNotClosedEndsWithTheField) {
    EXPECT_EQ(Read("\"a"), "<q{a}>");
    EXPECT_EQ(Read("(a(b)"), "<c{a(b)}>");
    EXPECT_EQ(Read("[a"), "<d{a}>");
    EXPECT_EQ(Read("\""), "<q{}>");
    EXPECT_EQ(Read("\"a\\"), "<q{a}>");
}

TEST(StructuredFieldMaker, NothingOfOneFieldIsLeftForTheNext) {
    Recorder recorder;
    StructuredFieldMaker maker(recorder);
    for (const std::string_view field : {"(a(b\\", "\"c\"", "\"d\\", "\"e\""}) {
        const ConstData data(field);
        maker.Start();
        maker.Data(data.begin, data.end);
        maker.Finish();
    }
    EXPECT_EQ(recorder.record, "<c{a(b}><q{c}><q{d}><q{e}>");
}

TEST(StructuredFieldMaker, AMillionOpenCommentsAreADepthAndNothingElse) {
    Recorder recorder;
    StructuredFieldMaker maker(recorder);
    const std::string text = std::string(1000000, '(') + std::string(1000000, ')') + "x";
    const ConstData data{std::string_view(text)};
    maker.Start();
    maker.Data(data.begin, data.end);
    maker.Finish();
    EXPECT_TRUE(recorder.record.ends_with(")}a{x}>"));
}

TEST(StructuredFieldReceiver, IgnoresEverythingUnlessToldOtherwise) {
    StructuredFieldReceiver receiver;
    StructuredFieldMaker maker(receiver);
    const ConstData data(std::string_view("a;\"b\"[c](d)"));
    maker.Start();
    EXPECT_NO_THROW(maker.Data(data.begin, data.end));
    EXPECT_NO_THROW(maker.Finish());
    EXPECT_NE(dynamic_cast<IgnoreDataReceiver*>(&receiver.StartAtom()), nullptr);
    EXPECT_NE(dynamic_cast<IgnoreDataReceiver*>(&receiver.StartQuotedString()), nullptr);
    EXPECT_NE(dynamic_cast<IgnoreDataReceiver*>(&receiver.StartDomainLiteral()), nullptr);
    EXPECT_NE(dynamic_cast<IgnoreDataReceiver*>(&receiver.StartComment()), nullptr);
}

}  // namespace
