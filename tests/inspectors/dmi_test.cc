// The firmware's phrases, by name and by the walk, over firmware made to measure.
#include "inspectors/dmi.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <type_traits>

#include "tests/inspectors/firmware_catalogue.h"
#include "tests/inspectors/firmware_host.h"

namespace {

// Every structure type there is, 42 and 200 among them, each once in full and once without fields.
Bytes EveryType() {
    std::vector<Bytes> parts;
    for (int type = 0; type != 43; ++type) {
        parts.push_back(TellingStructure(type));
        parts.push_back(Structure(type, {}));
    }
    for (const int type : {200, 126, 127}) {
        parts.push_back(Structure(type, {}));
    }
    return Joined(parts);
}

// What the field is in a telling structure: its bytes are their own offsets.
std::string Told(const CatalogueField& field) {
    const auto number = [&field](int width) {
        uint64_t value = 0;
        for (int i = width; i-- != 0;) {
            value = value << 8 | static_cast<unsigned>(field.offset + i);
        }
        return std::to_string(value);
    };
    switch (field.kind) {
        case 'B':
            return number(1);
        case 'W':
            return number(2);
        case 'D':
            return number(4);
        case 'Q':
            return number(8);
        case 'S':
            return "text " + std::to_string(field.offset);
        default: {
            std::string bytes;
            for (int i = 0; i != field.length; ++i) {
                bytes.push_back(static_cast<char>(field.offset + i));
            }
            return bytes;
        }
    }
}

const char* KindName(char kind) {
    switch (kind) {
        case 'B':
            return "Byte";
        case 'W':
            return "Word";
        case 'D':
            return "DWord";
        case 'Q':
            return "QWord";
        case 'S':
            return "String";
        case 'Y':
            return "BinaryString";
        default:
            return "MultipleString";
    }
}

TEST(Dmi, AnswersEachFieldOfTheCatalogue) {
    Machine machine(EveryType());
    int types = 0;
    int fields = 0;
    for (const CatalogueType& type : FirmwareCatalogue()) {
        if (!type.OnDmi()) {
            // The names of the lists of strings are phrases all the same: the plurals for their strings.
            EXPECT_EQ(machine.Asked("true or exists lengths of " + type.name + " of dmi"),
                      type.number < 126 ? Values({"True"}) : Fails("OperationNotDefined"));
            EXPECT_EQ(machine.Asked("exists " + type.name + "s of dmi"), Fails("OperationNotDefined"));
            continue;
        }
        ++types;
        EXPECT_EQ(machine.Asked("lengths of " + type.name + "s of dmis"), Values({"64", "4"})) << type.name;
        EXPECT_EQ(machine.Asked("length of " + type.name + " 0 of dmi; lengths of " + type.name + "s 1 of dmi"),
                  Values({"64", "4"}))
            << type.name;
        EXPECT_EQ(machine.Asked("exists " + type.name + " 2 of dmi; exists " + type.name + " (-1) of dmi; exists " +
                                type.name + " 256 of dmi; exists " + type.name + " 4294967296 of dmi"),
                  Values({"False", "False", "False", "False"}));
        for (const CatalogueField& field : type.fields) {
            ++fields;
            if (type.number == 10 && field.name == "device_type") {
                continue;  // tells of all devices
            }
            EXPECT_EQ(machine.Asked(field.name + " of " + type.name + " 0 of dmi"), Values({Told(field)}))
                << type.name << " " << field.name;
            EXPECT_EQ(machine.Asked(field.name + "s of " + type.name + "s of dmis"), Values({Told(field)}))
                << type.name << " " << field.name;
            EXPECT_EQ(machine.Asked(field.name + " of " + type.name + " 1 of dmi"), DoesNotExist());
        }
    }
    EXPECT_EQ(types, 38);
    EXPECT_EQ(fields, 272);
}

TEST(Smbios, AnswersEachFieldOfTheCatalogue) {
    Machine machine(EveryType());
    int fields = 0;
    for (const CatalogueType& type : FirmwareCatalogue()) {
        const std::string structure = "structures \"" + type.name + "\" of smbios";
        EXPECT_EQ(machine.Asked("(name of it & \" \" & type of it as string & \" \" & length of it as string) of " +
                                structure),
                  type.number < 126 ? Values({type.name + " " + std::to_string(type.number) + " 64",
                                              type.name + " " + std::to_string(type.number) + " 4"})
                                    : Values({type.name + " " + std::to_string(type.number) + " 4"}));
        for (const CatalogueField& field : type.fields) {
            ++fields;
            // At the end of the short structure a field has its name and no content.
            const std::string quoted = " \"" + field.name + "\" of (" + structure + ") whose (length of it = 64)";
            std::vector<std::string> wanted = {Told(field)};
            if (field.kind == 'M') {
                wanted.clear();
                for (int i = 1; i <= 64; ++i) {
                    wanted.push_back("text " + std::to_string(i));
                }
            }
            const bool isNumber = std::string("BWDQ").find(field.kind) != std::string::npos;
            const Answer nothing;
            const auto asked = [&](const char* what) { return machine.Asked(what + quoted); };
            EXPECT_EQ(machine.Asked("(it as string) of values" + quoted), Values(wanted)) << quoted;
            EXPECT_EQ(machine.Asked("(it as string) of integer values" + quoted), isNumber ? Values(wanted) : nothing);
            EXPECT_EQ(machine.Asked("(it as string) of string values" + quoted), isNumber ? nothing : Values(wanted));
            EXPECT_EQ(asked("integers"), isNumber ? Values(wanted) : nothing);
            EXPECT_EQ(asked("strings"), isNumber ? nothing : Values(wanted));
            const std::string described =
                field.name + " " + KindName(field.kind) + " " + std::to_string(field.offset) + " " + type.name;
            EXPECT_EQ(
                machine.Asked("unique values of (name of it & \" \" & type of it & \" \" & offset of it as string & "
                              "\" \" & name of structure of it) of values" +
                              quoted),
                Values({described}));
        }
    }
    EXPECT_EQ(fields, 276);
}

TEST(Smbios, TakesTheTypesInTheirOrder) {
    // Written the other way round.
    std::vector<Bytes> parts;
    for (int type = 255; type >= 0; --type) {
        parts.push_back(Structure(type, {}));
    }
    Machine machine(Joined(parts));
    std::vector<std::string> numbers;
    std::vector<std::string> names;
    for (const CatalogueType& type : FirmwareCatalogue()) {
        numbers.push_back(std::to_string(type.number));
        names.push_back(type.name);
    }
    EXPECT_EQ(numbers.size(), 42U);
    EXPECT_EQ(machine.Asked("types of structures of smbioses"), Values(numbers));
    EXPECT_EQ(machine.Asked("names of structures of smbios"), Values(names));
    for (const char* none : {"none", "", "oem", "oem_stringss", "smbios"}) {
        EXPECT_EQ(machine.Asked("exists structures \"" + std::string(none) + "\" of smbios"), Values({"False"}))
            << none;
    }
}

TEST(Smbios, WalksTheFieldsInTheirOrder) {
    Machine machine(Joined({Structure(21, {1, 2, 3}), Structure(21, {1}), Structure(11, {2}, {"a", "b", "c"})}));
    EXPECT_EQ(machine.Asked("names of values of structures \"BUILT_in_pointing_device\" of smbios"),
              Values({"type", "interface", "number_of_buttons", "type", "interface"}));
    EXPECT_EQ(machine.Asked("(it as string) of values of structures \"built_in_pointing_device\" of smbios"),
              (Answer{{"1", "2", "3", "1"}, "ArgumentDoesNotExist"}));
    EXPECT_EQ(machine.Asked("values \"TYPE\" of structures \"built_in_pointing_device\" of smbios"),
              Values({"1", "1"}));
    EXPECT_EQ(machine.Asked("values of structure \"oem_strings\" of smbios"), Values({"2", "a", "b", "c"}));
    EXPECT_EQ(machine.Asked("integers \"interface\" of structures \"built_in_pointing_device\" of smbios"),
              Values({"2"}));
    EXPECT_EQ(machine.Asked("exists structure \"none\" of smbios; exists structure \"oem\" of smbios"),
              Values({"False", "False"}));
    EXPECT_EQ(machine.Asked("type of structure of value \"count\" of structure \"oem_strings\" of smbios"),
              Values({"11"}));
    // The field that begins where the structure ends is told of, but it has no content and cannot become text.
    EXPECT_EQ(machine.Asked("values of structures \"built_in_pointing_device\" of smbios").failure,
              "ValueNotConverted");
}

TEST(Dmi, ListsTheStringsOfAllInstances) {
    Machine machine(Joined({Structure(11, {2}, {"a", "b"}), Structure(11, {}), Structure(11, {3}, {"c", "d"}),
                            Structure(11, {1}, {"e", "f"}), Structure(12, {1}, {"x"})}));
    EXPECT_EQ(machine.Asked("oem_strings of dmi"), Values({"a", "b", "c", "d", "e"}));
    EXPECT_EQ(machine.Asked("oem_string 1 of dmi; oem_string 2 of dmi; oem_string 3 of dmi; oem_strings 4 of dmi; "
                            "oem_string 6 of dmi"),
              Values({"a", "b", "c", "d", "e"}));
    EXPECT_EQ(machine.Asked("exists oem_string 5 of dmi; exists oem_string 0 of dmi; exists oem_string 7 of dmi; "
                            "exists oem_string (-1) of dmi; exists oem_string 9223372036854775807 of dmi"),
              Values({"False", "False", "False", "False", "False"}));
    EXPECT_EQ(machine.Asked("oem_string of dmi"), (Answer{{"a"}, "ArgumentNotUnique"}));
    EXPECT_EQ(machine.Asked("system_configuration_option of dmi; system_configuration_options of dmi; "
                            "system_configuration_option 1 of dmi; system_configuration_options 1 of dmis"),
              Values({"x", "x", "x", "x"}));
    Machine none(Structure(0, {}));
    EXPECT_EQ(none.Asked("oem_string 1 of dmi"), DoesNotExist());
    EXPECT_EQ(none.Asked("oem_strings of dmi"), Nothing());
    EXPECT_EQ(none.Asked("exists system_configuration_option 1 of dmi"), Values({"False"}));
}

TEST(Dmi, TellsTheDevicesOnBoard) {
    Machine machine(Structure(10, {0x83, 1, 5, 0, 0x84, 2, 9}, {"video", "sound"}));
    EXPECT_EQ(machine.Asked("device_types of on_board_devices_information of dmi"), Values({"131", "5", "132"}));
    EXPECT_EQ(machine.Asked("device_descriptions of on_board_devices_information of dmi"), Values({"video", "sound"}));
    EXPECT_EQ(machine.Asked("(device_type 1 of it; device_types 2 of it; device_type 3 of it) of "
                            "on_board_devices_information of dmi"),
              Values({"131", "5", "132"}));
    EXPECT_EQ(machine.Asked("(device_description 1 of it; device_descriptions 3 of it; description_string of it) of "
                            "on_board_devices_information of dmi"),
              Values({"video", "sound", "video"}));
    EXPECT_EQ(machine.Asked("(exists device_type 0 of it; exists device_type 4 of it; exists device_type (-1) of it; "
                            "exists device_description 2 of it; exists device_description 4 of it; "
                            "exists device_description 9223372036854775807 of it) of on_board_devices_information of "
                            "dmi"),
              Values({"False", "False", "False", "False", "False", "False"}));
}

TEST(Dmi, HasNoFieldWhereTheStructureEnds) {
    Machine machine(
        Joined({Structure(0, {1, 2, 0x34, 0x12, 0x20, 0}, {"maker", "7"}), Structure(0, {3, 0, 1}, {"maker", "7"}),
                Structure(0, {1, 1, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0x80}),
                Structure(0, {1, 1, 0, 0, 0, 1, 255, 255, 255, 255, 255, 255, 255, 0x7f})}));
    EXPECT_EQ(machine.Asked("(vendor of it; bios_version of it) of bios_information 0 of dmi"), Values({"maker", "7"}));
    EXPECT_EQ(machine.Asked("bios_starting_address_segment of bios_information 0 of dmi"), Values({"4660"}));
    EXPECT_EQ(machine.Asked("bios_rom_size of bios_information 0 of dmi"), Values({"0"}));
    EXPECT_EQ(machine.Asked("exists bios_characteristics of bios_information 0 of dmi"), Values({"False"}));
    // The number of no string, and one beyond the set.
    EXPECT_EQ(machine.Asked("bios_version of bios_information 1 of dmi"), DoesNotExist());
    EXPECT_EQ(machine.Asked("vendor of bios_information 1 of dmi"), DoesNotExist());
    // A word of which only the first byte is there.
    EXPECT_EQ(machine.Asked("bios_starting_address_segment of bios_information 1 of dmi"), DoesNotExist());
    // A structure without strings; a number that no integer holds, and the greatest that one does.
    EXPECT_EQ(machine.Asked("vendor of bios_information 2 of dmi"), DoesNotExist());
    EXPECT_EQ(machine.Asked("exists bios_characteristics of bios_information 2 of dmi"), Values({"False"}));
    EXPECT_EQ(machine.Asked("bios_characteristics of bios_information 3 of dmi"), Values({"9223372036854775807"}));
}

TEST(Dmi, ReadsFirmwareOfEitherMode) {
    // Stringless structures without the end of a string set, and padding.
    Machine machine(Joined({{16, 5, 1, 2, 7}, Structure(17, {1, 2}, {}), Structure(127, {}), Bytes(20)}));
    EXPECT_EQ(machine.Asked("location of physical_memory_array of dmi; memory_array_handle of memory_device of dmi"),
              Values({"7", "513"}));
    EXPECT_EQ(machine.Asked("names of structures of smbios"),
              Values({"physical_memory_array", "memory_device", "end_of_table"}));
}

TEST(Dmi, SurvivesHostileLengths) {
    for (int length = 0; length != 256; ++length) {
        Machine machine(Joined({Structure(1, {1}, {"maker"}), Structure(0, {1, 1, 1}, {"a", "b"}, length)}));
        EXPECT_EQ(machine.Asked("manufacturer of system_information of dmi"), Values({"maker"})) << length;
        machine.Asked("vendor of bios_information of dmi; (it as string) of values of structures of smbios");
    }
    Machine wild(Bytes(1000, 0xff));
    EXPECT_EQ(wild.Asked("number of structures of smbios; exists dmi as string | 1"), Fails("OperationNotDefined"));
    EXPECT_EQ(wild.Asked("number of structures of smbios"), Values({"0"}));
    EXPECT_EQ(wild.Asked("exists dmi"), Values({"True"}));
}

TEST(Dmi, TouchesTheDeviceOnceAndOnlyWhenEvaluated) {
    Machine machine(Joined({Structure(0, {1}, {"a"}), Structure(0, {1}, {"b"})}));
    EXPECT_EQ(machine.Asked("true or exists vendors of bios_informations of dmi"), Values({"True"}));
    EXPECT_EQ(machine.memory.opens, 0);
    EXPECT_EQ(machine.Asked("vendors of bios_informations of dmi"), Values({"a", "b"}));
    EXPECT_EQ(machine.Asked("number of structures of smbios"), Values({"2"}));
    EXPECT_EQ(machine.memory.opens, 1);
    EXPECT_EQ(machine.memory.maps, 0);
    // What was read stays though the file goes.
    DeleteFile(machine.host.InfoFile());
    EXPECT_EQ(machine.Asked("vendors of bios_informations of dmi"), Values({"a", "b"}));
    EXPECT_EQ(machine.memory.opens, 1);
}

TEST(Dmi, IsMappedWhereItCannotBeRead) {
    FakeMemory memory(Structure(0, {1}, {"a"}));
    memory.readErrors = {5};
    Machine machine(memory);
    EXPECT_EQ(machine.Asked("vendor of bios_information of dmi"), Values({"a"}));
    EXPECT_EQ(machine.memory.opens, 2);
    EXPECT_EQ(machine.memory.closes, 2);
    EXPECT_EQ(machine.memory.maps, 2);
}

void ExpectFailure(const FakeMemory& memory, const std::string& text) {
    Machine machine(memory);
    CreateFile(machine.host.InfoFile());  // what an earlier process has left goes, too
    for (const char* question : {"exists dmi", "exists smbios", "exists dmi"}) {
        const Answer answer = machine.Asked(question);
        EXPECT_EQ(answer.failure, "DmiInspectorFailedError");
        EXPECT_EQ(answer.text, "dmi inspector error creating dmi.info (" + text + ")");
        // Told again without another attempt.
        EXPECT_EQ(machine.memory.opens, 2);
    }
    EXPECT_FALSE(FileStat(machine.host.InfoFile()).IsThere());
}

TEST(Dmi, TellsTheFailureOfBothAttemptsAndRemembersIt) {
    FakeMemory memory;
    ExpectFailure(memory, "dmi info not found[dmi info not found]");
    memory.openErrors = {13, 2};
    ExpectFailure(memory, "CreateDmiInfoMMap cannot open /dev/mem (2)[CreateDmiInfo cannot open /dev/mem (13)]");
    memory = FakeMemory();
    memory.throwing = true;
    ExpectFailure(memory, "unclassified error in CreateDmiInfoMMap[unclassified error]");
    memory = FakeMemory();
    memory.seekErrors = {29};
    memory.mapErrors = {1};
    ExpectFailure(memory, "mmap failed (1) mapping 65536 bytes at 983040[CreateDmiInfo seek to 0xf0000 failed (29)]");
    // The newer entry point alone is none.
    memory = FakeMemory();
    memory.Put(0xf1000, EntryPoint(6, FakeMemory::kTableAddress, 0x24, "_SM_"));
    ExpectFailure(memory, "dmi info not found[dmi info not found]");
    EXPECT_STREQ(DmiInspectorFailedError("").what(), "dmi inspector error creating dmi.info");
    static_assert(std::is_base_of_v<InspectorDefinedError, DmiInspectorFailedError>);
    const DmiInspectorFailedError failure("why");
    EXPECT_EQ(failure.Detail(), "why");
    EXPECT_STREQ(failure.what(), "dmi inspector error creating dmi.info (why)");
}

TEST(Dmi, FailsWhereTheFileCannotBeWritten) {
    Machine machine(Structure(0, {}));
    CreateDirectory(machine.host.InfoFile());
    CreateFile(FileLocation(machine.host.InfoFile(), "inside"));
    EXPECT_EQ(machine.Asked("exists dmi").text,
              "dmi inspector error creating dmi.info (unclassified error in CreateDmiInfoMMap[unclassified error])");
    EXPECT_EQ(machine.memory.opens, 0);  // the file's place is cleared first
}

TEST(Dmi, IsNotThereWhereTheFileIsNoTable) {
    Machine machine(Structure(0, {1}, {"a"}));
    EXPECT_EQ(machine.Asked("exists dmi"), Values({"True"}));
    machine.info.Unload();
    DeleteFile(machine.host.InfoFile());
    EXPECT_EQ(machine.Asked("exists dmi; exists smbios"), Values({"False", "False"}));
    for (const Bytes& content : {Bytes{1}, Bytes(29, 1), Bytes(30, 2), Bytes(30)}) {
        std::ofstream(machine.host.InfoFile().CString(), std::ios::binary)
            .write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
        EXPECT_EQ(machine.Asked("exists dmi; exists smbios"), Values({"False", "False"})) << content.size();
        EXPECT_EQ(machine.Asked("vendor of bios_information of dmi"), DoesNotExist()) << content.size();
    }
    ASSERT_EQ(truncate(machine.host.InfoFile().CString(), 0x100000000), 0);
    EXPECT_EQ(machine.Asked("exists dmi"), Fails("RequiredValueWouldOverflow"));
    EXPECT_EQ(machine.Asked("exists smbios"), Fails("RequiredValueWouldOverflow"));
    EXPECT_EQ(machine.memory.opens, 1);
}

TEST(Dmi, IsSwitchedOffByASetting) {
    Machine machine(Structure(0, {1}, {"a"}));
    machine.host.disable = "1";
    for (const char* question : {"exists dmi", "exists smbios", "vendor of bios_information of dmi"}) {
        const Answer answer = machine.Asked(question);
        EXPECT_EQ(answer.failure, "DmiInspectorDefinedError");
        EXPECT_EQ(answer.text, "dmi inspector is disabled");
    }
    EXPECT_EQ(machine.memory.opens, 0);
    machine.host.disable = "0";
    EXPECT_EQ(machine.Asked("vendor of bios_information of dmi"), Values({"a"}));
    machine.host.disable = "1";
    EXPECT_EQ(machine.Asked("exists dmi"), Fails("DmiInspectorDefinedError"));  // asked for each time
    machine.host.disable.reset();
    EXPECT_EQ(machine.Asked("exists smbios"), Values({"True"}));
}

class NoStorage : public InspectorContext {};
class EmptyStorage : public InspectorContext, public InspectorStorageContext {};

TEST(Dmi, WantsAStorageFolder) {
    FakeMemory memory(Structure(0, {}));
    DmiInfo info(memory);
    const DmiInfoMaintainer installed(info);
    EXPECT_EQ(Ask("exists dmi"), Fails("NoInspectorContext"));
    NoStorage none;
    EXPECT_EQ(Ask("exists dmi", &none), Fails("InspectorStorageContextError"));
    EmptyStorage empty;
    EXPECT_EQ(Ask("exists smbios", &empty), Fails("InspectorStorageContextError"));
    EXPECT_EQ(memory.opens, 0);
    FirmwareHost host;  // none of these is remembered
    EXPECT_EQ(Ask("exists dmi", &host), Values({"True"}));
}

}  // namespace
