// Sets: sorted collections without duplicates, made from the values of a plural by an aggregator and taken apart again
// by an iterated property.
//
// InspectorSetRegistration<T> gives the type "T set" with all that can be asked of it.  A set is one sorted array, so
// that membership is a binary search and the operations are merges.  It owns what it holds: the bytes of a string set's
// elements are its own, shared between the sets that hold the same element, and never change.
#ifndef VALUES_INSPECTOR_SET_H
#define VALUES_INSPECTOR_SET_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "evaluator/adapters.h"
#include "values/integer.h"

// Bytes of its own, in one piece of memory that copies share.
class shared_text {
public:
    explicit shared_text(std::string_view text)
        : bytes_(std::make_shared_for_overwrite<char[]>(text.size())), length_(text.size()) {
        if (!text.empty()) {
            std::memcpy(bytes_.get(), text.data(), text.size());
        }
    }
    std::string_view View() const { return {bytes_.get(), length_}; }

private:
    std::shared_ptr<char[]> bytes_;
    size_t length_;
};

// How a set holds an element: Stored is what is kept, Key what it is ordered by.
template <class T>
struct SetElement;

template <>
struct SetElement<integer> {
    using Stored = int64_t;
    using Key = int64_t;
    static Key KeyOf(const integer& value) { return value.Value(); }
    static Key KeyOf(Key key) { return key; }
    static integer Value(Stored stored) { return stored; }
};

// Ordered by their bytes, a shorter string before its extensions.
template <>
struct SetElement<inspector_string> {
    using Stored = shared_text;
    using Key = std::string_view;
    static Key KeyOf(const inspector_string& value) { return value.View(); }
    static Key KeyOf(const Stored& stored) { return stored.View(); }
    static Key KeyOf(Key key) { return key; }
    static inspector_string Value(const Stored& stored) { return inspector_string(stored.View()); }
};

template <class T>
class InspectorSet {
public:
    using Element = SetElement<T>;
    using Stored = typename Element::Stored;
    using Array = std::vector<Stored>;

    // Orders what is stored among itself and against a bare key.
    struct Less {
        using is_transparent = void;
        template <class A, class B>
        bool operator()(const A& a, const B& b) const {
            return Element::KeyOf(a) < Element::KeyOf(b);
        }
    };

    InspectorSet() = default;
    // The elements must be sorted and without duplicates.
    explicit InspectorSet(Array elements) : elements_(std::move(elements)) {}

    const Array& Elements() const { return elements_; }

    static InspectorSet Union(const InspectorSet& a, const InspectorSet& b) {
        return Merged(a, b, a.elements_.size() + b.elements_.size(),
                      [](auto... merge) { std::set_union(merge..., Less()); });
    }
    static InspectorSet Difference(const InspectorSet& a, const InspectorSet& b) {
        return Merged(a, b, a.elements_.size(), [](auto... merge) { std::set_difference(merge..., Less()); });
    }
    static InspectorSet Intersection(const InspectorSet& a, const InspectorSet& b) {
        return Merged(a, b, std::min(a.elements_.size(), b.elements_.size()),
                      [](auto... merge) { std::set_intersection(merge..., Less()); });
    }

    static boolean Equal(const InspectorSet& a, const InspectorSet& b) {
        if constexpr (std::is_same_v<Stored, int64_t>) {
            return a.elements_ == b.elements_;
        } else {
            return std::equal(a.elements_.begin(), a.elements_.end(), b.elements_.begin(), b.elements_.end(),
                              [](const Stored& x, const Stored& y) { return Element::KeyOf(x) == Element::KeyOf(y); });
        }
    }

    static boolean ContainsElement(const InspectorSet& a, const T& element) {
        return std::binary_search(a.elements_.begin(), a.elements_.end(), Element::KeyOf(element), Less());
    }

    // True where a has every element of b: any set has those of the empty one.
    static boolean ContainsSet(const InspectorSet& a, const InspectorSet& b) {
        return std::includes(a.elements_.begin(), a.elements_.end(), b.elements_.begin(), b.elements_.end(), Less());
    }

    static integer Size(Of, const InspectorSet& a) { return static_cast<int64_t>(a.elements_.size()); }

private:
    // One merge of two sorted arrays into a new one that has at most `capacity` elements.
    template <class Merge>
    static InspectorSet Merged(const InspectorSet& a, const InspectorSet& b, size_t capacity, Merge merge) {
        Array result;
        result.reserve(capacity);
        merge(a.elements_.begin(), a.elements_.end(), b.elements_.begin(), b.elements_.end(),
              std::back_inserter(result));
        return InspectorSet(std::move(result));
    }

    Array elements_;
};

// The sets have no fingerprint: what is asked of one is judged by its value alone.
template <class T>
struct InspectorTypeInfo<InspectorSet<T>> : InspectorTypeBasics<InspectorSet<T>, 0> {
    static constexpr auto kName = type_names::Join(InspectorTypeInfo<T>::Name, " set");
    static constexpr unsigned Size = 12;
    static constexpr const char* TypeName() { return kName.text; }
};

// Gathers a set in a balanced tree, from elements or from sets.  It is given values of one kind between two calls of
// Initialize.
template <class T>
class InspectorSetAggregator {
public:
    using Set = InspectorSet<T>;

    void Initialize() {
        tree_.clear();
        first_ = true;
    }

    void Collect(Of, const T& element) {
        const auto key = Set::Element::KeyOf(element);
        // What comes in order needs no search.
        if (tree_.empty() || Set::Element::KeyOf(*tree_.rbegin()) < key) {
            tree_.emplace_hint(tree_.end(), key);
            return;
        }
        const auto place = tree_.lower_bound(key);
        if (place == tree_.end() || Set::Element::KeyOf(*place) != key) {
            tree_.emplace_hint(place, key);
        }
    }

    void Union(Of, const Set& set) {
        auto place = tree_.begin();
        for (const auto& element : set.Elements()) {
            place = std::next(tree_.insert(place, element));
        }
    }

    // The first set as it is; from every further one on, what the tree and the set have both.
    void Intersection(Of, const Set& set) {
        if (std::exchange(first_, false)) {
            Union(Of(), set);
            return;
        }
        const typename Set::Less less;
        auto element = set.Elements().begin();
        for (auto place = tree_.begin(); place != tree_.end();) {
            while (element != set.Elements().end() && less(*element, *place)) {
                ++element;
            }
            const bool kept = element != set.Elements().end() && !less(*place, *element);
            place = kept ? std::next(place) : tree_.erase(place);
        }
    }

    // The tree has done its work once it is laid out flat.
    Set FirstFinal() {
        Set set(typename Set::Array(tree_.begin(), tree_.end()));
        tree_.clear();
        return set;
    }
    std::optional<Set> NextFinal() { return std::nullopt; }

private:
    std::set<typename Set::Stored, typename Set::Less> tree_;
    bool first_ = true;
};

// The elements in ascending order.  A string's bytes are the set's.
template <class T>
class InspectorSetElementIterator {
public:
    void Start(Of, const InspectorSet<T>& set) { position_ = set.Elements().begin(); }
    bool Finished(Of, const InspectorSet<T>& set) const { return position_ == set.Elements().end(); }
    T Next(Of, const InspectorSet<T>&) { return SetElement<T>::Value(*position_++); }

private:
    typename InspectorSet<T>::Array::const_iterator position_;
};

// The aggregator with each of its members as the collecting stage.
template <class T>
struct set_collector : InspectorSetAggregator<T> {
    void Aggregate(Of, const T& element) { this->Collect(Of(), element); }
};
template <class T>
struct set_uniter : InspectorSetAggregator<T> {
    void Aggregate(Of, const InspectorSet<T>& set) { this->Union(Of(), set); }
};
template <class T>
struct set_intersector : InspectorSetAggregator<T> {
    void Aggregate(Of, const InspectorSet<T>& set) { this->Intersection(Of(), set); }
};

template <class T>
struct InspectorSetRegistration {
    using Set = InspectorSet<T>;
    using Elements = InspectorSetElementIterator<T>;

    // clang-format off
    Type<Set>                                                                       type;

    OperatorPlus<Set, Set, Set, &Set::Union>                                        plus;
    BinaryOperatorMinus<Set, Set, Set, &Set::Difference>                            minus;
    OperatorTimes<Set, Set, Set, &Set::Intersection>                                times;
    RelationEqual<Set, Set, &Set::Equal>                                            equal;
    RelationContains<Set, T, &Set::ContainsElement>                                 containsElement;
    RelationContains<Set, Set, &Set::ContainsSet>                                   containsSet;

    PropertyOfObject<integer, Set, &Set::Size>                                      size          {"size", "sizes"};
    IteratedPropertyOfObject<Elements, T, Set, &Elements::Next, &Elements::Next, &Elements::Start, &Elements::Finished>
                                                                                    element       {"element", "elements"};
    AggregatingProperty<set_collector<T>, T, Set>                                   set           {"set", "sets"};
    AggregatingProperty<set_uniter<T>, Set, Set>                                    setUnion      {"union", "unions"};
    AggregatingProperty<set_intersector<T>, Set, Set>                               intersection  {"intersection", "intersections"};
    // clang-format on
};

#endif
