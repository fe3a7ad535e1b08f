// The aggregates of floating points: sums, products, and those of every type that compares.
#include <map>
#include <optional>
#include <vector>

#include "evaluator/adapters.h"
#include "values/aggregates.h"
#include "values/floating_point.h"

// A NaN has no place in the order of a tree, and two of them are not the same value: each is an entry of its own.  They
// come behind the numbers, in the order in which they were met.
template <>
class unique_value_aggregator<floating_point> {
public:
    void Initialize() {
        numbers_.clear();
        nans_.clear();
    }
    void Aggregate(Of, const floating_point& value) {
        if (value == value) {
            ++numbers_.try_emplace(value, 0).first->second;
        } else {
            nans_.push_back(value);
        }
    }
    std::optional<with_multiplicity<floating_point>> FirstFinal() {
        number_ = numbers_.begin();
        nan_ = 0;
        return NextFinal();
    }
    std::optional<with_multiplicity<floating_point>> NextFinal() {
        if (number_ != numbers_.end()) {
            const auto entry = number_++;
            return with_multiplicity<floating_point>(entry->first, entry->second);
        }
        if (nan_ != nans_.size()) {
            return with_multiplicity<floating_point>(nans_[nan_++], 1);
        }
        return std::nullopt;
    }

private:
    using Numbers = std::map<floating_point, int64_t, std::less<>>;
    Numbers numbers_;
    Numbers::const_iterator number_;
    std::vector<floating_point> nans_;
    size_t nan_ = 0;
};

namespace {

// Starts at an exact 0 or 1.  Thresholds and exceptions gather on the way, and nothing fails.
template <int Start, auto Step>
class floating_point_aggregate {
public:
    void Initialize() { total_ = floating_point(Start, floating_point::kLeastNormal, 0); }
    void Aggregate(Of, const floating_point& value) { total_ = Step(total_, value); }
    floating_point FirstFinal() const { return total_; }

private:
    floating_point total_;
};

using floating_point_sum = floating_point_aggregate<0, adapters::kPlus>;
using floating_point_product = floating_point_aggregate<1, adapters::kTimes>;

// clang-format off
ComparableInspectorRegistration<floating_point>                              comparable;

AggregatingProperty<floating_point_sum, floating_point, floating_point>      sum      {"sum", "sums"};
AggregatingProperty<floating_point_product, floating_point, floating_point>  product  {"product", "products"};
// clang-format on

}  // namespace
