// The dated settings that a host lends to inspectors: names and values in subsections, such as "Client" for those of
// the agent itself.
//
// Where and how they are stored is the host's affair.  Names are looked up without regard to ASCII case and are given
// back as they are stored.
#ifndef EVALUATOR_INSPECTOR_SETTING_STORE_H
#define EVALUATOR_INSPECTOR_SETTING_STORE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// One setting as it is stored; a field that the store does not hold is absent.
struct StoredSetting {
    std::string name;
    std::optional<std::string> value;
    std::optional<std::string> effectiveDate;
    std::optional<std::string> enabled;
};

class InspectorSettingStore {
public:
    virtual ~InspectorSettingStore() = default;

    // The setting of this name; false where the subsection has none.  Throws std::bad_alloc.
    virtual bool Find(std::string_view subsection, std::string_view name, StoredSetting& setting) = 0;

    // The first setting at or behind the cursor, in the order of the store; the cursor, which starts at 0, moves behind
    // it.  False at the end.  Throws std::bad_alloc.
    virtual bool Next(std::string_view subsection, size_t& cursor, StoredSetting& setting) = 0;
};

#endif
