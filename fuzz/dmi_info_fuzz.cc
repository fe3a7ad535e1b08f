// Feeds arbitrary bytes to the firmware's table: as the table itself, cut in both modes, and as the file that it is
// kept in.
//
// Whatever the bytes: the structures that a table is cut into lie one behind the other within it, and what is written
// of a table is read again with the same structures; a file is refused or read, and all that it tells of can be asked
// for.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "fuzz/expect.h"
#include "inspectors/dmi_info.h"
#include "inspectors/smbios_catalogue.h"

namespace {

// The path of the file that the bytes are put into, in memory where there is such a place.
const FileLocation& Path() {
    static const FileLocation path = [] {
        std::string folder = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
        folder += "/zendry_dmi_info_fuzz_XXXXXX";
        Expect(mkdtemp(folder.data()) != nullptr, "no folder");
        return FileLocation(folder + "/info.dmi");
    }();
    return path;
}

void Put(const uint8_t* data, size_t size) {
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(Path().CString(), "wb"), std::fclose);
    Expect(file != nullptr && std::fwrite(data, 1, size, file.get()) == size, "no file");
}

void ReadFields(const DmiStructure& structure, const SmbType& type) {
    for (const SmbValue& field : type) {
        IntegerOf(field, structure);
        TextOf(field, structure);
    }
    for (uint64_t n = 0; n <= 256; ++n) {
        if (!structure.NumberedString(n) && n != 0) {
            break;
        }
    }
}

void ReadAll() {
    std::optional<DmiInfoFile> file = DmiInfoFile::Read(Path());
    if (!file) {
        return;
    }
    DmiTable table(std::move(*file));
    for (const SmbType* type = smbTypeTable; type->type != -1; ++type) {
        DmiInstances instances;
        instances.Start(static_cast<unsigned>(type->type));
        while (const DmiStructure* structure = instances.Next(table)) {
            ReadFields(*structure, *type);
        }
    }
}

void CheckCut(ConstData table, DmiParseMode mode) {
    const auto records = SplitDmiTable(table, mode);
    Expect(records.has_value() || mode == DmiParseMode::Strict, "the lenient mode failed");
    if (!records) {
        return;
    }
    size_t end = 0;
    for (const DmiIndexRecord& record : *records) {
        Expect(record.offset == end && record.length >= DmiStructure::kHeaderLength, "a structure is out of place");
        end += record.length;
        Expect(end <= table.Length(), "a structure goes beyond the table");
        Expect(record.type == table.begin[record.offset], "a structure has another type");
    }
    Expect(mode == DmiParseMode::ByTypes || end == table.Length(), "the strict mode left a rest");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Put(data, size);
    ReadAll();

    const ConstData table(data, size < 0x10000 ? size : 0xffff);
    CheckCut(table, DmiParseMode::Strict);
    CheckCut(table, DmiParseMode::ByTypes);
    WriteDmiInfo(Path(), {0x24, {table.begin, table.end}});
    const std::optional<DmiInfoFile> file = DmiInfoFile::Read(Path());
    Expect(file.has_value(), "what was written is refused");
    const auto records = SplitDmiTable(table, static_cast<DmiParseMode>(file->Header().mode));
    Expect(records && records->size() == file->Index().size(), "structures were lost");
    for (const DmiIndexRecord& record : *records) {
        const DmiIndexRecord& written =
            file->Index()[records->size() - 1 - static_cast<size_t>(&record - &records->front())];
        Expect(written.type == record.type && written.instance == record.instance && written.length == record.length &&
                   written.offset == record.offset + DmiHeader::kLength,
               "a structure was changed");
    }
    ReadAll();
    return 0;
}
