// The programs that run, and those that the host's table of processes has seen, as applications.
//
// A program whose file is gone is passed over: there is nothing left to look at.
#include <optional>
#include <string>
#include <string_view>

#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/inspector_process_table_context.h"
#include "inspectors/file.h"

namespace {

template <bool RunningOnly>
class application_iterator {
public:
    void Start() {
        pathOf_ = HostFunction<&InspectorProcessTableContext::processName, InspectorProcessTableContextError>();
        if constexpr (RunningOnly) {
            isActive_ = HostFunction<&InspectorProcessTableContext::processActive, InspectorProcessTableContextError>();
        }
        index_ = 0;
    }
    std::optional<application> Next() { return Found(nullptr); }

    void StartNamed(const inspector_string&) { Start(); }
    std::optional<application> NextNamed(const inspector_string& name) { return Found(&name); }

private:
    std::optional<application> Found(const inspector_string* name) {
        for (; pathOf_(index_, path_); ++index_) {
            if ((RunningOnly && !isActive_(index_)) || (name != nullptr && ApplicationName(path_) != name->View())) {
                continue;
            }
            if (std::optional<application> found = At<application>(FileLocation(path_))) {
                ++index_;
                return found;
            }
        }
        return std::nullopt;
    }

    decltype(InspectorProcessTableContext::processName) pathOf_ = nullptr;
    decltype(InspectorProcessTableContext::processActive) isActive_ = nullptr;
    size_t index_ = 0;
    std::string path_;
};

using running_iterator = application_iterator<true>;
using recent_iterator = application_iterator<false>;

template <class Iterator>
using Applications = IteratedPropertyOfWorld<Iterator, application, &Iterator::Next, &Iterator::Next, &Iterator::Start>;
template <class Iterator>
using NamedApplications = IteratedPropertyByIndexOfWorld<Iterator, application, inspector_string, &Iterator::NextNamed,
                                                         &Iterator::NextNamed, &Iterator::StartNamed>;

// clang-format off
Applications<running_iterator>          running         {"running application", "running applications", ByValueOnly};
NamedApplications<running_iterator>     runningNamed    {"running application", "running applications", ByValueOnly};
Applications<recent_iterator>           recent          {"recent application", "recent applications", ByValueOnly};
NamedApplications<recent_iterator>      recentNamed     {"recent application", "recent applications", ByValueOnly};
// clang-format on

}  // namespace
