#include "evaluator/guard_evaluator.h"

#include <ctime>

#include "evaluator/cast_expression.h"
#include "evaluator/failure.h"
#include "evaluator/implicit_tuple_conversion.h"
#include "registry/dependency_node.h"
#include "registry/type_registry.h"

namespace {

constexpr uint64_t kMicrosecondsOfAWeek = 604800000000;

void ThrowStatus(EvaluationStatus status) {
    switch (status) {
        case StatusOk:
            return;
        case StatusDoesNotExist:
            throw ArgumentDoesNotExist();
        case StatusNotUnique:
            throw ArgumentNotUnique();
        case StatusNotConverted:
            throw ValueNotConverted();
    }
}

uint64_t Now() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000000 + static_cast<uint64_t>(now.tv_nsec) / 1000;
}

// The word that changes when a dependency's state does, and in any case once a week, at a moment that the low bits of
// the fingerprint spread over the week.
uint32_t Check(uint32_t dependencies, uint32_t sum) {
    Fingerprinter states;
    for (unsigned i = 0; i < 31; ++i) {
        DependencyNode* node = (dependencies >> i & 1) != 0 ? GlobalDependency::Node(i) : nullptr;
        if (node != nullptr) {
            node->AddState(states);
            states.AddData(ConstData(node->Name()));
        }
    }
    const uint32_t spread = sum + states.sum;
    const uint64_t phase = (spread & 0x3FF) * kMicrosecondsOfAWeek / 1024;
    return static_cast<uint32_t>((Now() + phase) / kMicrosecondsOfAWeek + spread);
}

// Takes a step's findings into the record, unless its path has outgrown the word.
void Update(EvaluationFingerprint& record, const Fingerprinter& found, const EvaluationPath& path) {
    if (path.TooLong()) {
        record = EvaluationFingerprint::NotFingerprintable();
        return;
    }
    record.dependencies |= found.dependencies;
    record.sum += found.sum;
    record.check = Check(record.dependencies, record.sum);
    record.path = path.Word();
}

}  // namespace

struct GuardEvaluator::Installed {
    explicit Installed(GuardEvaluator& evaluator) : context(evaluator.context_), allocator(evaluator.arena_.Memory()) {}
    InspectorContextMaintainer context;
    AllocatorInstaller allocator;
};

GuardEvaluator::GuardEvaluator(InspectorContext* context)
    : automaton_(arena_), parser_(automaton_), lexer_(parser_, parser_), context_(context) {
    lexer_.Start();
}

GuardEvaluator::~GuardEvaluator() {
    try {
        StopRunning();
    } catch (...) {
    }
    const Installed installed(*this);
    arena_.Clear();
}

void GuardEvaluator::Feed(const unsigned char* begin, const unsigned char* end) {
    const Installed installed(*this);
    lexer_.Data(begin, end);
}

void GuardEvaluator::Feed(std::string_view text) {
    const ConstData data(text);
    Feed(data.begin, data.end);
}

void GuardEvaluator::EndOfText() {
    const Installed installed(*this);
    lexer_.Finish();
    parsedRoot_ = arena_.Root();
    mark_ = arena_.Memory().Top();
}

void GuardEvaluator::Reset() {
    try {
        StopRunning();
    } catch (...) {
    }
    parsedRoot_ = nullptr;
    mark_ = nullptr;
    const Installed installed(*this);
    lexer_.Start();
}

// A tree that did not finish was never evaluated, and its root is whichever node came last.
void GuardEvaluator::StopRunning() {
    if (mark_ == nullptr) {
        return;
    }
    if (arena_.Root()->Value() != nullptr) {
        const Installed installed(*this);
        EvaluationStatus status = StatusOk;
        arena_.RunDeep([&] { status = arena_.Root()->TryStop(); });
        ThrowStatus(status);
    }
    arena_.Memory().ReleaseTo(mark_);
}

EvaluationStatus GuardEvaluator::TryFirst() {
    EvaluationStatus status = StatusOk;
    arena_.RunDeep([&] { status = arena_.Root()->TryFirst(); });
    return status;
}

EvaluationStatus GuardEvaluator::TryNext() {
    EvaluationStatus status = StatusOk;
    arena_.RunDeep([&] { status = arena_.Root()->TryNext(); });
    return status;
}

void* GuardEvaluator::FirstDelivered() const {
    if (arena_.Root()->Value() == nullptr && IsSingular()) {
        throw ArgumentDoesNotExist();
    }
    return arena_.Root()->Value();
}

void* GuardEvaluator::First() {
    StopRunning();
    const Installed installed(*this);
    ThrowStatus(TryFirst());
    return FirstDelivered();
}

void* GuardEvaluator::NextDelivered() {
    if (IsPlural() || arena_.Root()->Value() == nullptr) {
        return arena_.Root()->Value();
    }
    EvaluationStatus status = StatusOk;
    arena_.RunDeep([&] { status = arena_.Root()->TryStop(); });
    ThrowStatus(status);
    throw ArgumentNotUnique();
}

void* GuardEvaluator::Next() {
    const Installed installed(*this);
    ThrowStatus(TryNext());
    return NextDelivered();
}

void* GuardEvaluator::First(EvaluationFingerprint& record) {
    StopRunning();
    const Installed installed(*this);
    if ((record.path != 0 || record.IsNew()) && arena_.Root()->CanFingerprint()) {
        Fingerprinter found;
        EvaluationPath path = EvaluationPath::Writer(record.path);
        path.Write(true);
        EvaluationStatus status = StatusOk;
        arena_.RunDeep([&] { status = arena_.Root()->TryFirstFingerprinted(found, path); });
        ThrowStatus(status);
        Update(record, found, path);
    } else {
        record = EvaluationFingerprint::NotFingerprintable();
        ThrowStatus(TryFirst());
    }
    return FirstDelivered();
}

void* GuardEvaluator::Next(EvaluationFingerprint& record) {
    const Installed installed(*this);
    if (record.path == 0 && !record.IsNew()) {
        ThrowStatus(TryNext());
        return NextDelivered();
    }
    Fingerprinter found;
    EvaluationPath path = EvaluationPath::Writer(record.path);
    EvaluationStatus status = StatusOk;
    arena_.RunDeep([&] { status = arena_.Root()->TryNextFingerprinted(found, path); });
    ThrowStatus(status);
    Update(record, found, path);
    return NextDelivered();
}

bool GuardEvaluator::Unexpired(const EvaluationFingerprint& record, InspectorContext* context) {
    if (record.path == 0) {
        return record.IsNew();
    }
    if ((record.dependencies & Fingerprinter::valueSeen) != 0) {
        return false;
    }
    const InspectorContextMaintainer installed(context);
    return Check(record.dependencies, record.sum) == record.check;
}

bool GuardEvaluator::Unchanged(const EvaluationFingerprint& record) {
    StopRunning();
    const Installed installed(*this);
    if (record.path == 0) {
        return record.IsNew();
    }
    if (Check(record.dependencies, record.sum) != record.check) {
        return false;
    }
    EvaluationPath path = EvaluationPath::Reader(record.path);
    Fingerprinter found;
    EvaluationStatus status = StatusOk;
    arena_.RunDeep([&] { status = arena_.Root()->AddFingerprint(found, path); });
    ThrowStatus(status);
    return found.sum == record.sum && found.dependencies == record.dependencies;
}

const GuardType* GuardEvaluator::TypeNamed(std::string_view name) const {
    const GuardType* type = TypeRegistry::Instance().TypeByName(name);
    if (type == nullptr) {
        throw OperationNotDefined(name);
    }
    return type;
}

bool GuardEvaluator::ResultIsA(std::string_view typeName) const {
    const GuardType* type = TypeRegistry::Instance().TypeByName(typeName);
    return type != nullptr && arena_.Root()->Type()->IsA(type);
}

void GuardEvaluator::ConvertTo(std::string_view typeName, std::string_view castName) {
    const Installed installed(*this);
    const GuardType* wanted = TypeNamed(typeName);
    if (arena_.Root()->Type()->IsA(wanted)) {
        return;
    }
    const ExpressionArena::Checkpoint checkpoint = arena_.Here();
    try {
        const ConstData name(castName);
        const std::string_view kept = arena_.CopyText(name.begin, name.end);
        auto* conversion = arena_.Make<ImplicitConversion>(checkpoint.root, kept);
        conversion->BindCast(arena_.Memory());
        if (!conversion->Type()->IsA(wanted)) {
            throw ConversionHasWrongType(wanted, castName);
        }
        mark_ = arena_.Memory().Top();
    } catch (...) {
        arena_.GoBackTo(checkpoint);
        throw;
    }
}

void GuardEvaluator::ConvertToTuple(const std::string_view* keptTypeNames, size_t count,
                                    std::string_view targetTypeName, std::string_view castName) {
    const Installed installed(*this);
    const GuardType* target = TypeNamed(targetTypeName);
    const ExpressionArena::Checkpoint checkpoint = arena_.Here();
    try {
        StackAllocatorBase& memory = arena_.Memory();
        auto** kept = static_cast<const GuardType**>(
            memory.Allocate((count + 1) * sizeof(const GuardType*), alignof(const GuardType*)));
        for (size_t i = 0; i < count; ++i) {
            kept[i] = TypeNamed(keptTypeNames[i]);
        }
        kept[count] = TypeRegistry::Instance().WorldType();
        if (!ImplicitTupleConversion::HasForeignElement(checkpoint.root->Type(), kept, count + 1)) {
            arena_.GoBackTo(checkpoint);
            return;
        }
        const ConstData name(castName);
        const std::string_view keptName = arena_.CopyText(name.begin, name.end);
        auto* conversion = arena_.Make<ImplicitTupleConversion>(checkpoint.root, kept, count + 1, target, keptName);
        arena_.RunDeep([&] { conversion->BindConverters(memory); });
        mark_ = memory.Top();
    } catch (...) {
        arena_.GoBackTo(checkpoint);
        throw;
    }
}
