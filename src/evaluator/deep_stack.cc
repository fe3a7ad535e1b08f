#include "evaluator/deep_stack.h"

#include <sys/mman.h>
#include <ucontext.h>

#include <cstdint>
#include <exception>
#include <limits>
#include <new>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define DEEP_STACK_TELLS_SANITIZER 1
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define DEEP_STACK_TELLS_SANITIZER 1
#endif
#ifdef DEEP_STACK_TELLS_SANITIZER
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

// What one level of a tree takes at the most, several frames together; builds that do not optimise take more.
#if defined(__OPTIMIZE__) && !defined(DEEP_STACK_TELLS_SANITIZER)
constexpr size_t kBytesPerLevel = 1024;
#else
constexpr size_t kBytesPerLevel = 8192;
#endif

// For the inspectors that run at the deepest level, and for unwinding.
constexpr size_t kBytesBesides = size_t{4} << 20;

struct Crossing {
    ucontext_t here;
    ucontext_t there;
    void (*work)(void*);
    void* argument;
    std::exception_ptr failure;
#ifdef DEEP_STACK_TELLS_SANITIZER
    const void* callerStack = nullptr;
    size_t callerSize = 0;
#endif
};

// Entered on the new stack.  makecontext passes ints alone, so the pointer comes in two halves.
void Enter(unsigned high, unsigned low) {
    auto* crossing = reinterpret_cast<Crossing*>(static_cast<uintptr_t>(high) << 32 | low);
#ifdef DEEP_STACK_TELLS_SANITIZER
    __sanitizer_finish_switch_fiber(nullptr, &crossing->callerStack, &crossing->callerSize);
#endif
    try {
        crossing->work(crossing->argument);
    } catch (...) {
        crossing->failure = std::current_exception();
    }
#ifdef DEEP_STACK_TELLS_SANITIZER
    __sanitizer_start_switch_fiber(nullptr, crossing->callerStack, crossing->callerSize);
#endif
}

}  // namespace

void DeepStack::Release() noexcept {
    if (memory_ != nullptr) {
        munmap(memory_, size_);
        memory_ = nullptr;
        size_ = 0;
    }
}

// The pages are only promised: memory is taken as the stack grows into them.  The lowest page stays without access, so
// that a stack that outgrew its budget would be met at once.
void DeepStack::Reserve(size_t depth) {
    if (depth > (std::numeric_limits<size_t>::max() - kBytesBesides) / kBytesPerLevel / 2) {
        throw std::bad_alloc();
    }
    const size_t page = 4096;
    const size_t wanted = (depth * kBytesPerLevel + kBytesBesides + page) / page * page;
    if (size_ >= wanted) {
        return;
    }
    Release();
    void* memory = mmap(nullptr, wanted, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::bad_alloc();
    }
    if (mprotect(memory, page, PROT_NONE) != 0) {
        munmap(memory, wanted);
        throw std::bad_alloc();
    }
    memory_ = memory;
    size_ = wanted;
}

void DeepStack::RunApart(size_t depth, void (*work)(void*), void* argument) {
    Reserve(depth);
    Crossing crossing{};
    crossing.work = work;
    crossing.argument = argument;
    getcontext(&crossing.there);
    crossing.there.uc_stack.ss_sp = memory_;
    crossing.there.uc_stack.ss_size = size_;
    crossing.there.uc_link = &crossing.here;
    const auto address = reinterpret_cast<uintptr_t>(&crossing);
    makecontext(&crossing.there, reinterpret_cast<void (*)()>(Enter), 2, static_cast<unsigned>(address >> 32),
                static_cast<unsigned>(address));
#ifdef DEEP_STACK_TELLS_SANITIZER
    void* fake = nullptr;
    __sanitizer_start_switch_fiber(&fake, memory_, size_);
#endif
    swapcontext(&crossing.here, &crossing.there);
#ifdef DEEP_STACK_TELLS_SANITIZER
    __sanitizer_finish_switch_fiber(fake, nullptr, nullptr);
#endif
    if (crossing.failure) {
        std::rethrow_exception(crossing.failure);
    }
}
