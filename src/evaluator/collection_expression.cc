#include "evaluator/collection_expression.h"

#include <algorithm>

CollectionExpression::CollectionExpression(Expression* left, Expression* right, CollectionExpression* nested)
    : SteppedExpression(left, right),
      left_(left),
      right_(right),
      nested_(nested),
      count_(nested == nullptr ? 2 : nested->count_ + 1) {
    if (nested != nullptr) {
        depth_ = std::max(left->Depth(), right->Depth() + 1);
    }
}

void CollectionExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    items_ = static_cast<Expression**>(allocator.Allocate(count_ * sizeof(Expression*), alignof(Expression*)));
    size_t place = count_;
    for (CollectionExpression* node = this; node != nullptr; node = node->nested_) {
        items_[--place] = node->right_;
        if (node->nested_ == nullptr) {
            items_[--place] = node->left_;
        }
    }
    byParts_ = true;
    completeDependencies_ = true;
    for (size_t i = 0; i < count_; ++i) {
        items_[i]->Bind(it, allocator);
        type_ = i == 0 ? items_[i]->Type() : CommonType(type_, items_[i]->Type());
        byParts_ = byParts_ && items_[i]->CanFingerprint();
        completeDependencies_ = completeDependencies_ && items_[i]->HasCompleteDependencies();
    }
    plural_ = true;
}

template <class Steps>
EvaluationStatus CollectionExpression::FirstFrom(const Steps& steps, size_t item) {
    for (; item < count_; ++item) {
        if (item != 0) {
            steps.AddByte(';');
        }
        TentativeValue hold(items_[item]);
        const EvaluationStatus status = steps.First(hold);
        if (status != StatusOk) {
            return status;
        }
        if (items_[item]->Value() != nullptr) {
            slot_.value = items_[item]->Value();
            current_ = item;
            hold.Release();
            return StatusOk;
        }
    }
    return StatusOk;
}

template <class Steps>
EvaluationStatus CollectionExpression::First(const Steps& steps) {
    slot_.value = nullptr;
    return FirstFrom(steps, 0);
}

template <class Steps>
EvaluationStatus CollectionExpression::Next(const Steps& steps) {
    slot_.value = nullptr;
    {
        TentativeValue hold(items_[current_]);
        const EvaluationStatus status = steps.Next(hold);
        if (status != StatusOk) {
            return status;
        }
        if (hold.expression->Value() != nullptr) {
            slot_.value = hold.expression->Value();
            hold.Release();
            return StatusOk;
        }
    }
    return FirstFrom(steps, current_ + 1);
}

template <class Steps>
EvaluationStatus CollectionExpression::Stop(const Steps& steps) {
    slot_.value = nullptr;
    return steps.Finish(items_[current_]);
}

void CollectionExpression::AddDependencies(Fingerprinter& fingerprinter) {
    for (size_t i = 0; i < count_; ++i) {
        items_[i]->AddDependencies(fingerprinter);
    }
}

// Evaluation meets the first value of an item in a step of its own, whose fingerprint is added to what came before;
// so each item but the first is gathered apart here, too.
EvaluationStatus CollectionExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    EvaluationStatus status = items_[0]->AddFingerprint(fingerprinter, path);
    for (size_t i = 1; i < count_ && status == StatusOk; ++i) {
        Fingerprinter apart;
        apart.AddByte(';');
        status = items_[i]->AddFingerprint(apart, path);
        fingerprinter.Merge(apart);
    }
    return status;
}

template class SteppedExpression<CollectionExpression>;
