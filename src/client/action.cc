#include "client/action.h"

#include <limits>

#include "client/action_tags.h"
#include "client/host_values.h"
#include "client/praxel.h"
#include "client/site.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"

namespace {

constexpr int64_t greatestUserConstraint = 200;
constexpr int64_t firstDownloadConstraint = 213;
constexpr int64_t lastDownloadConstraint = 215;

}  // namespace

ConstData Status_of(const ActionState& state) {
    if (state.active) {
        return cActionValueRunning;
    }
    const ConstData atTheEndOfAGroup = state.endedInFailure ? cActionValueFailed : cActionValueExecuted;
    if (!state.pending) {
        if (!state.ranToItsEnd) {
            return cActionValueNotRelevant;
        }
        return state.groupLeader ? atTheEndOfAGroup : cActionValueExecuted;
    }
    if (state.constrained) {
        return cActionValueWaiting;
    }
    if (!state.ranToItsEnd) {
        return cActionValueNotExecuted;
    }
    // An action that has run and is still pending has not done what it was for.
    return state.groupLeader ? atTheEndOfAGroup : cActionValueFailed;
}

std::optional<int64_t> Constraint_of(const ActionState& state) {
    if (!state.constrained || !state.constraint) {
        return std::nullopt;
    }
    return *state.constraint > greatestUserConstraint ? 0 : *state.constraint;
}

std::optional<bool> DownloadFailure_of(const ActionState& state) {
    if (!state.constrained || !state.constraint || *state.constraint < firstDownloadConstraint ||
        *state.constraint > lastDownloadConstraint) {
        return std::nullopt;
    }
    return *state.constraint - firstDownloadConstraint != 0;
}

namespace {

template <auto Entry>
auto OfActions() {
    return HostFunction<Entry, InspectorActionContextError>();
}

// The entry, where the host's actions can be looked at now.
template <auto Entry>
auto OfActionsAtRest() {
    return HostFunctionAtRest<Entry, InspectorActionContextError>();
}

std::optional<action> CurrentAction() {
    return HostValue::Over<action>(OfActions<&InspectorActionContext::currentAction>()());
}
std::optional<action> ActiveAction() {
    return HostValue::Over<action>(OfActionsAtRest<&InspectorActionContext::activeAction>()());
}

// Actions are numbered in 32 bits: no other number is worth asking for.
std::optional<action> ActionById_of_world(const integer& id) {
    if (id.Value() > std::numeric_limits<uint32_t>::max()) {
        return std::nullopt;
    }
    return HostValue::Over<action>(
        OfActionsAtRest<&InspectorActionContext::actionById>()(static_cast<uint32_t>(id.Value())));
}

class action_iterator {
public:
    std::optional<action> FirstRelevantOffer(Of, const site& of) {
        cursor_ = 0;
        return NextRelevantOffer(Of(), of);
    }
    std::optional<action> NextRelevantOffer(Of, const site& of) {
        return HostValue::Over<action>(
            OfActionsAtRest<&InspectorActionContext::nextRelevantOffer>()(of.Map(), cursor_));
    }

private:
    size_t cursor_ = 0;
};

// Throws NoSuchObject for an action that has gone.
const ActionState& StateOf(const action& of) {
    const ActionState* const state = OfActionsAtRest<&InspectorActionContext::state>()(of.Record());
    if (state == nullptr) {
        NoResults();
    }
    return *state;
}

integer Id(const action& of) { return StateOf(of).id; }

template <auto Field>
std::optional<integer> Number(const action& of) {
    return HostValue::Integer(StateOf(of).*Field);
}
template <auto Field>
boolean Flag(const action& of) {
    return StateOf(of).*Field;
}
template <auto Field>
std::optional<moment> Time(const action& of) {
    return HostValue::Time(StateOf(of).*Field);
}

std::optional<integer> Constraint(const action& of) { return HostValue::Integer(Constraint_of(StateOf(of))); }
std::optional<boolean> DownloadFailure(const action& of) { return DownloadFailure_of(StateOf(of)); }
inspector_string Status(const action& of) { return inspector_string(Status_of(StateOf(of)).View()); }

std::optional<inspector_string> ActionParameter(const inspector_string& name, const action& of) {
    return HostValue::Text(OfActionsAtRest<&InspectorActionContext::parameter>()(of.Record(), name.View()));
}
std::optional<inspector_string> CurrentActionParameter(const inspector_string& name) {
    return HostValue::Text(OfActionsAtRest<&InspectorActionContext::currentParameter>()(name.View()));
}

bool NextHeader(const action& of, size_t& cursor, PraxelHeader& header) {
    return OfActionsAtRest<&InspectorActionContext::nextHeader>()(of.Record(), cursor, header);
}
using header_iterator = praxel_header_iterator<action, NextHeader>;

// Where there is no current action, or no host to tell, that is the state.
void AddCurrentAction(Fingerprinter& fingerprinter) {
    const auto* host = dynamic_cast<InspectorActionContext*>(InspectorContextMaintainer::current.Get());
    if (host == nullptr || host->currentAction == nullptr || host->state == nullptr) {
        return;
    }
    // A state of its own: which action it is can be told when the host is done.
    if (host->isBusy != nullptr && host->isBusy()) {
        fingerprinter.AddByte('b');
        return;
    }
    const ActionRecord* const current = host->currentAction();
    const ActionState* const state = current != nullptr ? host->state(*current) : nullptr;
    if (state != nullptr) {
        fingerprinter.AddData(ConstData(&state->id, sizeof state->id));
    }
}

}  // namespace

DependencyNode CurrentActionDependencyNode("CurrentAction", AddCurrentAction);

void CurrentActionDependencyNodeFunction(Fingerprinter& fingerprinter) {
    DependsOn<CurrentActionDependencyNode>(fingerprinter);
}

namespace {

// An action keeps its number; all else of it changes as it is carried out.
// clang-format off
Type<action>                                                                        type;

GlobalProperty<action, CurrentAction>                                               current              {"action", "actions", CurrentActionDependencyNodeFunction};
NumberedGlobalProperty<action, ActionById_of_world>                                 byId                 {"action", "actions", ByValueOnly};
GlobalProperty<action, ActiveAction>                                                activeAction         {"active action", "active actions", ByValueOnly};
IteratedPropertyOfObject<action_iterator, action, site, &action_iterator::FirstRelevantOffer, &action_iterator::NextRelevantOffer>
                                                                                    relevantOffers       {"relevant offer action", "relevant offer actions", ByValueOnly};

Property<action, integer, Id>                                                       id                   {"id", "ids"};
Property<action, integer, Constraint>                                               constraint           {"constraint", "constraints", ByValueOnly};
Property<action, integer, Number<&ActionState::systemConstraint>>                   systemConstraint     {"system constraint", "system constraints", ByValueOnly};
Property<action, integer, Number<&ActionState::firstActiveCount>>                   firstActiveCount     {"first active count", "first active counts", ByValueOnly};
Property<action, integer, Number<&ActionState::activeCount>>                        activeCount          {"active count", "active counts", ByValueOnly};
Property<action, integer, Number<&ActionState::activeLineNumber>>                   activeLineNumber     {"active line number", "active line numbers", ByValueOnly};
Property<action, integer, Number<&ActionState::lastActiveLineNumber>>               lastActiveLineNumber {"last active line number", "last active line numbers", ByValueOnly};
Property<action, integer, Number<&ActionState::originPraxelId>>                     originPraxelId       {"origin praxel id", "origin praxel ids", ByValueOnly};
Property<action, integer, Number<&ActionState::exitCode>>                           exitCode             {"exit code", "exit codes", ByValueOnly};

Property<action, boolean, Flag<&ActionState::constrained>>                          constrained          {"constrained", "constraineds", ByValueOnly};
Property<action, boolean, Flag<&ActionState::pending>>                              pending              {"pending", "pendings", ByValueOnly};
Property<action, boolean, Flag<&ActionState::waitingForDownload>>                   waitingForDownload   {"waiting for download", "waiting for downloads", ByValueOnly};
Property<action, boolean, Flag<&ActionState::active>>                               active               {"active", "actives", ByValueOnly};
Property<action, boolean, Flag<&ActionState::pendingRestart>>                       pendingRestart       {"pending restart", "pending restarts", ByValueOnly};
Property<action, boolean, Flag<&ActionState::pendingLogin>>                         pendingLogin         {"pending login", "pending logins", ByValueOnly};
Property<action, boolean, Flag<&ActionState::groupLeader>>                          groupLeader          {"group leader", "group leaders", ByValueOnly};
Property<action, boolean, Flag<&ActionState::offer>>                                offer                {"offer", "offers", ByValueOnly};
Property<action, boolean, Flag<&ActionState::offerAccepted>>                        offerAccepted        {"offer accepted", "offer accepteds", ByValueOnly};
Property<action, boolean, Flag<&ActionState::persistentConstraint>>                 persistentConstraint {"persistent constraint", "persistent constraints", ByValueOnly};
Property<action, boolean, DownloadFailure>                                          downloadFailure      {"download failure", "download failures", ByValueOnly};

Property<action, moment, Time<&ActionState::pendingTime>>                           pendingTime          {"pending time", "pending times", ByValueOnly};
Property<action, moment, Time<&ActionState::completeTime>>                          completeTime         {"complete time", "complete times", ByValueOnly};
Property<action, moment, Time<&ActionState::activeStartTime>>                       activeStartTime      {"active start time", "active start times", ByValueOnly};
Property<action, moment, Time<&ActionState::lastActiveTime>>                        lastActiveTime       {"last active time", "last active times", ByValueOnly};
Property<action, moment, Time<&ActionState::lastChangeTime>>                        lastChangeTime       {"last change time", "last change times", ByValueOnly};

Property<action, inspector_string, Status>                                          status               {"status", "statuss", ByValueOnly};
NamedProperty<action, inspector_string, ActionParameter>                            parameter            {"parameter", "parameters", ByValueOnly};
NamedGlobalProperty<inspector_string, CurrentActionParameter>                       currentParameter     {"parameter", "parameters", ByValueOnly};
IteratedProperty<header_iterator, action, praxel_header>                            headers              {"header", "headers", ByValueOnly};
IteratedPropertyByIndexOfObject<header_iterator, praxel_header, inspector_string, action, &header_iterator::FirstNamed, &header_iterator::NextNamed>
                                                                                    namedHeaders         {"header", "headers", ByValueOnly};
// clang-format on

}  // namespace
