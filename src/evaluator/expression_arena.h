// Where the nodes of one expression live: their memory, the list of all of them, and the current result.
//
// A node is entered in the list as it is made, so that a tree that a failure left unfinished can be destroyed like a
// whole one.  Destroying runs the destructors from the last made to the first, without recursion, and then empties the
// memory.
#ifndef EVALUATOR_EXPRESSION_ARENA_H
#define EVALUATOR_EXPRESSION_ARENA_H

#include <new>
#include <string_view>
#include <utility>

#include "evaluator/deep_stack.h"
#include "evaluator/expression.h"
#include "foundation/segmented_stack.h"
#include "foundation/stack_allocator.h"

class ExpressionArena {
public:
    ExpressionArena() = default;
    ~ExpressionArena() { Clear(); }

    StackAllocatorBase& Memory() { return memory_; }

    // The node made last, which a finished tree's root is.
    Expression* Root() const { return root_; }

    // Makes a node, which becomes the root.  Throws std::bad_alloc, and nothing has been made then.
    template <class Node, class... Arguments>
    Node* Make(Arguments&&... arguments) {
        static_assert(alignof(Node) <= 16);
        void* memory = memory_.Allocate(sizeof(Node), alignof(Node));
        Node* node = new (memory) Node(std::forward<Arguments>(arguments)...);
        try {
            nodes_.Push(node);
        } catch (...) {
            node->~Node();
            memory_.FreeLast(memory);
            throw;
        }
        root_ = node;
        return node;
    }

    // Copies text that is to live as long as the tree; at least one byte is taken.  Throws std::bad_alloc.
    std::string_view CopyText(const unsigned char* begin, const unsigned char* end);

    // Binds a node with nothing for `it` to mean, with stack for its depth.
    void Bind(Expression* node);

    // Runs `work` with stack for the tree below the root.
    template <class Work>
    void RunDeep(Work&& work) {
        stack_.Run(root_->Depth(), std::forward<Work>(work));
    }

    // What an attempt to add to a finished tree goes back to when it fails.
    struct Checkpoint {
        Expression* root;
        size_t nodes;
        char* memory;
    };
    Checkpoint Here() const { return {root_, nodes_.Size(), memory_.Top()}; }
    void GoBackTo(const Checkpoint& checkpoint) noexcept;

    // Destroys all nodes and releases all memory.
    void Clear() noexcept;

private:
    void DestroyLast() noexcept;

    StackAllocator<15360> memory_;
    Expression* root_ = nullptr;
    SegmentedStack<Expression*, 200> nodes_;
    DeepStack stack_;
};

#endif
