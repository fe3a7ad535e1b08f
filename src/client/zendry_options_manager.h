// The client's configuration: the client file, which is read and written, and behind it a relay's, which is only read.
//
// Both are INI files, named by the environment (OSLClientConfigPath, OSLRelayConfigPath).  They are read once, when the
// manager is made; what goes wrong then is said on standard error and leaves the manager without values, so that every
// default holds.  Every operation takes the one recursive lock; failures are answered with false.
#ifndef CLIENT_ZENDRY_OPTIONS_MANAGER_H
#define CLIENT_ZENDRY_OPTIONS_MANAGER_H

#include <ctime>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "client/ini_file.h"
#include "values/moment.h"

class ZendryOptionsManager {
public:
    // Loads the files.
    ZendryOptionsManager();
    ZendryOptionsManager(const ZendryOptionsManager&) = delete;
    ZendryOptionsManager& operator=(const ZendryOptionsManager&) = delete;

    // The process's own, made at the first call.
    static ZendryOptionsManager& Instance();

    // Guards all that the manager holds.  Whoever uses a text of ReadString or a name of NextSection while others may
    // write holds it meanwhile.
    std::recursive_mutex& AccessLock() const { return lock_; }

    // Reads the files again where their modification times have changed since, or where nothing has been read.
    void Load();

    // Looks a key up in the client file and then in the relay's.  The text stays the file's own: it is good until the
    // next write or load.
    bool ReadString(std::string_view section, std::string_view key, const char*& out);

    // The same by its decimal number, 0 where it has none; a number that the type cannot hold is the nearest that it
    // can, a negative one read as unsigned wraps around.
    bool ReadInteger64(std::string_view section, std::string_view key, int64_t& out);
    bool ReadUnsigned(std::string_view section, std::string_view key, uint32_t& out);
    bool ReadSigned(std::string_view section, std::string_view key, int32_t& out);

    // The same as a time; false where the text is none.
    bool ReadTime(std::string_view section, std::string_view key, moment& out);

    // Copies the text and the zero behind it into `buffer` of `size` bytes; false, with nothing copied, where it does
    // not fit.  Without a buffer, `size` becomes what one would need.
    bool ReadBuffered(std::string_view section, std::string_view key, char* buffer, size_t& size);

    // Set a key of the client file, in a section that is made where there is none, and write the file.  A write is
    // whole or not at all: when it fails, the file and what is read are as they were.  False also for a name or a value
    // that the file cannot hold (see IniFile).
    bool WriteString(std::string_view section, std::string_view key, std::string_view value);
    bool WriteInteger64(std::string_view section, std::string_view key, int64_t value);
    bool WriteUnsigned(std::string_view section, std::string_view key, uint32_t value);
    bool WriteSigned(std::string_view section, std::string_view key, int32_t value);
    bool WriteTime(std::string_view section, std::string_view key, moment value);

    // Remove a key of the client file, or a section with all its keys, and write the file.
    bool DeleteKey(std::string_view section, std::string_view key);
    bool DeleteSection(std::string_view section);

    bool SectionExists(std::string_view section);

    // The section that `cursor` counts to, which moves on: those of the client file from 0, and behind them those of
    // the relay's, also where both files have one of the same name.  False behind the last.
    bool NextSection(size_t& cursor, const char*& out);

private:
    void EnsureLoaded();
    void LoadOnce();
    bool MakeClientFile(const std::string& path) const;

    // Writes `changed` and takes it for the client file.
    bool Write(std::unique_ptr<IniFile> changed);

    // A change to a copy of the client file, written; `change` answers whether it could be made.
    template <class Change>
    bool WriteChange(const Change& change);

    mutable std::recursive_mutex lock_;
    bool loaded_ = false;
    std::unique_ptr<IniFile> client_;
    std::unique_ptr<IniFile> relay_;
    timespec clientTime_{};
    timespec relayTime_{};
};

#endif
