// utmp: boot times, run levels, users and the user at the console, from crafted records.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <utmp.h>

#include <cstring>

#include "inspectors/session_info.h"
#include "inspectors/user.h"
#include "inspectors/utmp_records.h"
#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"

namespace {

utmp Record(short type, const std::string& name, const std::string& line, const std::string& host = "", pid_t id = 1,
            int seconds = 0) {
    utmp record{};
    record.ut_type = type;
    std::strncpy(record.ut_user, name.c_str(), sizeof record.ut_user);
    std::strncpy(record.ut_line, line.c_str(), sizeof record.ut_line);
    std::strncpy(record.ut_host, host.c_str(), sizeof record.ut_host);
    record.ut_pid = id;
    record.ut_tv.tv_sec = seconds;
    return record;
}

// The system's file is another one for the time of a test.
class Utmp {
public:
    explicit Utmp(const UtmpRecords& records) {
        std::string bytes;
        for (const utmp& record : records) {
            bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
        }
        place_.File("utmp", bytes);
        path_ = place_.Path("utmp");
        previous_ = present_;
        Use(path_);
    }
    ~Utmp() { Use(previous_); }

private:
    static void Use(const std::string& path) {
        present_ = path;
        utmpname(path.c_str());
    }

    static inline std::string present_ = _PATH_UTMP;
    TemporaryPlace place_;
    std::string path_;
    std::string previous_;
};

TEST(BootSeconds, AreThoseOfTheBootRecord) {
    const UtmpRecords records = {Record(USER_PROCESS, "a", "x", "", 1, 50),
                                 Record(BOOT_TIME, "reboot", "~", "", 0, 100),
                                 Record(BOOT_TIME, "reboot", "~", "", 0, 70)};
    EXPECT_EQ(BootSeconds(records, 1000), 100);
}

TEST(BootSeconds, AreTheOldestWithoutABootRecord) {
    const UtmpRecords records = {Record(USER_PROCESS, "a", "x", "", 1, 90), Record(DEAD_PROCESS, "", "x", "", 1, 0),
                                 Record(USER_PROCESS, "b", "y", "", 1, 40), Record(USER_PROCESS, "b", "y", "", 1, 60)};
    EXPECT_EQ(BootSeconds(records, 1000), 40);
    EXPECT_EQ(BootSeconds(records, 40), 0);
    EXPECT_EQ(BootSeconds({}, 1000), 0);
}

TEST(BootTime, IsTheEpochWithoutRecords) {
    const Utmp none({});
    EXPECT_EQ(Ask("boot time of operating system = \"01 Jan 1970 00:00:00 +0000\" as time"), Values({"True"}));
}

TEST(BootTime, AndUptimeMakeTheTimeNow) {
    const Utmp booted({Record(BOOT_TIME, "reboot", "~", "", 0, 1000000000)});
    EXPECT_EQ(Ask("boot time of operating system = \"09 Sep 2001 01:46:40 +0000\" as time"), Values({"True"}));
    EXPECT_EQ(Ask("exists (boot times of operating systems) whose (it = \"09 Sep 2001 01:46:40 +0000\" as time)"),
              Values({"True"}));
    EXPECT_EQ(Ask("(it > 365 * day) of uptimes of operating systems"), Values({"True"}));
    EXPECT_EQ(Ask("absolute value of (now - boot time of it - uptime of it) of operating system < 10 * second"),
              Values({"True"}));
}

TEST(RunLevel, IsInItsRecordsId) {
    const Utmp present(
        {Record(BOOT_TIME, "reboot", "~"), Record(RUN_LVL, "runlevel", "~", "", 'N' * 256 + '5', 86400)});
    EXPECT_EQ(Ask("value of runlevel"), Values({"5"}));
    EXPECT_EQ(Ask("previous value of runlevel"), Values({"N"}));
    EXPECT_EQ(Ask("effective time of runlevel = \"02 Jan 1970 00:00:00 +0000\" as time"), Values({"True"}));
    EXPECT_EQ(Ask("values of runlevels; previous values of runlevels"), Values({"5", "N"}));
    EXPECT_EQ(Ask("exists effective times of runlevels"), Values({"True"}));
}

TEST(RunLevel, HasNoValueWithoutARecord) {
    const Utmp none({Record(USER_PROCESS, "a", "x")});
    EXPECT_EQ(Ask("exists runlevel"), Values({"False"}));
}

TEST(Users, AreTheUserProcesses) {
    const Utmp records({Record(BOOT_TIME, "reboot", "~"), Record(RUN_LVL, "runlevel", "~"), Record(EMPTY, "e", "l"),
                        Record(INIT_PROCESS, "init", "l"), Record(LOGIN_PROCESS, "LOGIN", "tty2"),
                        Record(USER_PROCESS, "anna", "pts/0", "10.0.0.1"), Record(DEAD_PROCESS, "gone", "pts/1"),
                        Record(USER_PROCESS, "bert", "tty1"), Record(USER_PROCESS, "anna", "tty3"),
                        Record(NEW_TIME, "t", "l"), Record(OLD_TIME, "t", "l"), Record(ACCOUNTING, "t", "l")});
    EXPECT_EQ(Ask("names of users"), Values({"anna", "bert", "anna"}));
    EXPECT_EQ(Ask("ttys of users"), Values({"pts/0", "tty1", "tty3"}));
    EXPECT_EQ(Ask("ttys of users \"anna\""), Values({"pts/0", "tty3"}));
    EXPECT_EQ(Ask("tty of user \"bert\""), Values({"tty1"}));
    EXPECT_EQ(Ask("name of user \"bert\""), Values({"bert"}));
    EXPECT_EQ(Ask("exists user \"Anna\""), Values({"False"}));
    EXPECT_EQ(Ask("exists user \"gone\""), Values({"False"}));
    EXPECT_EQ(Ask("ttys of local users \"anna\""), Values({"tty3"}));
    EXPECT_EQ(Ask("tty of local user \"bert\""), Values({"tty1"}));
    EXPECT_EQ(Ask("exists local user \"gone\""), Values({"False"}));
    EXPECT_EQ(Ask("name of user"), (Answer{{"anna"}, "ArgumentNotUnique"}));
    EXPECT_EQ(Ask("tty of user \"gone\""), DoesNotExist());
    EXPECT_EQ(Ask("ttys of users \"gone\""), Nothing());
}

TEST(Users, HaveFieldsOfFixedWidth) {
    const std::string widest(UT_NAMESIZE, 'n');
    const Utmp records({Record(USER_PROCESS, widest, std::string(UT_LINESIZE, 'l'), std::string(UT_HOSTSIZE, 'h'))});
    EXPECT_EQ(Ask("name of user"), Values({widest}));
    EXPECT_EQ(Ask("tty of user"), Values({std::string(UT_LINESIZE, 'l')}));
}

TEST(Users, AreNobodyWithoutRecords) {
    const Utmp none({});
    EXPECT_EQ(Ask("number of users"), Values({"0"}));
    utmpname("/no/such/file");
    EXPECT_EQ(Ask("number of users"), Values({"0"}));
}

// A machine with or without a display, and homes with or without its key.
class ConsoleMachine {
public:
    ConsoleMachine() {
        place.Folder("sockets");
        place.Folder("homes/empty");
        place.File("homes/empty/.Xauthority");
        place.File("sockets/X1");
    }
    void Display() const { place.File("sockets/X0"); }
    void Home(const std::string& name, const std::string& key = "key") const {
        place.Folder("homes/" + name);
        place.File("homes/" + name + "/.Xauthority", key);
    }
    std::string Found(const UtmpRecords& records, const std::string& behindHome = "") const {
        const ConsolePlaces places = {place.Location("sockets"),
                                      [&](const std::string& name) -> std::optional<std::string> {
                                          if (name == "homeless") {
                                              return std::nullopt;
                                          }
                                          return place.Path("homes/" + name) + behindHome;
                                      }};
        const std::optional<ConsoleUser> found = FindConsoleUser(places, records);
        return found ? found->name + "|" + found->line + "|" + std::to_string(found->processId) : "nobody";
    }
    TemporaryPlace place;
};

TEST(ConsoleUser, NeedsTheFirstDisplay) {
    const ConsoleMachine machine;
    const UtmpRecords records = {Record(USER_PROCESS, "anna", ":0", "", 17)};
    EXPECT_EQ(machine.Found(records), "nobody");
    machine.Display();
    EXPECT_EQ(machine.Found(records), "anna|:0|17");
    const ConsoleMachine other;
    other.place.File("sockets/X01");
    EXPECT_EQ(other.Found(records), "anna|:0|17") << "a name that begins with X0";
}

TEST(ConsoleUser, IsOnTheDisplayOrOnTheConsole) {
    const ConsoleMachine machine;
    machine.Display();
    EXPECT_EQ(machine.Found({Record(DEAD_PROCESS, "x", ":0"), Record(USER_PROCESS, "a", "tty7", ":0", 3)}), "a|tty7|3");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "a", "console", "", 4)}), "a|console|4");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "a", ":0.0")}), "nobody");
}

TEST(ConsoleUser, IsOnTheFirstTerminalWithAKeyAtHome) {
    const ConsoleMachine machine;
    machine.Display();
    machine.Home("anna");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "anna", "tty1", "", 5)}), "anna|tty1|5");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "anna", "tty1", "", 5)}, "/"), "anna|tty1|5");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "anna", "tty1", "far")}), "nobody");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "anna", "tty2")}), "nobody");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "empty", "tty1")}), "nobody");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "homeless", "tty1")}), "nobody");
    EXPECT_EQ(machine.Found({Record(USER_PROCESS, "anna", "tty1"), Record(USER_PROCESS, "b", ":0", "", 6)}), "b|:0|6");
}

// Of a host that refreshes the console; the console itself never does.
TEST(LoggedOnUsers, AreTheUserThatARefreshFound) {
    EXPECT_EQ(Ask("number of logged on users"), Values({"0"}));
    const ConsoleMachine machine;
    machine.Display();
    const Utmp records({Record(USER_PROCESS, "anna", ":0", "far", 17)});
    const ConsolePlaces places = {machine.place.Location("sockets"), [](const std::string&) { return std::nullopt; }};
    EXPECT_EQ(Ask("number of logged on users"), Values({"0"}));
    RefreshConsole(places);
    EXPECT_EQ(Ask("names of logged on users"), Values({"anna"}));
    EXPECT_EQ(Ask("name of logged on user"), Values({"anna"}));
    EXPECT_EQ(Ask("process id of logged on user; process ids of logged on users"), Values({"17", "17"}));
    EXPECT_EQ(Ask("active of logged on user; actives of logged on users"), Values({"True", "True"}));
    EXPECT_EQ(Ask("remote of logged on user; remotes of logged on users"), Values({"False", "False"}));
    EXPECT_EQ(Ask("tty of logged on user; ttys of logged on users"), Values({":0", ":0"}));
    EXPECT_EQ(Ask("name of user of logged on user; names of users of logged on users"), Values({"anna", "anna"}));
    {
        const Utmp gone({});
        EXPECT_EQ(Ask("exists user of logged on user"), Values({"False"}));
        EXPECT_EQ(Ask("exists tty of logged on user"), Values({"False"}));
        EXPECT_EQ(Ask("name of logged on user"), Values({"anna"}));
        RefreshConsole(places);
    }
    EXPECT_EQ(Ask("number of logged on users"), Values({"0"}));
}

TEST(LoggedOnUsers, WithoutAKnownIdHaveNone) {
    const ConsoleMachine machine;
    machine.Display();
    const Utmp records({Record(USER_PROCESS, "anna", ":0", "", -1)});
    const ConsolePlaces places = {machine.place.Location("sockets"), [](const std::string&) { return std::nullopt; }};
    // A list with the same ids stays as it is, so the console is empty first.
    {
        const Utmp none({});
        RefreshConsole(places);
        EXPECT_EQ(Ask("number of logged on users"), Values({"0"}));
    }
    RefreshConsole(places);
    EXPECT_EQ(Ask("exists process id of logged on user"), Values({"False"}));
    const Utmp none({});
    RefreshConsole(places);
    EXPECT_EQ(Ask("number of logged on users"), Values({"0"}));
}

// The list is compared by its ids: with the same id an entry keeps the name that it had.
TEST(LoggedOnUsers, KeepTheirNamesWhileTheirIdsStay) {
    const ConsoleMachine machine;
    machine.Display();
    const ConsolePlaces places = {machine.place.Location("sockets"), [](const std::string&) { return std::nullopt; }};
    const auto afterRefresh = [&](const UtmpRecords& records) {
        const Utmp present(records);
        RefreshConsole(places);
        return Ask("(name of it & \" \" & process id of it as string) of logged on users");
    };
    EXPECT_EQ(afterRefresh({Record(USER_PROCESS, "anna", ":0", "", 17)}), Values({"anna 17"}));
    EXPECT_TRUE(SessionInfo::msInitialized);
    EXPECT_EQ(afterRefresh({Record(USER_PROCESS, "bert", ":0", "", 17)}), Values({"anna 17"}));
    EXPECT_EQ(afterRefresh({Record(USER_PROCESS, "bert", ":0", "", 18)}), Values({"bert 18"}));
    EXPECT_EQ(afterRefresh({Record(USER_PROCESS, "", ":0", "", 19)}), Nothing()) << "a user without a name is none";
    EXPECT_EQ(afterRefresh({}), Nothing());
}

TEST(CurrentSession, IsThatOfTheUserAtTheConsoleNow) {
    const ConsoleMachine machine;
    const ConsolePlaces places = {machine.place.Location("sockets"), [](const std::string&) { return std::nullopt; }};
    const auto current = [&] {
        const std::optional<SessionInfo> session = CurrentSession(places);
        return session ? session->name + " " + std::to_string(session->processId) : "none";
    };
    const Utmp anna({Record(USER_PROCESS, "anna", ":0", "", 17)});
    EXPECT_EQ(current(), "none") << "there is no display";
    machine.Display();
    EXPECT_EQ(current(), "none") << "nothing has been refreshed";
    RefreshConsole(places);
    EXPECT_EQ(current(), "anna 17");
    {
        const Utmp bert({Record(USER_PROCESS, "bert", ":0", "", 17)});
        EXPECT_EQ(current(), "none") << "the list has somebody else";
    }
    {
        const Utmp later({Record(USER_PROCESS, "anna", "console", "", 99)});
        EXPECT_EQ(current(), "anna 17") << "the entry's own id";
    }
    const Utmp none({});
    EXPECT_EQ(current(), "none");
    RefreshConsole(places);
}

TEST(CurrentUser, HasNoValueWhereNothingIsRefreshed) {
    EXPECT_EQ(Ask("exists current user"), Values({"False"}));
    EXPECT_EQ(Ask("number of current users"), Values({"0"}));
}

}  // namespace
