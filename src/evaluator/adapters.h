// The adapters: how a plain function, an iterator class or an aggregator class becomes part of the language.
//
// An inspector author writes a function of constant references that returns a value, and one registration line:
//
//     Property<hertz, hertz, AbsoluteValue>  absolute {"absolute value", "absolute values"};
//
// The language types come from the C++ types, the phrases from the line, and the function is called directly from the
// stage function that the evaluator calls: one indirect call to each value.  To say that there is no such thing a
// function throws NoSuchObject, most easily by NoResults(); the NoThrow forms return std::optional instead, and are for
// where absence is common.  An iterator says that it has ended by NoSuchObject from First or Next, or by Finished.
//
// Every registration here is a pure function of its arguments unless its last argument says otherwise: a dependency
// function, or ByValueOnly for what can be judged only by having it.
#ifndef EVALUATOR_ADAPTERS_H
#define EVALUATOR_ADAPTERS_H

#include <new>
#include <optional>
#include <type_traits>

#include "evaluator/failure.h"
#include "registry/inspector_type_info.h"
#include "registry/registration.h"

class integer;  // values/integer.h

// Marks that what follows in a function's parameters is the object of the phrase, written behind the word "of".
struct Of {};

// The dependency of a value that depends on more than its arguments and has no node to say on what.
inline constexpr DependencyFunction ByValueOnly = nullptr;

// The type of no index and of no object.
struct None {};

namespace adapters {

template <class T>
const char* TypeNameOf() {
    if constexpr (std::is_same_v<T, None>) {
        return "";
    } else {
        return InspectorTypeInfo<T>::TypeName();
    }
}

template <class T>
const T& As(const void* value) {
    return *static_cast<const T*>(value);
}

// Builds the value at `result`; a value that is not there is not built.
template <class T>
bool Build(void* result, T&& value) {
    new (result) std::decay_t<T>(std::forward<T>(value));
    return true;
}
template <class T>
bool Build(void* result, std::optional<T>&& value) {
    if (!value) {
        return false;
    }
    new (result) T(*std::move(value));
    return true;
}

template <class T>
struct ResultOf {
    using type = T;
};
template <class T>
struct ResultOf<std::optional<T>> {
    using type = T;
};

template <class R, class I, class O>
PropertyAccessor Accessor(const char* singular, const char* plural, DependencyFunction dependencies) {
    PropertyAccessor accessor{};
    accessor.singularName = singular;
    accessor.pluralName = plural;
    accessor.resultTypeName = TypeNameOf<typename ResultOf<R>::type>();
    accessor.indexTypeName = TypeNameOf<I>();
    accessor.directObjectTypeName = TypeNameOf<O>();
    accessor.dependencies = dependencies;
    return accessor;
}

template <class Get, class R, class I, class O>
PropertyAccessor SimpleAccessor(const char* singular, const char* plural, DependencyFunction dependencies) {
    PropertyAccessor accessor = Accessor<R, I, O>(singular, plural, dependencies);
    accessor.firstMiddle = &Get::Get;
    return accessor;
}

}  // namespace adapters

// What every property registration is: the record in its block.
class PropertyRegistrationObject : public RegistrationObject<PropertyRegistration> {
public:
    using RegistrationObject::RegistrationObject;
};

// ---- Types ----------------------------------------------------------------------------------------------------------

template <class T>
struct Type : RegistrationObject<TypeRegistration> {
    Type() : RegistrationObject(TypeRecord<T>()) {}
};

// ---- Single values --------------------------------------------------------------------------------------------------

// A function's result type may be std::optional<R>: the form that answers itself whether it made a value.

template <class R, auto F>
struct GlobalProperty : PropertyRegistrationObject {
    GlobalProperty(const char* singular, const char* plural, DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::SimpleAccessor<GlobalProperty, R, None, None>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void*, const void*, void*, const void*) {
        return result == nullptr || adapters::Build(result, F());
    }
};

template <class R, auto F>
using PropertyOfWorld = GlobalProperty<R, F>;

template <class R, class I, auto F>
struct PropertyByIndexOfWorld : PropertyRegistrationObject {
    PropertyByIndexOfWorld(const char* singular, const char* plural,
                           DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::SimpleAccessor<PropertyByIndexOfWorld, R, I, None>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void* index, const void*, void*, const void*) {
        return result == nullptr || adapters::Build(result, F(adapters::As<I>(index)));
    }
};

template <class R, auto F>
using NamedGlobalProperty = PropertyByIndexOfWorld<R, inspector_string, F>;

// The index is a number, handed over as such; a negative one gives no value without a call.
template <class R, auto F, class Integer = integer>
struct NumberedGlobalProperty : PropertyRegistrationObject {
    NumberedGlobalProperty(const char* singular, const char* plural,
                           DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::SimpleAccessor<NumberedGlobalProperty, R, Integer, None>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void* index, const void*, void*, const void*) {
        const Integer number = adapters::As<Integer>(index);
        if (number < Integer(0)) {
            return false;
        }
        return result == nullptr || adapters::Build(result, F(number));
    }
};

template <class O, class R, auto F>
struct Property : PropertyRegistrationObject {
    Property(const char* singular, const char* plural, DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(adapters::SimpleAccessor<Property, R, None, O>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void*, const void* object, void*, const void*) {
        return result == nullptr || adapters::Build(result, F(adapters::As<O>(object)));
    }
};

template <class R, class O, auto F>
struct PropertyOfObject : PropertyRegistrationObject {
    PropertyOfObject(const char* singular, const char* plural,
                     DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::SimpleAccessor<PropertyOfObject, R, None, O>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void*, const void* object, void*, const void*) {
        return result == nullptr || adapters::Build(result, F(Of(), adapters::As<O>(object)));
    }
};

template <class O, class R, auto F>
struct NamedProperty : PropertyRegistrationObject {
    NamedProperty(const char* singular, const char* plural, DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::SimpleAccessor<NamedProperty, R, inspector_string, O>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void* index, const void* object, void*, const void*) {
        return result == nullptr ||
               adapters::Build(result, F(adapters::As<inspector_string>(index), adapters::As<O>(object)));
    }
};

template <class O, class R, auto F, class Integer = integer>
struct NumberedProperty : PropertyRegistrationObject {
    NumberedProperty(const char* singular, const char* plural,
                     DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::SimpleAccessor<NumberedProperty, R, Integer, O>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void* index, const void* object, void*, const void*) {
        const Integer number = adapters::As<Integer>(index);
        if (number < Integer(0)) {
            return false;
        }
        return result == nullptr || adapters::Build(result, F(number, adapters::As<O>(object)));
    }
};

template <class O, class I, class R, auto F>
struct PropertyByIndexOfObject : PropertyRegistrationObject {
    PropertyByIndexOfObject(const char* singular, const char* plural,
                            DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::SimpleAccessor<PropertyByIndexOfObject, R, I, O>(singular, plural, dependencies)) {}
    static bool Get(void* result, const void* index, const void* object, void*, const void*) {
        return result == nullptr || adapters::Build(result, F(adapters::As<I>(index), Of(), adapters::As<O>(object)));
    }
};

// ---- Iterators ------------------------------------------------------------------------------------------------------

template <class Iterator>
struct IteratorBasics {
    static void Construct(void* state) { new (state) Iterator(); }
    static void Destroy(const void* state) { static_cast<const Iterator*>(state)->~Iterator(); }
};

namespace adapters {

template <class Iterator>
void UseState(PropertyAccessor& accessor) {
    accessor.stateSize = sizeof(Iterator);
    accessor.stateAlignment = alignof(Iterator);
    accessor.constructState = &IteratorBasics<Iterator>::Construct;
    accessor.destroyState = &IteratorBasics<Iterator>::Destroy;
}

// One step of an iterator: Start before the first where there is one, then Finished where there is one, then the
// member.  The arguments are those of the shape.
template <auto Start, auto Finished, auto Member, class Iterator, class... Arguments>
bool Step(bool first, void* result, Iterator& iterator, const Arguments&... arguments) {
    if constexpr (!std::is_same_v<decltype(Start), std::nullptr_t>) {
        if (first) {
            (iterator.*Start)(arguments...);
        }
    }
    if constexpr (!std::is_same_v<decltype(Finished), std::nullptr_t>) {
        if ((iterator.*Finished)(arguments...)) {
            return false;
        }
    }
    return result == nullptr || Build(result, (iterator.*Member)(arguments...));
}

template <class Shape, class Iterator, class R, class I, class O>
PropertyAccessor IteratedAccessor(const char* singular, const char* plural, DependencyFunction dependencies) {
    PropertyAccessor accessor = Accessor<R, I, O>(singular, plural, dependencies);
    UseState<Iterator>(accessor);
    accessor.firstMiddle = &Shape::First;
    accessor.nextMiddle = &Shape::Next;
    accessor.iterated = true;
    return accessor;
}

}  // namespace adapters

// The pointer forms: FirstMember and NextMember, and optionally Start and Finished, are members of Iterator with the
// arguments of the shape.  An iterator with Start and Finished may give one member for both.

template <class Iterator, class R, auto FirstMember, auto NextMember = FirstMember, auto Start = nullptr,
          auto Finished = nullptr>
struct IteratedPropertyOfWorld : PropertyRegistrationObject {
    IteratedPropertyOfWorld(const char* singular, const char* plural,
                            DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(adapters::IteratedAccessor<IteratedPropertyOfWorld, Iterator, R, None, None>(
              singular, plural, dependencies)) {}
    static bool First(void* result, const void*, const void*, void* state, const void*) {
        return adapters::Step<Start, Finished, FirstMember>(true, result, *static_cast<Iterator*>(state));
    }
    static bool Next(void* result, const void*, const void*, void* state, const void*) {
        return adapters::Step<Start, Finished, NextMember>(false, result, *static_cast<Iterator*>(state));
    }
};

template <class Iterator, class R, class I, auto FirstMember, auto NextMember = FirstMember, auto Start = nullptr,
          auto Finished = nullptr>
struct IteratedPropertyByIndexOfWorld : PropertyRegistrationObject {
    IteratedPropertyByIndexOfWorld(const char* singular, const char* plural,
                                   DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(adapters::IteratedAccessor<IteratedPropertyByIndexOfWorld, Iterator, R, I, None>(
              singular, plural, dependencies)) {}
    static bool First(void* result, const void* index, const void*, void* state, const void*) {
        return adapters::Step<Start, Finished, FirstMember>(true, result, *static_cast<Iterator*>(state),
                                                            adapters::As<I>(index));
    }
    static bool Next(void* result, const void* index, const void*, void* state, const void*) {
        return adapters::Step<Start, Finished, NextMember>(false, result, *static_cast<Iterator*>(state),
                                                           adapters::As<I>(index));
    }
};

template <class Iterator, class R, class O, auto FirstMember, auto NextMember = FirstMember, auto Start = nullptr,
          auto Finished = nullptr>
struct IteratedPropertyOfObject : PropertyRegistrationObject {
    IteratedPropertyOfObject(const char* singular, const char* plural,
                             DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(adapters::IteratedAccessor<IteratedPropertyOfObject, Iterator, R, None, O>(
              singular, plural, dependencies)) {}
    static bool First(void* result, const void*, const void* object, void* state, const void*) {
        return adapters::Step<Start, Finished, FirstMember>(true, result, *static_cast<Iterator*>(state), Of(),
                                                            adapters::As<O>(object));
    }
    static bool Next(void* result, const void*, const void* object, void* state, const void*) {
        return adapters::Step<Start, Finished, NextMember>(false, result, *static_cast<Iterator*>(state), Of(),
                                                           adapters::As<O>(object));
    }
};

template <class Iterator, class R, class I, class O, auto FirstMember, auto NextMember = FirstMember,
          auto Start = nullptr, auto Finished = nullptr>
struct IteratedPropertyByIndexOfObject : PropertyRegistrationObject {
    IteratedPropertyByIndexOfObject(const char* singular, const char* plural,
                                    DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(adapters::IteratedAccessor<IteratedPropertyByIndexOfObject, Iterator, R, I, O>(
              singular, plural, dependencies)) {}
    static bool First(void* result, const void* index, const void* object, void* state, const void*) {
        return adapters::Step<Start, Finished, FirstMember>(true, result, *static_cast<Iterator*>(state),
                                                            adapters::As<I>(index), Of(), adapters::As<O>(object));
    }
    static bool Next(void* result, const void* index, const void* object, void* state, const void*) {
        return adapters::Step<Start, Finished, NextMember>(false, result, *static_cast<Iterator*>(state),
                                                           adapters::As<I>(index), Of(), adapters::As<O>(object));
    }
};

// The direct forms: members named First and Next.

template <class Iterator, class R>
using IteratedGlobalProperty = IteratedPropertyOfWorld<Iterator, R, &Iterator::First, &Iterator::Next>;

template <class Iterator, class O, class R>
struct IteratedProperty : PropertyRegistrationObject {
    IteratedProperty(const char* singular, const char* plural,
                     DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::IteratedAccessor<IteratedProperty, Iterator, R, None, O>(singular, plural, dependencies)) {}
    static bool First(void* result, const void*, const void* object, void* state, const void*) {
        return result == nullptr ||
               adapters::Build(result, static_cast<Iterator*>(state)->First(adapters::As<O>(object)));
    }
    static bool Next(void* result, const void*, const void* object, void* state, const void*) {
        return result == nullptr ||
               adapters::Build(result, static_cast<Iterator*>(state)->Next(adapters::As<O>(object)));
    }
};

template <class Iterator, class O, class R>
struct IteratedNamedProperty : PropertyRegistrationObject {
    IteratedNamedProperty(const char* singular, const char* plural,
                          DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(
              adapters::IteratedAccessor<IteratedNamedProperty, Iterator, R, inspector_string, O>(singular, plural,
                                                                                                  dependencies)) {}
    static bool First(void* result, const void* index, const void* object, void* state, const void*) {
        return result == nullptr ||
               adapters::Build(result, static_cast<Iterator*>(state)->First(adapters::As<inspector_string>(index),
                                                                            adapters::As<O>(object)));
    }
    static bool Next(void* result, const void* index, const void* object, void* state, const void*) {
        return result == nullptr ||
               adapters::Build(result, static_cast<Iterator*>(state)->Next(adapters::As<inspector_string>(index),
                                                                           adapters::As<O>(object)));
    }
};

// ---- Aggregators ----------------------------------------------------------------------------------------------------

template <class A>
struct SimpleAggregator {
    static bool Initialize(void*, const void*, const void*, void* state, const void*) {
        static_cast<A*>(state)->Initialize();
        return false;
    }
};

template <class A, class O>
struct SimpleAggregatorOfObject {
    static bool Aggregate(void*, const void*, const void* object, void* state, const void*) {
        static_cast<A*>(state)->Aggregate(Of(), adapters::As<O>(object));
        return false;
    }
};

template <class A, class I, class O>
struct SimpleAggregatorByIndexOfObject {
    static bool Aggregate(void*, const void* index, const void* object, void* state, const void*) {
        static_cast<A*>(state)->Aggregate(adapters::As<I>(index), Of(), adapters::As<O>(object));
        return false;
    }
};

// An aggregator without a member NextFinal has the one result of FirstFinal.
template <class A, class R>
struct AggregatorBasics {
    static bool FirstFinal(void* result, const void*, const void*, void* state, const void*) {
        return result == nullptr || adapters::Build(result, static_cast<A*>(state)->FirstFinal());
    }
    static bool NextFinal(void* result, const void*, const void*, void* state, const void*) {
        return result == nullptr || adapters::Build(result, static_cast<A*>(state)->NextFinal());
    }
};

namespace adapters {

template <class A, class R, class I, class O>
PropertyAccessor AggregatingAccessor(const char* singular, const char* plural, DependencyFunction dependencies) {
    PropertyAccessor accessor = Accessor<R, I, O>(singular, plural, dependencies);
    UseState<A>(accessor);
    accessor.aggregating = true;
    accessor.firstInitial = &SimpleAggregator<A>::Initialize;
    if constexpr (std::is_same_v<I, None>) {
        accessor.firstMiddle = &SimpleAggregatorOfObject<A, O>::Aggregate;
    } else {
        accessor.firstMiddle = &SimpleAggregatorByIndexOfObject<A, I, O>::Aggregate;
    }
    accessor.firstFinal = &AggregatorBasics<A, R>::FirstFinal;
    if constexpr (requires(A & aggregator) { aggregator.NextFinal(); }) {
        accessor.nextFinal = &AggregatorBasics<A, R>::NextFinal;
    }
    return accessor;
}

}  // namespace adapters

template <class A, class O, class R>
struct AggregatingProperty : PropertyRegistrationObject {
    AggregatingProperty(const char* singular, const char* plural,
                        DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(adapters::AggregatingAccessor<A, R, None, O>(singular, plural, dependencies)) {}
};

template <class A, class I, class O, class R>
struct AggregatingPropertyByIndex : PropertyRegistrationObject {
    AggregatingPropertyByIndex(const char* singular, const char* plural,
                               DependencyFunction dependencies = DependsOnlyOnParameters)
        : PropertyRegistrationObject(adapters::AggregatingAccessor<A, R, I, O>(singular, plural, dependencies)) {}
};

// ---- Casts and operators --------------------------------------------------------------------------------------------

// `as name`: R from T, by R F(const T&).
template <class R, class T, auto F>
struct Cast : RegistrationObject<CastRegistration> {
    explicit Cast(const char* name, DependencyFunction dependencies = DependsOnlyOnParameters)
        : RegistrationObject(CastDefinition{name, adapters::TypeNameOf<T>(), adapters::TypeNameOf<R>(), &Thunk, nullptr,
                                            dependencies, nullptr, nullptr, false}) {}
    static bool Thunk(void* result, const void* operand, const void*) {
        return result == nullptr || adapters::Build(result, F(adapters::As<T>(operand)));
    }
};

template <int Code, class R, class T, auto F>
struct Operator1 : RegistrationObject<UnaryOperatorRegistration> {
    explicit Operator1(DependencyFunction dependencies = DependsOnlyOnParameters)
        : RegistrationObject(UnaryAccessor{Code, adapters::TypeNameOf<T>(), adapters::TypeNameOf<R>(), &Thunk, nullptr,
                                           dependencies, nullptr, nullptr}) {}
    static bool Thunk(void* result, const void* operand, const void*) {
        return result == nullptr || adapters::Build(result, F(adapters::As<T>(operand)));
    }
};

template <int Code, class R, class L, class Rt, auto F>
struct Operator2 : RegistrationObject<BinaryOperatorRegistration> {
    explicit Operator2(DependencyFunction dependencies = DependsOnlyOnParameters)
        : RegistrationObject(BinaryAccessor{Code, adapters::TypeNameOf<L>(), adapters::TypeNameOf<Rt>(),
                                            adapters::TypeNameOf<R>(), &Thunk, nullptr, dependencies, nullptr, nullptr,
                                            nullptr}) {}
    static bool Thunk(void* result, const void* left, const void* right, const void*) {
        return result == nullptr || adapters::Build(result, F(adapters::As<L>(left), adapters::As<Rt>(right)));
    }
};

// The default functions: the operator of that sign of the value class, which may give std::optional for no value.
namespace adapters {

inline constexpr auto kEqual = [](const auto& a, const auto& b) -> boolean { return a == b; };
inline constexpr auto kLess = [](const auto& a, const auto& b) -> boolean { return a < b; };
inline constexpr auto kLessOrEqual = [](const auto& a, const auto& b) -> boolean { return a <= b; };
inline constexpr auto kPlus = [](const auto& a, const auto& b) { return a + b; };
inline constexpr auto kMinus = [](const auto& a, const auto& b) { return a - b; };
inline constexpr auto kTimes = [](const auto& a, const auto& b) { return a * b; };
inline constexpr auto kDivide = [](const auto& a, const auto& b) { return a / b; };
inline constexpr auto kModulo = [](const auto& a, const auto& b) { return a % b; };
inline constexpr auto kNegate = [](const auto& a) { return -a; };

}  // namespace adapters

template <class L, class R = L, auto F = adapters::kEqual>
using RelationEqual = Operator2<kOperatorEqual, boolean, L, R, F>;
template <class L, class R = L, auto F = adapters::kLess>
using RelationLess = Operator2<kOperatorLess, boolean, L, R, F>;
template <class L, class R = L, auto F = adapters::kLessOrEqual>
using RelationLessOrEqual = Operator2<kOperatorLessOrEqual, boolean, L, R, F>;
template <class L, class R, auto F>
using RelationStartsWith = Operator2<kOperatorStartsWith, boolean, L, R, F>;
template <class L, class R, auto F>
using RelationEndsWith = Operator2<kOperatorEndsWith, boolean, L, R, F>;
template <class L, class R, auto F>
using RelationContains = Operator2<kOperatorContains, boolean, L, R, F>;
template <class L, class R, class Res, auto F = adapters::kPlus>
using OperatorPlus = Operator2<kOperatorPlus, Res, L, R, F>;
template <class L, class R, class Res, auto F = adapters::kMinus>
using BinaryOperatorMinus = Operator2<kOperatorMinus, Res, L, R, F>;
template <class L, class R, class Res, auto F = adapters::kTimes>
using OperatorTimes = Operator2<kOperatorTimes, Res, L, R, F>;
template <class L, class R, class Res, auto F = adapters::kDivide>
using OperatorDivide = Operator2<kOperatorDivide, Res, L, R, F>;
template <class L, class R, class Res, auto F = adapters::kModulo>
using OperatorModulo = Operator2<kOperatorMod, Res, L, R, F>;
template <class L, class R, class Res, auto F>
using OperatorConcatenate = Operator2<kOperatorConcatenate, Res, L, R, F>;
template <class T, class Res = T, auto F = adapters::kNegate>
using UnaryOperatorMinus = Operator1<kUnaryMinus, Res, T, F>;

#endif
