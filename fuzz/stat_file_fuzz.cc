// Feeds arbitrary bytes to the readers of what the use of applications is made of.
//
// The size alone decides which form a file has, what was read is written and reads back, and adding up any uses goes
// wrong nowhere.  The same bytes are the text that tells the start of a process, which is none or the number that
// stands in its field.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "client/process_table.h"
#include "client/stat_file.h"
#include "fuzz/expect.h"

namespace {

void ReadStatFileBytes(std::string_view bytes) {
    const std::vector<StatRecord> records = ParseStatFile(bytes);
    Expect(bytes.size() == kOldStatFileSize
               ? records.size() == 1
               : records.empty() || bytes.size() == kStatCountSize + kStatRecordSize * records.size());
    std::vector<StatRecord> sums;
    for (const StatRecord& record : records) {
        AddUse(sums, record);
    }
    Expect(sums.size() <= records.size() && sums.empty() == records.empty());
    if (bytes.size() == kOldStatFileSize) {
        Expect(OldStatFileBytes(records.front()) == bytes);
    } else {
        Expect(ParseStatFile(StatFileBytes(records)) == records);
    }
}

void ReadStatText(const std::string& text) {
    const std::optional<uint64_t> second = ProcessStartSecond(text);
    const size_t end = text.rfind(')');
    Expect(!second || (end != std::string::npos && end >= 5));
    Expect(!second || *second <= UINT64_MAX / 100);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    ReadStatFileBytes(text);
    ReadStatText(text);
    return 0;
}
