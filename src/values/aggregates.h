// The aggregates that many types have: extrema, unique values and their multiplicities.
//
// ComparableInspectorRegistration<T> gives a type with "==", "<" and "<=" its comparisons in the language, the derived
// type "T with multiplicity", and the aggregates over it.  UniqueValuesInspectorRegistration<T> gives the derived type
// and the unique values alone, to types that have an order inside but none in the language.
#ifndef VALUES_AGGREGATES_H
#define VALUES_AGGREGATES_H

#include <cstdint>
#include <map>
#include <optional>
#include <utility>

#include "evaluator/adapters.h"
#include "values/integer.h"

// A value with the number of its occurrences; it passes wherever the plain value does.
template <class T>
struct with_multiplicity : T {
    with_multiplicity(const T& value, int64_t count) : T(value), multiplicity(count) {}
    int64_t multiplicity;
};

template <class T>
struct InspectorTypeInfo<with_multiplicity<T>>
    : InspectorTypeBasics<with_multiplicity<T>, InspectorTypeInfo<T>::kFingerprintingChoice> {
    static constexpr auto kName = type_names::Join(InspectorTypeInfo<T>::Name, " with multiplicity");
    static constexpr const char* Parent = InspectorTypeInfo<T>::Name;
    static constexpr unsigned Size = InspectorTypeInfo<T>::Size + 8;
    static constexpr const char* TypeName() { return kName.text; }

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        InspectorTypeInfo<T>::Fingerprint(fingerprinter, value);
        const auto* counted = static_cast<const with_multiplicity<T>*>(value);
        fingerprinter.AddData(ConstData(&counted->multiplicity, sizeof counted->multiplicity));
    }
};

// A value that an aggregator keeps while the stream goes on.  The evaluation memory of an element is gone when the next
// one comes: a type whose values point into it specialises this, so that what is kept owns what it points at, and
// Value() points at that.
template <class T>
class Kept {
public:
    explicit Kept(const T& value) : value_(value) {}
    const T& Value() const { return value_; }

private:
    T value_;
};

// The least and the greatest of the values seen; of equal ones the earlier stays.
template <class T>
class extremum_aggregator {
public:
    void Initialize() {
        minimum_.reset();
        maximum_.reset();
    }
    void Aggregate(Of, const T& value) {
        if (!minimum_) {
            minimum_.emplace(value);
            maximum_.emplace(value);
            return;
        }
        if (value < minimum_->Value()) {
            minimum_.emplace(value);
        }
        if (maximum_->Value() < value) {
            maximum_.emplace(value);
        }
    }

protected:
    static std::optional<T> ValueOf(const std::optional<Kept<T>>& kept) {
        return kept ? std::optional<T>(kept->Value()) : std::nullopt;
    }

    std::optional<Kept<T>> minimum_;
    std::optional<Kept<T>> maximum_;
};

template <class T>
struct minimum_aggregator : extremum_aggregator<T> {
    std::optional<T> FirstFinal() { return this->ValueOf(this->minimum_); }
};
template <class T>
struct maximum_aggregator : extremum_aggregator<T> {
    std::optional<T> FirstFinal() { return this->ValueOf(this->maximum_); }
};
template <class T>
struct extrema_aggregator : extremum_aggregator<T> {
    std::optional<InspectorTuple2<T, T>> FirstFinal() {
        if (!this->minimum_) {
            return std::nullopt;
        }
        return InspectorTuple2<T, T>::Over(this->minimum_->Value(), this->maximum_->Value());
    }
};

// The values in ascending order, each once, with their counts.  The first of equal values represents them.
template <class T>
class unique_value_aggregator {
public:
    void Initialize() { counts_.clear(); }
    void Aggregate(Of, const T& value) {
        auto entry = counts_.lower_bound(value);
        if (entry == counts_.end() || value < entry->first.Value()) {
            entry = counts_.emplace_hint(entry, value, 0);
        }
        ++entry->second;
    }
    std::optional<with_multiplicity<T>> FirstFinal() {
        cursor_ = counts_.begin();
        return NextFinal();
    }
    std::optional<with_multiplicity<T>> NextFinal() {
        if (cursor_ == counts_.end()) {
            return std::nullopt;
        }
        const auto entry = cursor_++;
        return with_multiplicity<T>(entry->first.Value(), entry->second);
    }

private:
    struct Less {
        using is_transparent = void;
        bool operator()(const Kept<T>& a, const Kept<T>& b) const { return a.Value() < b.Value(); }
        bool operator()(const Kept<T>& a, const T& b) const { return a.Value() < b; }
        bool operator()(const T& a, const Kept<T>& b) const { return a < b.Value(); }
    };
    using Map = std::map<Kept<T>, int64_t, Less>;
    Map counts_;
    typename Map::iterator cursor_;
};

template <class T>
integer MultiplicityOf(const with_multiplicity<T>& value) {
    return value.multiplicity;
}

template <class T, class Aggregator = unique_value_aggregator<T>>
struct UniqueValuesInspectorRegistration {
    Type<with_multiplicity<T>> type;
    AggregatingProperty<Aggregator, T, with_multiplicity<T>> uniqueValue{"unique value", "unique values"};
    Property<with_multiplicity<T>, integer, MultiplicityOf<T>> multiplicity{"multiplicity", "multiplicities"};
};

template <class T>
struct ComparableInspectorRegistration : UniqueValuesInspectorRegistration<T> {
    RelationEqual<T> equal;
    RelationLess<T> less;
    RelationLessOrEqual<T> lessOrEqual;
    AggregatingProperty<minimum_aggregator<T>, T, T> minimum{"minimum", "minima"};
    AggregatingProperty<maximum_aggregator<T>, T, T> maximum{"maximum", "maxima"};
    AggregatingProperty<extrema_aggregator<T>, T, InspectorTuple2<T, T>> extrema{"extrema", "extremas"};
};

#endif
