// Who is logged on, by the system's records.
#ifndef INSPECTORS_USER_H
#define INSPECTORS_USER_H

#include <cstdint>

#include "registry/inspector_type_info.h"

// A login name and the line of its terminal, in evaluation memory.
struct user {
    inspector_string name;
    inspector_string tty;
};

// A user at the console.  A negative id means that none is known.
struct logged_on_user {
    inspector_string name;
    int32_t processId;
};

template <>
struct InspectorTypeInfo<user> : InspectorTypeBasics<user, 0> {
    static constexpr char Name[] = "user";
    static constexpr unsigned Size = sizeof(user);
};

template <>
struct InspectorTypeInfo<logged_on_user> : InspectorTypeBasics<logged_on_user, 0> {
    static constexpr char Name[] = "logged on user";
    static constexpr unsigned Size = sizeof(logged_on_user);
};

#endif
