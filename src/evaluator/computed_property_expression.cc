#include "evaluator/computed_property_expression.h"

#include "evaluator/failure.h"

void ComputedPropertyExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    source_->Bind(it, allocator);
    computed_->Bind(source_->ItSource(), allocator);
    settledComputed_.Bind(computed_);
    computedIsSettled_ = computed_->IsSettled() && !computed_->IsPlural();
    type_ = computed_->Type();
    plural_ = plural_ || computed_->IsPlural() || source_->IsPlural();
    completeDependencies_ = source_->HasCompleteDependencies() && computed_->HasCompleteDependencies();
    computedIsFixed_ = computed_->HasCompleteDependencies() && source_->CanFingerprint();
    byParts_ = computedIsFixed_ || (computed_->CanFingerprint() && (!isIndexOfProperty_ || source_->CanFingerprint()));
}

// Goes on from the source's current value to the first for which the computed side has one.
template <class S, class C>
EvaluationStatus ComputedPropertyExpression::FirstComputed(const S& sourceSteps, const C& computedSteps,
                                                           TentativeValue& source) {
    while (source_->Value() != nullptr) {
        TentativeValue computed(computed_);
        EvaluationStatus status = computedSteps.First(computed);
        if (status != StatusOk) {
            return status;
        }
        if (computed_->Value() != nullptr) {
            slot_.value = computed_->Value();
            source.Release();
            computed.Release();
            return StatusOk;
        }
        status = sourceSteps.Next(source);
        if (status != StatusOk) {
            return status;
        }
    }
    return StatusOk;
}

template <class S, class C>
EvaluationStatus ComputedPropertyExpression::First(const S& sourceSteps, const C& computedSteps) {
    slot_.value = nullptr;
    TentativeValue source(source_);
    const EvaluationStatus status = sourceSteps.First(source);
    return status != StatusOk ? status : FirstComputed(sourceSteps, computedSteps, source);
}

template <class S, class C>
EvaluationStatus ComputedPropertyExpression::Next(const S& sourceSteps, const C& computedSteps) {
    slot_.value = nullptr;
    TentativeValue source(source_);
    {
        TentativeValue computed(computed_);
        const EvaluationStatus status = computedSteps.Next(computed);
        if (status != StatusOk) {
            return status;
        }
        if (computed_->Value() != nullptr) {
            slot_.value = computed_->Value();
            source.Release();
            computed.Release();
            return StatusOk;
        }
    }
    const EvaluationStatus status = sourceSteps.Next(source);
    return status != StatusOk ? status : FirstComputed(sourceSteps, computedSteps, source);
}

template <class S, class C>
EvaluationStatus ComputedPropertyExpression::Stop(const S& sourceSteps, const C& computedSteps) {
    slot_.value = nullptr;
    TentativeValue source(source_);
    const EvaluationStatus computedStatus = computedSteps.Finish(computed_);
    const EvaluationStatus sourceStatus = sourceSteps.Finish(source);
    return computedStatus != StatusOk ? computedStatus : sourceStatus;
}

// A settled computed side is taken as it is for each value that the source comes to.
inline EvaluationStatus ComputedPropertyExpression::FirstSettled(EvaluationStatus status, TentativeValue& source) {
    if (status != StatusOk || source_->Value() == nullptr) {
        return status;
    }
    const void* value = nullptr;
    status = settledComputed_.Take(value);
    if (status == StatusOk) {
        slot_.value = const_cast<void*>(value);
        source.Release();
    }
    return status;
}

EvaluationStatus ComputedPropertyExpression::TryFirst() {
    if (!computedIsSettled_) {
        return First(PlainSteps(), PlainSteps());
    }
    slot_.value = nullptr;
    TentativeValue source(source_);
    return FirstSettled(source.TryFirst(), source);
}

EvaluationStatus ComputedPropertyExpression::TryNext() {
    if (!computedIsSettled_) {
        return Next(PlainSteps(), PlainSteps());
    }
    slot_.value = nullptr;
    TentativeValue source(source_);
    return FirstSettled(source.TryNext(), source);
}

EvaluationStatus ComputedPropertyExpression::TryStop() {
    if (!computedIsSettled_) {
        return Stop(PlainSteps(), PlainSteps());
    }
    slot_.value = nullptr;
    return PlainSteps::Finish(source_);
}

// A fixed computed side runs plainly and the source speaks; otherwise the computed side speaks for each value of the
// source, and the source speaks too where it is the object of a phrase.
template <class Run>
EvaluationStatus ComputedPropertyExpression::WithFingerprintedSteps(Fingerprinter& fingerprinter, EvaluationPath& path,
                                                                    Run run) {
    const FingerprintedSteps speaking{fingerprinter, path};
    if (computedIsFixed_) {
        return run(speaking, PlainSteps());
    }
    if (isIndexOfProperty_) {
        return run(speaking, speaking);
    }
    return run(PlainSteps(), speaking);
}

EvaluationStatus ComputedPropertyExpression::TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    if (!byParts_) {
        return Expression::TryFirstFingerprinted(fingerprinter, path);
    }
    if (computedIsFixed_) {
        computed_->AddDependencies(fingerprinter);
    }
    return WithFingerprintedSteps(fingerprinter, path,
                                  [this](const auto& source, const auto& computed) { return First(source, computed); });
}

EvaluationStatus ComputedPropertyExpression::TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    if (!byParts_) {
        return Expression::TryNextFingerprinted(fingerprinter, path);
    }
    return WithFingerprintedSteps(fingerprinter, path,
                                  [this](const auto& source, const auto& computed) { return Next(source, computed); });
}

EvaluationStatus ComputedPropertyExpression::TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    if (!byParts_) {
        return TryStop();
    }
    return WithFingerprintedSteps(fingerprinter, path,
                                  [this](const auto& source, const auto& computed) { return Stop(source, computed); });
}

void ComputedPropertyExpression::AddDependencies(Fingerprinter& fingerprinter) {
    computed_->AddDependencies(fingerprinter);
    source_->AddDependencies(fingerprinter);
}

EvaluationStatus ComputedPropertyExpression::AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) {
    if (!byParts_) {
        return Expression::AddFingerprint(fingerprinter, path);
    }
    if (computedIsFixed_) {
        computed_->AddDependencies(fingerprinter);
        return source_->AddFingerprint(fingerprinter, path);
    }
    return isIndexOfProperty_ ? ReplayWithSource(fingerprinter, path) : ReplayPlainly(fingerprinter, path);
}

EvaluationStatus ComputedPropertyExpression::ReplayPlainly(Fingerprinter& fingerprinter, EvaluationPath& path) {
    TentativeValue source(source_);
    EvaluationStatus status = source.TryFirst();
    while (status == StatusOk && source_->Value() != nullptr) {
        status = computed_->AddFingerprint(fingerprinter, path);
        if (status == StatusOk) {
            status = source.TryNext();
        }
    }
    return status;
}

namespace {

// The source has just been evaluated anew along a path of its own: it must be the recorded one.
void RequireSamePath(const EvaluationPath& taken, EvaluationPath& recorded) {
    if (taken.TooLong()) {
        throw EvaluationPathsDontMatch();
    }
    for (int64_t bit = taken.Bits(); bit-- > 0;) {
        if (recorded.AtEnd() || recorded.Read() != ((taken.Word() >> bit & 1) != 0)) {
            throw EvaluationPathsDontMatch();
        }
    }
}

}  // namespace

EvaluationStatus ComputedPropertyExpression::ReplayWithSource(Fingerprinter& fingerprinter, EvaluationPath& path) {
    TentativeValue source(source_);
    EvaluationPath taken = EvaluationPath::Writer(0);
    EvaluationStatus status = source.TryFirstFingerprinted(fingerprinter, taken);
    while (status == StatusOk) {
        RequireSamePath(taken, path);
        if (source_->Value() == nullptr) {
            break;
        }
        status = computed_->AddFingerprint(fingerprinter, path);
        if (status == StatusOk) {
            taken = EvaluationPath::Writer(0);
            status = source.TryNextFingerprinted(fingerprinter, taken);
        }
    }
    return status;
}
