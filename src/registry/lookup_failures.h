// What a look-up in the vocabulary can end in besides an answer.
#ifndef REGISTRY_LOOKUP_FAILURES_H
#define REGISTRY_LOOKUP_FAILURES_H

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "foundation/debuggable_exception.h"

// No property, cast or operator of this name stands for the types at hand.  The name is kept in the exception itself,
// cut at 256 bytes, so that reporting it needs no memory.
class OperationNotDefined : public DebuggableException {
public:
    explicit OperationNotDefined(std::string_view name) noexcept : DebuggableException("OperationNotDefined") {
        Append(name);
    }

    // A name made of several pieces, in order.
    OperationNotDefined(std::initializer_list<std::string_view> pieces) noexcept
        : DebuggableException("OperationNotDefined") {
        for (std::string_view piece : pieces) {
            Append(piece);
        }
    }

    std::string_view Name() const { return {name_, length_}; }

private:
    void Append(std::string_view piece) noexcept {
        const size_t count = std::min(piece.size(), sizeof name_ - length_);
        std::memcpy(name_ + length_, piece.data(), count);
        length_ += count;
    }

    char name_[256];
    size_t length_ = 0;
};

// The administrator has forbidden this entry; the name is its blacklist key.
class InspectorBlacklisted : public DebuggableException {
public:
    explicit InspectorBlacklisted(std::string name)
        : DebuggableException("InspectorBlacklisted"), name_(std::move(name)) {}
    const std::string& Name() const { return name_; }

private:
    std::string name_;
};

struct BadStructuredTypeName : DebuggableException {
    BadStructuredTypeName() noexcept : DebuggableException("BadStructuredTypeName") {}
};
struct BadTypeList : DebuggableException {
    BadTypeList() noexcept : DebuggableException("BadTypeList") {}
};

#endif
