// Fingerprints of evaluations: what each class adds, the record beside a result, and its judgement.
#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <string>

#include "evaluator/evaluation_path.h"
#include "registry/dependency_node.h"
#include "registry/type_registry.h"
#include "tests/evaluator/test_vocabulary.h"

namespace {

constexpr uint32_t kSeen = Fingerprinter::valueSeen;

uint32_t weatherState = 1;
bool switchedOn = true;
int64_t present = 5;

DependencyNode weatherNode("weather", [](Fingerprinter& f) { f.sum += weatherState; });
DependencyNode tideNode("tide", [](Fingerprinter& f) { f.sum += 1000; });

int weatherCalls = 0;
number Weather() {
    ++weatherCalls;
    return 3;
}
number Present() { return present; }
boolean Switch() { return switchedOn; }
number Tidal(const number& n) { return n; }

// clang-format off
GlobalProperty<number, Weather>          weather    {"weather", "weathers", DependsOn<weatherNode>};
GlobalProperty<number, Present>          presently  {"present number", "present numbers", ByValueOnly};
GlobalProperty<boolean, Switch>          onOff      {"switch", "switches", ByValueOnly};
Property<number, number, Tidal>          tidal      {"tidal", "tidals", DependsOn<tideNode>};
// clang-format on

uint32_t Weather32() { return uint32_t{1} << weatherNode.Number(); }
uint32_t Tide32() { return uint32_t{1} << tideNode.Number(); }
uint32_t Crc(const void* data, size_t size) {
    Fingerprinter f;
    f.AddData(ConstData(data, size));
    return f.sum;
}
uint32_t Of(int64_t n) { return Crc(&n, sizeof n); }
uint32_t Of(bool b) { return Crc(&b, sizeof b); }

class Fingerprints : public testing::Test {
protected:
    void SetUp() override {
        weatherState = 1;
        switchedOn = true;
        present = 5;
    }
    GuardEvaluator& Evaluator(std::string_view text) {
        evaluator_ = std::make_unique<GuardEvaluator>(nullptr);
        evaluator_->Feed(text);
        evaluator_->EndOfText();
        return *evaluator_;
    }
    EvaluationFingerprint Walked(GuardEvaluator& evaluator) {
        EvaluationFingerprint record;
        for (void* value = evaluator.First(record); value != nullptr; value = evaluator.Next(record)) {
        }
        return record;
    }
    EvaluationFingerprint Walked(std::string_view text) { return Walked(Evaluator(text)); }

    std::unique_ptr<GuardEvaluator> evaluator_;
};

TEST_F(Fingerprints, EachClassAddsWhatItHas) {
    const uint32_t w = Weather32();
    const uint32_t t = Tide32();
    const struct {
        const char* text;
        uint32_t path;
        uint32_t sum;
        uint32_t dependencies;
    } rows[] = {
        // Constants, `it` and the world add nothing.
        {"1", 1, 0, 0},
        {"\"a\"", 1, 0, 0},
        {"1;2", 1, ';', 0},
        {"1;2;3", 1, 2 * ';', 0},
        // Properties: their dependencies, then the driver.
        {"double of 1", 1, 0, 0},
        {"weather", 1, 0, w},
        {"tidal of weather", 1, 0, w | t},
        {"zero", 1, Of(int64_t{0}), kSeen},
        {"double of zero", 1, Of(int64_t{0}), kSeen},
        {"sum of (1;2)", 1, ';', 0},
        // Operators: the dependencies, left, a byte, right.
        {"1 + 2", 1, '+', 0},
        {"weather + tidal of 1", 1, '+', w | t},
        {"zero + 1", 1, Of(int64_t{0}) * 17 + '+', kSeen},
        {"1 + zero", 1, '+' + Of(int64_t{0}), kSeen},
        {"- weather", 1, 0, w},
        {"weather as string", 1, 0, w},
        // `and` and `or`: a bit for whether the right side was needed.
        {"true and true", 3, ';', 0},
        {"false and true", 2, 0, 0},
        {"true or true", 2, 0, 0},
        {"false or weather = 3", 3, ';' * 17 + '+', w},
        // `if`: a bit for the condition, a byte, and the branch that was taken.
        {"if true then weather else tidal of 1", 3, '?', w},
        {"if false then weather else tidal of 1", 2, '?', t},
        {"if true then 1 else if false then 2 else 3", 3, '?', 0},
        {"if false then 1 else if true then 2 else 3", 5, '?' * 17 + '?', 0},
        // A branch that is broken cannot, and the value speaks.
        {"if true then weather else nonsense", 1, Of(int64_t{3}), kSeen},
        // Tuples, their items, and aggregates: their parts.
        {"weather, tidal of 1", 1, 0, w | t},
        {"item 0 of (weather, tidal of 1)", 1, 0, w | t},
        {"exists weather", 1, 0, w},
        {"number of (weather;1)", 1, ';', w},
        {"number of present numbers", 1, Of(int64_t{5}), kSeen},
        // `whose`: the condition's dependencies alone.
        {"weather whose (tidal of it = 3)", 1, 0, w | t},
        {"weather whose (it = zero + 3)", 1, Of(int64_t{3}), kSeen},
        // (E) of (F): F alone where E is a pure function of it, otherwise E for each F.
        {"(it + tidal of it) of weather", 1, 0, w | t},
        {"(it + zero) of weather", 1, '+' + Of(int64_t{0}), kSeen},
        {"place 1 of weather", 1, 0, w},
        {"place (zero) of weather", 1, Of(int64_t{0}), w | kSeen},
        {"place (zero) of (if true then weather else 1)", 3, '?' + Of(int64_t{0}), w | kSeen},
        // The bar: by its value, always.
        {"weather | 1", 1, Of(int64_t{3}), kSeen},
        {"true | false", 1, Of(true), kSeen},
    };
    for (const auto& row : rows) {
        GuardEvaluator& evaluator = Evaluator(row.text);
        const EvaluationFingerprint record = Walked(evaluator);
        EXPECT_EQ(record.path, row.path) << row.text;
        EXPECT_EQ(record.sum, row.sum) << row.text;
        EXPECT_EQ(record.dependencies, row.dependencies) << row.text;
        EXPECT_TRUE(evaluator.Unchanged(record)) << row.text;
        EXPECT_EQ(GuardEvaluator::Unexpired(record, nullptr), (row.dependencies & kSeen) == 0) << row.text;
    }
}

TEST_F(Fingerprints, AReplayRunsNothingThatItsPartsSpeakFor) {
    GuardEvaluator& evaluator = Evaluator("if weather = 3 then weather + 1 else 2");
    const EvaluationFingerprint record = Walked(evaluator);
    weatherCalls = 0;
    EXPECT_TRUE(evaluator.Unchanged(record));
    EXPECT_EQ(weatherCalls, 0);
}

TEST_F(Fingerprints, AValueThatChangesIsSeenByTheReplayAlone) {
    GuardEvaluator& evaluator = Evaluator("present number + weather");
    const EvaluationFingerprint record = Walked(evaluator);
    EXPECT_FALSE(GuardEvaluator::Unexpired(record, nullptr));
    EXPECT_TRUE(evaluator.Unchanged(record));
    present = 6;
    EXPECT_FALSE(evaluator.Unchanged(record));
    present = 5;
    EXPECT_TRUE(evaluator.Unchanged(record));
}

TEST_F(Fingerprints, ADependencyWhoseStateChangesIsSeenWithoutTheTree) {
    GuardEvaluator& evaluator = Evaluator("weather");
    const EvaluationFingerprint record = Walked(evaluator);
    const EvaluationFingerprint other = Walked("tidal of 1");
    EXPECT_TRUE(GuardEvaluator::Unexpired(record, nullptr));
    weatherState = 2;
    EXPECT_FALSE(GuardEvaluator::Unexpired(record, nullptr));
    EXPECT_TRUE(GuardEvaluator::Unexpired(other, nullptr));
    weatherState = 1;
    EXPECT_TRUE(GuardEvaluator::Unexpired(record, nullptr));
    GuardEvaluator& again = Evaluator("weather");
    EXPECT_TRUE(again.Unchanged(record));
    weatherState = 2;
    EXPECT_FALSE(again.Unchanged(record));
}

TEST_F(Fingerprints, ARootWithoutAValueIsJudgedLikeOneWithAValue) {
    GuardEvaluator& evaluator = Evaluator("positive of present number | half of 1");
    present = 0;
    EvaluationFingerprint record;
    EXPECT_THROW(evaluator.First(record), ArgumentDoesNotExist);
    GuardEvaluator& byValue = Evaluator("positive of present number");
    EvaluationFingerprint absent;
    EXPECT_THROW(byValue.First(absent), ArgumentDoesNotExist);
    EXPECT_NE(absent.path, 0u);
    EXPECT_TRUE(byValue.Unchanged(absent));
    present = 1;
    EXPECT_FALSE(byValue.Unchanged(absent));
}

// ---- The record's states --------------------------------------------------------------------------------------------

TEST_F(Fingerprints, ANewRecordIsTrustedAndOneThatIsNotFingerprintableNever) {
    GuardEvaluator& evaluator = Evaluator("1");
    EXPECT_TRUE(GuardEvaluator::Unexpired({}, nullptr));
    EXPECT_TRUE(evaluator.Unchanged({}));
    const EvaluationFingerprint never = EvaluationFingerprint::NotFingerprintable();
    EXPECT_EQ(never.path, 0u);
    EXPECT_EQ(never.sum, 1u);
    EXPECT_EQ(never.dependencies, 1u);
    EXPECT_EQ(never.check, 1u);
    EXPECT_FALSE(GuardEvaluator::Unexpired(never, nullptr));
    EXPECT_FALSE(evaluator.Unchanged(never));
}

TEST_F(Fingerprints, WhatCannotBeFingerprintedMakesTheRecordSo) {
    GuardEvaluator& evaluator = Evaluator("scripted tokens");
    Script::Set({1, 2});
    EvaluationFingerprint record;
    EXPECT_NE(evaluator.First(record), nullptr);
    EXPECT_EQ(record.check, 1u);
    EXPECT_EQ(record.path, 0u);
    EXPECT_NE(evaluator.Next(record), nullptr);
    EXPECT_EQ(evaluator.Next(record), nullptr);
    EXPECT_EQ(record.sum, 1u);
}

TEST_F(Fingerprints, ARecordThatIsNotFingerprintableStaysSoAndEvaluatesPlainly) {
    GuardEvaluator& evaluator = Evaluator("1;2");
    EvaluationFingerprint record = EvaluationFingerprint::NotFingerprintable();
    EXPECT_NE(evaluator.First(record), nullptr);
    EXPECT_NE(evaluator.Next(record), nullptr);
    EXPECT_EQ(evaluator.Next(record), nullptr);
    EXPECT_EQ(record.path, 0u);
    EXPECT_EQ(record.sum, 1u);
}

TEST_F(Fingerprints, AFailureLeavesTheRecordAsItWas) {
    GuardEvaluator& evaluator = Evaluator("1; half of 1");
    EvaluationFingerprint record;
    evaluator.First(record);
    const EvaluationFingerprint before = record;
    EXPECT_THROW(evaluator.Next(record), ArgumentDoesNotExist);
    EXPECT_EQ(record.sum, before.sum);
    EXPECT_EQ(record.path, before.path);
}

TEST_F(Fingerprints, ASecondFirstGrowsTheRecord) {
    GuardEvaluator& evaluator = Evaluator("if true then 1 else 2");
    EvaluationFingerprint record;
    evaluator.First(record);
    EXPECT_EQ(record.path, 3u);
    evaluator.First(record);
    EXPECT_EQ(record.path, 15u);
    EXPECT_EQ(record.sum, 2u * '?');
}

std::string Decisions(int count) {
    std::string text = "1";
    for (int i = 0; i < count; ++i) {
        text = "if true then (" + text + ") else 2";
    }
    return text;
}

TEST_F(Fingerprints, ThirtyTwoBitsOfPathAreKeptAndOneMoreEndsTheRecordForGood) {
    GuardEvaluator& fits = Evaluator(Decisions(31));
    const EvaluationFingerprint record = Walked(fits);
    EXPECT_EQ(record.path, 0xFFFFFFFFu);
    EXPECT_TRUE(fits.Unchanged(record));
    EXPECT_TRUE(GuardEvaluator::Unexpired(record, nullptr));
    GuardEvaluator& beyond = Evaluator(Decisions(32));
    EvaluationFingerprint lost;
    EXPECT_NE(beyond.First(lost), nullptr);
    EXPECT_EQ(lost.path, 0u);
    EXPECT_EQ(lost.check, 1u);
    EXPECT_EQ(beyond.Next(lost), nullptr);
    EXPECT_NE(beyond.First(lost), nullptr);
    EXPECT_EQ(lost.path, 0u);
}

TEST_F(Fingerprints, AReplayOfAnotherPathOfTheSourceDoesNotMatch) {
    GuardEvaluator& evaluator = Evaluator("place (zero) of (if switch then 1 else 2)");
    const EvaluationFingerprint record = Walked(evaluator);
    EXPECT_EQ(record.path, 3u);
    EXPECT_TRUE(evaluator.Unchanged(record));
    switchedOn = false;
    EXPECT_THROW(evaluator.Unchanged(record), EvaluationPathsDontMatch);
    switchedOn = true;
    EXPECT_TRUE(evaluator.Unchanged(record));
}

TEST_F(Fingerprints, AReplayLongerThanTheRecordedPathDoesNotMatch) {
    GuardEvaluator& evaluator = Evaluator("place (zero) of (if switch then 1 else 2)");
    switchedOn = false;
    EvaluationFingerprint record = Walked(evaluator);
    EXPECT_EQ(record.path, 2u);
    EXPECT_TRUE(evaluator.Unchanged(record));
    // The same decisions with the last one not recorded.
    record.path = 1;
    EXPECT_THROW(evaluator.Unchanged(record), EvaluationPathsDontMatch);
}

// ---- The check word -------------------------------------------------------------------------------------------------

constexpr uint64_t kWeek = 604800000000;

uint32_t CheckNow(uint32_t spread) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const uint64_t microseconds =
        static_cast<uint64_t>(now.tv_sec) * 1000000 + static_cast<uint64_t>(now.tv_nsec) / 1000;
    return static_cast<uint32_t>((microseconds + (spread & 0x3FF) * kWeek / 1024) / kWeek + spread);
}

TEST_F(Fingerprints, TheCheckIsTheWeekAtThePhaseOfTheSumWithTheStates) {
    // A second try covers a week that ends between the two readings of the clock.
    for (int attempt = 0;; ++attempt) {
        const EvaluationFingerprint plain = Walked("1 + 2");
        const uint32_t expectedPlain = CheckNow('+');
        const EvaluationFingerprint dependent = Walked("weather + 1");
        const uint32_t expected = CheckNow('+' + weatherState + Crc("weather", 7));
        if (attempt == 0 && (plain.check != expectedPlain || dependent.check != expected)) {
            continue;
        }
        EXPECT_EQ(plain.check, expectedPlain);
        EXPECT_EQ(dependent.check, expected);
        break;
    }
}

// ---- The path -------------------------------------------------------------------------------------------------------

TEST(EvaluationPath, IsReadAsItWasWritten) {
    for (int count = 0; count <= 31; ++count) {
        EvaluationPath writer = EvaluationPath::Writer(0);
        writer.Write(true);
        for (int i = 0; i < count; ++i) {
            writer.Write(i % 3 == 0);
        }
        EXPECT_FALSE(writer.TooLong());
        EvaluationPath reader = EvaluationPath::Reader(writer.Word());
        for (int i = 0; i < count; ++i) {
            EXPECT_FALSE(reader.AtEnd());
            EXPECT_EQ(reader.Read(), i % 3 == 0) << count << " " << i;
        }
        EXPECT_TRUE(reader.AtEnd());
    }
}

TEST(EvaluationPath, IsTooLongBeyondThirtyTwoBits) {
    EvaluationPath writer = EvaluationPath::Writer(0x80000000);
    EXPECT_FALSE(writer.TooLong());
    writer.Write(false);
    EXPECT_TRUE(writer.TooLong());
}

}  // namespace
