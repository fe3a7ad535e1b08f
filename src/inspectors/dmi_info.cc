#include "inspectors/dmi_info.h"

#include "evaluator/inspector_context.h"
#include "foundation/file_operations.h"
#include "inspectors/client_setting.h"

namespace {

constexpr char kFileName[] = "info.dmi";
constexpr char kFailureText[] = "dmi inspector error creating dmi.info";

FileLocation InfoLocation() {
    auto& storage = ContextInterface<InspectorStorageContext, InspectorStorageContextError>();
    if (storage.getGlobalLocation == nullptr) {
        throw InspectorStorageContextError();
    }
    return {storage.getGlobalLocation(), kFileName};
}

// One attempt: empty where the file was written, else the detail of what failed.
template <class Attempt>
std::string Attempted(MemoryDevice& device, const FileLocation& location, const char* unclassified) {
    try {
        ForceNonexistence(location);
        WriteDmiInfo(location, Attempt(device).Table());
        return {};
    } catch (const DmiStepFailed& failure) {
        return failure.detail;
    } catch (...) {
        return unclassified;
    }
}

}  // namespace

DmiInspectorFailedError::DmiInspectorFailedError(std::string detail) : InspectorDefinedError(kFailureText) {
    const std::string text = detail.empty() ? kFailureText : std::string(kFailureText) + " (" + detail + ")";
    words_ = std::make_shared<const Words>(Words{std::move(detail), text});
}

// ---- DmiTable -------------------------------------------------------------------------------------------------------

// Kept as it stands: the types 42 and 126 share a cell.  No inspector asks for type 42.
DmiTable::Cell* DmiTable::CellOf(unsigned type) {
    if (type <= 42) {
        return &dmiLoadArray[type];
    }
    return type == 126 ? &dmiLoadArray[42] : type == 127 ? &dmiLoadArray[43] : nullptr;
}

std::optional<std::vector<unsigned char>> DmiTable::Load(unsigned type, unsigned instance) const {
    const DmiIndexRecord* record = file_.Find(type, instance);
    std::optional<std::vector<unsigned char>> bytes = record == nullptr ? std::nullopt : file_.Bytes(*record);
    if (bytes && !DmiStructure::IsWhole({bytes->data(), bytes->size()})) {
        bytes.reset();
    }
    return bytes;
}

const DmiStructure* DmiTable::Find(unsigned type, unsigned instance) {
    Cell* cell = CellOf(type);
    if (cell == nullptr) {
        return nullptr;
    }
    if (instance == 0 && cell->loaded) {
        return &*cell->first;
    }
    std::unique_ptr<Instance>* link = &cell->further;
    if (instance != 0) {
        for (; *link != nullptr; link = &(*link)->next) {
            if ((*link)->number == instance) {
                return &(*link)->structure;
            }
        }
    }
    std::optional<std::vector<unsigned char>> bytes = Load(type, instance);
    if (!bytes) {
        return nullptr;
    }
    if (instance == 0) {
        cell->first.emplace(std::move(*bytes));
        cell->loaded = true;
        return &*cell->first;
    }
    *link = std::make_unique<Instance>(instance, std::move(*bytes));
    return &(*link)->structure;
}

const DmiStructure* DmiInstances::Next(DmiTable& table) {
    while (table.Has(type_, next_)) {
        if (const DmiStructure* structure = table.Find(type_, next_++)) {
            return structure;
        }
    }
    return nullptr;
}

// ---- DmiInfo --------------------------------------------------------------------------------------------------------

DmiInfo* DmiInfo::current = nullptr;

namespace {

DmiInfo& OwnDmiInfo() {
    static DmiInfo info(SystemMemory());
    return info;
}

// Frees what was loaded when the program ends.
struct DmiCleanup {
    ~DmiCleanup() { OwnDmiInfo().Unload(); }
};

}  // namespace

DmiInfo& DmiInfo::Current() {
    if (current != nullptr) {
        return *current;
    }
    DmiInfo& own = OwnDmiInfo();
    static const DmiCleanup cleanup;
    return own;
}

std::string DmiInfo::Create(const FileLocation& location) {
    const std::string reading = Attempted<DmiReadAttempt>(device_, location, "unclassified error");
    if (reading.empty()) {
        return {};
    }
    const std::string mapping = Attempted<DmiMapAttempt>(device_, location, "unclassified error in CreateDmiInfoMMap");
    return mapping.empty() ? mapping : mapping + "[" + reading + "]";
}

DmiTable* DmiInfo::Table() {
    if (failure_) {
        throw DmiInspectorFailedError(*failure_);
    }
    if (table_) {
        return &*table_;
    }
    if (!created_) {
        location_ = InfoLocation();
        if (std::string detail = Create(location_); !detail.empty()) {
            throw failure_.emplace(std::move(detail));
        }
        created_ = true;
    }
    if (std::optional<DmiInfoFile> file = DmiInfoFile::Read(location_)) {
        table_.emplace(std::move(*file));
        return &*table_;
    }
    return nullptr;
}

DmiTable& LoadedDmiTable() {
    DmiTable* table = DmiInfo::Current().Table();
    if (table == nullptr) {
        throw NoSuchObject();
    }
    return *table;
}

DmiTable& EnabledDmiTable() {
    if (ClientSettingIs("_OSLClient_Inspector_DisableDMI", "1")) {
        throw DmiInspectorDefinedError();
    }
    return LoadedDmiTable();
}
