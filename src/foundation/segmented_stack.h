// A stack of fixed-size elements whose first block lies inside the owning object.
//
// When a block is full, a heap block of twice its bytes is chained on; popping back into an earlier block keeps the
// emptied one as a spare, so that a stack that swings across a block's edge does not allocate each time, and never
// keeps more than one.  Elements stay where they are until popped.  Depth is limited by memory alone: Push throws
// std::bad_alloc when the heap refuses, and leaves the stack as it was.
#ifndef FOUNDATION_SEGMENTED_STACK_H
#define FOUNDATION_SEGMENTED_STACK_H

#include <cstddef>
#include <new>
#include <type_traits>

template <class T, size_t FirstCapacity>
class SegmentedStack {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);
    static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__, "a heap block would not be aligned for T");

public:
    SegmentedStack() { Enter(&first_, firstSpace_, FirstCapacity); }
    SegmentedStack(const SegmentedStack&) = delete;
    SegmentedStack& operator=(const SegmentedStack&) = delete;
    ~SegmentedStack() {
        Clear();
        ::operator delete(spare_);
    }

    bool Empty() const { return count_ == 0; }
    size_t Size() const { return count_; }

    // The element pushed last; the stack must not be empty.
    T& Top() { return *(top_ - 1); }
    const T& Top() const { return *(top_ - 1); }

    // The element below the top; the stack must hold two.
    T& Second() { return top_ - 1 > current_->start ? *(top_ - 2) : *(current_->previous->end - 1); }

    void Push(const T& element) {
        if (top_ == current_->end) {
            Grow();
        }
        *top_++ = element;
        ++count_;
    }

    void Pop() {
        --top_;
        --count_;
        if (top_ == current_->start && current_ != &first_) {
            Leave();
        }
    }

    void Pop(size_t count) {
        for (; count != 0; --count) {
            Pop();
        }
    }

    void Clear() {
        while (current_ != &first_) {
            Leave();
        }
        top_ = first_.start;
        count_ = 0;
    }

private:
    struct Block {
        T* start;
        T* end;
        Block* previous;
    };

    static void Enter(Block* block, T* space, size_t capacity) {
        block->start = space;
        block->end = space + capacity;
        block->previous = nullptr;
    }

    void Grow() {
        Block* next = spare_;
        if (next == nullptr) {
            const size_t capacity = 2 * static_cast<size_t>(current_->end - current_->start);
            static constexpr size_t header = (sizeof(Block) + alignof(T) - 1) / alignof(T) * alignof(T);
            void* memory = ::operator new(header + capacity * sizeof(T));
            next = static_cast<Block*>(memory);
            Enter(next, reinterpret_cast<T*>(static_cast<char*>(memory) + header), capacity);
        }
        spare_ = nullptr;
        next->previous = current_;
        current_ = next;
        top_ = next->start;
    }

    void Leave() {
        ::operator delete(spare_);
        spare_ = current_;
        current_ = current_->previous;
        top_ = current_->end;
    }

    Block first_;
    Block* current_ = &first_;
    Block* spare_ = nullptr;
    size_t count_ = 0;
    T firstSpace_[FirstCapacity];
    T* top_ = firstSpace_;
};

#endif
