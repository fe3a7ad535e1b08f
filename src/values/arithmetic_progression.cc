// "integers in" and "integers to": runs of evenly spaced integers.
#include "evaluator/adapters.h"
#include "values/integer.h"

namespace {

struct InvalidArithmeticProgressionStep : DebuggableException {
    InvalidArithmeticProgressionStep() noexcept : DebuggableException("\"integers in\" step argument must not be 0") {}
};

using Pair = InspectorTuple2<integer, integer>;
using Triple = InspectorTuple3<integer, integer, integer>;

// The running value is stepped after each result and without a test for overflow: near the ends of the range it wraps.
class arithmetic_progression {
public:
    void StartTo(const integer& last) { Run(0, last.Value(), last.Value() < 0 ? -1 : 1); }
    void StartPair(const Pair& ends) {
        const int64_t first = TupleElement<integer>(&ends, 0).Value();
        const int64_t last = TupleElement<integer>(&ends, 1).Value();
        Run(first, last, first > last ? -1 : 1);
    }
    void StartTriple(const Triple& run) {
        Run(TupleElement<integer>(&run, 0).Value(), TupleElement<integer>(&run, 1).Value(),
            TupleElement<integer>(&run, 2).Value());
    }

    template <class Index>
    bool Finished(const Index&) const {
        return step_ > 0 ? value_ > last_ : value_ < last_;
    }
    template <class Index>
    integer Next(const Index&) {
        const int64_t value = value_;
        value_ = static_cast<int64_t>(static_cast<uint64_t>(value_) + static_cast<uint64_t>(step_));
        return value;
    }

private:
    void Run(int64_t first, int64_t last, int64_t step) {
        if (step == 0) {
            throw InvalidArithmeticProgressionStep();
        }
        value_ = first;
        last_ = last;
        step_ = step;
    }

    int64_t value_ = 0;
    int64_t last_ = 0;
    int64_t step_ = 1;
};

using ap = arithmetic_progression;

template <class Index, auto Start>
using Progression =
    IteratedPropertyByIndexOfWorld<ap, integer, Index, &ap::Next<Index>, &ap::Next<Index>, Start, &ap::Finished<Index>>;

// clang-format off
Progression<integer, &ap::StartTo>                                  to        {"integer to", "integers to"};
Progression<Pair, &ap::StartPair>                                   in        {"integer in", "integers in"};
Progression<Triple, &ap::StartTriple>                               inSteps   {"integer in", "integers in"};
// clang-format on

}  // namespace
