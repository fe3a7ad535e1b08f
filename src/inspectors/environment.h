// The variables of a process, as it was started with them.
#ifndef INSPECTORS_ENVIRONMENT_H
#define INSPECTORS_ENVIRONMENT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "registry/inspector_type_info.h"

struct EnvironmentEntry {
    std::string name;
    std::string value;
};

// An item "name=value" cut at its first "="; an item without one is a name with an empty value.
EnvironmentEntry ParseEnvironmentItem(std::string_view item);

// Read when its first variable is asked for, and kept from then on.
class environment {
public:
    explicit environment(std::string id) : id_(std::move(id)) {}

    // In the order of the process's own list.  Throws NoSuchObject for a process that has gone,
    // InsufficientPrivileges, ProcessEnvTooLarge, ProcessEnvReadError.
    const std::vector<EnvironmentEntry>& Variables() const;

private:
    std::string id_;
    mutable bool filled_ = false;
    mutable std::vector<EnvironmentEntry> variables_;
};

// The environment of the program that evaluates.
environment OwnEnvironment();

// The value of a variable of this program; none where it has no such variable.  Throws as environment does.
std::optional<std::string> OwnEnvironmentVariable(std::string_view variable);

// One of them; its texts lie in evaluation memory.
struct environment_variable {
    inspector_string name;
    inspector_string value;
};

template <>
struct InspectorTypeInfo<environment> : InspectorTypeBasics<environment, 0> {
    static constexpr char Name[] = "environment";
    static constexpr unsigned Size = sizeof(environment);
};

template <>
struct InspectorTypeInfo<environment_variable> : InspectorTypeBasics<environment_variable, 0> {
    static constexpr char Name[] = "environment variable";
    static constexpr unsigned Size = sizeof(environment_variable);
};

#endif
