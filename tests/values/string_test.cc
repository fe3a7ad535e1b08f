// What the language cannot show of strings: the host's digest, the bytes that are shared, fingerprints.
#include "values/string.h"

#include <gtest/gtest.h>

#include <string>

#include "evaluator/inspector_context.h"
#include "foundation/stack_allocator.h"
#include "registry/type_registry.h"
#include "values/string_position.h"
#include "values/substring.h"

namespace {

const PropertyAccessor& PropertyOfString(const char* phrase) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    return *registry.Property(registry.StringType(), phrase, registry.WorldType()).accessor;
}

std::string Sha1Of(std::string_view text) {
    const PropertyAccessor& accessor = PropertyOfString("sha1");
    const inspector_string object(text);
    inspector_string result;
    EXPECT_TRUE(accessor.firstMiddle(&result, nullptr, &object, nullptr, accessor.data));
    return std::string(result.View());
}

struct PlainContext : InspectorContext {};
struct CryptoContext : InspectorContext, CryptoInspectorContext {};

inspector_string LengthAsDigest(const unsigned char* begin, const unsigned char* end) {
    static const char text[] = "0123456789";
    return {text, static_cast<size_t>(end - begin)};
}

TEST(StringSHA1, IsTheHostsDigestOfTheBytes) {
    CryptoContext context;
    context.sha1OfBytes = LengthAsDigest;
    InspectorContextMaintainer installed(&context);
    EXPECT_EQ(Sha1Of("abc"), "012");
    EXPECT_EQ(Sha1Of(""), "");
}

TEST(StringSHA1, AHostWithoutADigestIsNoHost) {
    EXPECT_THROW(Sha1Of("abc"), NoInspectorContext);
    PlainContext plain;
    CryptoContext empty;
    {
        InspectorContextMaintainer installed(&plain);
        EXPECT_THROW(Sha1Of("abc"), NoInspectorContext);
    }
    InspectorContextMaintainer installed(&empty);
    EXPECT_THROW(Sha1Of("abc"), NoInspectorContext);
}

// Whatever a view of a string is asked for lies in the string's own bytes.
TEST(Substring, PointsIntoItsParent) {
    const char text[] = "banana";
    const inspector_string object(text, 6);
    const integer count = 4;
    const TypeRegistry& registry = TypeRegistry::Instance();
    for (const char* phrase : {"first", "last"}) {
        const PropertyAccessor& accessor =
            *registry.Property(registry.StringType(), phrase, registry.IntegerType()).accessor;
        substring result(0, 0, {});
        ASSERT_TRUE(accessor.firstMiddle(&result, &count, &object, nullptr, accessor.data));
        EXPECT_EQ(result.start, phrase[0] == 'f' ? text : text + 2);
        EXPECT_EQ(result.Parent().start, text);
        EXPECT_EQ(result.Parent().length, 6u);
    }
}

TEST(Trimming, SharesTheBytes) {
    const char text[] = " a ";
    const inspector_string object(text, 3);
    const TypeRegistry& registry = TypeRegistry::Instance();
    for (const char* cast : {"trimmed string", "left trimmed string"}) {
        const CastDefinition& definition = registry.Cast(registry.StringType(), cast);
        inspector_string result;
        ASSERT_TRUE(definition.thunk(&result, &object, definition.data));
        EXPECT_EQ(result.start, text + 1) << cast;
    }
}

template <class T>
uint32_t FingerprintOf(const T& value) {
    Fingerprinter fingerprinter;
    InspectorTypeInfo<T>::Fingerprint(fingerprinter, &value);
    return fingerprinter.sum;
}

// The text around is a part of what can be asked of a substring and of a position.
TEST(Fingerprints, CoverTheParentAndThePlace) {
    const std::string copy = "abab";
    const inspector_string parent("abab", 4);
    const inspector_string equal(copy);
    const inspector_string other("abax", 4);
    EXPECT_EQ(FingerprintOf(substring(0, 2, parent)), FingerprintOf(substring(0, 2, equal)));
    EXPECT_NE(FingerprintOf(substring(0, 2, parent)), FingerprintOf(substring(2, 2, parent)));
    EXPECT_NE(FingerprintOf(substring(0, 2, parent)), FingerprintOf(substring(0, 2, other)));
    EXPECT_EQ(FingerprintOf(string_position(1, parent)), FingerprintOf(string_position(1, equal)));
    EXPECT_NE(FingerprintOf(string_position(1, parent)), FingerprintOf(string_position(2, parent)));
    EXPECT_NE(FingerprintOf(string_position(1, parent)), FingerprintOf(string_position(1, other)));
}

TEST(RegisteredSizes, AreFactsOfTheLanguage) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    EXPECT_EQ(registry.TypeByName("string")->size, 8u);
    EXPECT_EQ(registry.TypeByName("substring")->size, 16u);
    EXPECT_EQ(registry.TypeByName("string position")->size, 16u);
    EXPECT_EQ(registry.TypeByName("string with multiplicity")->size, 16u);
}

TEST(FilteredString, AFilterThatMakesMoreThanToldIsAFault) {
    StackAllocator<1024> memory;
    AllocatorInstaller installed(memory);
    const inspector_string text("abc", 3);
    EXPECT_EQ(FilteredString(text, DataFilter::copy, 3).View(), "abc");
    EXPECT_EQ(FilteredString(text, DataFilter::copy, 10).View(), "abc");
    EXPECT_THROW(FilteredString(text, DataFilter::copy, 2), DataOverflow);
}

}  // namespace
