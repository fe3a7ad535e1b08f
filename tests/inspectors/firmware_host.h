// A host with a storage folder and one setting, and the inspectors over firmware made to measure.
#ifndef TESTS_INSPECTORS_FIRMWARE_HOST_H
#define TESTS_INSPECTORS_FIRMWARE_HOST_H

#include <optional>
#include <string>

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_setting_store.h"
#include "foundation/file_operations.h"
#include "foundation/temporary_file.h"
#include "inspectors/dmi_info.h"
#include "tests/inspectors/ask.h"
#include "tests/inspectors/firmware_image.h"

class FirmwareHost : public InspectorContext,
                     public InspectorStorageContext,
                     public OSLSettingsContext,
                     public InspectorSettingStore {
public:
    FirmwareHost() : folder_(UniqueFolder(TemporaryFolder(), "firmware")) {
        current = this;
        getGlobalLocation = []() -> const FileLocation& { return current->folder_; };
        settingStore = []() -> InspectorSettingStore* { return current; };
    }
    ~FirmwareHost() override {
        DeleteTreeIfThere(folder_);
        current = nullptr;
    }

    FileLocation InfoFile() const { return {folder_, "info.dmi"}; }

    std::optional<std::string> disable;  // the value of the setting

    bool Find(std::string_view subsection, std::string_view name, StoredSetting& setting) override {
        setting.value = disable;
        return disable && subsection == "Client" && name == "_OSLClient_Inspector_DisableDMI";
    }
    bool Next(std::string_view, size_t&, StoredSetting&) override { return false; }

private:
    static inline FirmwareHost* current = nullptr;
    FileLocation folder_;
};

// A machine whose firmware has this table.
struct Machine {
    explicit Machine(const Bytes& table) : memory(table) {}
    explicit Machine(FakeMemory device) : memory(std::move(device)) {}

    Answer Asked(std::string_view question) { return Ask(question, &host); }

    FirmwareHost host;
    FakeMemory memory;
    DmiInfo info{memory};
    DmiInfoMaintainer installed{info};
};

#endif
