// Registration: blocks, lists, and iterators that stay valid while entries come and go.
#include "registry/registration.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "registry/dependency_node.h"
#include "registry/lookup_failures.h"
#include "tests/registry/test_records.h"

namespace {

template <class Kind>
class RegistrationOfKind : public testing::Test {};

using Kinds = testing::Types<TypeRegistration, PropertyRegistration, CastRegistration, UnaryOperatorRegistration,
                             BinaryOperatorRegistration, CacheRegistration>;
TYPED_TEST_SUITE(RegistrationOfKind, Kinds);

TYPED_TEST(RegistrationOfKind, ABlockOneByteTooSmallIsRefused) {
    using Record = typename TypeParam::Record;
    alignas(16) unsigned char block[sizeof(Record)];
    const size_t before = RegistrationList<TypeParam>::Instance().Size();
    EXPECT_THROW(TypeParam(block, sizeof block - 1, Record{}), typename TypeParam::BlockTooSmall);
    EXPECT_EQ(RegistrationList<TypeParam>::Instance().Size(), before);
}

TYPED_TEST(RegistrationOfKind, ABlockOfExactlyTheRecordHoldsItAndTheListForgetsIt) {
    using Record = typename TypeParam::Record;
    TypeRegistry::Instance();
    alignas(16) unsigned char block[sizeof(Record)];
    RegistrationList<TypeParam>& list = RegistrationList<TypeParam>::Instance();
    const size_t before = list.Size();
    // Names that resolve to nothing keep the record out of the tables.
    Record record{};
    if constexpr (std::is_same_v<Record, GuardType>) {
        record.name = "in a small block";
    } else if constexpr (std::is_same_v<Record, PropertyAccessor>) {
        record.resultTypeName = record.indexTypeName = record.directObjectTypeName = "no such type";
    }
    {
        TypeParam link(block, sizeof block, record);
        EXPECT_EQ(static_cast<void*>(&link.GetRecord()), block);
        EXPECT_EQ(list.Size(), before + 1);
        EXPECT_EQ(TypeRegistry::m_validRegistry, nullptr);
        if constexpr (std::is_same_v<Record, GuardType> || std::is_same_v<Record, CacheRecord>) {
            TypeRegistry::Instance();
            EXPECT_NE(TypeRegistry::m_validRegistry, nullptr);
        }
    }
    EXPECT_EQ(list.Size(), before);
    EXPECT_EQ(TypeRegistry::m_validRegistry, nullptr);
}

TYPED_TEST(RegistrationOfKind, TheBlocksThatUnitsGiveAreLargeEnough) {
    EXPECT_LE(sizeof(typename TypeParam::Record), TypeParam::kBlockSize);
}

TEST(Registration, ADependencyBlockOneByteTooSmallIsRefused) {
    alignas(16) unsigned char block[sizeof(DependencyNode)];
    const size_t before = GlobalDependency::Count();
    EXPECT_THROW(RegisterGlobalDependency(block, sizeof block - 1, "small", [](Fingerprinter&) {}),
                 GlobalDependencyRegistrationBlockTooSmall);
    EXPECT_EQ(GlobalDependency::Count(), before);
    DependencyNode& node = RegisterGlobalDependency(block, sizeof block, "small", [](Fingerprinter&) {});
    EXPECT_EQ(static_cast<void*>(&node), block);
    EXPECT_EQ(GlobalDependency::Count(), before + 1);
    node.~DependencyNode();
    EXPECT_EQ(GlobalDependency::Count(), before);
}

TEST(Registration, AnEntryAddedAfterFirstUseIsFoundAndARemovedOneIsNot) {
    const GuardType* integer = TypeRegistry::Instance().IntegerType();
    EXPECT_THROW(TypeRegistry::Instance().Property(integer, "late", TypeRegistry::Instance().WorldType()),
                 OperationNotDefined);
    {
        TestProperty late("late", "lates", "", "integer", "integer");
        EXPECT_EQ(TypeRegistry::Instance().Property(integer, "late", TypeRegistry::Instance().WorldType()).accessor,
                  late.Accessor());
    }
    EXPECT_THROW(TypeRegistry::Instance().Property(integer, "late", TypeRegistry::Instance().WorldType()),
                 OperationNotDefined);
}

// ---- Iterators ------------------------------------------------------------------------------------------------------

using CacheList = RegistrationList<CacheRegistration>;

void Nothing(Instant&, void*) {}

struct Entry : RegistrationObject<CacheRegistration> {
    explicit Entry(char name) : RegistrationObject(CacheRecord{&Nothing, nullptr}), letter(name) {
        GetRecord().datum = &letter;
    }
    char letter;
};

class RegistrationIterator : public testing::Test {
protected:
    // Walks the test's entries, running `at` when each is met.
    template <class At>
    std::string Walk(At at) {
        std::string met;
        for (CacheList::Iterator i(CacheList::Instance()); !i.AtEnd(); i.Next()) {
            if ((*i).clear == &Nothing) {
                const char letter = *static_cast<char*>((*i).datum);
                met += letter;
                at(letter);
            }
        }
        return met;
    }
    std::unique_ptr<Entry> a = std::make_unique<Entry>('a');
    std::unique_ptr<Entry> b = std::make_unique<Entry>('b');
    std::unique_ptr<Entry> c = std::make_unique<Entry>('c');
    std::unique_ptr<Entry> d;
};

TEST_F(RegistrationIterator, MeetsEntriesInTheOrderOfTheirMaking) {
    EXPECT_EQ(Walk([](char) {}), "abc");
}

TEST_F(RegistrationIterator, StaysValidWhenTheEntryItStandsAtGoes) {
    EXPECT_EQ(Walk([&](char at) {
                  if (at == 'a') a.reset();
              }),
              "abc");
    EXPECT_EQ(Walk([&](char at) {
                  if (at == 'c') c.reset();
              }),
              "bc");
    EXPECT_EQ(Walk([](char) {}), "b");
}

TEST_F(RegistrationIterator, IsMovedOnOnceForAllEntriesThatGo) {
    EXPECT_EQ(Walk([&](char at) {
                  if (at == 'a') {
                      a.reset();
                      b.reset();
                  }
              }),
              "ac");
}

TEST_F(RegistrationIterator, DoesNotMeetWhatGoesBehindOrBeforeIt) {
    EXPECT_EQ(Walk([&](char at) {
                  if (at == 'b') {
                      a.reset();
                      c.reset();
                  }
              }),
              "ab");
}

TEST_F(RegistrationIterator, MeetsWhatIsAddedBehindIt) {
    EXPECT_EQ(Walk([&](char at) {
                  if (at == 'c') d = std::make_unique<Entry>('d');
              }),
              "abcd");
}

TEST_F(RegistrationIterator, MeetsWhatIsAddedBehindTheLastEntryThatWent) {
    EXPECT_EQ(Walk([&](char at) {
                  if (at == 'c') {
                      c.reset();
                      d = std::make_unique<Entry>('d');
                  }
              }),
              "abcd");
}

TEST_F(RegistrationIterator, SeveralWalksAreKeptValidTogether) {
    std::string inner;
    EXPECT_EQ(Walk([&](char at) {
                  if (at == 'b') {
                      inner = Walk([&](char there) {
                          if (there == 'b') b.reset();
                      });
                  }
              }),
              "abc");
    EXPECT_EQ(inner, "abc");
    EXPECT_EQ(Walk([](char) {}), "ac");
}

TEST_F(RegistrationIterator, AnIteratorThatEndsBeforeAnEarlierOneIsForgotten) {
    CacheList::Iterator first(CacheList::Instance());
    {
        CacheList::Iterator second(CacheList::Instance());
        second.Next();
    }
    a.reset();
    EXPECT_EQ(Walk([](char) {}), "bc");
}

// ---- Caches ---------------------------------------------------------------------------------------------------------

struct Swept {
    std::vector<Instant> expiries;
    static void Clear(Instant& expiry, void* datum) { static_cast<Swept*>(datum)->expiries.push_back(expiry); }
};

TEST(ClearCaches, EveryCacheIsToldTheTimeOrTheLargestTime) {
    Swept swept;
    const RegistrationObject<CacheRegistration> first(CacheRecord{&Swept::Clear, &swept});
    const RegistrationObject<CacheRegistration> second(CacheRecord{&Swept::Clear, &swept});
    ClearCaches(true);
    ASSERT_EQ(swept.expiries.size(), 2u);
    EXPECT_EQ(swept.expiries[0], std::numeric_limits<Instant>::max());
    EXPECT_EQ(swept.expiries[1], std::numeric_limits<Instant>::max());
    const Instant before = static_cast<Instant>(time(nullptr)) * 1000000;
    ClearCaches(false);
    ASSERT_EQ(swept.expiries.size(), 4u);
    EXPECT_GE(swept.expiries[2], before);
    EXPECT_LE(swept.expiries[2], before + 60 * 1000000);
    EXPECT_EQ(swept.expiries[3], swept.expiries[2]);
}

std::unique_ptr<RegistrationObject<CacheRegistration>> vanishing;

TEST(ClearCaches, ACacheMayGoWhileItIsTold) {
    Swept swept;
    vanishing = std::make_unique<RegistrationObject<CacheRegistration>>(
        CacheRecord{[](Instant&, void*) { vanishing.reset(); }, nullptr});
    const RegistrationObject<CacheRegistration> behind(CacheRecord{&Swept::Clear, &swept});
    ClearCaches(true);
    EXPECT_EQ(vanishing, nullptr);
    EXPECT_EQ(swept.expiries.size(), 1u);
}

}  // namespace
