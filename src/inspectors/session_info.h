// Who sits at the machine's console, for programs that run long enough to watch it.
//
// A host calls RefreshConsole now and then; inspectors see what it found last.  A program that never calls it has no
// sessions: the query console is one, and that is meant so.
#ifndef INSPECTORS_SESSION_INFO_H
#define INSPECTORS_SESSION_INFO_H

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/file_location.h"
#include "inspectors/utmp_records.h"

// The user at the display.
struct ConsoleUser {
    std::string name;
    std::string line;
    int32_t processId;
};

// Where the finder looks; the functions stand in for the system's in tests.
struct ConsolePlaces {
    FileLocation socketFolder;
    std::function<std::optional<std::string>(const std::string& name)> homeOf;
};

// The places of this machine.
ConsolePlaces SystemConsolePlaces();

// Kept as it stands: without a socket of the first display nobody is at the console, whatever the records say.  Then a
// record on ":0" or "console" answers, and failing that one on "tty1" whose user has a display's key in his home.
std::optional<ConsoleUser> FindConsoleUser(const ConsolePlaces& places, std::span<const utmp> records);

// One entry of the list of sessions.  A negative id means that none is known.
struct SessionInfo {
    std::string name;
    int32_t processId;

    // Takes what was found last over into the list; a list with the same ids stays as it is.  Called on the evaluating
    // thread only, which also owns the two below.
    static void Update();

    static std::vector<SessionInfo> msSessionList;
    static bool msInitialized;
};

// The session of the user whom the finder sees at the console now, after the list has been brought up to date; none
// where nobody sits there, and where the last refresh found somebody else.  Called on the evaluating thread only.
std::optional<SessionInfo> CurrentSession(const ConsolePlaces& places = SystemConsolePlaces());

// Looks for the user at the console and notes who it is.  May be called on any thread.
void RefreshConsole(const ConsolePlaces& places = SystemConsolePlaces());

#endif
