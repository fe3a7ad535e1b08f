#include "inspectors/dmi.h"

#include <optional>

#include "evaluator/adapters.h"
#include "inspectors/dmi_info.h"
#include "inspectors/smbios_catalogue.h"
#include "values/integer.h"

namespace {

using String = inspector_string;

dmi Dmi() {
    EnabledDmiTable();
    return {};
}

std::optional<dmi_structure> Numbered(unsigned type, integer number) {
    // Instances are counted in a byte.
    if (number < 0 || number > 255) {
        return std::nullopt;
    }
    const DmiStructure* structure = LoadedDmiTable().Find(type, static_cast<unsigned>(number.Value()));
    return structure == nullptr ? std::nullopt : std::optional(dmi_structure{structure});
}

std::optional<String> AsText(std::optional<std::string_view> text) {
    return text ? std::optional<String>(*text) : std::nullopt;
}

integer Length(const dmi_structure& s) { return s.structure->Length(); }

// ---- The types of the catalogue -------------------------------------------------------------------------------------

// The functions are shared by all types and fields: a registration's data is its row of the catalogue.

class instance_iterator {
public:
    static bool First(void* result, const void*, const void*, void* state, const void* row) {
        static_cast<instance_iterator*>(state)->instances_.Start(
            static_cast<unsigned>(adapters::As<SmbType>(row).type));
        return Next(result, nullptr, nullptr, state, row);
    }
    static bool Next(void* result, const void*, const void*, void* state, const void*) {
        if (result == nullptr) {
            return true;
        }
        const DmiStructure* structure = static_cast<instance_iterator*>(state)->instances_.Next(LoadedDmiTable());
        return structure != nullptr && adapters::Build(result, dmi_structure{structure});
    }

private:
    DmiInstances instances_;
};

bool GetNumbered(void* result, const void* index, const void*, void*, const void* row) {
    return result == nullptr || adapters::Build(result, Numbered(static_cast<unsigned>(adapters::As<SmbType>(row).type),
                                                                 adapters::As<integer>(index)));
}

bool GetInteger(void* result, const void*, const void* object, void*, const void* row) {
    if (result == nullptr) {
        return true;
    }
    const std::optional<int64_t> number =
        IntegerOf(adapters::As<SmbValue>(row), *adapters::As<dmi_structure>(object).structure);
    return number && adapters::Build(result, integer(*number));
}

bool GetText(void* result, const void*, const void* object, void*, const void* row) {
    return result == nullptr ||
           adapters::Build(result,
                           AsText(TextOf(adapters::As<SmbValue>(row), *adapters::As<dmi_structure>(object).structure)));
}

GuardType TypeNamed(const char* name) {
    GuardType type = TypeRecord<dmi_structure>();
    type.name = name;
    return type;
}

PropertyAccessor EveryInstance(const SmbType& row) {
    PropertyAccessor record =
        adapters::IteratedAccessor<instance_iterator, instance_iterator, dmi_structure, None, dmi>(
            row.name.data(), row.plural, ByValueOnly);
    record.resultTypeName = row.dmiType;
    record.data = &row;
    return record;
}

PropertyAccessor InstanceByNumber(const SmbType& row) {
    PropertyAccessor record = adapters::Accessor<dmi_structure, integer, dmi>(row.name.data(), row.plural, ByValueOnly);
    record.firstMiddle = &GetNumbered;
    record.resultTypeName = row.dmiType;
    record.data = &row;
    return record;
}

PropertyAccessor LengthOf(const SmbType& row) {
    PropertyAccessor record =
        adapters::SimpleAccessor<Property<dmi_structure, integer, Length>, integer, None, dmi_structure>(
            "length", "lengths", DependsOnlyOnParameters);
    record.directObjectTypeName = row.dmiType;
    return record;
}

PropertyAccessor FieldOf(const SmbType& type, const SmbValue& row) {
    const bool isNumber = IsIntegerKind(row.kind);
    PropertyAccessor record =
        isNumber
            ? adapters::Accessor<integer, None, dmi_structure>(row.name.data(), row.plural, DependsOnlyOnParameters)
            : adapters::Accessor<String, None, dmi_structure>(row.name.data(), row.plural, DependsOnlyOnParameters);
    record.firstMiddle = isNumber ? &GetInteger : &GetText;
    record.directObjectTypeName = type.dmiType;
    record.data = &row;
    return record;
}

// ---- Devices on board -----------------------------------------------------------------------------------------------

// The formatted area is a list of pairs, a device's type and the number of the string that describes it, counted
// from 1.

constexpr int kOnBoardDevices = 10;

// The field of the first pair gives way to the phrase that tells of all of them.
bool IsTold(const SmbType& type, const SmbValue& row) {
    return type.type != kOnBoardDevices || row.name != "device_type";
}

constexpr size_t PairAt(uint64_t n) { return DmiStructure::kHeaderLength + 2 * (n - 1); }

uint64_t Pairs(const DmiStructure& structure) { return (structure.Length() - DmiStructure::kHeaderLength) / 2; }

bool IsPair(integer n, const DmiStructure& structure) {
    return n >= 1 && static_cast<uint64_t>(n.Value()) <= Pairs(structure);
}

std::optional<integer> DeviceType(integer n, const dmi_structure& s) {
    if (!IsPair(n, *s.structure)) {
        return std::nullopt;
    }
    return static_cast<int64_t>(*s.structure->Number(PairAt(static_cast<uint64_t>(n.Value())), 1));
}

std::optional<String> DeviceDescription(integer n, const dmi_structure& s) {
    if (!IsPair(n, *s.structure)) {
        return std::nullopt;
    }
    return AsText(s.structure->StringAt(PairAt(static_cast<uint64_t>(n.Value())) + 1));
}

// What F gives of each pair; a pair of which it gives nothing is passed over.
template <class R, auto F>
class pair_iterator {
public:
    void Start(Of, const dmi_structure&) { pair_ = 0; }
    std::optional<R> Next(Of, const dmi_structure& s) {
        while (IsPair(pair_ + 1, *s.structure)) {
            if (std::optional<R> value = F(++pair_, s)) {
                return value;
            }
        }
        return std::nullopt;
    }

private:
    int64_t pair_ = 0;
};

template <class Registration>
PropertyAccessor OfOnBoardDevices(const char* singular, const char* plural) {
    PropertyAccessor record = Registration(singular, plural).GetRecord();
    record.directObjectTypeName = "dmi on_board_devices_information";
    return record;
}

// ---- Lists of strings -----------------------------------------------------------------------------------------------

constexpr unsigned kOemStrings = 11;
constexpr unsigned kConfigurationOptions = 12;

uint64_t StringCount(const DmiStructure& structure) { return structure.Number(4, 1).value_or(0); }

// The numbers run on from one instance to the next, by the count that each tells of itself.
template <unsigned type>
std::optional<String> NumberedString(const integer& number, Of, const dmi&) {
    if (number < 1) {
        return std::nullopt;
    }
    auto rest = static_cast<uint64_t>(number.Value());
    DmiTable& table = LoadedDmiTable();
    DmiInstances instances;
    instances.Start(type);
    while (const DmiStructure* structure = instances.Next(table)) {
        const uint64_t count = StringCount(*structure);
        if (rest <= count) {
            return AsText(structure->NumberedString(rest));
        }
        rest -= count;
    }
    return std::nullopt;
}

template <unsigned type>
class string_iterator {
public:
    void Start(Of, const dmi&) {
        instances_.Start(type);
        structure_ = nullptr;
        number_ = 0;
    }
    std::optional<String> Next(Of, const dmi&) {
        for (;;) {
            // A set that has fewer strings than its count ends where it ends.
            if (structure_ != nullptr && number_ < StringCount(*structure_)) {
                if (const std::optional<String> text = AsText(structure_->NumberedString(++number_))) {
                    return text;
                }
            }
            structure_ = instances_.Next(LoadedDmiTable());
            number_ = 0;
            if (structure_ == nullptr) {
                return std::nullopt;
            }
        }
    }

private:
    DmiInstances instances_;
    const DmiStructure* structure_ = nullptr;
    uint64_t number_ = 0;
};

// ---- Registrations --------------------------------------------------------------------------------------------------

template <class Iterator, class R, class O>
using Every = IteratedPropertyOfObject<Iterator, R, O, &Iterator::Next, &Iterator::Next, &Iterator::Start>;

using OemStrings = string_iterator<kOemStrings>;
using ConfigurationOptions = string_iterator<kConfigurationOptions>;
using DeviceTypes = pair_iterator<integer, DeviceType>;
using DeviceDescriptions = pair_iterator<String, DeviceDescription>;

// clang-format off
Type<dmi>                                                                   type;
GlobalProperty<dmi, Dmi>                                                    global      {"dmi", "dmis", ByValueOnly};

// Types that no phrase gives.
RegistrationObject<TypeRegistration>                                        oemType     {TypeNamed("dmi oem_strings")};
RegistrationObject<TypeRegistration>                                        optionType  {TypeNamed("dmi system_configuration_option")};

Every<OemStrings, String, dmi>                                              oem         {"oem_string", "oem_strings", ByValueOnly};
PropertyByIndexOfObject<dmi, integer, String, NumberedString<kOemStrings>>  numberedOem {"oem_string", "oem_strings", ByValueOnly};
Every<ConfigurationOptions, String, dmi>                                    option      {"system_configuration_option", "system_configuration_options", ByValueOnly};
PropertyByIndexOfObject<dmi, integer, String, NumberedString<kConfigurationOptions>>
                                                                            numberedOption {"system_configuration_option", "system_configuration_options", ByValueOnly};
// clang-format on

PropertyRegistrationObject deviceType{
    OfOnBoardDevices<Every<DeviceTypes, integer, dmi_structure>>("device_type", "device_types")};
PropertyRegistrationObject numberedDeviceType{
    OfOnBoardDevices<NumberedProperty<dmi_structure, integer, DeviceType>>("device_type", "device_types")};
PropertyRegistrationObject deviceDescription{
    OfOnBoardDevices<Every<DeviceDescriptions, String, dmi_structure>>("device_description", "device_descriptions")};
PropertyRegistrationObject numberedDeviceDescription{
    OfOnBoardDevices<NumberedProperty<dmi_structure, String, DeviceDescription>>("device_description",
                                                                                 "device_descriptions")};

struct TypeRegistrations {
    explicit TypeRegistrations(const SmbType& row)
        : type(TypeNamed(row.dmiType)),
          every(EveryInstance(row)),
          numbered(InstanceByNumber(row)),
          length(LengthOf(row)) {}

    RegistrationObject<TypeRegistration> type;
    PropertyRegistrationObject every;
    PropertyRegistrationObject numbered;
    PropertyRegistrationObject length;
};

// Every row of the catalogue that `dmi` tells of.
class Catalogue {
public:
    Catalogue() {
        for (const SmbType* row = smbTypeTable; row->type != -1; ++row) {
            if (row->IsOnDmi()) {
                Register(*row);
            }
        }
    }

private:
    void Register(const SmbType& row) {
        types_[typeCount_++].emplace(row);
        for (const SmbValue& field : row) {
            if (IsTold(row, field)) {
                fields_[fieldCount_++].emplace(FieldOf(row, field));
            }
        }
    }

    std::optional<TypeRegistrations> types_[kDmiTypes];
    std::optional<PropertyRegistrationObject> fields_[kDmiFields];
    size_t typeCount_ = 0;
    size_t fieldCount_ = 0;
};
Catalogue catalogue;

}  // namespace
