#include "client/unix_osl_subsection_store.h"

#include <array>

#include "client/settings_paths.h"

namespace UnixPlatform {

bool UnixOSLSubsectionStore::ReadString(std::string_view name, std::string& out) const {
    const std::lock_guard lock(manager_.AccessLock());
    const char* text = nullptr;
    const bool found = manager_.ReadString(section_, name, text);
    if (found) {
        out = text;
    }
    return found;
}

bool UnixOSLSubsectionStore::ReadFileLocation(std::string_view name, FileLocation& out) const {
    std::array<char, longestLocation> buffer;
    size_t size = buffer.size();
    const bool found = ReadBuffered(name, buffer.data(), size);
    if (found) {
        out = FileLocation(buffer.data());
    }
    return found;
}

// clang-format off
bool UnixOSLSubsectionStore::ReadSigned(std::string_view name, int32_t& out) const      { return manager_.ReadSigned(section_, name, out); }
bool UnixOSLSubsectionStore::ReadUnsigned(std::string_view name, uint32_t& out) const   { return manager_.ReadUnsigned(section_, name, out); }
bool UnixOSLSubsectionStore::ReadInteger64(std::string_view name, int64_t& out) const   { return manager_.ReadInteger64(section_, name, out); }
bool UnixOSLSubsectionStore::ReadTime(std::string_view name, moment& out) const         { return manager_.ReadTime(section_, name, out); }
bool UnixOSLSubsectionStore::ReadBuffered(std::string_view name, char* buffer, size_t& size) const { return manager_.ReadBuffered(section_, name, buffer, size); }

bool UnixOSLSubsectionStore::WriteString(std::string_view name, std::string_view value) { return manager_.WriteString(section_, name, value); }
bool UnixOSLSubsectionStore::WriteSigned(std::string_view name, int32_t value)          { return manager_.WriteSigned(section_, name, value); }
bool UnixOSLSubsectionStore::WriteUnsigned(std::string_view name, uint32_t value)       { return manager_.WriteUnsigned(section_, name, value); }
bool UnixOSLSubsectionStore::WriteInteger64(std::string_view name, int64_t value)       { return manager_.WriteInteger64(section_, name, value); }
bool UnixOSLSubsectionStore::WriteTime(std::string_view name, moment value)             { return manager_.WriteTime(section_, name, value); }
bool UnixOSLSubsectionStore::WriteFileLocation(std::string_view name, const FileLocation& value) { return manager_.WriteString(section_, name, value.Text()); }

bool UnixOSLSubsectionStore::Delete(std::string_view name) { return manager_.DeleteKey(section_, name); }
bool UnixOSLSubsectionStore::Exists() const                { return manager_.SectionExists(section_); }
bool UnixOSLSubsectionStore::DeleteAll()                   { return manager_.DeleteSection(section_); }
// clang-format on

UnixOSLSubsectionStore& GlobalOptions() {
    static UnixOSLSubsectionStore store(SettingsPath::GlobalOptions());
    return store;
}
UnixOSLSubsectionStore& ClientRegister() {
    static UnixOSLSubsectionStore store(SettingsPath::ClientRegister());
    return store;
}
UnixOSLSubsectionStore& PropServer() {
    static UnixOSLSubsectionStore store(SettingsPath::PropServer());
    return store;
}
UnixOSLSubsectionStore& GatherService() {
    static UnixOSLSubsectionStore store(SettingsPath::GatherService());
    return store;
}

}  // namespace UnixPlatform
