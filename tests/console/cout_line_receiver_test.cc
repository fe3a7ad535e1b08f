#include "console/cout_line_receiver.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/console/captured_output.h"

namespace {

TEST(CoutLineReceiver, WritesRunsAndLineEndsToTheFile) {
    CapturedOutput output;
    {
        CoutLineReceiver receiver(output.Path(), false);
        receiver.Start(0);
        receiver.Text("a");
        receiver.Text(std::string_view("\0b\xff", 3));
        receiver.EndOfLine(1, 2);
        receiver.EndLine();
        receiver.Finish(0);
    }
    EXPECT_EQ(output.Text(), std::string("a\0b\xff\n\n", 6));
}

TEST(CoutLineReceiver, SendsEachLineOnAtOnceWhenAskedTo) {
    CapturedOutput output;
    CoutLineReceiver receiver(output.Path(), true);
    receiver.Text("a");
    EXPECT_EQ(output.Text(), "");
    receiver.EndLine();
    EXPECT_EQ(output.Text(), "a\n");
    receiver.Text("b");
    receiver.Flush();
    EXPECT_EQ(output.Text(), "a\nb");
}

TEST(CoutLineReceiver, HoldsLinesBackOtherwise) {
    CapturedOutput output;
    CoutLineReceiver receiver(output.Path(), false);
    receiver.Text("a");
    receiver.EndLine();
    EXPECT_EQ(output.Text(), "");
}

TEST(CoutLineReceiver, AFileThatCannotBeOpenedIsStandardOutput) {
    testing::internal::CaptureStdout();
    {
        CoutLineReceiver receiver("/no/such/folder/file", false);
        receiver.Text("to standard output");
        receiver.EndLine();
        CoutLineReceiver unnamed(nullptr, false);
        unnamed.Text("unnamed");
        unnamed.EndLine();
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "to standard output\nunnamed\n");
}

TEST(CoutLineReceiver, TheFileIsWrittenAnew) {
    CapturedOutput output;
    for (const char* text : {"a longer text", "short"}) {
        CoutLineReceiver receiver(output.Path(), false);
        receiver.Text(text);
    }
    EXPECT_EQ(output.Text(), "short");
}

}  // namespace
