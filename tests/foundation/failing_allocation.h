// Makes one allocation of the code under test fail: the nth `new` of this thread after the object was made.
#ifndef TESTS_FOUNDATION_FAILING_ALLOCATION_H
#define TESTS_FOUNDATION_FAILING_ALLOCATION_H

#include <new>

class FailingAllocation {
public:
    explicit FailingAllocation(unsigned nth);
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation();
};

// Runs `call` with its first allocation failing, then its second, and so on, until it has no more of them to fail.
// What it throws for lack of memory is the expected answer; anything else passes.  Returns how many were made to fail.
template <class Call>
unsigned FailEachAllocation(const Call& call) {
    for (unsigned nth = 1;; ++nth) {
        try {
            const FailingAllocation failing(nth);
            call();
            return nth - 1;
        } catch (const std::bad_alloc&) {
        }
    }
}

#endif
