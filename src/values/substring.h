// A stretch of a string that knows the string it was taken from.
#ifndef VALUES_SUBSTRING_H
#define VALUES_SUBSTRING_H

#include "registry/inspector_type_info.h"

// Passes wherever a string does.  Nothing is copied: both views point at the parent's bytes and live as long as these.
// Taken from a substring, its parent is that substring and not the outermost string.
class substring : public inspector_string {
public:
    // The `count` bytes of `parent` from `offset` on, which must lie inside it.
    substring(size_t offset, size_t count, const inspector_string& parent)
        : inspector_string(parent.start + offset, count), parent_(parent) {}

    size_t Offset() const { return static_cast<size_t>(start - parent_.start); }
    size_t EndOffset() const { return Offset() + length; }
    const inspector_string& Parent() const { return parent_; }

private:
    inspector_string parent_;
};

// The text around a substring is a property of it, so its place and the parent count as parts of the value.
template <>
struct InspectorTypeInfo<substring> : InspectorTypeBasics<substring> {
    static constexpr char Name[] = "substring";
    static constexpr const char* Parent = "string";
    static constexpr unsigned Size = 16;

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& text = *static_cast<const substring*>(value);
        const size_t offset = text.Offset();
        fingerprinter.AddData(text.Data());
        fingerprinter.AddData(ConstData(&offset, sizeof offset));
        fingerprinter.AddData(text.Parent().Data());
    }
};

#endif
