#include "inspectors/environment.h"

#include <unistd.h>

#include <algorithm>
#include <new>

#include "evaluator/adapters.h"
#include "inspectors/privileges.h"
#include "inspectors/process_items.h"
#include "values/string.h"

namespace {

struct ProcessEnvTooLarge : InspectorDefinedError {
    ProcessEnvTooLarge() noexcept : InspectorDefinedError("process environment is too large") {}
};
struct ProcessEnvReadError : InspectorDefinedError {
    ProcessEnvReadError() noexcept : InspectorDefinedError("error reading process environment variables") {}
};

std::vector<EnvironmentEntry> ReadVariables(std::string_view id) {
    try {
        std::vector<EnvironmentEntry> variables;
        auto items = OtherProcessEnvReader::Open(id);
        while (items.HasMore()) {
            variables.push_back(ParseEnvironmentItem(items.NextItem()));
        }
        return variables;
    } catch (const std::bad_alloc&) {
        throw ProcessEnvTooLarge();
    } catch (const OtherProcessEnvReader::ReadError&) {
        throw ProcessEnvReadError();
    } catch (const OtherProcessEnvReader::OperationNotPermitted&) {
        throw InsufficientPrivileges();
    } catch (const OtherProcessEnvReader::NoSuchProcess&) {
        throw NoSuchObject();
    }
}

environment_variable Copied(const EnvironmentEntry& entry) {
    return {CopiedString(entry.name), CopiedString(entry.value)};
}

class variable_iterator {
public:
    void Start(Of, const environment& variables) {
        all_ = &variables.Variables();
        next_ = 0;
    }
    bool Finished(Of, const environment&) { return next_ == all_->size(); }
    environment_variable Next(Of, const environment&) { return Copied((*all_)[next_++]); }

private:
    const std::vector<EnvironmentEntry>* all_ = nullptr;
    size_t next_ = 0;
};

const EnvironmentEntry* Find(std::string_view name, const std::vector<EnvironmentEntry>& variables) {
    const auto found =
        std::find_if(variables.begin(), variables.end(), [&](const auto& entry) { return entry.name == name; });
    return found == variables.end() ? nullptr : &*found;
}

std::optional<environment_variable> VariableByName(const inspector_string& name, const environment& variables) {
    const EnvironmentEntry* entry = Find(name.View(), variables.Variables());
    return entry == nullptr ? std::nullopt : std::optional<environment_variable>(Copied(*entry));
}

inspector_string Name(const environment_variable& variable) { return variable.name; }
inspector_string Value(const environment_variable& variable) { return variable.value; }

inspector_string AsString(const environment_variable& variable) {
    constexpr std::string_view kBetween = " = ";
    const size_t length = variable.name.length + kBetween.size() + variable.value.length;
    char* const text = static_cast<char*>(InspectorAllocate(length));
    char* out = text;
    for (std::string_view piece : {variable.name.View(), kBetween, variable.value.View()}) {
        out += piece.copy(out, piece.size());
    }
    return {text, length};
}

// clang-format off
Type<environment>                                                   type;
Type<environment_variable>                                          variableType;

GlobalProperty<environment, OwnEnvironment>                         own       {"environment", "environments", ByValueOnly};
IteratedPropertyOfObject<variable_iterator, environment_variable, environment, &variable_iterator::Next, &variable_iterator::Next,
                         &variable_iterator::Start, &variable_iterator::Finished>
                                                                    variables {"variable", "variables", ByValueOnly};
NamedProperty<environment, environment_variable, VariableByName>    byName    {"variable", "variables", ByValueOnly};
Property<environment_variable, inspector_string, Name>              name      {"name", "names"};
Property<environment_variable, inspector_string, Value>             value     {"value", "values"};

Cast<inspector_string, environment_variable, AsString>              toString  {"string"};
// clang-format on

}  // namespace

EnvironmentEntry ParseEnvironmentItem(std::string_view item) {
    const size_t cut = item.find('=');
    if (cut == std::string_view::npos) {
        return {std::string(item), {}};
    }
    return {std::string(item.substr(0, cut)), std::string(item.substr(cut + 1))};
}

const std::vector<EnvironmentEntry>& environment::Variables() const {
    if (!filled_) {
        variables_ = ReadVariables(id_);
        filled_ = true;
    }
    return variables_;
}

environment OwnEnvironment() { return environment(std::to_string(getpid())); }

std::optional<std::string> OwnEnvironmentVariable(std::string_view variable) {
    const environment mine = OwnEnvironment();
    const EnvironmentEntry* entry = Find(variable, mine.Variables());
    return entry == nullptr ? std::nullopt : std::optional<std::string>(entry->value);
}
