// A running program.
#ifndef INSPECTORS_PROCESS_H
#define INSPECTORS_PROCESS_H

#include <string>
#include <string_view>
#include <vector>

#include "registry/inspector_type_info.h"

// Holds the name of the executable and the number as text; the command line is read when it is first asked for, and
// kept from then on.
class process {
public:
    process(std::string_view name, std::string_view id) : name_(name), id_(id) {}

    const std::string& Name() const { return name_; }
    const std::string& Id() const { return id_; }

    // Throws NoSuchObject for a process that has gone, InsufficientPrivileges, CmdLineArgsTooLarge,
    // CmdLineArgReadError.
    const std::vector<std::string>& Arguments() const;

private:
    std::string name_;
    std::string id_;
    mutable bool filled_ = false;
    mutable std::vector<std::string> arguments_;
};

template <>
struct InspectorTypeInfo<process> : InspectorTypeBasics<process, 0> {
    static constexpr char Name[] = "process";
    static constexpr unsigned Size = sizeof(process);
};

#endif
