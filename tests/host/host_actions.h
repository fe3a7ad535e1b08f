// The actions of a host.
#ifndef TESTS_HOST_HOST_ACTIONS_H
#define TESTS_HOST_HOST_ACTIONS_H

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "evaluator/inspector_action_context.h"
#include "tests/host/current_host.h"
#include "tests/host/host_praxels.h"

struct ActionRecord {
    ActionState state;
    const SiteMap* relevantOfferOf = nullptr;
    std::map<std::string, std::string, std::less<>> parameters;
    std::vector<PraxelHeader> headers;
    bool gone = false;
};

struct HostActions : InspectorActionContext {
    std::deque<ActionRecord> actions;
    const ActionRecord* current = nullptr;
    const ActionRecord* running = nullptr;
    bool actionsAreBusy = false;

    HostActions() {
        isBusy = []() { return CurrentHost<HostActions>().actionsAreBusy; };
        currentAction = []() { return CurrentHost<HostActions>().current; };
        activeAction = []() { return CurrentHost<HostActions>().running; };
        actionById = [](uint32_t id) -> const ActionRecord* {
            for (const ActionRecord& action : CurrentHost<HostActions>().actions) {
                if (action.state.id == id) {
                    return &action;
                }
            }
            return nullptr;
        };
        nextRelevantOffer = [](const SiteMap& site, size_t& cursor) -> const ActionRecord* {
            const std::deque<ActionRecord>& all = CurrentHost<HostActions>().actions;
            while (cursor < all.size()) {
                const ActionRecord& action = all[cursor++];
                if (action.relevantOfferOf == &site) {
                    return &action;
                }
            }
            return nullptr;
        };
        state = [](const ActionRecord& action) { return action.gone ? nullptr : &action.state; };
        parameter = &Parameter;
        currentParameter = [](std::string_view name) {
            const ActionRecord* const action = CurrentHost<HostActions>().current;
            return action != nullptr ? Parameter(*action, name) : std::nullopt;
        };
        nextHeader = [](const ActionRecord& action, size_t& cursor, PraxelHeader& header) {
            return NextOf(action.headers, cursor, header);
        };
    }

    ActionRecord& Action(size_t n) { return actions.at(n); }

private:
    static std::optional<std::string_view> Parameter(const ActionRecord& action, std::string_view name) {
        const auto found = action.parameters.find(name);
        return found != action.parameters.end() ? std::optional<std::string_view>(found->second) : std::nullopt;
    }
};

#endif
