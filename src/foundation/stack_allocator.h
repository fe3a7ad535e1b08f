// Memory with stack-like lifetimes, and the pointer to the allocator that the thread is using.
//
// Allocation is a compare and an add; rolling back to a mark frees everything taken since, with no bookkeeping for a
// single piece.  The first block lies inside the owner; what does not fit overflows into doubling heap blocks, and one
// emptied block is kept so that work at a block's edge does not go to the heap each time.  Nothing here is capped: it
// grows until the heap refuses, and then std::bad_alloc leaves the allocator as it was.
//
// This stands on the lowest floor because tuple types, strings and parser alike place what they make in it.
#ifndef FOUNDATION_STACK_ALLOCATOR_H
#define FOUNDATION_STACK_ALLOCATOR_H

#include <cstddef>
#include <cstdint>

#include "foundation/debuggable_exception.h"
#include "foundation/thread_local_ptr.h"

struct NoInspectorAllocator : DebuggableException {
    NoInspectorAllocator() noexcept : DebuggableException("NoInspectorAllocator") {}
};

class StackAllocatorBase {
public:
    StackAllocatorBase(const StackAllocatorBase&) = delete;
    StackAllocatorBase& operator=(const StackAllocatorBase&) = delete;

    // Returns `size` bytes, rounded up to a multiple of 4 (0 counts as 4), at an address aligned to 4.
    // Throws std::bad_alloc.
    void* Allocate(size_t size) {
        const size_t rounded = size == 0 ? 4 : (size + 3) & ~size_t{3};
        if (rounded < size || static_cast<size_t>(current_->end - top_) < rounded) {
            OpenBlock(size, rounded);
        }
        char* address = top_;
        top_ += rounded;
        return address;
    }

    // The same at an address aligned to `alignment`, a power of two up to 16: what holds a value of that alignment.
    void* Allocate(size_t size, size_t alignment) {
        const size_t rounded = size == 0 ? 4 : (size + 3) & ~size_t{3};
        size_t padding = (0 - reinterpret_cast<uintptr_t>(top_)) & (alignment - 1);
        const auto room = static_cast<size_t>(current_->end - top_);
        if (rounded < size || room < padding || room - padding < rounded) {
            OpenBlock(size, rounded);
            padding = 0;
        }
        char* address = top_ + padding;
        top_ = address + rounded;
        return address;
    }

    // The same for text that may go on growing at its end.
    char* AllocateText(size_t size) {
        char* text = static_cast<char*>(Allocate(size));
        growing_ = {text + size, top_};
        return text;
    }

    // Lengthens by `more` bytes, where it stands, the text that was allocated last by AllocateText and whose bytes end
    // at `end`.  Returns false, and has changed nothing, for any other text and where the block has no room.  What held
    // the shorter text still holds it.
    bool GrowText(char* end, size_t more) {
        if (end == nullptr || end != growing_.end || top_ != growing_.top ||
            static_cast<size_t>(current_->end - growing_.end) < more) {
            return false;
        }
        growing_.end += more;
        const size_t beyond = growing_.end > top_ ? static_cast<size_t>(growing_.end - top_) : 0;
        const size_t room = static_cast<size_t>(current_->end - top_);
        top_ += beyond + 3 < room ? (beyond + 3) & ~size_t{3} : room;
        growing_.top = top_;
        return true;
    }

    // The present top, to be kept as a mark.
    char* Top() const { return top_; }

    // Frees everything allocated after the mark.
    void ReleaseTo(char* mark) {
        growing_.end = nullptr;
        if (mark > current_->start && mark <= current_->end) {
            top_ = mark;
        } else {
            PopTo(mark);
        }
    }

    // Undoes the last allocation, whose address this is.
    void FreeLast(void* address) {
        growing_.end = nullptr;
        top_ = static_cast<char*>(address);
        if (top_ == current_->start) {
            PopBlock();
        }
    }

    // Empties the allocator down to its first block and gives all heap blocks back.
    void ReleaseAll();

protected:
    StackAllocatorBase(char* first, size_t size) : first_{first, first + size, nullptr}, top_(first) {}
    ~StackAllocatorBase();

private:
    struct Block {
        char* start;
        char* end;
        Block* previous;
    };

    void OpenBlock(size_t size, size_t rounded);
    void PopBlock();
    void PopTo(char* mark);

    Block first_;
    Block* current_ = &first_;
    Block* spare_ = nullptr;
    char* top_;

    // The end of the text that may grow, and the top as it stood behind it.  Every rollback forgets it: what is
    // allocated at the same place afterwards is another's.
    struct {
        char* end = nullptr;
        char* top = nullptr;
    } growing_;
};

// A stack allocator with its first block, of `Size` bytes, inside the object.
template <size_t Size>
class StackAllocator final : public StackAllocatorBase {
public:
    StackAllocator() : StackAllocatorBase(block_, Size) {}

private:
    alignas(16) char block_[Size];
};

// The thread's current allocator, null while no evaluator is at work on it.
extern ThreadLocalPtr<StackAllocatorBase, DoNotDispose> currentAllocator;

// The thread's current allocator.  Throws NoInspectorAllocator when none is installed.
StackAllocatorBase& InspectorAllocator();

// Returns memory for a value's content from the thread's current allocator, aligned to 4.
// Throws NoInspectorAllocator when none is installed, std::bad_alloc when memory is out.
void* InspectorAllocate(size_t size);

// Makes an allocator the thread's current one for a scope and puts the earlier one back, also when an exception
// passes.  Where the pointer is already right nothing is written.
class AllocatorInstaller {
public:
    explicit AllocatorInstaller(StackAllocatorBase& allocator) : previous_(currentAllocator.Get()) {
        if (previous_ != &allocator) {
            currentAllocator.Set(&allocator);
            changed_ = true;
        }
    }
    AllocatorInstaller(const AllocatorInstaller&) = delete;
    AllocatorInstaller& operator=(const AllocatorInstaller&) = delete;
    ~AllocatorInstaller() {
        if (changed_) {
            currentAllocator.Set(previous_);
        }
    }

private:
    StackAllocatorBase* previous_;
    bool changed_ = false;
};

#endif
