#include "foundation/data_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "foundation/ascii.h"

namespace {

class RunRecorder final : public DataReceiver {
public:
    void Start() override { text += '<'; }
    void Data(const unsigned char* begin, const unsigned char* end) override {
        runs.push_back(static_cast<size_t>(end - begin));
        text.append(begin, end);
    }
    void Finish() override { text += '>'; }
    std::string text;
    std::vector<size_t> runs;
};

// Writes each byte twice, and says when it is finished.
class DoublingFilter final : public DataFilter {
public:
    void Filter(ConstData& in, Buffer& out) override {
        while (!in.Empty() && out.Room() >= 2) {
            *out.write++ = *in.begin;
            *out.write++ = *in.begin++;
        }
    }
    void Finish() override { ++finished; }
    int finished = 0;
};

TEST(DataFilter, IsFinishedUnlessItSaysOtherwise) { EXPECT_TRUE(DataFilter::copy.IsFinished()); }

TEST(DataFilter, CopyIsTheIdentityAndStopsWithTheRoom) {
    ConstData in(std::string_view("abcde"));
    unsigned char space[3];
    Buffer out(space, space + sizeof space);
    DataFilter::copy.Filter(in, out);
    EXPECT_EQ(out.Filled().View(), "abc");
    EXPECT_EQ(in.View(), "de");
}

TEST(DataFilterer, AnEmptyRunDoesNothing) {
    RunRecorder next;
    DataFilterer filterer(DataFilter::copy, next);
    filterer.Data(nullptr, nullptr);
    EXPECT_TRUE(next.runs.empty());
}

TEST(DataFilterer, HandsOnRunsOfAtMost1024Bytes) {
    RunRecorder next;
    DataFilterer filterer(DataFilter::copy, next);
    const std::string text(2500, 'x');
    filterer.Start();
    filterer(ConstData(text));
    filterer.Finish();
    EXPECT_EQ(next.runs, (std::vector<size_t>{1024, 1024, 452}));
    EXPECT_EQ(next.text, "<" + text + ">");
}

TEST(DataFilterer, AFilterThatGrowsItsInputIsAskedUntilTheRunIsConsumed) {
    RunRecorder next;
    DoublingFilter filter;
    DataFilterer filterer(filter, next);
    filterer.Start();
    filterer(ConstData(std::string(600, 'y')));
    filterer.Finish();
    EXPECT_EQ(next.text, "<" + std::string(1200, 'y') + ">");
    EXPECT_EQ(filter.finished, 1);
}

TEST(DataFilterer, CutAtEveryByteTheResultIsTheSame) {
    const std::string text = "Mixed CASE text";
    Ascii::CaseLoweringFilter lowering;
    for (size_t cut = 0; cut <= text.size(); ++cut) {
        RunRecorder next;
        DataFilterer filterer(lowering, next);
        filterer.Start();
        filterer(ConstData(text.data(), cut))(ConstData(text.data() + cut, text.size() - cut));
        filterer.Finish();
        EXPECT_EQ(next.text, "<mixed case text>");
    }
}

// Holds every byte back until the end.
class HoldingFilter final : public DataFilter {
public:
    void Filter(ConstData& in, Buffer& out) override {
        held_.append(in.begin, in.end);
        in.begin = in.end;
        while (ended_ && !held_.empty() && !out.Full()) {
            *out.write++ = static_cast<unsigned char>(held_.front());
            held_.erase(0, 1);
        }
    }
    bool IsFinished() const override { return held_.empty(); }
    void Finish() override { ended_ = true; }

private:
    std::string held_;
    bool ended_ = false;
};

TEST(DataFilterer, WhatTheFilterHeldBackComesOutBeforeTheEnd) {
    const std::string text(3000, 'h');
    HoldingFilter holding;
    RunRecorder next;
    DataFilterer filterer(holding, next);
    filterer.Start();
    filterer(ConstData(text.data(), text.size()));
    EXPECT_EQ(next.text, "<");
    filterer.Finish();
    EXPECT_EQ(next.text, "<" + text + ">");
}

}  // namespace
