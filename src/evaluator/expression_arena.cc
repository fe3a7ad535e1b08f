#include "evaluator/expression_arena.h"

#include <algorithm>
#include <cstring>

std::string_view ExpressionArena::CopyText(const unsigned char* begin, const unsigned char* end) {
    const auto length = static_cast<size_t>(end - begin);
    char* copy = static_cast<char*>(memory_.Allocate(std::max<size_t>(length, 1)));
    if (length != 0) {
        std::memcpy(copy, begin, length);
    }
    return {copy, length};
}

void ExpressionArena::Bind(Expression* node) {
    stack_.Run(node->Depth(), [&] { node->Bind(nullptr, memory_); });
}

void ExpressionArena::DestroyLast() noexcept {
    Expression* node = nodes_.Top();
    nodes_.Pop();
    node->~Expression();
}

void ExpressionArena::GoBackTo(const Checkpoint& checkpoint) noexcept {
    while (nodes_.Size() > checkpoint.nodes) {
        DestroyLast();
    }
    root_ = checkpoint.root;
    memory_.ReleaseTo(checkpoint.memory);
}

void ExpressionArena::Clear() noexcept {
    while (!nodes_.Empty()) {
        DestroyLast();
    }
    root_ = nullptr;
    memory_.ReleaseAll();
    stack_.Release();
}
