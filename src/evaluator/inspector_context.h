// What inspectors ask of the program that they run in.
//
// A host makes one InspectorContext, installs it per thread for the time of an evaluation, and mixes in the interfaces
// below that it can serve.  Inspectors find an interface by a dynamic cast on the thread's current context; a host that
// lacks it is told so in the words of that interface's error.
#ifndef EVALUATOR_INSPECTOR_CONTEXT_H
#define EVALUATOR_INSPECTOR_CONTEXT_H

#include <cstdint>
#include <string>
#include <string_view>

#include "evaluator/failure.h"
#include "foundation/thread_local_ptr.h"
#include "registry/core_values.h"

class FileLocation;
class InspectorSettingStore;

class InspectorContext {
public:
    virtual ~InspectorContext() = default;
};

// May end a running evaluation.
class InspectorInterrupter {
public:
    virtual ~InspectorInterrupter() = default;
    virtual bool ShouldContinue() = 0;

    // Called when ShouldContinue has answered false; may throw InspectorInterruption, or wait, or return.
    virtual void Interrupted() = 0;
};

// A mixin of contexts whose interrupter counts time: restarted at each question.
class InspectorInterrupterPort {
public:
    virtual ~InspectorInterrupterPort() = default;
    virtual void RestartClock() = 0;
};

// Accounts for the time that a refresh takes.
class CpuBudget {
public:
    virtual ~CpuBudget() = default;
    virtual void Spend() {}
};

// The folders that the host works in.  A null entry is a place that the host does not have.
class InspectorStorageContext {
public:
    virtual ~InspectorStorageContext() = default;
    const FileLocation* (*getExecutableLocation)() = nullptr;
    const FileLocation& (*getGlobalLocation)() = nullptr;
    const FileLocation& (*getLibraryLocation)() = nullptr;
};

// What became of the last choice of the cryptographic mode, and of the self test that went with it.
struct CryptoStatus {
    bool fips = false;
    std::string text;
    bool selfTestAttempted = false;
    bool selfTestPassed = false;
    std::string selfTestText;
};

// The digests that inspectors need, each given as its text form in evaluation memory, and the state of the library
// that makes them.
class CryptoInspectorContext {
public:
    virtual ~CryptoInspectorContext() = default;
    inspector_string (*sha1OfFile)(const FileLocation& location) = nullptr;
    inspector_string (*sha1OfBytes)(const unsigned char* begin, const unsigned char* end) = nullptr;
    const CryptoStatus& (*status)() = nullptr;
};

// The libraries of inspectors that the host has, each with a name and a number.
struct InspectorLibrary {
    unsigned number;
    std::string_view name;
};
class InspectorLibraryContext {
public:
    virtual ~InspectorLibraryContext() = default;
    const InspectorLibrary* (*findByName)(std::string_view name) = nullptr;
    const InspectorLibrary* (*findByNumber)(unsigned number) = nullptr;
};

// What the host knows of its network; false where there is no name.
class InspectorNetworkContext {
public:
    virtual ~InspectorNetworkContext() = default;
    bool (*dnsDomainName)(std::string& name) = nullptr;
};

// The settings of the agent, and those of its sites, each site's in the subsection of its name.
class OSLSettingsContext {
public:
    virtual ~OSLSettingsContext() = default;
    InspectorSettingStore* (*settingStore)() = nullptr;
    InspectorSettingStore* (*sitesStore)() = nullptr;
};

// A scope in which a context is the thread's current one.  The interrupter that was found for an earlier context goes
// with it; both come back at the end of the scope, also when an exception passes.
class InspectorContextMaintainer {
public:
    static ThreadLocalPtr<InspectorContext, DoNotDispose> current;
    static ThreadLocalPtr<InspectorInterrupter, DoNotDispose> currentInterrupter;

    explicit InspectorContextMaintainer(InspectorContext* context)
        : saved_(current.Get()), savedInterrupter_(currentInterrupter.Get()), changed_(saved_ != context) {
        if (changed_) {
            current.Set(context);
            currentInterrupter.Set(nullptr);
        }
    }
    InspectorContextMaintainer(const InspectorContextMaintainer&) = delete;
    InspectorContextMaintainer& operator=(const InspectorContextMaintainer&) = delete;
    ~InspectorContextMaintainer() {
        if (changed_) {
            current.Set(saved_);
        }
        if (currentInterrupter.Get() != savedInterrupter_) {
            currentInterrupter.Set(savedInterrupter_);
        }
    }

private:
    InspectorContext* saved_;
    InspectorInterrupter* savedInterrupter_;
    bool changed_;
};

// What a context that is no interrupter is given: it is never interrupted.
extern InspectorInterrupter& doNotInterrupt;

// The thread's interrupter: found once for each installed context and remembered.
InspectorInterrupter& CurrentInterrupter();

// One check of the thread's interrupter.  Throws what Interrupted throws.
inline void CheckForInterruption() {
    if (InspectorContextMaintainer::currentInterrupter.Get() != &doNotInterrupt) {
        InspectorInterrupter& interrupter = CurrentInterrupter();
        if (!interrupter.ShouldContinue()) {
            interrupter.Interrupted();
        }
    }
}

// The interface `Interface` of the thread's current context.  Throws NoInspectorContext where no context is installed
// and `Error` where it lacks the interface.
template <class Interface, class Error>
Interface& ContextInterface() {
    InspectorContext* context = InspectorContextMaintainer::current.Get();
    if (context == nullptr) {
        throw NoInspectorContext();
    }
    auto* interface = dynamic_cast<Interface*>(context);
    if (interface == nullptr) {
        throw Error();
    }
    return *interface;
}

#endif
