// Machine stack for trees that are too deep for the thread's own.
//
// Binding and evaluating walk a tree by recursion.  The depth of a tree is known before either begins, so a tree of
// ordinary depth runs where it is and costs nothing, while a deeper one runs on a stack of its own, reserved for its
// depth: depth is limited by memory alone, and where memory is refused the answer is std::bad_alloc, not a crash.
#ifndef EVALUATOR_DEEP_STACK_H
#define EVALUATOR_DEEP_STACK_H

#include <cstddef>
#include <type_traits>

class DeepStack {
public:
    DeepStack() = default;
    DeepStack(const DeepStack&) = delete;
    DeepStack& operator=(const DeepStack&) = delete;
    ~DeepStack() { Release(); }

    // Runs `work` with stack for a tree of this depth and returns when it has returned.  What it throws passes through.
    // Throws std::bad_alloc where no such stack is to be had.
    template <class Work>
    void Run(size_t depth, Work&& work) {
        if (depth <= kOrdinaryDepth) {
            work();
        } else {
            RunApart(
                depth, [](void* w) { (*static_cast<std::remove_reference_t<Work>*>(w))(); }, &work);
        }
    }

    // Gives the reserved stack back.
    void Release() noexcept;

    // Trees up to this depth run on the thread's own stack.
    static constexpr size_t kOrdinaryDepth = 500;

private:
    void RunApart(size_t depth, void (*work)(void*), void* argument);
    void Reserve(size_t depth);

    void* memory_ = nullptr;
    size_t size_ = 0;
};

#endif
