// Feeds arbitrary bytes to the parser of processor records: every record has a family name, a shortened name is no
// longer than the whole, a clock comes from its own line, and packages are never more than records.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/expect.h"
#include "inspectors/cpu_info.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<CpuRecord> records = ParseCpuInfo({reinterpret_cast<const char*>(data), size});
    for (const CpuRecord& record : records) {
        Expect(!FamilyName(record).empty());
        Expect(record.mhz || !Hertz(record));
        Expect(record.bogomips || !Bogomips(record));
        const std::string name = record.modelName.value_or("");
        Expect(ShortenedModelName(record.vendorId.value_or(""), name).size() <= name.size());
    }
    const CpuPackages packages = CountPackages(records);
    Expect(packages.packages <= static_cast<int64_t>(records.size()) && (packages.packages > 0) == !records.empty());
    return 0;
}
