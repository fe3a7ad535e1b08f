// The sum and the product of integers.  An overflow is for good: no later element repairs it.
#include <optional>

#include "evaluator/adapters.h"
#include "values/integer.h"

namespace {

class integer_sum {
public:
    void Initialize() { sum_ = integer(0); }
    void Aggregate(Of, const integer& value) {
        if (sum_) {
            sum_ = *sum_ + value;
        }
    }
    std::optional<integer> FirstFinal() const { return sum_; }

private:
    std::optional<integer> sum_;
};

class integer_product {
public:
    void Initialize() { product_ = integer(1); }
    void Aggregate(Of, const integer& value) {
        if (product_) {
            product_ = *product_ * value;
        }
    }
    std::optional<integer> FirstFinal() const { return product_; }

private:
    std::optional<integer> product_;
};

// clang-format off
AggregatingProperty<integer_sum, integer, integer>                  sum      {"sum", "sums"};
AggregatingProperty<integer_product, integer, integer>              product  {"product", "products"};
// clang-format on

}  // namespace
