// Feeds arbitrary bytes to the configuration as its client file.
//
// Whatever the bytes, the file is refused or read; every section and setting of a file that was read can be asked for;
// and a write keeps every value that was there, as the file reads afterwards.
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "client/osl_subsection_settings.h"
#include "client/unix_setting_store.h"
#include "client/zendry_options_manager.h"
#include "fuzz/expect.h"

namespace {

// The path of the file that the bytes are put into, in memory where there is such a place.
const std::string& Path() {
    static const std::string path = [] {
        std::string folder = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
        folder += "/zendry_settings_fuzz_XXXXXX";
        Expect(mkdtemp(folder.data()) != nullptr, "no folder");
        return folder + "/client.ini";
    }();
    return path;
}

void Put(const uint8_t* data, size_t size) {
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(Path().c_str(), "wb"), std::fclose);
    Expect(file != nullptr && std::fwrite(data, 1, size, file.get()) == size, "no file");
}

// A line that begins with "[]" makes a section of the beginning of the last one's name; one with a blank at its end has
// no line of its own.
bool HasOddSection(const IniFile& file) {
    return std::any_of(file.Sections().begin(), file.Sections().end(), [](const char* section) {
        const size_t length = std::strlen(section);
        return length != 0 && std::isspace(static_cast<unsigned char>(section[length - 1])) != 0;
    });
}

void ReadAll(ZendryOptionsManager& manager) {
    size_t cursor = 0;
    for (const char* section = nullptr; manager.NextSection(cursor, section);) {
        Expect(manager.SectionExists(section), "a section is not there");
        const char* text = nullptr;
        moment time;
        int64_t number = 0;
        manager.ReadString(section, "value", text);
        manager.ReadTime(section, "effective date", time);
        manager.ReadInteger64(section, "k", number);
    }
    UnixPlatform::UnixSettingStore store(SettingsPath::Settings(), manager);
    const OSLSubsectionSettings<SettingStore<UnixSettingIterator>> settings(store, SettingsPath::client);
    for (UnixSettingIterator each = settings.Begin(); each.Valid(); each.Next()) {
        AsText(each.Current());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    setenv("OSLClientConfigPath", Path().c_str(), 1);
    Put(data, size);
    ZendryOptionsManager manager;
    ReadAll(manager);

    const std::unique_ptr<IniFile> before = IniFile::Load(Path().c_str());
    if (before == nullptr) {
        Expect(!manager.WriteString("s", "k", "v"), "a write without a file");
        return 0;
    }
    // A value of the fuzzer's own, too: the last bytes.
    const size_t length = size < 40 ? size : 40;
    const std::string value(reinterpret_cast<const char*>(data) + size - length, length);
    const bool written = manager.WriteString("fuzz section", "k", value);
    const bool plain = manager.WriteString("fuzz section", "k2", "v");
    if (!plain && HasOddSection(*before)) {
        return 0;
    }
    Expect(plain, "a plain write failed");
    const std::unique_ptr<IniFile> after = IniFile::Load(Path().c_str());
    Expect(after != nullptr, "what was written is refused");
    Expect(before->Set("fuzz section", "k2", "v"), "a plain value is refused");
    if (written) {
        Expect(before->Set("fuzz section", "k", value), "a written value is refused");
    }
    Expect(after->HasTheValuesOf(*before), "a write lost a value");
    return 0;
}
