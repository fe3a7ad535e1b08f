// An array that grows without moving what it holds.
//
// It keeps up to 24 chunk pointers, each chunk twice as large as the one before and made on demand; an element's chunk
// is found from its index by the position of the leading bit.
#ifndef FOUNDATION_EXTENSIBLE_ARRAY_H
#define FOUNDATION_EXTENSIBLE_ARRAY_H

#include <bit>
#include <cstddef>
#include <new>
#include <utility>

// `First`, a power of two, is the size of the first chunk.
template <class T, size_t First = 8>
class ExtensibleArray {
    static_assert(std::has_single_bit(First));

public:
    ExtensibleArray() = default;
    ExtensibleArray(const ExtensibleArray&) = delete;
    ExtensibleArray& operator=(const ExtensibleArray&) = delete;
    ~ExtensibleArray() {
        for (size_t i = size_; i != 0; --i) {
            (*this)[i - 1].~T();
        }
        for (T* chunk : chunks_) {
            ::operator delete(chunk, std::align_val_t(alignof(T)));
        }
    }

    size_t Size() const { return size_; }

    T& operator[](size_t index) { return *Address(index); }
    const T& operator[](size_t index) const { return *const_cast<ExtensibleArray*>(this)->Address(index); }

    // Makes one more element in place and returns it; its address stays.  Throws std::bad_alloc, also when all chunks
    // are full, and what T's constructor throws; the array is then as it was.
    template <class... Arguments>
    T& Append(Arguments&&... arguments) {
        const size_t chunk = ChunkOf(size_);
        if (chunk >= kChunks) {
            throw std::bad_alloc();
        }
        if (chunks_[chunk] == nullptr) {
            const size_t bytes = (kFirst << chunk) * sizeof(T);
            chunks_[chunk] = static_cast<T*>(::operator new(bytes, std::align_val_t(alignof(T))));
        }
        T* element = new (Address(size_)) T(std::forward<Arguments>(arguments)...);
        ++size_;
        return *element;
    }

    // The array must not be empty.  Its chunks stay for what is appended next.
    void RemoveLast() {
        --size_;
        Address(size_)->~T();
    }

private:
    static constexpr size_t kChunks = 24;
    static constexpr size_t kFirst = First;

    // Chunk c holds the indexes from kFirst * (2^c - 1) up to kFirst * (2^(c+1) - 1).
    static size_t ChunkOf(size_t index) { return std::bit_width(index / kFirst + 1) - 1; }
    T* Address(size_t index) {
        const size_t chunk = ChunkOf(index);
        return chunks_[chunk] + (index - kFirst * ((size_t{1} << chunk) - 1));
    }

    T* chunks_[kChunks] = {};
    size_t size_ = 0;
};

#endif
