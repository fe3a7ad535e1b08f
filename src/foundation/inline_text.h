// A text that keeps short contents inside itself: what file locations and file names are made of.
#ifndef FOUNDATION_INLINE_TEXT_H
#define FOUNDATION_INLINE_TEXT_H

#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

#include "foundation/const_data.h"

// Zero-terminated bytes, fixed when made and replaced only as a whole.  Texts that fit `Capacity` bytes with their
// terminator lie inline and never touch the heap.  A text that was never given has a null pointer and reads as the
// empty text.
template <size_t Capacity>
class InlineText {
public:
    InlineText() noexcept {}

    // The three parts, one after the other.  Throws std::bad_alloc when memory runs out, and ConstDataCapacityExceeded
    // when the length does not fit 32 bits.
    explicit InlineText(std::string_view first, std::string_view second = {}, std::string_view third = {}) {
        const size_t length = first.size() + second.size() + third.size();
        if (length >= std::numeric_limits<uint32_t>::max()) {
            throw ConstDataCapacityExceeded();
        }
        text_ = length < Capacity ? inline_ : new char[length + 1];
        length_ = static_cast<uint32_t>(length);
        char* const end = Append(Append(Append(text_, first), second), third);
        *end = '\0';
    }

    InlineText(const InlineText& other) : InlineText(other.View()) {}
    InlineText(InlineText&& other) noexcept { Take(other); }
    InlineText& operator=(const InlineText& other) { return *this = InlineText(other); }
    InlineText& operator=(InlineText&& other) noexcept {
        if (this != &other) {
            Release();
            Take(other);
        }
        return *this;
    }
    ~InlineText() { Release(); }

    const char* CString() const noexcept { return text_ == nullptr ? "" : text_; }
    size_t Length() const noexcept { return length_; }
    std::string_view View() const noexcept { return {CString(), length_}; }

private:
    static char* Append(char* write, std::string_view part) {
        if (!part.empty()) {
            std::memcpy(write, part.data(), part.size());
        }
        return write + part.size();
    }

    // Leaves `other` empty; this text must hold nothing.
    void Take(InlineText& other) noexcept {
        length_ = other.length_;
        if (other.text_ == other.inline_) {
            std::memcpy(inline_, other.inline_, length_ + size_t{1});
            text_ = inline_;
        } else {
            text_ = other.text_;
        }
        other.text_ = nullptr;
        other.length_ = 0;
    }

    void Release() noexcept {
        if (text_ != inline_) {
            delete[] text_;
        }
        text_ = nullptr;
        length_ = 0;
    }

    char* text_ = nullptr;
    char inline_[Capacity];
    uint32_t length_ = 0;
};

#endif
