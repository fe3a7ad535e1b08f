#include "client/fips_mode.h"

#include <string>

#include "client/masthead_maker.h"
#include "client/reg_imp_setting.h"
#include "client/settings_paths.h"
#include "client/storage_path.h"
#include "client/zendry_options_manager.h"
#include "foundation/ascii.h"
#include "foundation/crypto.h"

namespace {

// Who decided, and for which mode.
struct Decision {
    bool fips;
    bool optional;  // the process can do without the mode
    const char* told;
};

// clang-format off
constexpr Decision kOnBySetting    {true,  false, "FIPS mode enabled by setting."};
constexpr Decision kOffBySetting   {false, false, "FIPS mode disabled by setting."};
constexpr Decision kOnByMasthead   {true,  true,  "FIPS mode enabled by masthead."};
constexpr Decision kOffByDefault   {false, false, "FIPS mode disabled by default."};
// clang-format on

CryptoStatus& Status() {
    static CryptoStatus status;
    return status;
}

bool Is(std::string_view value, std::string_view word) {
    return Ascii::CompareIgnoringCase(ConstData(value), ConstData(word)) == 0;
}

const Decision& Decide(const FileLocation& masthead) {
    const std::string section = SettingsPath::Settings() + SettingsPath::separator + SettingsPath::client +
                                SettingsPath::separator + "_OSLClient_Cryptography_FipsMode";
    char value[32];
    size_t size = sizeof value;
    if (ZendryOptionsManager::Instance().ReadBuffered(section, RegImpSetting::cValueString, value, size)) {
        if (Is(value, "required")) {
            return kOnBySetting;
        }
        if (Is(value, "none")) {
            return kOffBySetting;
        }
    }
    return ReadFipsRequirement(masthead) ? kOnByMasthead : kOffByDefault;
}

void Log(FipsLog log, std::string_view text) {
    if (log != nullptr) {
        log(text);
    }
}

const char* RefusalOf(const Decision& decision) {
    if (decision.optional) {
        return "Cryptographic module failed to enter optional FIPS mode:";
    }
    return decision.fips ? "Cryptographic module failed to initialize required FIPS mode:"
                         : "Cryptographic module failed to initialize:";
}

bool InitialiseFor(const Decision& decision, FipsLog log) {
    CryptoStatus& status = Status();
    status = {};
    try {
        Crypto::Initialise(decision.fips, StoragePath::GetExecutableLocation());
        status.fips = decision.fips;
    } catch (const OSL_FIPS_mode_set_Failed& failure) {
        status.fips = decision.fips;
        status.text = std::string(RefusalOf(decision)) + failure.what();
        Log(log, status.text);
        return decision.optional;
    }
    Log(log, decision.fips ? "Cryptographic module initialized successfully in FIPS mode."
                           : "Cryptographic module initialized successfully.");
    Log(log, std::string("Using crypto library ") + Crypto::LibraryVersion() + " - " + Crypto::LibraryName());
    return true;
}

void CompareWith(const Decision& decision, FipsLog log) {
    if (Crypto::CurrentFipsMode() == decision.fips) {
        Status().text = "Already in desired FIPS mode.";
        Log(log, decision.fips ? "Cryptographic module already initialized in FIPS mode."
                               : "Cryptographic module already initialized.");
    } else {
        Status().text = "Restart required.";
        Log(log, "FIPS mode changed, restart required.");
    }
}

}  // namespace

bool RefreshFipsMode(const FileLocation& masthead, FipsLog log) {
    const Decision& decision = Decide(masthead);
    Log(log, decision.told);
    if (!Crypto::IsInitialised()) {
        return InitialiseFor(decision, log);
    }
    CompareWith(decision, log);
    return true;
}

const CryptoStatus& FipsStatus() { return Status(); }

void RecordSelfTest(bool passed, std::string_view text) {
    Status().selfTestAttempted = true;
    Status().selfTestPassed = passed;
    Status().selfTestText = text;
}
