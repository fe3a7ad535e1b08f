#include "values/rope.h"

#include <algorithm>
#include <new>
#include <optional>
#include <string_view>

#include "evaluator/adapters.h"
#include "evaluator/inspector_context.h"
#include "values/byte_search.h"
#include "values/integer.h"

namespace {

size_t Sum(size_t a, size_t b) {
    size_t sum;
    return __builtin_add_overflow(a, b, &sum) ? rope::kTooLong : sum;
}

const rope* InMemory(const rope& node) {
    return new (InspectorAllocator().Allocate(sizeof(rope), alignof(rope))) rope(node);
}

}  // namespace

rope::rope(const rope* left, const inspector_string& text, const rope* right)
    : left_(left),
      text_(text),
      right_(right),
      length_(Sum(Sum(left == nullptr ? 0 : left->length_, text.length), right == nullptr ? 0 : right->length_)) {}

rope operator&(const rope& a, const inspector_string& b) {
    if (b.length == 0) {
        return a;
    }
    return a.Empty() ? rope(b) : rope(InMemory(a), b, nullptr);
}

rope operator&(const inspector_string& a, const rope& b) {
    if (a.length == 0) {
        return b;
    }
    return b.Empty() ? rope(a) : rope(nullptr, a, InMemory(b));
}

rope operator&(const rope& a, const rope& b) {
    if (a.Empty() || b.Empty()) {
        return b.Empty() ? a : b;
    }
    return {InMemory(a), {}, InMemory(b)};
}

// Every node knows where its bytes go, so the children may be taken in any order: the smaller first and the larger
// later.  What waits then halves with each level, and the waiting places are as few as a length has bits.
void rope::CopyTo(char* bytes) const {
    struct {
        const rope* node;
        char* bytes;
    } waiting[std::numeric_limits<size_t>::digits];
    size_t count = 0;
    const rope* node = this;
    for (;;) {
        char* const text = bytes + (node->left_ == nullptr ? 0 : node->left_->length_);
        char* const right = std::copy_n(node->text_.start, node->text_.length, text);
        if (node->left_ != nullptr && node->right_ != nullptr) {
            if (node->left_->length_ < node->right_->length_) {
                waiting[count++] = {node->right_, right};
                node = node->left_;
            } else {
                waiting[count++] = {node->left_, bytes};
                node = node->right_;
                bytes = right;
            }
        } else if (node->left_ != nullptr) {
            node = node->left_;
        } else if (node->right_ != nullptr) {
            node = node->right_;
            bytes = right;
        } else if (count != 0) {
            --count;
            node = waiting[count].node;
            bytes = waiting[count].bytes;
        } else {
            return;
        }
    }
}

inspector_string rope::Flattened() const {
    if (IsOnePiece()) {
        return text_;
    }
    if (length_ > static_cast<size_t>(std::numeric_limits<ptrdiff_t>::max())) {
        throw std::bad_alloc();
    }
    char* bytes = static_cast<char*>(InspectorAllocate(length_));
    CopyTo(bytes);
    return {bytes, length_};
}

void rope::AppendTo(std::string& bytes) const {
    const size_t before = bytes.size();
    if (length_ > bytes.max_size() - before) {
        throw std::bad_alloc();
    }
    bytes.resize(before + length_);
    CopyTo(bytes.data() + before);
}

void rope_pieces::Descend(const rope* node) {
    for (; node != nullptr; node = node->left_) {
        waiting_.Push(node);
    }
}

inspector_string rope_pieces::Next() {
    for (;;) {
        const rope* node = waiting_.Top();
        waiting_.Pop();
        Descend(node->right_);
        if (node->text_.length != 0) {
            return node->text_;
        }
    }
}

namespace {

// A search over pieces that come one after the other: what of the sought text the pieces so far end with is all that
// is carried from one to the next.
class streaming_search {
public:
    // The sought text must not be empty.  The table lies in evaluation memory.
    explicit streaming_search(std::string_view sought) : sought_(sought) {
        if (sought.size() > std::numeric_limits<size_t>::max() / sizeof(size_t)) {
            throw std::bad_alloc();
        }
        fallback_ =
            static_cast<size_t*>(InspectorAllocator().Allocate(sought.size() * sizeof(size_t), alignof(size_t)));
        fallback_[0] = 0;
        size_t matched = 0;
        for (size_t i = 1; i < sought.size(); ++i) {
            matched = Advanced(matched, sought[i]);
            fallback_[i] = matched;
        }
    }

    // True where the sought text ends in this piece.
    bool EndsIn(std::string_view piece) {
        size_t i = 0;
        for (; i < piece.size() && matched_ != 0; ++i) {
            if (Take(piece[i])) {
                return true;
            }
        }
        if (piece.size() - i >= sought_.size()) {
            if (FindBytes(piece, sought_, i) != std::string_view::npos) {
                return true;
            }
            i = piece.size() - (sought_.size() - 1);
        }
        for (; i < piece.size(); ++i) {
            if (Take(piece[i])) {
                return true;
            }
        }
        return false;
    }

private:
    size_t Advanced(size_t matched, char c) const {
        while (matched != 0 && sought_[matched] != c) {
            matched = fallback_[matched - 1];
        }
        return sought_[matched] == c ? matched + 1 : matched;
    }
    bool Take(char c) {
        matched_ = Advanced(matched_, c);
        return matched_ == sought_.size();
    }

    std::string_view sought_;
    size_t* fallback_;  // How much of the beginning each beginning ends with, itself left out.
    size_t matched_ = 0;
};

constexpr size_t kPiecesBetweenChecks = 4096;

bool OccursInPieces(const rope& whole, std::string_view sought) {
    streaming_search search(sought);
    size_t count = 0;
    for (rope_pieces pieces(whole); !pieces.AtEnd();) {
        if (search.EndsIn(pieces.Next().View())) {
            return true;
        }
        // A few joins of a rope with itself make more pieces than anyone can wait for.
        if (++count % kPiecesBetweenChecks == 0) {
            CheckForInterruption();
        }
    }
    return false;
}

}  // namespace

bool rope::Contains(const inspector_string& sought) const {
    if (sought.length == 0 || sought.length > length_) {
        return sought.length == 0;
    }
    if (IsOnePiece()) {
        return FindBytes(text_.View(), sought.View()) != std::string_view::npos;
    }
    StackAllocatorBase& memory = InspectorAllocator();
    char* const mark = memory.Top();
    const bool occurs = OccursInPieces(*this, sought.View());
    memory.ReleaseTo(mark);
    return occurs;
}

namespace {

using String = inspector_string;

rope rope_of(const String& text) { return rope(text); }

std::optional<integer> length_of(const rope& text) {
    if (text.Length() > static_cast<size_t>(std::numeric_limits<int64_t>::max())) {
        return std::nullopt;
    }
    return integer(static_cast<int64_t>(text.Length()));
}

String AsString(const rope& text) { return text.Flattened(); }

boolean Contains(const rope& text, const String& sought) { return text.Contains(sought); }

constexpr auto kJoin = [](const auto& a, const auto& b) { return a & b; };

// clang-format off
Type<rope>                                          type;

NamedGlobalProperty<rope, rope_of>                  ofString    {"rope", "ropes"};
Property<rope, integer, length_of>                  length      {"length", "lengths"};

Cast<String, rope, AsString>                        toString    {"string"};

OperatorConcatenate<rope, String, rope, kJoin>      withString;
OperatorConcatenate<String, rope, rope, kJoin>      behindString;
OperatorConcatenate<rope, rope, rope, kJoin>        withRope;
RelationContains<rope, String, Contains>            contains;
// clang-format on

}  // namespace
