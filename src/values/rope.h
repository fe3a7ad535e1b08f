// A text that is built by joining, with no copying: joining is one new node, and only the cast to string touches bytes.
//
// A rope means the text of its left child, then its own text, then its right child.  Nodes never change and may be
// shared, so that one rope can stand many times in another; nothing here walks them by recursion, and each node knows
// the length of what it means, so neither a rope of a million joins nor one that contains itself over and over costs
// more than the bytes that it is asked for.
#ifndef VALUES_ROPE_H
#define VALUES_ROPE_H

#include <cstddef>
#include <limits>
#include <string>

#include "foundation/segmented_stack.h"
#include "registry/inspector_type_info.h"

class rope {
public:
    // The empty rope.
    constexpr rope() = default;
    // A leaf over the string's bytes, which must live as long as the rope.
    explicit constexpr rope(const inspector_string& text) : text_(text), length_(text.length) {}

    // The two after each other, in constant time: one new node, with what it points at copied to evaluation memory.
    // Joining what is empty gives the other, so that every node stands for at least one byte of its own or for two
    // children that are not empty.  Throws NoInspectorAllocator, std::bad_alloc.
    friend rope operator&(const rope& a, const inspector_string& b);
    friend rope operator&(const inspector_string& a, const rope& b);
    friend rope operator&(const rope& a, const rope& b);

    // The count of bytes, or kTooLong for a count that no memory could hold.
    size_t Length() const { return length_; }
    bool Empty() const { return length_ == 0; }
    static constexpr size_t kTooLong = std::numeric_limits<size_t>::max();

    // The whole text, in evaluation memory, or where it stands when it is one piece.  Throws std::bad_alloc.
    inspector_string Flattened() const;
    // Puts the whole text behind `bytes`.  Throws std::bad_alloc.
    void AppendTo(std::string& bytes) const;

    // Whether `sought` occurs, also across pieces.  Reads the pieces in order up to the first occurrence.  Throws
    // std::bad_alloc, and what an interruption throws.
    bool Contains(const inspector_string& sought) const;

private:
    friend class rope_pieces;

    rope(const rope* left, const inspector_string& text, const rope* right);
    void CopyTo(char* bytes) const;
    bool IsOnePiece() const { return left_ == nullptr && right_ == nullptr; }

    const rope* left_ = nullptr;
    inspector_string text_;
    const rope* right_ = nullptr;
    size_t length_ = 0;
};

template <>
struct InspectorTypeInfo<rope> : InspectorTypeBasics<rope, 0> {
    static constexpr char Name[] = "rope";
    static constexpr unsigned Size = 16;
};

// The pieces of a rope in order, none of them empty.  What waits is kept on a stack of its own: a rope that was joined
// on one side only is as deep as it has joins.
class rope_pieces {
public:
    explicit rope_pieces(const rope& whole) { Descend(whole.Empty() ? nullptr : &whole); }

    bool AtEnd() const { return waiting_.Empty(); }
    // The next piece; there must be one.
    inspector_string Next();

private:
    void Descend(const rope* node);

    SegmentedStack<const rope*, 64> waiting_;  // The text and the right child of each are still to come.
};

#endif
