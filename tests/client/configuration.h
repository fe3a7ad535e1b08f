// Configuration files of a test's own, named by the environment for as long as the object lives.
#ifndef TESTS_CLIENT_CONFIGURATION_H
#define TESTS_CLIENT_CONFIGURATION_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <functional>
#include <string>

#include "client/zendry_options_manager.h"
#include "tests/foundation/temporary_place.h"

class Configuration {
public:
    Configuration() { Name("client.ini"); }
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration() {
        unsetenv("OSLClientConfigPath");
        unsetenv("OSLRelayConfigPath");
    }

    const TemporaryPlace& Place() const { return place_; }
    std::string Path() const { return place_.Path("client.ini"); }

    void Name(const std::string& name) const { setenv("OSLClientConfigPath", place_.Path(name).c_str(), 1); }
    void Client(const std::string& text) const { place_.File("client.ini", text); }
    void Relay(const std::string& text) const {
        place_.File("relay.ini", text);
        setenv("OSLRelayConfigPath", place_.Path("relay.ini").c_str(), 1);
    }
    std::string Content() const { return place_.Content("client.ini"); }

private:
    TemporaryPlace place_;
};

// What `action` writes to standard error.
inline std::string ErrorOutput(const std::function<void()>& action) {
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

// The text of a key, "none" where there is none.
inline std::string Text(ZendryOptionsManager& manager, std::string_view section, std::string_view key) {
    const char* text = nullptr;
    return manager.ReadString(section, key, text) ? text : "none";
}

#endif
