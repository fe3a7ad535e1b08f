// One dated setting: a name, a value, and the time since when it holds.
#ifndef CLIENT_REG_IMP_SETTING_H
#define CLIENT_REG_IMP_SETTING_H

#include <optional>
#include <string>
#include <string_view>

#include "values/moment.h"

// A setting is a section of its own; an object of this kind says which, whether or not that section is there.  It holds
// none of the section's values: each is read when it is asked for.
class RegImpSetting {
public:
    // The keys of a setting's section.
    static constexpr char cValueString[] = "value";
    static constexpr char cEffectiveDateString[] = "effective date";

    enum class State { Open, Deleted };

    virtual ~RegImpSetting() = default;

    // The path of the store that it is in, and behind that its own: its name, by which the file knows it, is the last
    // element.
    const std::string& StoreRoot() const { return storeRoot_; }
    const std::string& SectionPath() const { return sectionPath_; }
    std::string_view Name() const;

    // A deleted setting has no values and takes none.
    State GetState() const { return state_; }

    virtual bool Exists() const = 0;
    virtual std::optional<std::string> Value() const = 0;

    // None also for a text that is no time, or one without a zone.
    virtual std::optional<moment> EffectiveDate() const = 0;

    // False where that could not be written.
    virtual bool SetValue(std::string_view value) = 0;
    virtual bool SetEffectiveDate(moment date) = 0;

    // Removes the section.
    virtual bool Delete() = 0;

protected:
    RegImpSetting(std::string storeRoot, std::string sectionPath)
        : storeRoot_(std::move(storeRoot)), sectionPath_(std::move(sectionPath)) {}
    RegImpSetting(const RegImpSetting&) = default;
    RegImpSetting& operator=(const RegImpSetting&) = default;

    void MarkDeleted() { state_ = State::Deleted; }

private:
    std::string storeRoot_;
    std::string sectionPath_;
    State state_ = State::Open;
};

// How a setting prints: "name=value".  A setting without a value has no text behind the "=".
std::string AsText(const RegImpSetting& setting);

#endif
