// A group of raw values that is a section of the client file.
#ifndef CLIENT_UNIX_OSL_SUBSECTION_STORE_H
#define CLIENT_UNIX_OSL_SUBSECTION_STORE_H

#include "client/subsection_store.h"
#include "client/zendry_options_manager.h"

namespace UnixPlatform {

class UnixOSLSubsectionStore final : public SubsectionStore {
public:
    // `section` is the section's whole path.  The manager must outlive the store.
    explicit UnixOSLSubsectionStore(std::string section,
                                    ZendryOptionsManager& manager = ZendryOptionsManager::Instance())
        : section_(std::move(section)), manager_(manager) {}

    const std::string& Section() const { return section_; }

    bool ReadString(std::string_view name, std::string& out) const override;
    bool ReadSigned(std::string_view name, int32_t& out) const override;
    bool ReadUnsigned(std::string_view name, uint32_t& out) const override;
    bool ReadInteger64(std::string_view name, int64_t& out) const override;
    bool ReadTime(std::string_view name, moment& out) const override;
    bool ReadFileLocation(std::string_view name, FileLocation& out) const override;
    bool ReadBuffered(std::string_view name, char* buffer, size_t& size) const override;

    bool WriteString(std::string_view name, std::string_view value) override;
    bool WriteSigned(std::string_view name, int32_t value) override;
    bool WriteUnsigned(std::string_view name, uint32_t value) override;
    bool WriteInteger64(std::string_view name, int64_t value) override;
    bool WriteTime(std::string_view name, moment value) override;
    bool WriteFileLocation(std::string_view name, const FileLocation& value) override;

    bool Delete(std::string_view name) override;
    bool Exists() const override;
    bool DeleteAll() override;

private:
    std::string section_;
    ZendryOptionsManager& manager_;
};

// The process's stores, each made at its first call.
UnixOSLSubsectionStore& GlobalOptions();
UnixOSLSubsectionStore& ClientRegister();
UnixOSLSubsectionStore& PropServer();
UnixOSLSubsectionStore& GatherService();

}  // namespace UnixPlatform

#endif
