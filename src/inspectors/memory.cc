// Memory and swap, as the kernel counts them.
#include <optional>

#include "evaluator/adapters.h"
#include "inspectors/mem_info.h"
#include "values/integer.h"

template <>
struct InspectorTypeInfo<ram_info> : InspectorTypeBasics<ram_info, 0> {
    static constexpr char Name[] = "ram";
    static constexpr unsigned Size = sizeof(ram_info);
};

template <>
struct InspectorTypeInfo<swap_info> : InspectorTypeBasics<swap_info, 0> {
    static constexpr char Name[] = "swap";
    static constexpr unsigned Size = 24;
};

namespace {

ram_info Ram() { return ParseRam(ReadMemInfo()); }
swap_info Swap() { return ParseSwap(ReadMemInfo()); }

using Amount = std::optional<uint64_t>;

// A figure that was not found, or that no integer holds, has no value.
std::optional<integer> Exact(const Amount& amount) {
    int64_t exact;
    return !amount || __builtin_add_overflow(*amount, uint64_t{0}, &exact) ? std::nullopt
                                                                           : std::optional<integer>(exact);
}

std::optional<integer> Sum(std::optional<integer> a, std::optional<integer> b) {
    return a && b ? *a + *b : std::nullopt;
}
std::optional<integer> Difference(std::optional<integer> a, std::optional<integer> b) {
    return a && b ? *a - *b : std::nullopt;
}

template <class T, auto Field>
std::optional<integer> Amount_of(const T& memory) {
    return Exact(memory.*Field);
}

std::optional<integer> UsedAmount(const ram_info& ram) { return Difference(Exact(ram.total), Exact(ram.free)); }

std::optional<integer> AvailableAmount(const ram_info& ram) {
    return Sum(Sum(Exact(ram.free), Exact(ram.buffered)), Exact(ram.cached));
}

std::optional<integer> UnavailableAmount(const ram_info& ram) {
    return Difference(Exact(ram.total), AvailableAmount(ram));
}

template <auto Field>
using RamAmount = Property<ram_info, integer, Amount_of<ram_info, Field>>;
template <auto Field>
using SwapAmount = Property<swap_info, integer, Amount_of<swap_info, Field>>;

// clang-format off
Type<ram_info>                                                      type;
Type<swap_info>                                                     swapType;

GlobalProperty<ram_info, Ram>                                       ram           {"ram", "rams", ByValueOnly};
GlobalProperty<ram_info, Ram>                                       randomAccess  {"random access memory", "random access memories", ByValueOnly};
RamAmount<&ram_info::total>                                         size          {"size", "sizes"};
RamAmount<&ram_info::total>                                         total         {"total amount", "total amounts"};
Property<ram_info, integer, UsedAmount>                             used          {"used amount", "used amounts"};
RamAmount<&ram_info::free>                                          free          {"free amount", "free amounts"};
RamAmount<&ram_info::shared>                                        shared        {"shared amount", "shared amounts"};
RamAmount<&ram_info::buffered>                                      buffered      {"buffered amount", "buffered amounts"};
RamAmount<&ram_info::cached>                                        cached        {"cached amount", "cached amounts"};
Property<ram_info, integer, AvailableAmount>                        available     {"available amount", "available amounts"};
Property<ram_info, integer, UnavailableAmount>                      unavailable   {"unavailable amount", "unavailable amounts"};

GlobalProperty<swap_info, Swap>                                     swap          {"swap", "swaps", ByValueOnly};
SwapAmount<&swap_info::total>                                       swapTotal     {"total amount", "total amounts"};
SwapAmount<&swap_info::free>                                        swapFree      {"free amount", "free amounts"};
SwapAmount<&swap_info::used>                                        swapUsed      {"used amount", "used amounts"};
// clang-format on

}  // namespace
