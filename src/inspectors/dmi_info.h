// The firmware's table for the inspectors: copied once in a process into the file "info.dmi", and read from that file.
#ifndef INSPECTORS_DMI_INFO_H
#define INSPECTORS_DMI_INFO_H

#include <memory>
#include <optional>
#include <string>

#include "evaluator/failure.h"
#include "foundation/file_location.h"
#include "inspectors/dmi_device.h"
#include "inspectors/dmi_info_file.h"
#include "inspectors/dmi_structure.h"

// A client setting switches the inspectors off.
struct DmiInspectorDefinedError : InspectorDefinedError {
    DmiInspectorDefinedError() noexcept : InspectorDefinedError("dmi inspector is disabled") {}
};

// The table cannot be had.  The text is "dmi inspector error creating dmi.info" and, where there is one, the detail in
// parentheses behind it.
class DmiInspectorFailedError : public InspectorDefinedError {
public:
    explicit DmiInspectorFailedError(std::string detail);

    const std::string& Detail() const noexcept { return words_->detail; }
    const char* what() const noexcept override { return words_->text.c_str(); }

private:
    struct Words {
        std::string detail;
        std::string text;
    };
    // Shared by the copies that throwing makes, so that copying a failure cannot fail.
    std::shared_ptr<const Words> words_;
};

// The structures of one file, each read when it is first asked for and kept from then on.
class DmiTable {
public:
    explicit DmiTable(DmiInfoFile file) : file_(std::move(file)) {}
    DmiTable(const DmiTable&) = delete;
    DmiTable& operator=(const DmiTable&) = delete;

    // Whether the file tells of this structure, be its bytes usable or not.
    bool Has(unsigned type, unsigned instance) const { return file_.Find(type, instance) != nullptr; }

    // The structure, which lives as long as the table; null where there is none, where its bytes are no structure, and
    // for the types that are not loaded.
    const DmiStructure* Find(unsigned type, unsigned instance);

private:
    struct Instance {
        Instance(unsigned n, std::vector<unsigned char> bytes) : number(n), structure(std::move(bytes)) {}
        unsigned number;
        DmiStructure structure;
        std::unique_ptr<Instance> next;
    };
    // The first instance of a type once it is loaded, and the further ones, which are loaded as they are asked for.
    struct Cell {
        std::optional<DmiStructure> first;
        bool loaded = false;
        std::unique_ptr<Instance> further;
    };

    static constexpr size_t kCells = 44;

    Cell* CellOf(unsigned type);
    std::optional<std::vector<unsigned char>> Load(unsigned type, unsigned instance) const;

    DmiInfoFile file_;
    Cell dmiLoadArray[kCells];
};

// The state of a process: whether the file was made, the failure if it could not be, and what was loaded of it.
class DmiInfo {
public:
    explicit DmiInfo(MemoryDevice& device) : device_(device) {}
    DmiInfo(const DmiInfo&) = delete;
    DmiInfo& operator=(const DmiInfo&) = delete;

    // Makes the file on the first call, by reading the device and, if that fails, by mapping it; a failure is kept, and
    // the device is not touched again.  Null where the file that was made cannot be loaded.  Throws
    // DmiInspectorFailedError, NoInspectorContext, InspectorStorageContextError and RequiredValueWouldOverflow.
    DmiTable* Table();

    // Gives back all that was loaded.
    void Unload() { table_.reset(); }

    // The process's own, or what a DmiInfoMaintainer has put in its place.
    static DmiInfo& Current();

private:
    friend class DmiInfoMaintainer;

    static DmiInfo* current;

    // The details of both attempts, or empty where one succeeded.
    std::string Create(const FileLocation& location);

    MemoryDevice& device_;
    FileLocation location_;
    bool created_ = false;
    std::optional<DmiInspectorFailedError> failure_;
    std::optional<DmiTable> table_;
};

// A scope in which the inspectors use another firmware.
class DmiInfoMaintainer {
public:
    explicit DmiInfoMaintainer(DmiInfo& info) : saved_(DmiInfo::current) { DmiInfo::current = &info; }
    DmiInfoMaintainer(const DmiInfoMaintainer&) = delete;
    DmiInfoMaintainer& operator=(const DmiInfoMaintainer&) = delete;
    ~DmiInfoMaintainer() { DmiInfo::current = saved_; }

private:
    DmiInfo* saved_;
};

// The table for one evaluation of a family's first word.  Throws DmiInspectorDefinedError where a setting switches the
// family off, NoSuchObject where there is no table, and what DmiInfo::Table throws.
DmiTable& EnabledDmiTable();

// The table behind a value of the family, which exists since the first word made it.  Throws NoSuchObject and what
// DmiInfo::Table throws.
DmiTable& LoadedDmiTable();

// The structures of one type, by instance; those whose bytes are no structure are passed over.
class DmiInstances {
public:
    void Start(unsigned type) {
        type_ = type;
        next_ = 0;
    }
    // Null at the end.
    const DmiStructure* Next(DmiTable& table);

private:
    unsigned type_ = 0;
    unsigned next_ = 0;
};

#endif
