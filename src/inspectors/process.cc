#include "inspectors/process.h"

#include <cstdlib>
#include <new>
#include <optional>

#include "evaluator/adapters.h"
#include "inspectors/environment.h"
#include "inspectors/privileges.h"
#include "inspectors/process_items.h"
#include "inspectors/process_walk.h"
#include "values/integer.h"
#include "values/string.h"

namespace {

struct CmdLineArgsTooLarge : InspectorDefinedError {
    CmdLineArgsTooLarge() noexcept : InspectorDefinedError("process command line arguments are too large") {}
};
struct CmdLineArgReadError : InspectorDefinedError {
    CmdLineArgReadError() noexcept : InspectorDefinedError("error reading process command line arguments") {}
};

std::vector<std::string> ReadArguments(std::string_view id) {
    try {
        std::vector<std::string> arguments;
        auto items = CmdLineArgReader::Open(id);
        while (items.HasMore()) {
            arguments.emplace_back(items.NextItem());
        }
        return arguments;
    } catch (const std::bad_alloc&) {
        throw CmdLineArgsTooLarge();
    } catch (const CmdLineArgReader::ReadError&) {
        throw CmdLineArgReadError();
    } catch (const CmdLineArgReader::OperationNotPermitted&) {
        throw InsufficientPrivileges();
    } catch (const CmdLineArgReader::NoSuchProcess&) {
        throw NoSuchObject();
    }
}

std::optional<process> ProcessByNumber(integer number) {
    const std::string id = std::to_string(number.Value());
    const std::optional<std::string> name = ExecutableName(ProcessWalk::kFolder, id, ProcessWalk::kLongest);
    return name ? std::optional<process>(std::in_place, *name, id) : std::nullopt;
}

class process_iterator {
public:
    void Start() { walk_.emplace(); }
    std::optional<process> Next() {
        return walk_->Next() ? std::optional<process>(std::in_place, walk_->Name(), walk_->Id()) : std::nullopt;
    }

    void StartNamed(const inspector_string&) { walk_.emplace(); }
    std::optional<process> NextNamed(const inspector_string& name) {
        while (walk_->Next()) {
            if (walk_->Name() == name.View()) {
                return std::optional<process>(std::in_place, walk_->Name(), walk_->Id());
            }
        }
        return std::nullopt;
    }

private:
    std::optional<ProcessWalk> walk_;
};

inspector_string Name(const process& p) { return CopiedString(p.Name()); }

integer Id(const process& p) { return std::strtol(p.Id().c_str(), nullptr, 10); }

class argument_iterator {
public:
    void Start(Of, const process& p) {
        all_ = &p.Arguments();
        next_ = 0;
    }
    bool Finished(Of, const process&) { return next_ == all_->size(); }
    inspector_string Next(Of, const process&) { return CopiedString((*all_)[next_++]); }

private:
    const std::vector<std::string>* all_ = nullptr;
    size_t next_ = 0;
};

std::optional<inspector_string> Argument(integer number, const process& p) {
    const std::vector<std::string>& all = p.Arguments();
    const auto place = static_cast<uint64_t>(number.Value());
    if (place == 0 || place > all.size()) {
        return std::nullopt;
    }
    return CopiedString(all[place - 1]);
}

environment EnvironmentOf(const process& p) { return environment(p.Id()); }

// clang-format off
Type<process>                                                       type;

NumberedGlobalProperty<process, ProcessByNumber>                    byNumber        {"process", "processes", ByValueOnly};
IteratedPropertyOfWorld<process_iterator, process, &process_iterator::Next, &process_iterator::Next,
                        &process_iterator::Start>                   processes       {"process", "processes", ByValueOnly};
IteratedPropertyByIndexOfWorld<process_iterator, process, inspector_string, &process_iterator::NextNamed,
                               &process_iterator::NextNamed, &process_iterator::StartNamed>
                                                                    byName          {"process", "processes", ByValueOnly};
Property<process, inspector_string, Name>                           name            {"name", "names"};
Property<process, integer, Id>                                      pid             {"pid", "pids"};
Property<process, integer, Id>                                      id              {"id", "ids"};
Property<process, integer, Id>                                      processId       {"process id", "process ids"};
IteratedPropertyOfObject<argument_iterator, inspector_string, process, &argument_iterator::Next, &argument_iterator::Next,
                         &argument_iterator::Start, &argument_iterator::Finished>
                                                                    arguments       {"command line argument", "command line arguments", ByValueOnly};
NumberedProperty<process, inspector_string, Argument>               argument        {"command line argument", "command line arguments", ByValueOnly};
Property<process, environment, EnvironmentOf>                       ofProcess       {"environment", "environments", ByValueOnly};
// clang-format on

}  // namespace

const std::vector<std::string>& process::Arguments() const {
    if (!filled_) {
        arguments_ = ReadArguments(id_);
        filled_ = true;
    }
    return arguments_;
}
