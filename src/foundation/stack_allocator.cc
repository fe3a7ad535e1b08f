#include "foundation/stack_allocator.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

constexpr size_t kHeader = 32;  // Room for a Block that keeps the space behind it aligned to 16.

}  // namespace

ThreadLocalPtr<StackAllocatorBase, DoNotDispose> currentAllocator;

StackAllocatorBase::~StackAllocatorBase() { ReleaseAll(); }

void StackAllocatorBase::OpenBlock(size_t size, size_t rounded) {
    static_assert(sizeof(Block) <= kHeader);
    if (rounded < size) {
        throw std::bad_alloc();
    }
    Block* block = spare_;
    if (block == nullptr || static_cast<size_t>(block->end - block->start) < rounded) {
        ::operator delete(spare_);
        spare_ = nullptr;
        const size_t space = std::max(2 * static_cast<size_t>(current_->end - current_->start), rounded);
        if (space > std::numeric_limits<size_t>::max() - kHeader) {
            throw std::bad_alloc();
        }
        char* memory = static_cast<char*>(::operator new(kHeader + space));
        block = new (memory) Block{memory + kHeader, memory + kHeader + space, nullptr};
    }
    spare_ = nullptr;
    block->previous = current_;
    current_ = block;
    top_ = block->start;
}

void StackAllocatorBase::PopBlock() {
    top_ = current_->start;
    ::operator delete(spare_);
    spare_ = nullptr;
    if (current_->previous != nullptr) {
        spare_ = current_;
        current_ = current_->previous;
        top_ = current_->end;
    }
}

void StackAllocatorBase::PopTo(char* mark) {
    while ((mark < current_->start || mark > current_->end) && current_->previous != nullptr) {
        PopBlock();
    }
    top_ = mark;
    if (mark == current_->start) {
        PopBlock();
    }
}

void StackAllocatorBase::ReleaseAll() {
    growing_.end = nullptr;
    while (current_ != &first_) {
        PopBlock();
    }
    PopBlock();
}

StackAllocatorBase& InspectorAllocator() {
    StackAllocatorBase* allocator = currentAllocator.Get();
    if (allocator == nullptr) {
        throw NoInspectorAllocator();
    }
    return *allocator;
}

void* InspectorAllocate(size_t size) { return InspectorAllocator().Allocate(size); }
