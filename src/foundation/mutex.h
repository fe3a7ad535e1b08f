// Locks, and the arrays that hold them.
#ifndef FOUNDATION_MUTEX_H
#define FOUNDATION_MUTEX_H

#include <cstddef>
#include <memory>
#include <mutex>

// May be taken again by the thread that holds it, and is free after as many releases.
using Mutex = std::recursive_mutex;

// A hold on a mutex, which ends with it.  Taking the mutex again counts; only the thread that holds it may take or
// release, so that one of these can lie beside its mutex for all threads to use.
class AutoMutexAquisition {
public:
    AutoMutexAquisition() = default;
    explicit AutoMutexAquisition(Mutex& mutex) { Acquire(mutex); }
    AutoMutexAquisition(const AutoMutexAquisition&) = delete;
    AutoMutexAquisition& operator=(const AutoMutexAquisition&) = delete;
    ~AutoMutexAquisition() {
        while (depth_ != 0) {
            Release();
        }
    }

    void Acquire(Mutex& mutex) {
        mutex.lock();
        mutex_ = &mutex;
        ++depth_;
    }

    // Does nothing when nothing is held.
    void Release() {
        if (depth_ != 0) {
            --depth_;
            mutex_->unlock();
        }
    }

private:
    Mutex* mutex_ = nullptr;
    unsigned depth_ = 0;
};

// An array of a size that is known when it is made.  Its elements never move.
template <class T>
class SizedAutoArray {
public:
    SizedAutoArray() = default;

    // Throws std::bad_alloc when the machine has no memory for it.
    explicit SizedAutoArray(size_t size) : elements_(std::make_unique<T[]>(size)), size_(size) {}

    size_t Size() const { return size_; }
    T& operator[](size_t index) { return elements_[index]; }

private:
    std::unique_ptr<T[]> elements_;
    size_t size_ = 0;
};

#endif
