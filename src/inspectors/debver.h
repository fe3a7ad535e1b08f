// Versions of Debian packages, whole and in parts, in the order that apt has for them.
//
// A version holds a text in evaluation memory and lives as long as that; Kept owns the text of one that stays.  Its
// parts and its text need nothing of the machine.  The order is apt's own and comes from the package support library:
// where there is none, two versions do not compare, and the comparison has no value.
#ifndef INSPECTORS_DEBVER_H
#define INSPECTORS_DEBVER_H

#include <compare>
#include <optional>
#include <string>
#include <string_view>

#include "evaluator/adapters.h"
#include "values/aggregates.h"

enum class DebianVersionStringType { Version = 0, Epoch = 1, Upstream = 2, Revision = 3 };

struct DebianVersionParts {
    std::string_view epoch;
    std::string_view upstream;
    std::optional<std::string_view> revision;
};

// The epoch is what stands before the first ":", "0" where there is none.  The revision is what stands behind the last
// "-" of the rest, if there is one, and the upstream version is what is left.  Any text has parts, empty ones perhaps.
DebianVersionParts SplitDebianVersion(std::string_view version);

// Negative, zero or positive; none where apt's order cannot be had.  Both texts have a zero byte behind them; a whole
// version ends at its first one.  The support library is opened for the first comparison; where that fails, later ones
// do not try again, but have their order as soon as a package database was opened.
std::optional<int> CompareDebianVersions(DebianVersionStringType type, std::string_view a, std::string_view b);

template <DebianVersionStringType T>
class debver {
public:
    // Copies the text into evaluation memory, with a zero byte behind it.
    explicit debver(const inspector_string& text) : debver(text.View()) {}
    explicit debver(std::string_view text) : length_(text.size()) {
        char* copy = static_cast<char*>(InspectorAllocate(length_ + 1));
        text.copy(copy, length_);
        copy[length_] = '\0';
        text_ = copy;
    }

    std::string_view View() const { return {text_, length_}; }

    // The relation to zero of the order of two versions; none where they do not compare.
    template <auto Relation>
    static std::optional<boolean> Compare(const debver& a, const debver& b) {
        const std::optional<int> order = CompareDebianVersions(T, a.View(), b.View());
        return order ? std::optional<boolean>(Relation(*order, 0)) : std::nullopt;
    }

    // For ordered keeping.  Throws NoSuchObject where the two do not compare.
    friend bool operator<(const debver& a, const debver& b) {
        const std::optional<int> order = CompareDebianVersions(T, a.View(), b.View());
        if (!order) {
            NoResults();
        }
        return *order < 0;
    }

private:
    template <class>
    friend class Kept;

    const char* text_;
    size_t length_;
};

using debian_package_version = debver<DebianVersionStringType::Version>;
using debian_package_version_epoch = debver<DebianVersionStringType::Epoch>;
using debian_package_upstream_version = debver<DebianVersionStringType::Upstream>;
using debian_package_version_revision = debver<DebianVersionStringType::Revision>;

template <class T>
struct DebverTypeBasics : InspectorTypeBasics<T, 0> {
    static constexpr unsigned Size = 4;
};

template <>
struct InspectorTypeInfo<debian_package_version> : DebverTypeBasics<debian_package_version> {
    static constexpr char Name[] = "debian package version";
};
template <>
struct InspectorTypeInfo<debian_package_version_epoch> : DebverTypeBasics<debian_package_version_epoch> {
    static constexpr char Name[] = "debian package version epoch";
};
template <>
struct InspectorTypeInfo<debian_package_upstream_version> : DebverTypeBasics<debian_package_upstream_version> {
    static constexpr char Name[] = "debian package upstream version";
};
template <>
struct InspectorTypeInfo<debian_package_version_revision> : DebverTypeBasics<debian_package_version_revision> {
    static constexpr char Name[] = "debian package version revision";
};

// Owns the text that its version points at, and stays where it was made.
template <DebianVersionStringType T>
class Kept<debver<T>> {
public:
    explicit Kept(const debver<T>& version) : text_(version.View()), version_(version) {
        version_.text_ = text_.c_str();
    }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

    const debver<T>& Value() const { return version_; }

private:
    const std::string text_;
    debver<T> version_;
};

// An aggregator over values that may not compare: once two have not, there is no order to tell the result by, and the
// whole has no value.  What is kept in order is left as it was, since the failing comparison comes before any change.
template <class Aggregator, class T>
class unless_incomparable : public Aggregator {
public:
    void Initialize() {
        Aggregator::Initialize();
        incomparable_ = false;
    }
    void Aggregate(Of, const T& value) {
        if (incomparable_) {
            return;
        }
        try {
            Aggregator::Aggregate(Of(), value);
        } catch (const NoSuchObject&) {
            incomparable_ = true;
        }
    }
    auto FirstFinal() { return incomparable_ ? decltype(Aggregator::FirstFinal())() : Aggregator::FirstFinal(); }
    auto NextFinal() requires requires(Aggregator& aggregator) { aggregator.NextFinal(); }
    { return incomparable_ ? decltype(Aggregator::NextFinal())() : Aggregator::NextFinal(); }

private:
    bool incomparable_ = false;
};

#endif
