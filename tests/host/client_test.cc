// The agent itself, its settings, its lock and the restarts that it waits for, as a host has them.
#include "client/client.h"

#include "client/action_lock_state.h"
#include "tests/foundation/temporary_place.h"
#include "tests/host/embedding_host.h"
#include "tests/host/phrases.h"

namespace {

class ClientTest : public testing::Test {
protected:
    ClientTest() { host.program = place.File("agent", "12345"); }

    Answer Asked(std::string_view question) { return Ask(question, &host); }
    void Lock(const std::string& text) { host.ofAgent.subsections["Client"] = {{"__LockState", text, {}, {}}}; }

    TemporaryPlace place;
    EmbeddingHost host;
};

const std::string kOfClient = " of client";

TEST_F(ClientTest, IsItsProgramAsAnApplication) {
    ExpectValue(host, {"client", "clients", "", place.Path("agent")});
    ExpectValue(host, {"name", "names", kOfClient, "agent"});
    ExpectValue(host, {"size", "sizes", kOfClient, "5"});
    EXPECT_EQ(Asked("name of parent of type \"client\""), Values({"application"}));
    host.program = place.Location("nothing");
    ExpectNone(host, {"client", "clients", "", ""});
}

TEST_F(ClientTest, RegistrationInEachSpelling) {
    const std::vector<Phrase> phrases = {
        {"registration address", "registration addresses", kOfClient, "10.1.2.3"},
        {"registration subnet address", "registration subnet addresses", kOfClient, "fe80:0:0:0:0:0:0:1"},
        {"registration cidr address", "registration cidr addresses", kOfClient, "10.1.0.0/16"},
        {"registration mac address", "registration mac addresses", kOfClient, "00-11-22-33-44-55"},
    };
    for (const Phrase& phrase : phrases) {
        ExpectNone(host, phrase);
    }
    host.registered = RegisteredAddresses{};
    for (const Phrase& phrase : phrases) {
        ExpectNone(host, phrase);
    }
    host.registered = {"10.1.2.3", "fe80::1", "10.1.0.0/16", "00-11-22-33-44-55"};
    for (const Phrase& phrase : phrases) {
        if (phrase.value != "fe80:0:0:0:0:0:0:1") {
            ExpectValue(host, phrase);
        }
    }
    EXPECT_EQ(Asked("registration subnet address of client = \"fe80::1\" as ipv4or6 address"), Values({"True"}));
    EXPECT_EQ(Asked("number of registration subnet addresses of client"), Values({"1"}));
    host.registered->address = "junk";
    ExpectNone(host, phrases[0]);
}

TEST_F(ClientTest, BuildCommandsAndRights) {
    ExpectValue(host, {"brand", "brands", kOfClient, "Ostrel"});
    ExpectValue(host, {"build target", "build targets", kOfClient, ""});
    ExpectNone(host, {"last command time", "last command times", kOfClient, ""});
    host.commandTime = 7'000'000;
    EXPECT_EQ(Asked("last command time of client as universal string"), Values({"Thu, 01 Jan 1970 00:00:07 +0000"}));
    EXPECT_EQ(Asked("last command times of client as universal string"), Values({"Thu, 01 Jan 1970 00:00:07 +0000"}));
    const Phrase enabled = {"enabled of administrative rights", "enableds of administrative rightss", kOfClient,
                            "True"};
    ExpectNone(host, enabled);
    host.rights = true;
    ExpectValue(host, enabled);
    EXPECT_EQ(Asked("administrative rights of client"), Fails("OperationNotDefined"));
}

TEST_F(ClientTest, SettingsOfTheAgent) {
    host.ofAgent.subsections["Client"] = {{"Alpha", "one", "Tue, 09 Mar 1999 10:11:12 +0000", {}},
                                          {"beta", {}, "Tue, 09 Mar 1999 10:11:12", "0"},
                                          {"gamma", "", {}, "1"}};
    host.ofAgent.subsections["Administrators"] = {{"bob", "1", {}, {}}};
    EXPECT_EQ(Asked("settings of client"), Values({"Alpha=one", "beta=", "gamma="}));
    EXPECT_EQ(Asked("names of settings of client"), Values({"Alpha", "beta", "gamma"}));
    EXPECT_EQ(Asked("values of settings of client"), Values({"one", ""}));
    EXPECT_EQ(Asked("enableds of settings of client"), Values({"True", "False", "True"}));
    EXPECT_EQ(Asked("effective dates of settings of client as universal string"),
              Values({"Tue, 09 Mar 1999 10:11:12 +0000"}));
    const std::string ofAlpha = " of setting \"ALPHA\" of client";
    ExpectValue(host, {"name", "names", ofAlpha, "Alpha"});
    ExpectValue(host, {"value", "values", ofAlpha, "one"});
    ExpectValue(host, {"enabled", "enableds", ofAlpha, "True"});
    ExpectValue(host, {"setting \"alpha\"", "settings \"alpha\"", kOfClient, "Alpha=one"});
    ExpectNone(host, {"value", "values", " of setting \"beta\" of client", ""});
    ExpectNone(host, {"effective date", "effective dates", " of setting \"beta\" of client", ""});
    ExpectNone(host, {"setting \"bob\"", "settings \"bob\"", kOfClient, ""});
    ExpectValue(host, {"administrator", "administrators", kOfClient, "bob=1"});
    ExpectValue(host, {"administrator \"BOB\"", "administrators \"bob\"", kOfClient, "bob=1"});
    ExpectNone(host, {"administrator \"alpha\"", "administrators \"alpha\"", kOfClient, ""});
}

TEST_F(ClientTest, ASettingIsDisabledByAZeroAlone) {
    for (const char* enabled : {"0", "1", "", "00", "no", "false", "-1", " 0"}) {
        host.ofAgent.subsections["Client"] = {{"set", "0", {}, enabled}};
        const std::string expected = std::string_view(enabled) == "0" ? "False" : "True";
        EXPECT_EQ(Asked("enabled of setting \"set\" of client"), Values({expected})) << enabled;
    }
}

TEST_F(ClientTest, CustomSiteSubscriptions) {
    host.ofAgent.subsections["CustomSites"] = {{"dated", "1", "Tue, 09 Mar 1999 10:11:12 +0000", {}},
                                               {"undated", "1", {}, {}}};
    const std::string phrase = "custom site subscription effective date";
    EXPECT_EQ(Asked(phrase + " \"Dated\" as universal string"), Values({"Tue, 09 Mar 1999 10:11:12 +0000"}));
    EXPECT_EQ(Asked(phrase + "s \"dated\" as universal string"), Values({"Tue, 09 Mar 1999 10:11:12 +0000"}));
    ExpectNone(host, {phrase + " \"undated\"", phrase + "s \"undated\"", "", ""});
    ExpectNone(host, {phrase + " \"other\"", phrase + "s \"other\"", "", ""});
}

TEST_F(ClientTest, ActionLockInEachSpelling) {
    ExpectNone(host, {"action lock state", "action lock states", "", ""});
    Lock(
        "locked;controller=console;expiration=Tue, 09 Mar 1999 10:11:12 +0000;"
        "effective=Mon, 08 Mar 1999 10:11:12 +0000;text=a = b");
    ExpectValue(host, {"action lock state", "action lock states", "", "locked"});
    const std::string of = " of action lock state";
    ExpectValue(host, {"locked", "lockeds", of, "True"});
    ExpectValue(host, {"controller", "controllers", of, "console"});
    ExpectValue(host, {"lock string", "lock strings", of, "a = b"});
    for (const Phrase& phrase :
         std::vector<Phrase>{{"expiration date", "expiration dates", of, "Tue, 09 Mar 1999 10:11:12 +0000"},
                             {"effective date", "effective dates", of, "Mon, 08 Mar 1999 10:11:12 +0000"}}) {
        EXPECT_EQ(Asked("(" + phrase.singular + of + ") as universal string"), Values({phrase.value}));
        EXPECT_EQ(Asked("(" + phrase.plural + of + ") as universal string"), Values({phrase.value}));
    }
    Lock("unlocked");
    ExpectValue(host, {"action lock state", "action lock states", "", "unlocked"});
    ExpectValue(host, {"locked", "lockeds", of, "False"});
    for (const Phrase& phrase : std::vector<Phrase>{{"controller", "controllers", of, ""},
                                                    {"lock string", "lock strings", of, ""},
                                                    {"expiration date", "expiration dates", of, ""},
                                                    {"effective date", "effective dates", of, ""}}) {
        ExpectNone(host, phrase);
    }
}

TEST_F(ClientTest, OddLockStates) {
    const Phrase state = {"action lock state", "action lock states", "", ""};
    for (const char* text : {"", ";", "Locked", "locked ", "lockedcontroller=client", "controller=client;locked"}) {
        Lock(text);
        ExpectNone(host, state);
    }
    host.ofAgent.subsections["Client"] = {{"__LockState", {}, {}, {}}};
    ExpectNone(host, state);

    Lock("locked;;controller=everybody;expiration=soon;effective=;text=;text=second;");
    EXPECT_EQ(Asked("action lock state"), Values({"locked"}));
    EXPECT_EQ(Asked("controllers of action lock state"), Nothing());
    EXPECT_EQ(Asked("expiration dates of action lock state"), Nothing());
    EXPECT_EQ(Asked("effective dates of action lock state"), Nothing());
    EXPECT_EQ(Asked("lock string of action lock state"), Values({""}));
    for (const char* controller : {"nobody", "client", "console"}) {
        Lock(std::string("unlocked;controller=") + controller);
        EXPECT_EQ(Asked("controller of action lock state"), Values({controller}));
    }
}

TEST_F(ClientTest, PendingRestartsAndLogins) {
    ExpectValue(host, {"pending restart", "pending restarts", "", "False"});
    ExpectValue(host, {"pending restart \"a\"", "pending restarts \"a\"", "", "False"});
    ExpectNone(host, {"pending restart name", "pending restart names", "", ""});
    host.restarts = {"a"};
    ExpectValue(host, {"pending restart", "pending restarts", "", "True"});
    ExpectValue(host, {"pending restart \"a\"", "pending restarts \"a\"", "", "True"});
    ExpectValue(host, {"pending restart \"b\"", "pending restarts \"b\"", "", "False"});
    ExpectValue(host, {"pending restart name", "pending restart names", "", "a"});
    host.restarts = {"a", "b"};
    EXPECT_EQ(Asked("pending restart names"), Values({"a", "b"}));
    ExpectNone(host, {"pending login", "pending logins", "", ""});
    host.loginPending = true;
    ExpectValue(host, {"pending login", "pending logins", "", "True"});
}

}  // namespace
