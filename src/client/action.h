// Actions, as the language has them.
#ifndef CLIENT_ACTION_H
#define CLIENT_ACTION_H

#include "evaluator/inspector_action_context.h"
#include "foundation/const_data.h"
#include "registry/dependency_node.h"
#include "registry/inspector_type_info.h"

// An action by its record, which is the host's; its state is asked for anew by each property.
class action {
public:
    explicit action(const ActionRecord& record) : record_(&record) {}

    const ActionRecord& Record() const { return *record_; }

private:
    const ActionRecord* record_;
};

template <>
struct InspectorTypeInfo<action> : InspectorTypeBasics<action, 0> {
    static constexpr char Name[] = "action";
    static constexpr unsigned Size = sizeof(action);
};

// How far an action has come, in the words for users.
ConstData Status_of(const ActionState& state);

// The constraint that holds an action back: only where it is held back, and 0 for the constraints of the system, which
// have numbers above 200.
std::optional<int64_t> Constraint_of(const ActionState& state);

// Whether the downloads of an action failed for good; nothing where it is not downloads that hold it back.
std::optional<bool> DownloadFailure_of(const ActionState& state);

// What depends on which action is the current one.
extern DependencyNode CurrentActionDependencyNode;
void CurrentActionDependencyNodeFunction(Fingerprinter& fingerprinter);

#endif
