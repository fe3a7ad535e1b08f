// A gap between the bytes of a string: before the byte of its number, the last one behind them all.
#ifndef VALUES_STRING_POSITION_H
#define VALUES_STRING_POSITION_H

#include "values/integer.h"

// Passes wherever an integer does, as its offset, which runs from 0 to the parent's length.
class string_position : public integer {
public:
    string_position(size_t offset, const inspector_string& parent)
        : integer(static_cast<int64_t>(offset)), parent_(parent) {}

    size_t Offset() const { return static_cast<size_t>(Value()); }
    const inspector_string& Parent() const { return parent_; }

private:
    inspector_string parent_;
};

// The text around a position is a property of it, so the parent counts as a part of the value.
template <>
struct InspectorTypeInfo<string_position> : InspectorTypeBasics<string_position> {
    static constexpr char Name[] = "string position";
    static constexpr const char* Parent = "integer";
    static constexpr unsigned Size = 16;

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& position = *static_cast<const string_position*>(value);
        InspectorTypeInfo<integer>::Fingerprint(fingerprinter, static_cast<const integer*>(&position));
        fingerprinter.AddData(position.Parent().Data());
    }
};

#endif
