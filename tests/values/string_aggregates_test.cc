// The memory that the unique values of strings do not take.  This unit counts every allocation of its program.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "registry/type_registry.h"

namespace {

size_t allocations = 0;

}  // namespace

// Not inlined, or the compiler sees memory of `new` handed to free and takes it for a mistake.
[[gnu::noinline]] void* operator new(size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(size_t size, const std::nothrow_t&) noexcept {
    ++allocations;
    return std::malloc(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, size_t) noexcept { std::free(memory); }

namespace {

TEST(UniqueStrings, ARepeatedStringAllocatesNothing) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const PropertyAccessor& accessor =
        *registry.Property(registry.StringType(), "unique values", registry.WorldType()).accessor;
    ASSERT_LE(accessor.stateAlignment, 64u);
    void* state = std::aligned_alloc(64, (accessor.stateSize + 63) / 64 * 64);
    ASSERT_NE(state, nullptr);
    accessor.constructState(state);
    accessor.firstInitial(nullptr, nullptr, nullptr, state, accessor.data);

    const std::string first(100, 'a');
    const std::string second(100, 'b');
    const inspector_string a(first);
    const inspector_string b(second);
    const size_t atStart = allocations;
    accessor.firstMiddle(nullptr, &a, &a, state, accessor.data);
    accessor.firstMiddle(nullptr, &b, &b, state, accessor.data);
    const size_t before = allocations;
    EXPECT_GT(before, atStart);
    for (int i = 0; i < 1000; ++i) {
        accessor.firstMiddle(nullptr, &a, &a, state, accessor.data);
        accessor.firstMiddle(nullptr, &b, &b, state, accessor.data);
    }
    EXPECT_EQ(allocations, before);

    accessor.destroyState(state);
    std::free(state);
}

}  // namespace
