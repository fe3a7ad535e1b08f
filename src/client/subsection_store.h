// A named group of raw values in the configuration.
#ifndef CLIENT_SUBSECTION_STORE_H
#define CLIENT_SUBSECTION_STORE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/file_location.h"
#include "values/moment.h"

// Every operation answers whether it succeeded; one that did not has changed nothing, `out` included.  Names of values
// are looked up without regard to case.
class SubsectionStore {
public:
    virtual ~SubsectionStore() = default;

    // False where there is no such value.  The numbers are decimal, and 0 where the text has none; a text that is no
    // time reads as no value.
    virtual bool ReadString(std::string_view name, std::string& out) const = 0;
    virtual bool ReadSigned(std::string_view name, int32_t& out) const = 0;
    virtual bool ReadUnsigned(std::string_view name, uint32_t& out) const = 0;
    virtual bool ReadInteger64(std::string_view name, int64_t& out) const = 0;
    virtual bool ReadTime(std::string_view name, moment& out) const = 0;

    // False also where the path is of longestLocation bytes or more.
    virtual bool ReadFileLocation(std::string_view name, FileLocation& out) const = 0;

    // Copies the text and a zero into `buffer` of `size` bytes, false where they do not fit.  Without a buffer, `size`
    // becomes what one would need.
    virtual bool ReadBuffered(std::string_view name, char* buffer, size_t& size) const = 0;

    virtual bool WriteString(std::string_view name, std::string_view value) = 0;
    virtual bool WriteSigned(std::string_view name, int32_t value) = 0;
    virtual bool WriteUnsigned(std::string_view name, uint32_t value) = 0;
    virtual bool WriteInteger64(std::string_view name, int64_t value) = 0;
    virtual bool WriteTime(std::string_view name, moment value) = 0;
    virtual bool WriteFileLocation(std::string_view name, const FileLocation& value) = 0;

    virtual bool Delete(std::string_view name) = 0;

    // The group as a whole.
    virtual bool Exists() const = 0;
    virtual bool DeleteAll() = 0;

    static constexpr size_t longestLocation = 16384;
};

// A location out of a store, or the default where the store has none.
inline FileLocation GetValue(const SubsectionStore& store, std::string_view name, const FileLocation& byDefault) {
    FileLocation value;
    return store.ReadFileLocation(name, value) ? value : byDefault;
}

#endif
