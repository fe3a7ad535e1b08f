// The running agent, as the language has it.
#ifndef CLIENT_CLIENT_H
#define CLIENT_CLIENT_H

#include "inspectors/file.h"
#include "registry/dependency_node.h"

// The program of the agent.
class client : public application {
public:
    using application::application;
};

template <>
struct InspectorTypeInfo<client> : InspectorTypeBasics<client, 0> {
    static constexpr char Name[] = "client";
    static constexpr unsigned Size = sizeof(client);
    static constexpr const char* Parent = InspectorTypeInfo<application>::Name;
};

// A marker: what it has to say is asked of the host.
struct administrative_rights {};

template <>
struct InspectorTypeInfo<administrative_rights> : InspectorTypeBasics<administrative_rights, 0> {
    static constexpr char Name[] = "administrative rights";
    static constexpr unsigned Size = sizeof(administrative_rights);
};

// What depends on the number that the servers know this machine by.
extern DependencyNode ComputerIDDependencyNode;
void ComputerIDDependencyNodeFunction(Fingerprinter& fingerprinter);

#endif
