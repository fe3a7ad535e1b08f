// Versions: dotted numbers of up to four components, with the text itself as the fallback, and the kind that is
// compared by the system library's strverscmp.
//
// A version points at its text in evaluation memory and lives as long as that; Kept owns the text of one that stays.
#ifndef VALUES_VERSION_H
#define VALUES_VERSION_H

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "registry/inspector_type_info.h"
#include "values/aggregates.h"

class inspector_version {
public:
    static constexpr uint32_t kMostComponents = 4;

    // The empty text, which is then no number: it is before every other and equals another empty text.
    inspector_version() = default;

    // Copies the text into evaluation memory.  It is numeric when it is one to four numbers of at most 65535 joined by
    // "." or ","; an empty number is 0, and the empty text is four of them.
    explicit inspector_version(const inspector_string& text);

    // The version as written, up to its first zero byte; zero-terminated.
    const char* Text() const { return text_; }
    bool Numeric() const { return numeric_; }
    uint32_t Count() const { return count_; }
    uint16_t Component(uint32_t n) const { return components_[n]; }

    // By components when both are numeric, and then only as many as both have: a short version is a pattern that all
    // its longer forms equal.  Otherwise by their texts.
    friend bool operator==(const inspector_version& a, const inspector_version& b);
    friend bool operator<=(const inspector_version& a, const inspector_version& b);
    friend bool operator<(const inspector_version& a, const inspector_version& b) { return !(b <= a); }

protected:
    struct TextAlone {};
    // Copies the text and looks for no number in it.
    inspector_version(const inspector_string& text, TextAlone);

private:
    template <class T>
    friend class Kept;

    void Parse(std::string_view text);

    const char* text_ = "";
    uint16_t components_[kMostComponents] = {};
    uint32_t count_ = kMostComponents;
    bool numeric_ = false;
};

// What a version equals depends on its text and on whether it is read as a number.
template <>
struct InspectorTypeInfo<inspector_version> : InspectorTypeBasics<inspector_version> {
    static constexpr char Name[] = "version";
    static constexpr unsigned Size = 20;

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& version = *static_cast<const inspector_version*>(value);
        const bool numeric = version.Numeric();
        fingerprinter.AddData(ConstData(std::string_view(version.Text())));
        fingerprinter.AddData(ConstData(&numeric, sizeof numeric));
    }
};

// Passes wherever a version does, and is then compared by its text: it has no numeric form.
class inspector_strverscmp_version : public inspector_version {
public:
    inspector_strverscmp_version() = default;
    explicit inspector_strverscmp_version(const inspector_string& text) : inspector_version(text, TextAlone()) {}

    friend bool operator==(const inspector_strverscmp_version& a, const inspector_strverscmp_version& b);
    friend bool operator<(const inspector_strverscmp_version& a, const inspector_strverscmp_version& b);
    friend bool operator<=(const inspector_strverscmp_version& a, const inspector_strverscmp_version& b);
};

template <>
struct InspectorTypeInfo<inspector_strverscmp_version> : InspectorTypeBasics<inspector_strverscmp_version> {
    static constexpr char Name[] = "strverscmp version";
    static constexpr const char* Parent = "version";
    static constexpr unsigned Size = 20;

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        InspectorTypeInfo<inspector_version>::Fingerprint(fingerprinter, value);
    }
};

// Owns the text that its version points at, and stays where it was made.
template <std::derived_from<inspector_version> T>
class Kept<T> {
public:
    explicit Kept(const T& version) : text_(version.Text()), version_(version) { version_.text_ = text_.c_str(); }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

    const T& Value() const { return version_; }

private:
    const std::string text_;
    T version_;
};

#endif
