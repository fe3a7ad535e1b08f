#include "registry/tuple_definition.h"

#include <cstring>
#include <memory>
#include <new>
#include <string_view>

#include "foundation/stack_allocator.h"
#include "foundation/tuple_text.h"
#include "registry/lookup_failures.h"
#include "registry/type_registry.h"

TupleDefinition::TupleDefinition(const GuardType* first, const GuardType* rest, bool terminates)
    : type{nullptr,
           static_cast<unsigned>(2 * sizeof(void*) + rest->size),
           sizeof(TupleNode) + (terminates ? 0 : rest->storageSize),
           alignof(TupleNode),
           nullptr,
           nullptr,
           nullptr},
      firstType(first),
      restType(rest),
      restIsTerminator(terminates) {
    type.tuple = this;
}

std::string_view TupleDefinition::Name() const {
    if (name_.empty()) {
        std::string name = "( ";
        const TupleDefinition* node = this;
        for (;; node = node->restType->tuple) {
            name += node->firstType->Name();
            if (node->restIsTerminator) {
                break;
            }
            name += ", ";
        }
        name += " )";
        name_ = std::move(name);
    }
    return name_;
}

void TupleDefinition::Complete(const TypeRegistry& registry) {
    const GuardType* string = registry.StringType();
    const GuardType* booleanType = registry.BooleanType();

    firstCast_ = registry.FindCast(firstType, "string");
    if (firstCast_ != nullptr && (firstCast_->resultType != string || firstCast_->blacklisted)) {
        firstCast_ = nullptr;
    }
    const bool restCasts = restIsTerminator || restType->tuple->castRow_ != nullptr;
    castRow_ = nullptr;
    type.casts = {};
    if (firstCast_ != nullptr && restCasts) {
        castToString_ = {"string", "",     "string", GenericCastToString, this, DependsOnlyOnParameters,
                         &type,    string, false};
        castRow_ = &castToString_;
        type.casts = {&castRow_, &castRow_ + 1};
    }

    for (int code : {kOperatorEqual, kOperatorLess, kOperatorLessOrEqual}) {
        TupleBinaryOperatorDefinition& comparison = Comparison(code);
        comparison.firstOp = registry.FindBinaryOperator(firstType, code, firstType);
        comparison.installed = comparison.firstOp != nullptr && comparison.firstOp->resultType == booleanType &&
                               (restIsTerminator || restType->tuple->Comparison(code).installed);
        comparison.accessor = {code,  "",    "",         "boolean", GenericGetter, this, DependsOnlyOnParameters,
                               &type, &type, booleanType};
        comparison.row = &comparison.accessor;
        type.binaryOperators[code] = {};
        if (comparison.installed) {
            comparison.accessor.data = &comparison;
            type.binaryOperators[code] = {&comparison.row, &comparison.row + 1};
        }
    }
}

namespace {

// The text of one element, cast to string into evaluation memory.
bool ElementText(const CastDefinition* cast, const void* value, inspector_string& text) {
    alignas(inspector_string) unsigned char storage[sizeof(inspector_string)];
    if (!cast->thunk(storage, value, cast->data)) {
        return false;
    }
    text = *std::launder(reinterpret_cast<inspector_string*>(storage));
    return true;
}

}  // namespace

// The elements in order, each wrapped where it would not read back, joined by ", ".  The chain is walked twice, once
// for the length and once for the bytes, so that the text takes one allocation however long the tuple is.
bool TupleDefinition::GenericCastToString(void* result, const void* operand, const void* data) {
    if (result == nullptr) {
        return true;
    }
    StackAllocatorBase& allocator = InspectorAllocator();
    const auto* definition = static_cast<const TupleDefinition*>(data);
    size_t elements = 0;
    for (const TupleDefinition* node = definition;; node = node->restType->tuple) {
        ++elements;
        if (node->restIsTerminator) {
            break;
        }
    }
    auto* texts = static_cast<inspector_string*>(
        allocator.Allocate(elements * sizeof(inspector_string), alignof(inspector_string)));
    size_t total = 0;
    const TupleDefinition* node = definition;
    const auto* value = static_cast<const TupleNode*>(operand);
    for (size_t i = 0; i < elements; ++i) {
        inspector_string* text = new (texts + i) inspector_string;
        if (!ElementText(node->firstCast_, value->first, *text)) {
            return false;
        }
        total += WrappingOfTupleItem(text->View()).Length(text->View()) + (i != 0 ? 2 : 0);
        node = node->restType->tuple;
        value = static_cast<const TupleNode*>(value->rest);
    }
    char* start = static_cast<char*>(allocator.Allocate(total));
    char* out = start;
    for (size_t i = 0; i < elements; ++i) {
        if (i != 0) {
            *out++ = ',';
            *out++ = ' ';
        }
        out = WriteTupleItem(texts[i].View(), WrappingOfTupleItem(texts[i].View()), out);
    }
    new (result) inspector_string(start, total);
    return true;
}

std::optional<boolean> TupleDefinition::TupleBinaryOperatorDefinition::First(const void* a, const void* b) const {
    boolean answer = false;
    return firstOp->thunk(&answer, a, b, firstOp->data) ? std::optional<boolean>(answer) : std::nullopt;
}

bool TupleDefinition::GenericGetter(void* result, const void* left, const void* right, const void* data) {
    if (result == nullptr) {
        return true;
    }
    const auto* comparison = static_cast<const TupleBinaryOperatorDefinition*>(data);
    const TupleDefinition* definition = comparison->accessor.leftType->tuple;
    const auto* a = static_cast<const TupleNode*>(left);
    const auto* b = static_cast<const TupleNode*>(right);
    std::optional<boolean> answer;
    switch (comparison->accessor.code) {
        case kOperatorEqual:
            answer = definition->Equal(a, b);
            break;
        case kOperatorLess:
            answer = definition->Less(a, b);
            break;
        default:
            answer = definition->LessOrEqual(a, b);
            break;
    }
    if (!answer) {
        return false;
    }
    new (result) boolean(*answer);
    return true;
}

std::optional<boolean> TupleDefinition::Equal(const TupleNode* a, const TupleNode* b) const {
    for (const TupleDefinition* node = this;; node = node->restType->tuple) {
        const std::optional<boolean> equal = node->Comparison(kOperatorEqual).First(a->first, b->first);
        if (!equal || !*equal || node->restIsTerminator) {
            return equal;
        }
        a = static_cast<const TupleNode*>(a->rest);
        b = static_cast<const TupleNode*>(b->rest);
    }
}

std::optional<boolean> TupleDefinition::Less(const TupleNode* a, const TupleNode* b) const {
    for (const TupleDefinition* node = this;; node = node->restType->tuple) {
        const TupleBinaryOperatorDefinition& less = node->Comparison(kOperatorLess);
        const std::optional<boolean> before = less.First(a->first, b->first);
        if (!before || *before) {
            return before;
        }
        const std::optional<boolean> behind = less.First(b->first, a->first);
        if (!behind) {
            return behind;
        }
        if (*behind || node->restIsTerminator) {
            return false;
        }
        a = static_cast<const TupleNode*>(a->rest);
        b = static_cast<const TupleNode*>(b->rest);
    }
}

// Kept as it stands: only "<=" is asked, never "<", so that a type with a partial order behaves as its "<=" does.
std::optional<boolean> TupleDefinition::LessOrEqual(const TupleNode* a, const TupleNode* b) const {
    for (const TupleDefinition* node = this;; node = node->restType->tuple) {
        const TupleBinaryOperatorDefinition& lessOrEqual = node->Comparison(kOperatorLessOrEqual);
        const std::optional<boolean> notBehind = lessOrEqual.First(a->first, b->first);
        if (!notBehind || !*notBehind) {
            return notBehind;
        }
        const std::optional<boolean> notBefore = lessOrEqual.First(b->first, a->first);
        if (!notBefore) {
            return notBefore;
        }
        if (!*notBefore || node->restIsTerminator) {
            return true;
        }
        a = static_cast<const TupleNode*>(a->rest);
        b = static_cast<const TupleNode*>(b->rest);
    }
}
