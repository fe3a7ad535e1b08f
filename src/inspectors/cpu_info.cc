#include "inspectors/cpu_info.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "foundation/ascii.h"
#include "foundation/file_error.h"
#include "foundation/stdio_file.h"

namespace {

// What follows the ":" of a line, none for a line without one.
std::optional<std::string_view> ValueOf(std::string_view line) {
    const size_t colon = line.find(':');
    return colon == std::string_view::npos ? std::nullopt : std::optional<std::string_view>(line.substr(colon + 1));
}

template <auto Field>
void TakeNumber(CpuRecord& record, std::string_view line) {
    if (const auto value = ValueOf(line)) {
        record.*Field = std::strtol(std::string(*value).c_str(), nullptr, 10);
    }
}

template <auto Field>
void TakeReal(CpuRecord& record, std::string_view line) {
    if (const auto value = ValueOf(line)) {
        record.*Field = std::strtod(std::string(*value).c_str(), nullptr);
    }
}

template <auto Field>
void TakeTruth(CpuRecord& record, std::string_view line) {
    record.*Field = line.find("yes") != std::string_view::npos;
}

// Behind the ":" and the byte that follows it, without blanks at the front and without the end of the line.
template <auto Field>
void TakeText(CpuRecord& record, std::string_view line) {
    std::optional<std::string_view> value = ValueOf(line);
    if (!value) {
        return;
    }
    value->remove_prefix(std::min<size_t>(1, value->size()));
    value->remove_prefix(std::min(value->find_first_not_of(" \t"), value->size()));
    record.*Field = value->substr(0, value->find_first_of("\r\n"));
}

struct Key {
    std::string_view start;
    void (*take)(CpuRecord& record, std::string_view line);
};

// In the order in which they are tried: what another key begins with stands before it.
constexpr Key kKeys[] = {
    {"cpu mhz", TakeReal<&CpuRecord::mhz>},
    {"physical id", TakeNumber<&CpuRecord::physicalId>},
    {"siblings", TakeNumber<&CpuRecord::siblings>},
    {"cpu cores", TakeNumber<&CpuRecord::cpuCores>},
    {"processor", TakeNumber<&CpuRecord::index>},
    {"cpu family", TakeNumber<&CpuRecord::family>},
    {"stepping", TakeNumber<&CpuRecord::stepping>},
    {"cpuid level", TakeNumber<&CpuRecord::cpuidLevel>},
    {"bogomips", TakeReal<&CpuRecord::bogomips>},
    {"fdiv_bug", TakeTruth<&CpuRecord::fdivBug>},
    {"hlt_bug", TakeTruth<&CpuRecord::hltBug>},
    {"sep_bug", TakeTruth<&CpuRecord::sepBug>},
    {"f00f_bug", TakeTruth<&CpuRecord::f00fBug>},
    {"coma_bug", TakeTruth<&CpuRecord::comaBug>},
    {"wp", TakeTruth<&CpuRecord::wp>},
    {"fpu_exception", TakeTruth<&CpuRecord::fpuException>},
    {"fpu", TakeTruth<&CpuRecord::fpu>},
    {"vendor", TakeText<&CpuRecord::vendorId>},
    {"flags", TakeText<&CpuRecord::flagList>},
    {"model name", TakeText<&CpuRecord::modelName>},
    {"model", TakeNumber<&CpuRecord::model>},
};

}  // namespace

void CpuInfoParser::Line(std::string_view piece) {
    const auto* key = std::find_if(std::begin(kKeys), std::end(kKeys),
                                   [&](const Key& row) { return Ascii::BeginsWithIgnoringCase(piece, row.start); });
    if (key == std::end(kKeys)) {
        return;
    }
    if (key->start == "processor") {
        records_.emplace_back();
    }
    if (!records_.empty()) {
        key->take(records_.back(), piece);
    }
}

std::vector<CpuRecord> ParseCpuInfo(std::string_view text) {
    CpuInfoParser parser;
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), CpuInfoParser::kPiece - 1);
        const std::string_view piece = text.substr(0, end + 1);
        parser.Line(piece);
        text.remove_prefix(piece.size());
    }
    return parser.Records();
}

std::vector<CpuRecord> ReadCpuInfo(const char* path) {
    const StdioFile file = OpenStdioFile(path);
    if (file == nullptr) {
        throw FileIOError(0, path);
    }
    CpuInfoParser parser;
    char piece[CpuInfoParser::kPiece + 1];
    while (fgets(piece, sizeof piece, file.get()) != nullptr) {
        parser.Line(piece);
    }
    return parser.Records();
}

namespace {

std::optional<int64_t> Rounded(double number) {
    const double rounded = std::round(number);
    constexpr double kBound = 9223372036854775808.0;  // 2 to the 63
    return rounded >= -kBound && rounded < kBound ? std::optional(static_cast<int64_t>(rounded)) : std::nullopt;
}

}  // namespace

std::optional<int64_t> Hertz(const CpuRecord& record) {
    constexpr double kHertzOfMegahertz = 1000000;
    return record.mhz ? Rounded(*record.mhz * kHertzOfMegahertz) : std::nullopt;
}

std::optional<int64_t> Bogomips(const CpuRecord& record) {
    return record.bogomips ? Rounded(*record.bogomips) : std::nullopt;
}

namespace {

constexpr std::string_view kIntel = "GenuineIntel";
constexpr std::string_view kAmd = "AuthenticAMD";
constexpr std::string_view kCyrix = "CyrixInstead";
constexpr std::string_view kCentaur = "CentaurHauls";

void RemoveFirst(std::string& text, std::string_view word) {
    const size_t at = text.find(word);
    if (at != std::string::npos) {
        text.erase(at, word.size());
    }
}

// Some makers' firmware writes the whole name in capitals.
class NameWords {
public:
    explicit NameWords(std::string_view name) : name_(name) {}
    bool Has(std::string_view word) const {
        const auto lower = [](char c) { return Ascii::lowercaseTable[static_cast<unsigned char>(c)]; };
        return std::search(name_.begin(), name_.end(), word.begin(), word.end(),
                           [&](char a, char b) { return lower(a) == lower(b); }) != name_.end();
    }

private:
    std::string_view name_;
};

constexpr std::string_view kUnknown = "Unknown";

// The generations of family 6, by their model numbers.
enum class P6 { Pro, II, Celeron, III, M, Core, Core2, EP80579, Later };

P6 GenerationOf(int64_t model) {
    switch (model) {
        case 0:
        case 1:
            return P6::Pro;
        case 3:
        case 5:
            return P6::II;
        case 6:
            return P6::Celeron;
        case 7:
        case 8:
        case 10:
        case 11:
            return P6::III;
        case 9:
        case 13:
            return P6::M;
        case 14:
            return P6::Core;
        case 15:
        case 22:
        case 23:
        case 29:
            return P6::Core2;
        case 21:
            return P6::EP80579;
        default:
            return P6::Later;
    }
}

std::string_view IntelFamily6(int64_t model, const NameWords& name) {
    const P6 generation = GenerationOf(model);
    const bool xeon = name.Has("Xeon");
    const bool celeron = name.Has("Celeron");
    switch (generation) {
        case P6::Pro:
            return "Pentium Pro";
        case P6::II:
            return xeon ? "Pentium II Xeon" : celeron ? "Celeron" : "Pentium II";
        case P6::Celeron:
            return name.Has("Pentium II") ? "Pentium II" : "Celeron";
        case P6::III:
            return xeon                  ? "Pentium III Xeon"
                   : celeron             ? "Celeron"
                   : name.Has("Extreme") ? "Pentium III Extreme"
                                         : "Pentium III";
        case P6::M:
            return celeron ? "Celeron M" : "Pentium M";
        case P6::EP80579:
            return "Intel EP80579";
        case P6::Core:
            return xeon ? "Xeon" : celeron ? "Celeron M" : name.Has("Pentium") ? "Pentium" : "Core";
        case P6::Core2:
            return xeon                  ? "Xeon"
                   : celeron             ? "Celeron"
                   : name.Has("Pentium") ? "Pentium"
                   : name.Has("Extreme") ? "Core 2 Extreme"
                   : name.Has("Quad")    ? "Core 2 Quad"
                   : name.Has("Duo")     ? "Core 2 Duo"
                   : name.Has("Solo")    ? "Core 2 Solo"
                                         : "Core 2";
        case P6::Later:
            break;
    }
    return xeon ? "Xeon" : celeron ? "Celeron" : name.Has("Pentium") ? "Pentium" : name.Has("Core") ? "Core" : kUnknown;
}

// A name keeps the second of its marks, so that the letter stands apart: "Pentium(R) D 3.00GHz".
std::string_view IntelFamily15(const NameWords& name) {
    const bool d = name.Has(" D ");
    if (name.Has("Xeon")) {
        return "Xeon";
    }
    if (name.Has("Celeron")) {
        return d ? "Celeron D" : "Celeron";
    }
    return d ? "Pentium D" : "Pentium 4";
}

std::string_view IntelFamily(int64_t family, int64_t model, const NameWords& name) {
    switch (family) {
        case 0:
            return "8086";
        case 2:
            return "80286";
        case 3:
            return "80386";
        case 4:
            return "80486";
        case 5:
            return "Pentium";
        case 6:
            return IntelFamily6(model, name);
        case 7:
            return "Itanium";
        case 15:
            return IntelFamily15(name);
        case 31:
        case 32:
            return "Itanium 2";
        default:
            return kUnknown;
    }
}

std::string_view AmdFamily(int64_t family, const NameWords& name) {
    if (name.Has("Duron")) {
        return "Duron";
    }
    if (name.Has("Athlon")) {
        return "Athlon";
    }
    switch (family) {
        case 3:
            return "80386";
        case 4:
            return "80486";
        case 6:
            return "Athlon";
        default:
            return kUnknown;
    }
}

}  // namespace

std::string ShortenedModelName(std::string_view vendorId, std::string_view modelName) {
    std::string name(modelName);
    for (std::string_view mark : {"(R)", "(TM)", "(r)", "(tm)"}) {
        RemoveFirst(name, mark);
    }
    if (vendorId == kIntel) {
        RemoveFirst(name, "Intel ");
        RemoveFirst(name, " CPU");
    } else if (vendorId == kAmd) {
        RemoveFirst(name, "AMD ");
        RemoveFirst(name, " Processor");
    }
    return name;
}

std::string_view FamilyName(const CpuRecord& record) {
    const std::string vendor = record.vendorId.value_or("");
    const std::string shortened = ShortenedModelName(vendor, record.modelName.value_or(""));
    const NameWords name(shortened);
    const int64_t family = record.family.value_or(-1);
    if (vendor == kIntel) {
        return IntelFamily(family, record.model.value_or(-1), name);
    }
    if (vendor == kAmd) {
        return AmdFamily(family, name);
    }
    if (vendor == kCyrix && name.Has("MediaGX")) {
        return "MediaGX";
    }
    // Their fourth family is of the old make.
    return (vendor == kCyrix || vendor == kCentaur) && family == 4 ? "80486" : kUnknown;
}

namespace {

bool HasFlag(const CpuRecord& record, std::string_view flag) {
    const std::string list = " " + record.flagList.value_or("") + " ";
    return list.find(" " + std::string(flag) + " ") != std::string::npos;
}

// A sum that doesn't fit has no value, and gets none by what comes behind.
void AddTo(std::optional<int64_t>& sum, int64_t count) {
    int64_t total = 0;
    if (sum && !__builtin_add_overflow(*sum, count, &total)) {
        sum = total;
    } else {
        sum.reset();
    }
}

}  // namespace

CpuPackages CountPackages(const std::vector<CpuRecord>& records) {
    CpuPackages sum;
    std::vector<int64_t> seen;
    for (const CpuRecord& record : records) {
        sum.smtCapable = sum.smtCapable || HasFlag(record, "ht");
        if (record.physicalId) {
            if (std::find(seen.begin(), seen.end(), *record.physicalId) != seen.end()) {
                continue;
            }
            seen.push_back(*record.physicalId);
        }
        const int64_t cores = record.cpuCores.value_or(1);
        const int64_t threads = record.siblings.value_or(1);
        ++sum.packages;
        AddTo(sum.cores, cores);
        AddTo(sum.threads, threads);
        sum.smtEnabled = sum.smtEnabled || threads > cores;
    }
    return sum;
}
