#include "evaluator/constant_expressions.h"

#include "evaluator/failure.h"
#include "registry/type_registry.h"

world WorldExpression::theWorld;

void IntegerExpression::Bind(Expression*, StackAllocatorBase&) { type_ = TypeRegistry::Instance().IntegerType(); }

void NoIntegerExpression::Bind(Expression*, StackAllocatorBase&) { type_ = TypeRegistry::Instance().IntegerType(); }

void StringExpression::Bind(Expression*, StackAllocatorBase&) { type_ = TypeRegistry::Instance().StringType(); }

void WorldExpression::Bind(Expression* it, StackAllocatorBase&) {
    it_ = it;
    type_ = TypeRegistry::Instance().WorldType();
}

void ItExpression::Bind(Expression* it, StackAllocatorBase&) {
    if (it == nullptr) {
        throw ItUsedWithoutWhose();
    }
    source_ = it;
    type_ = it->Type();
}
