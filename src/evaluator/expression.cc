#include "evaluator/expression.h"

#include "evaluator/failure.h"
#include "registry/type_registry.h"

void ValueSlot::Destroy(void* old) noexcept {
    try {
        destroy(old);
    } catch (...) {
    }
}

void TentativeValue::Abandon() noexcept {
    if (expression->Value() == nullptr) {
        return;
    }
    if (expression->IsSettled()) {
        expression->Forget();
        return;
    }
    try {
        expression->TryStop();
    } catch (...) {
    }
}

void Expression::FingerprintValue(Fingerprinter& fingerprinter) const {
    if (slot_.value != nullptr && type_->fingerprint != nullptr) {
        type_->fingerprint(fingerprinter, slot_.value);
    }
}

EvaluationStatus Expression::TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath&) {
    fingerprinter.dependencies |= Fingerprinter::valueSeen;
    const EvaluationStatus status = TryFirst();
    if (status == StatusOk) {
        FingerprintValue(fingerprinter);
    }
    return status;
}

EvaluationStatus Expression::TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath&) {
    fingerprinter.dependencies |= Fingerprinter::valueSeen;
    const EvaluationStatus status = TryNext();
    if (status == StatusOk) {
        FingerprintValue(fingerprinter);
    }
    return status;
}

EvaluationStatus Expression::TryStopFingerprinted(Fingerprinter&, EvaluationPath&) { return TryStop(); }

EvaluationStatus Expression::AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath&) {
    fingerprinter.dependencies |= Fingerprinter::valueSeen;
    TentativeValue hold(this);
    EvaluationStatus status = TryFirst();
    while (status == StatusOk && slot_.value != nullptr) {
        FingerprintValue(fingerprinter);
        status = TryNext();
    }
    return status;
}

const GuardType* CommonType(const GuardType* a, const GuardType* b) {
    const GuardType* undefinedType = TypeRegistry::Instance().UndefinedType();
    if (a == undefinedType) {
        return b;
    }
    if (b == undefinedType) {
        return a;
    }
    for (const GuardType* type = a; type != nullptr; type = type->parent) {
        if (b->IsA(type)) {
            return type;
        }
    }
    throw IncompatibleTypes(a, b);
}
