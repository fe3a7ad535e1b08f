#include "client/zendry_options_manager.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "client/setting_time.h"
#include "foundation/file_operations.h"
#include "foundation/file_writer.h"

namespace {

constexpr char clientPathVariable[] = "OSLClientConfigPath";
constexpr char relayPathVariable[] = "OSLRelayConfigPath";

using Lock = std::lock_guard<std::recursive_mutex>;

// The value of an environment variable, copied: the pointer lives only until the next change of the environment.
std::optional<std::string> Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

std::optional<std::string> ClientPath() {
    std::optional<std::string> path = Environment(clientPathVariable);
    if (!path) {
        std::fprintf(stderr, "%s must be set\n", clientPathVariable);
    }
    return path;
}

bool IsThere(const std::string& path) {
    struct stat place {};
    return stat(path.c_str(), &place) == 0;
}

// All zeros for a file that cannot be looked at.
timespec ModificationTime(const std::string& path) {
    struct stat place {};
    return stat(path.c_str(), &place) == 0 ? place.st_mtim : timespec{};
}

bool operator==(const timespec& a, const timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

// A file that is deleted at the end unless it has been renamed to where it belongs.
class WorkingFile {
public:
    explicit WorkingFile(const std::string& beside) : path_(beside + ".tmp") {}
    WorkingFile(const WorkingFile&) = delete;
    WorkingFile& operator=(const WorkingFile&) = delete;
    ~WorkingFile() {
        if (made_) {
            unlink(path_.c_str());
        }
    }

    const std::string& Path() const { return path_; }

    // Writes and flushes the content.  Throws what the file layer throws.
    void Fill(std::string_view content) {
        UnixPlatform::FileWritingPath path;
        path.Create(FileLocation(path_));
        made_ = true;
        const ConstData bytes(content);
        FileWriter(path).Write(bytes.begin, bytes.end);
        path.Flush();
        path.Close();
    }

    void FillFrom(const std::string& source) {
        made_ = true;
        ForceCopyFile(FileLocation(source), FileLocation(path_));
    }

    bool RenameTo(const std::string& target) {
        if (std::rename(path_.c_str(), target.c_str()) != 0) {
            return false;
        }
        made_ = false;
        return true;
    }

private:
    std::string path_;
    bool made_ = false;
};

// A number as a type of 32 bits would have read it.
template <class Number>
Number Held(int64_t number) {
    constexpr int64_t most = std::numeric_limits<Number>::max();
    constexpr int64_t least = std::is_signed_v<Number> ? std::numeric_limits<Number>::min() : -most;
    if (number > most) {
        return std::numeric_limits<Number>::max();
    }
    if (number < least) {
        return std::is_signed_v<Number> ? std::numeric_limits<Number>::min() : std::numeric_limits<Number>::max();
    }
    return static_cast<Number>(number);
}

}  // namespace

ZendryOptionsManager::ZendryOptionsManager() { Load(); }

ZendryOptionsManager& ZendryOptionsManager::Instance() {
    static ZendryOptionsManager manager;
    return manager;
}

void ZendryOptionsManager::EnsureLoaded() {
    const Lock lock(lock_);
    if (!loaded_) {
        Load();
    }
}

bool ZendryOptionsManager::MakeClientFile(const std::string& path) const {
    const std::string byDefault = path + ".default";
    if (!IsThere(byDefault)) {
        std::fputs("No default config file found\n", stderr);
        return false;
    }
    try {
        // By way of another name, so that a copy that fails halfway is never taken for the file.
        WorkingFile copy(path);
        copy.FillFrom(byDefault);
        if (copy.RenameTo(path)) {
            return true;
        }
    } catch (const FileIOError&) {
    }
    std::fputs("Error copying default config file\n", stderr);
    return false;
}

void ZendryOptionsManager::Load() {
    const Lock lock(lock_);
    loaded_ = true;
    const std::optional<std::string> path = ClientPath();
    const std::optional<std::string> relayPath = Environment(relayPathVariable);
    if (!path) {
        client_.reset();
        relay_.reset();
        return;
    }
    if (!IsThere(*path)) {
        MakeClientFile(*path);
    }
    // Without waiting, should it be a pipe.
    const int descriptor = open(path->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        std::perror(("Could not open config file '" + *path + "'").c_str());
        return;
    }
    close(descriptor);

    const timespec clientTime = ModificationTime(*path);
    const timespec relayTime = relayPath ? ModificationTime(*relayPath) : timespec{};
    if (client_ != nullptr && clientTime == clientTime_ && relayTime == relayTime_) {
        return;
    }
    client_.reset();
    relay_.reset();
    clientTime_ = clientTime;
    relayTime_ = relayTime;
    client_ = IniFile::Load(path->c_str());
    if (client_ != nullptr && relayPath) {
        relay_ = IniFile::Load(relayPath->c_str());
    }
}

bool ZendryOptionsManager::ReadString(std::string_view section, std::string_view key, const char*& out) {
    EnsureLoaded();
    const Lock lock(lock_);
    for (const IniFile* file : {client_.get(), relay_.get()}) {
        const char* const found = file == nullptr ? nullptr : file->Find(section, key);
        if (found != nullptr) {
            out = found;
            return true;
        }
    }
    return false;
}

bool ZendryOptionsManager::ReadInteger64(std::string_view section, std::string_view key, int64_t& out) {
    const Lock lock(lock_);
    const char* text = nullptr;
    if (!ReadString(section, key, text)) {
        return false;
    }
    out = std::strtoll(text, nullptr, 10);
    return true;
}

bool ZendryOptionsManager::ReadUnsigned(std::string_view section, std::string_view key, uint32_t& out) {
    int64_t number = 0;
    const bool found = ReadInteger64(section, key, number);
    if (found) {
        out = Held<uint32_t>(number);
    }
    return found;
}

bool ZendryOptionsManager::ReadSigned(std::string_view section, std::string_view key, int32_t& out) {
    int64_t number = 0;
    const bool found = ReadInteger64(section, key, number);
    if (found) {
        out = Held<int32_t>(number);
    }
    return found;
}

bool ZendryOptionsManager::ReadTime(std::string_view section, std::string_view key, moment& out) {
    const Lock lock(lock_);
    const char* text = nullptr;
    const std::optional<moment> time = ReadString(section, key, text) ? TimeOfSetting(text) : std::nullopt;
    out = time.value_or(out);
    return time.has_value();
}

bool ZendryOptionsManager::ReadBuffered(std::string_view section, std::string_view key, char* buffer, size_t& size) {
    const Lock lock(lock_);
    const char* text = nullptr;
    if (!ReadString(section, key, text)) {
        return false;
    }
    const size_t length = std::strlen(text);
    if (buffer == nullptr) {
        size = length + 1;
        return true;
    }
    if (size <= length) {
        return false;
    }
    std::memcpy(buffer, text, length + 1);
    return true;
}

bool ZendryOptionsManager::Write(std::unique_ptr<IniFile> changed) {
    const std::optional<std::string> text = changed->Text();
    const std::optional<std::string> path = ClientPath();
    if (!text || !path) {
        return false;
    }
    WorkingFile file(*path);
    file.Fill(*text);
    // What iniparser would not read back must not take the place of what it reads now.
    const std::unique_ptr<IniFile> readBack = IniFile::Load(file.Path().c_str());
    if (readBack == nullptr || !readBack->HasTheValuesOf(*changed) || !file.RenameTo(*path)) {
        return false;
    }
    client_ = std::move(changed);
    return true;
}

template <class Change>
bool ZendryOptionsManager::WriteChange(const Change& change) {
    EnsureLoaded();
    const Lock lock(lock_);
    if (client_ == nullptr) {
        return false;
    }
    try {
        std::unique_ptr<IniFile> changed = client_->Copy();
        return change(*changed) && Write(std::move(changed));
    } catch (const FileIOError&) {
        return false;
    }
}

bool ZendryOptionsManager::WriteString(std::string_view section, std::string_view key, std::string_view value) {
    return WriteChange([&](IniFile& file) { return file.Set(section, key, value); });
}
bool ZendryOptionsManager::WriteInteger64(std::string_view section, std::string_view key, int64_t value) {
    return WriteString(section, key, std::to_string(value));
}
bool ZendryOptionsManager::WriteUnsigned(std::string_view section, std::string_view key, uint32_t value) {
    return WriteString(section, key, std::to_string(value));
}
bool ZendryOptionsManager::WriteSigned(std::string_view section, std::string_view key, int32_t value) {
    return WriteString(section, key, std::to_string(value));
}
bool ZendryOptionsManager::WriteTime(std::string_view section, std::string_view key, moment value) {
    const std::optional<std::string> text = TextOfSettingTime(value);
    return text && WriteString(section, key, *text);
}

bool ZendryOptionsManager::DeleteKey(std::string_view section, std::string_view key) {
    return WriteChange([&](IniFile& file) {
        file.Remove(section, key);
        return true;
    });
}
bool ZendryOptionsManager::DeleteSection(std::string_view section) {
    return WriteChange([&](IniFile& file) {
        file.RemoveSection(section);
        return true;
    });
}

bool ZendryOptionsManager::SectionExists(std::string_view section) {
    EnsureLoaded();
    const Lock lock(lock_);
    return (client_ != nullptr && client_->HasSection(section)) || (relay_ != nullptr && relay_->HasSection(section));
}

bool ZendryOptionsManager::NextSection(size_t& cursor, const char*& out) {
    EnsureLoaded();
    const Lock lock(lock_);
    size_t before = 0;
    for (const IniFile* file : {client_.get(), relay_.get()}) {
        if (file == nullptr) {
            continue;
        }
        if (cursor - before < file->Sections().size()) {
            out = file->Sections()[cursor - before];
            ++cursor;
            return true;
        }
        before += file->Sections().size();
    }
    return false;
}
