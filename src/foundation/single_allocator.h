// Two small fixed buffers for the value library: one that is handed out once at a time, and a stack that grows down.
#ifndef FOUNDATION_SINGLE_ALLOCATOR_H
#define FOUNDATION_SINGLE_ALLOCATOR_H

#include <cstddef>

#include "foundation/debuggable_exception.h"

struct SingleAllocatorFull : DebuggableException {
    SingleAllocatorFull() noexcept : DebuggableException("SingleAllocatorFull") {}
};
struct StackFull : DebuggableException {
    StackFull() noexcept : DebuggableException("StackFull") {}
};

class SingleAllocator {
public:
    SingleAllocator(void* buffer, size_t size) : buffer_(buffer), size_(size) {}

    // Returns the buffer.  Throws SingleAllocatorFull while it is taken and when `size` is larger than it.
    void* Allocate(size_t size) {
        if (used_ || size > size_) {
            throw SingleAllocatorFull();
        }
        used_ = true;
        return buffer_;
    }
    void Free() { used_ = false; }
    bool Used() const { return used_; }

private:
    void* buffer_;
    size_t size_;
    bool used_ = false;
};

template <class T, size_t Capacity>
class FixedStack {
public:
    bool Empty() const { return top_ == buffer_ + Capacity; }
    size_t Size() const { return static_cast<size_t>(buffer_ + Capacity - top_); }
    T& Top() { return *top_; }

    // Throws StackFull when the buffer's bottom is reached.
    void Push(const T& element) {
        if (top_ == buffer_) {
            throw StackFull();
        }
        *--top_ = element;
    }
    void Pop() { ++top_; }

private:
    T buffer_[Capacity];
    T* top_ = buffer_ + Capacity;
};

#endif
