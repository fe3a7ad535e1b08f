#include "foundation/multipart_splitter.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>

#include "foundation/line_maker.h"
#include "foundation/multipart_signed.h"
#include "tests/foundation/cut_everywhere.h"

namespace {

// Writes down what it is told, and reads all its parts itself:
//   [12 subject={x} type:20480 part0 [...] 30]   a message from 12 to 30 with parts
//   [12 type:0 (line/line) 30]                   one with a body
class Recorder : public MessageReceiver, private DataReceiver, private LineReceiver {
public:
    void StartMessage(uint64_t position) override { record += "[" + std::to_string(position) + " "; }
    DataReceiver& StartHeader(ConstData name) override {
        record.append(name.View()).append("=");
        return *this;
    }
    Body EndHeaders(const ContentTypeReceiver& type) override {
        record += "type:" + std::to_string(type.ContentType()) + " ";
        return MessageReceiver::EndHeaders(type);
    }
    LineReceiver& StartBody() override { return *this; }
    MessageReceiver& StartPart(size_t index) override {
        record += "part" + std::to_string(index) + " ";
        return *this;
    }
    void EndMessage(uint64_t position) override { record += std::to_string(position) + "] "; }
    std::string record;

private:
    void Start() override { record += '{'; }
    void Data(const unsigned char* begin, const unsigned char* end) override { record.append(begin, end); }
    void Finish() override { record += "} "; }
    void Start(uint64_t) override { record += '('; }
    void Text(const unsigned char* begin, const unsigned char* end) override { record.append(begin, end); }
    void EndOfLine(uint64_t, uint64_t) override { record += '/'; }
    void Finish(uint64_t) override { record += ") "; }
};

void Give(MessageReceiver& message, const Runs& runs) {
    MultipartSplitter splitter(message);
    LineMaker lines(splitter);
    lines.Start();
    for (const std::string_view run : runs) {
        const ConstData data(run);
        lines.Data(data.begin, data.end);
    }
    lines.Finish();
}

std::string Read(std::string_view text) {
    return CutEverywhere(text, [](const Runs& runs) {
        Recorder recorder;
        Give(recorder, runs);
        return recorder.record;
    });
}

// As Read, without the positions: what stands after "[" and before "]" goes.
std::string Shape(std::string_view text) {
    const std::string read = Read(text);
    std::string shape;
    for (size_t i = 0; i < read.size(); ++i) {
        if (read[i] == '[') {
            shape += '[';
            i = read.find(' ', i);
        } else if (read[i] == ']') {
            while (!shape.empty() && shape.back() >= '0' && shape.back() <= '9') {
                shape.pop_back();
            }
            shape += ']';
        } else {
            shape += read[i];
        }
    }
    return shape;
}

TEST(MultipartSplitter, AMessageThatIsNoMultipartHasABody) {
    EXPECT_EQ(Read("Subject: x\r\n\r\na\r\n--b\r\n"), "[0 subject={x} type:0 (a/--b/) 22] ");
    EXPECT_EQ(Read(""), "[0 type:0 () 0] ");
    EXPECT_EQ(Read("Content-Type: text/plain; boundary=b\n\n--b\n\nx\n--b--\n"), "[0 type:0 (--b//x/--b--/) 51] ");
}

TEST(MultipartSplitter, SplitsPartsAtTheirBoundaries) {
    EXPECT_EQ(Read("Content-Type: multipart/mixed; boundary=b\r\n\r\n"
                   "--b\r\nA: 1\r\n\r\none\r\n--b\r\n\r\ntwo\r\n\r\n--b--\r\n"),
              "[0 type:20480 part0 [50 a={1} type:0 (one) 61] part1 [68 type:0 (two/) 75] 84] ");
}

TEST(MultipartSplitter, TheTerminatorBeforeABoundaryBelongsToIt) {
    const std::string head = "Content-Type: multipart/mixed; boundary=b\n\n--b\n\n";
    EXPECT_EQ(Shape(head + "x\n--b--"), "[type:20480 part0 [type:0 (x) ] ] ");
    EXPECT_EQ(Shape(head + "x\n\n--b--"), "[type:20480 part0 [type:0 (x/) ] ] ");
    EXPECT_EQ(Shape(head + "x\n\n\n--b--"), "[type:20480 part0 [type:0 (x//) ] ] ");
    EXPECT_EQ(Shape(head + "--b--"), "[type:20480 part0 [type:0 () ] ] ");
    EXPECT_EQ(Shape(head + "\n--b--"), "[type:20480 part0 [type:0 () ] ] ");
    // With no boundary behind it, it stays.
    EXPECT_EQ(Shape(head + "x\n"), "[type:20480 part0 [type:0 (x/) ] ] ");
}

TEST(MultipartSplitter, ThePositionsOfAPartAreThoseOfTheSignedBytes) {
    const std::string text =
        "Content-Type: multipart/signed; boundary=b\r\n\r\npreamble\r\n--b\r\nX: "
        "y\r\n\r\ncontent\r\n\r\n--b\r\n\r\ns\r\n--b--";
    const std::string read = Read(text);
    const size_t begin = text.find("X: y");
    const size_t end = text.find("\r\n--b\r\n\r\ns");
    EXPECT_NE(read.find("part0 [" + std::to_string(begin) + " x={y} type:0 (content/) " + std::to_string(end) + "]"),
              std::string::npos)
        << read;
}

TEST(MultipartSplitter, TextBeforeTheFirstPartAndAfterTheLastIsDropped) {
    EXPECT_EQ(
        Shape("Content-Type: multipart/mixed; boundary=b\n\nbefore\nA: x\n\n--b\n\nx\n--b--\nafter\n--b\n\nmore\n"),
        "[type:20480 part0 [type:0 (x) ] ] ");
}

TEST(MultipartSplitter, APartMayEndInItsHeaders) {
    const std::string head = "Content-Type: multipart/mixed; boundary=b\n\n--b\n";
    EXPECT_EQ(Shape(head + "A: 1\n--b\nB: 2\n 3\n--b--"),
              "[type:20480 part0 [a={1} type:0 () ] part1 [b={2 3} type:0 () ] ] ");
    EXPECT_EQ(Shape(head + "--b\n--b--"), "[type:20480 part0 [type:0 () ] part1 [type:0 () ] ] ");
    EXPECT_EQ(Shape(head + "A: 1"), "[type:20480 part0 [a={1} type:0 () ] ] ");
    EXPECT_EQ(Shape(head), "[type:20480 part0 [type:0 () ] ] ");
    EXPECT_EQ(Shape(head + "Content-Type: multipart/mixed; boundary=c\n--b\n--c\n"),
              "[type:20480 part0 [type:20480 ] part1 [type:0 () ] ] ");
}

TEST(MultipartSplitter, WhatOnlyLooksLikeABoundaryIsText) {
    const std::string head = "Content-Type: multipart/mixed; boundary=bound\n\n--bound\n\n";
    for (const char* const line :
         {"-", "--", "---", "----", "-bound", "--boun", "--boundx", "--boundary", "--bound-", "--bound-- x",
          "--bound x", " --bound", "--Bound", "--bound---", "bound", "--bound--x"}) {
        EXPECT_EQ(Shape(head + "x\n" + line + "\ny\n--bound--"),
                  std::string("[type:20480 part0 [type:0 (x/") + line + "/y) ] ] ");
    }
}

TEST(MultipartSplitter, BlanksMayFollowABoundary) {
    const std::string head = "Content-Type: multipart/mixed; boundary=b\n\n--b \t\n\n";
    EXPECT_EQ(Shape(head + "x\n--b--  \ny"), "[type:20480 part0 [type:0 (x) ] ] ");
    // A line that is longer than any boundary with its blanks is text, and none of it is lost.
    const std::string padded = "--b" + std::string(300, ' ');
    EXPECT_EQ(Shape(head + padded + "\n--b--"), "[type:20480 part0 [type:0 (" + padded + ") ] ] ");
}

TEST(MultipartSplitter, QuotedBoundariesMayHoldAnything) {
    EXPECT_EQ(Shape("Content-Type: multipart/mixed;\n boundary=\"a \\\"b\\\" (c)--\"\n\n--a \"b\" (c)--\n\nx\n--a "
                    "\"b\" (c)----\n"),
              "[type:20480 part0 [type:0 (x) ] ] ");
    const std::string longest(80, 'q');
    EXPECT_EQ(
        Shape("Content-Type: multipart/mixed; boundary=" + longest + "\n\n--" + longest + "\n\nx\n--" + longest + "--"),
        "[type:20480 part0 [type:0 (x) ] ] ");
}

TEST(MultipartSplitter, AMultipartWithoutABoundaryIsGivenWhole) {
    EXPECT_EQ(Shape("Content-Type: multipart/mixed\n\n--\n--b\nx"), "[type:20480 (--/--b/x) ] ");
    EXPECT_EQ(Shape("Content-Type: multipart/mixed; boundary=\"\"\n\n--\nx"), "[type:20480 (--/x) ] ");
    EXPECT_EQ(Shape("Content-Type: multipart/mixed; boundary=\"  \"\n\n--\nx"), "[type:20480 (--/x) ] ");
}

TEST(MultipartSplitter, MissingPartsAreNoError) {
    EXPECT_EQ(Shape("Content-Type: multipart/mixed; boundary=b\n\n"), "[type:20480 ] ");
    EXPECT_EQ(Shape("Content-Type: multipart/mixed; boundary=b\n\n--b--\n"), "[type:20480 ] ");
    EXPECT_EQ(Shape("Content-Type: multipart/mixed; boundary=b"), "[type:20480 ] ");
}

TEST(MultipartSplitter, MultipartsNest) {
    EXPECT_EQ(Shape("Content-Type: multipart/signed; boundary=o\n\n"
                    "--o\nContent-Type: multipart/related; boundary=i\n\n"
                    "--i\nA: 1\n\nfirst\n--i\n\nsecond\n--i--\nafter\n"
                    "--o\n\nsignature\n--o--\n"),
              "[type:20491 part0 [type:20489 part0 [a={1} type:0 (first) ] part1 [type:0 (second) ] ] "
              "part1 [type:0 (signature) ] ] ");
}

TEST(MultipartSplitter, AnOuterBoundaryEndsWhatIsOpenInside) {
    const std::string head =
        "Content-Type: multipart/mixed; boundary=o\n\n--o\nContent-Type: multipart/mixed; boundary=i\n\n--i\n\nx\n";
    EXPECT_EQ(Shape(head + "--o\n\ny\n--i\n--o--\n"),
              "[type:20480 part0 [type:20480 part0 [type:0 (x) ] ] part1 [type:0 (y/--i) ] ] ");
    EXPECT_EQ(Shape(head + "--o--\n--i\n"), "[type:20480 part0 [type:20480 part0 [type:0 (x) ] ] ] ");
    EXPECT_EQ(Shape(head), "[type:20480 part0 [type:20480 part0 [type:0 (x/) ] ] ] ");
}

TEST(MultipartSplitter, OfTwoWithTheSameBoundaryTheInnerComesFirst) {
    EXPECT_EQ(Shape("Content-Type: multipart/mixed; boundary=b\n\n--b\nContent-Type: multipart/mixed; boundary=b\n\n"
                    "--b\n\nx\n--b--\n--b\n\ny\n--b--\n"),
              "[type:20480 part0 [type:20480 part0 [type:0 (x) ] ] part1 [type:0 (y) ] ] ");
}

TEST(MultipartSplitter, TheTypeOfAPartWithoutTheFieldIsGivenByItsEncloser) {
    EXPECT_EQ(
        Shape("Content-Type: multipart/digest; boundary=b\n\n--b\n\nx\n--b\nContent-Type: text/plain\n\ny\n--b--\n"),
        "[type:20482 part0 [type:24576 (x) ] part1 [type:0 (y) ] ] ");
    EXPECT_EQ(Shape("Content-Type: multipart/digest; boundary=o\n\n--o\nContent-Type: multipart/mixed; boundary=i\n\n"
                    "--i\n\nx\n--i--\n--o\n\ny\n"),
              "[type:20482 part0 [type:20480 part0 [type:0 (x) ] ] part1 [type:24576 (y/) ] ] ");
}

TEST(MultipartSplitter, FoldedAndCommentedContentTypes) {
    EXPECT_EQ(Shape("CONTENT-TYPE: (a (b)) Multipart\n\t/ Mixed;\n Boundary=\"b\\\n c\" (x)\n\n--b c\n\nx\n--b c--"),
              "[type:20480 part0 [type:0 (x) ] ] ");
}

TEST(MultipartSplitter, ThePartsOfOneMessageAreNotThoseOfTheNext) {
    Recorder recorder;
    MultipartSplitter splitter(recorder);
    LineMaker lines(splitter);
    for (const std::string_view text : {"Content-Type: multipart/mixed; boundary=b\n\n--b\n\nx", "\n--b\n"}) {
        const ConstData data(text);
        lines.Start();
        lines.Data(data.begin, data.end);
        lines.Finish();
    }
    EXPECT_EQ(recorder.record, "[0 type:20480 part0 [47 type:0 (x) 49] 49] [0 type:0 (--b/) 5] ");
}

// Counts instead of writing down, for messages that are deep or long.
class Counter final : public MessageReceiver, private LineReceiver {
public:
    void StartMessage(uint64_t) override { deepest = std::max(deepest, ++open); }
    LineReceiver& StartBody() override {
        ++bodies;
        return *this;
    }
    MessageReceiver& StartPart(size_t) override { return *this; }
    void EndMessage(uint64_t) override {
        --open;
        ++ended;
    }
    size_t open = 0, deepest = 0, ended = 0, bodies = 0, lineEnds = 0;

private:
    void Start(uint64_t) override {}
    void Text(const unsigned char*, const unsigned char*) override {}
    void EndOfLine(uint64_t, uint64_t) override { ++lineEnds; }
    void Finish(uint64_t) override {}
};

std::string Nested(size_t depth, const std::string& body) {
    std::string text;
    for (size_t i = 0; i < depth; ++i) {
        const std::string boundary = "b" + std::to_string(i);
        text += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + "\n";
    }
    text += "\n" + body;
    for (size_t i = depth; i != 0; --i) {
        text += "\n--b" + std::to_string(i - 1) + "--\n";
    }
    return text;
}

TEST(MultipartSplitter, AThousandNestedPartsCostNoMorePerLineThanOne) {
    std::string body;
    for (int i = 0; i < 200000; ++i) {
        body += "--text\n";
    }
    const auto time = [&](size_t depth) {
        const std::string text = Nested(depth, body);
        Counter counter;
        const auto start = std::chrono::steady_clock::now();
        Give(counter, {text});
        const auto elapsed = std::chrono::steady_clock::now() - start;
        EXPECT_EQ(counter.deepest, depth + 1);
        EXPECT_EQ(counter.ended, depth + 1);
        EXPECT_EQ(counter.open, 0u);
        EXPECT_EQ(counter.lineEnds, 200000u);
        return std::chrono::duration<double>(elapsed).count();
    };
    const double one = time(1);
    // A look at each open multipart would take some hundred times as long.
    EXPECT_LT(time(1000), 40 * one + 1);
}

TEST(MultipartSplitter, MultipartsBelowTheDeepestAreGivenWhole) {
    Counter counter;
    Give(counter, {Nested(MultipartSplitter::kDeepest + 1000, "x")});
    EXPECT_EQ(counter.deepest, MultipartSplitter::kDeepest + 1);
    EXPECT_EQ(counter.ended, MultipartSplitter::kDeepest + 1);
    EXPECT_EQ(counter.bodies, 1u);
}

TEST(MessageReceiver, IgnoresEverythingUnlessToldOtherwise) {
    MessageReceiver ignoring;
    EXPECT_NO_THROW(Give(ignoring, {Nested(3, "A: b\n\nx")}));
}

// Reads the content with one recorder and the signature with another.
class SignedRecorder final : public MultipartSignedReceiver {
public:
    void StartSigned(const ContentTypeReceiver& type) override { micalg = type.MicAlg().View(); }
    MessageReceiver& StartContent() override { return content; }
    MessageReceiver& StartSignature() override { return signature; }
    std::string micalg;
    Recorder content;
    Recorder signature;
};

const char* const kSigned =
    "Content-Type: multipart/signed; boundary=b; micalg=sha1\n\n--b\nA: 1\n\nc\n--b\nB: 2\n\ns\n--b\n\nthird\n--b--\n";

TEST(MultipartSignedSplitter, HandsOnTheContentAndTheSignature) {
    SignedRecorder recorder;
    MultipartSignedSplitter splitter(recorder);
    Give(splitter, {kSigned});
    EXPECT_EQ(recorder.micalg, "sha1");
    EXPECT_EQ(recorder.content.record, "[61 a={1} type:0 (c) 68] ");
    EXPECT_EQ(recorder.signature.record, "[73 b={2} type:0 (s) 80] ");
}

TEST(MultipartSignedSplitter, TheSignatureMayBePassedOver) {
    const std::string read = CutEverywhere(kSigned, [](const Runs& runs) {
        Recorder content;
        MultipartSignedSignatureIgnorer receiver(content);
        MultipartSignedSplitter splitter(receiver);
        Give(splitter, runs);
        return content.record;
    });
    EXPECT_EQ(read, "[61 a={1} type:0 (c) 68] ");
}

TEST(MultipartSignedSplitter, AMultipartSignatureIsPassedOverWithItsParts) {
    Recorder content;
    MultipartSignedSignatureIgnorer receiver(content);
    MultipartSignedSplitter splitter(receiver);
    Give(splitter, {"Content-Type: multipart/signed; boundary=b\n\n--b\n\nc\n--b\n"
                    "Content-Type: multipart/mixed; boundary=i\n\n--i\n\nx\n--i--\n--b--\n"});
    EXPECT_EQ(content.record, "[48 type:0 (c) 50] ");
}

TEST(MultipartSignedSplitter, AnotherTypeIsNotASignedMessage) {
    for (const char* const text : {"", "A: b\n\n", "Content-Type: multipart/mixed; boundary=b\n\n--b\n\nx\n",
                                   "Content-Type: text/plain\n\nx", "Content-Type: application/signed"}) {
        Recorder content;
        MultipartSignedSignatureIgnorer receiver(content);
        MultipartSignedSplitter splitter(receiver);
        EXPECT_THROW(Give(splitter, {text}), NotASignedMessage) << text;
        EXPECT_EQ(content.record, "");
    }
    EXPECT_STREQ(NotASignedMessage().what(), "NotASignedMessage");
}

TEST(MultipartSplitter, CanBeUsedAgainAfterAnException) {
    Recorder content;
    MultipartSignedSignatureIgnorer receiver(content);
    MultipartSignedSplitter signedSplitter(receiver);
    MultipartSplitter splitter(signedSplitter);
    LineMaker lines(splitter);
    const ConstData bad(std::string_view("Content-Type: multipart/mixed; boundary=b\n\n--b\n\nx\n--b--\n"));
    lines.Start();
    EXPECT_THROW(lines.Data(bad.begin, bad.end), NotASignedMessage);
    const ConstData good{std::string_view(kSigned)};
    lines.Start();
    lines.Data(good.begin, good.end);
    lines.Finish();
    EXPECT_EQ(content.record, "[61 a={1} type:0 (c) 68] ");
}

}  // namespace
