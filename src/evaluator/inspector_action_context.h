// What inspectors ask about the actions that their host runs.
#ifndef EVALUATOR_INSPECTOR_ACTION_CONTEXT_H
#define EVALUATOR_INSPECTOR_ACTION_CONTEXT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "evaluator/inspector_praxel_context.h"

class FileLocation;

// The host's record of an action, which only the host can read.
struct ActionRecord;

// Where an action comes from, as far as its downloads depend on it.  What it points at is the host's and lives for the
// evaluation at least.
struct ActionOrigin {
    int64_t actionId = 0;
    bool isOfMainSite = false;
    std::string_view siteName;
    const FileLocation* clientFolder = nullptr;  // the site's folder on this machine
};

// What a host tells of one action.  Numbers and times that it has not stored are absent; times are microseconds since
// the start of 1970 in universal time.
struct ActionState {
    int64_t id = 0;
    std::optional<int64_t> originPraxelId;

    std::optional<int64_t> constraint;  // says something only while `constrained` is set
    std::optional<int64_t> systemConstraint;
    std::optional<int64_t> firstActiveCount;
    std::optional<int64_t> activeCount;
    std::optional<int64_t> activeLineNumber;
    std::optional<int64_t> lastActiveLineNumber;
    std::optional<int32_t> exitCode;

    bool constrained = false;
    bool pending = false;
    bool waitingForDownload = false;
    bool active = false;
    bool pendingRestart = false;
    bool pendingLogin = false;
    bool groupLeader = false;
    bool offer = false;
    bool offerAccepted = false;
    bool persistentConstraint = false;
    bool ranToItsEnd = false;
    bool endedInFailure = false;

    std::optional<int64_t> pendingTime;
    std::optional<int64_t> completeTime;
    std::optional<int64_t> activeStartTime;
    std::optional<int64_t> lastActiveTime;
    std::optional<int64_t> lastChangeTime;
};

// Records and texts are the host's and live for the evaluation at least.  A cursor starts at 0, is moved on by the host
// and means nothing to who holds it.
class InspectorActionContext {
public:
    virtual ~InspectorActionContext() = default;

    // Whether the host is rewriting its actions, so that none can be looked at now.  A host without this entry never
    // is.
    bool (*isBusy)() = nullptr;

    // The action that what is evaluated belongs to, the one that is being carried out, and the one with a number; null
    // where there is none.
    const ActionRecord* (*currentAction)() = nullptr;
    const ActionRecord* (*activeAction)() = nullptr;
    const ActionRecord* (*actionById)(uint32_t id) = nullptr;

    // The next relevant offer of a site, null at the end.
    const ActionRecord* (*nextRelevantOffer)(const SiteMap& site, size_t& cursor) = nullptr;

    // The state of an action as it is now, good until the host changes it; null for an action that has gone.
    const ActionState* (*state)(const ActionRecord& action) = nullptr;

    // The parameter of this name, of an action and of the current one.
    std::optional<std::string_view> (*parameter)(const ActionRecord& action, std::string_view name) = nullptr;
    std::optional<std::string_view> (*currentParameter)(std::string_view name) = nullptr;

    // The next header, false at the end.
    bool (*nextHeader)(const ActionRecord& action, size_t& cursor, PraxelHeader& header) = nullptr;

    // None while no action runs.
    std::optional<ActionOrigin> (*currentActionOrigin)() = nullptr;
};

#endif
