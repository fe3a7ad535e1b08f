#include "inspectors/user.h"

#include <optional>
#include <vector>

#include "evaluator/adapters.h"
#include "inspectors/session_info.h"
#include "inspectors/utmp_records.h"
#include "values/integer.h"
#include "values/string.h"

namespace {

user Made(const utmp& record) {
    return {CopiedString(UtmpText(record.ut_user)), CopiedString(UtmpText(record.ut_line))};
}

// The records of the moment at which the iteration began.
class user_iterator {
public:
    void Start() { Begin(); }
    std::optional<user> Next() {
        return NextWhere([](const utmp&) { return true; });
    }

    void StartNamed(const inspector_string&) { Begin(); }
    std::optional<user> NextNamed(const inspector_string& name) {
        return NextWhere([&](const utmp& record) { return UtmpText(record.ut_user) == name.View(); });
    }
    std::optional<user> NextLocal(const inspector_string& name) {
        return NextWhere([&](const utmp& record) {
            return UtmpText(record.ut_host).empty() && UtmpText(record.ut_user) == name.View();
        });
    }

private:
    void Begin() {
        records_ = ReadUtmp();
        cursor_ = 0;
    }

    template <class Test>
    std::optional<user> NextWhere(const Test& test) {
        while (cursor_ < records_.size()) {
            const utmp& record = records_[cursor_++];
            if (record.ut_type == USER_PROCESS && test(record)) {
                return Made(record);
            }
        }
        return std::nullopt;
    }

    UtmpRecords records_;
    size_t cursor_ = 0;
};

inspector_string Name(const user& u) { return u.name; }
inspector_string Tty(const user& u) { return u.tty; }

logged_on_user Made(const SessionInfo& session) { return {CopiedString(session.name), session.processId}; }

class logged_on_user_iterator {
public:
    void Start() {
        SessionInfo::msInitialized = true;
        SessionInfo::Update();
        sessions_ = SessionInfo::msSessionList;
        cursor_ = 0;
    }
    bool Finished() { return cursor_ == sessions_.size(); }
    logged_on_user Next() { return Made(sessions_[cursor_++]); }

private:
    std::vector<SessionInfo> sessions_;
    size_t cursor_ = 0;
};

std::optional<logged_on_user> CurrentUser() {
    const std::optional<SessionInfo> session = CurrentSession();
    return session ? std::optional(Made(*session)) : std::nullopt;
}

// Kept as they stand: neither looks at its object.
boolean Active(const logged_on_user&) { return true; }
boolean Remote(const logged_on_user&) { return false; }

std::optional<user> UserOf(const logged_on_user& session) {
    for (const utmp& record : ReadUtmp()) {
        if (record.ut_type == USER_PROCESS && UtmpText(record.ut_user) == session.name.View()) {
            return Made(record);
        }
    }
    return std::nullopt;
}

std::optional<integer> ProcessId(const logged_on_user& session) {
    return session.processId < 0 ? std::nullopt : std::optional<integer>(session.processId);
}

inspector_string SessionName(const logged_on_user& session) { return session.name; }

std::optional<inspector_string> SessionTty(const logged_on_user& session) {
    const std::optional<user> at = UserOf(session);
    return at ? std::optional<inspector_string>(at->tty) : std::nullopt;
}

template <auto Next>
using NamedUsers =
    IteratedPropertyByIndexOfWorld<user_iterator, user, inspector_string, Next, Next, &user_iterator::StartNamed>;

// clang-format off
Type<user>                                                          type;
Type<logged_on_user>                                                loggedOnType;

IteratedPropertyOfWorld<user_iterator, user, &user_iterator::Next, &user_iterator::Next, &user_iterator::Start>
                                                                    users         {"user", "users", ByValueOnly};
NamedUsers<&user_iterator::NextNamed>                               named         {"user", "users", ByValueOnly};
NamedUsers<&user_iterator::NextLocal>                               local         {"local user", "local users", ByValueOnly};
Property<user, inspector_string, Name>                              name          {"name", "names"};
Property<user, inspector_string, Tty>                               tty           {"tty", "ttys"};

IteratedPropertyOfWorld<logged_on_user_iterator, logged_on_user, &logged_on_user_iterator::Next, &logged_on_user_iterator::Next,
                        &logged_on_user_iterator::Start, &logged_on_user_iterator::Finished>
                                                                    loggedOn      {"logged on user", "logged on users", ByValueOnly};
GlobalProperty<logged_on_user, CurrentUser>                         current       {"current user", "current users", ByValueOnly};
Property<logged_on_user, boolean, Active>                           active        {"active", "actives"};
Property<logged_on_user, boolean, Remote>                           remote        {"remote", "remotes"};
Property<logged_on_user, user, UserOf>                              ofSession     {"user", "users", ByValueOnly};
Property<logged_on_user, integer, ProcessId>                        processId     {"process id", "process ids"};
Property<logged_on_user, inspector_string, SessionName>             sessionName   {"name", "names"};
Property<logged_on_user, inspector_string, SessionTty>              sessionTty    {"tty", "ttys", ByValueOnly};
// clang-format on

}  // namespace
