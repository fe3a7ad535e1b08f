#include "inspectors/processor.h"

#include <optional>

#include "evaluator/adapters.h"
#include "values/hertz.h"
#include "values/integer.h"
#include "values/string.h"

ThreadLocalInspectorCache<std::vector<CpuRecord>> ClearProcessorCache;

namespace {

const std::vector<CpuRecord>& Processors() {
    const std::vector<CpuRecord>* cached = ClearProcessorCache.Get();
    return cached != nullptr ? *cached : ClearProcessorCache.Fill(ReadCpuInfo());
}

// Keeps a list of its own: the cache may be emptied while the iteration goes on.
class processor_iterator {
public:
    void Start() {
        all_ = Processors();
        next_ = 0;
    }
    bool Finished() { return next_ == all_.size(); }
    processor Next() { return processor(all_[next_++]); }

private:
    std::vector<CpuRecord> all_;
    size_t next_ = 0;
};

std::optional<processor> ProcessorByNumber(integer number) {
    const std::vector<CpuRecord>& all = Processors();
    const auto place = static_cast<uint64_t>(number.Value());
    return place < all.size() ? std::optional<processor>(all[place]) : std::nullopt;
}

std::optional<processor> MainProcessor() { return ProcessorByNumber(0); }

std::optional<integer> AsInteger(const std::optional<int64_t>& number) {
    return number ? std::optional<integer>(*number) : std::nullopt;
}

template <auto Field>
std::optional<integer> Number(const processor& p) {
    return AsInteger(p.Record().*Field);
}

template <auto Field>
std::optional<boolean> Truth(const processor& p) {
    const std::optional<bool>& truth = p.Record().*Field;
    return truth ? std::optional<boolean>(*truth) : std::nullopt;
}

template <auto Field>
std::optional<inspector_string> Text(const processor& p) {
    const std::optional<std::string>& text = p.Record().*Field;
    return text ? std::optional<inspector_string>(CopiedString(*text)) : std::nullopt;
}

std::optional<hertz> Speed(const processor& p) { return hertz::Of(AsInteger(Hertz(p.Record()))); }

std::optional<integer> BogomipsOf(const processor& p) { return AsInteger(Bogomips(p.Record())); }

inspector_string FamilyNameOf(const processor& p) { return inspector_string(FamilyName(p.Record())); }

cpupackage Packages() { return cpupackage(CountPackages(Processors())); }

template <auto Field>
std::optional<integer> Count(const cpupackage& p) {
    const std::optional<int64_t> count = p.Counts().*Field;
    return count ? std::optional<integer>(*count) : std::nullopt;
}
template <auto Field>
boolean Capability(const cpupackage& p) {
    return p.Counts().*Field;
}

template <auto Field>
using NumberOf = Property<processor, integer, Number<Field>>;
template <auto Field>
using TruthOf = Property<processor, boolean, Truth<Field>>;
template <auto Field>
using TextOf = Property<processor, inspector_string, Text<Field>>;

// clang-format off
Type<processor>                                                     type;
Type<cpupackage>                                                    packageType;

GlobalProperty<processor, MainProcessor>                            main          {"main processor", "main processors", ByValueOnly};
IteratedPropertyOfWorld<processor_iterator, processor, &processor_iterator::Next, &processor_iterator::Next,
                        &processor_iterator::Start, &processor_iterator::Finished>
                                                                    processors    {"processor", "processors", ByValueOnly};
NumberedGlobalProperty<processor, ProcessorByNumber>                byNumber      {"processor", "processors", ByValueOnly};
NumberOf<&CpuRecord::index>                                         index         {"index", "indexes"};
NumberOf<&CpuRecord::family>                                        family        {"family", "families"};
NumberOf<&CpuRecord::model>                                         model         {"model", "models"};
NumberOf<&CpuRecord::stepping>                                      stepping      {"stepping", "steppings"};
NumberOf<&CpuRecord::cpuidLevel>                                    cpuidLevel    {"cpuid level", "cpuid levels"};
TruthOf<&CpuRecord::fdivBug>                                        fdivBug       {"fdiv bug", "fdiv bugs"};
TruthOf<&CpuRecord::hltBug>                                         hltBug        {"hlt bug", "hlt bugs"};
TruthOf<&CpuRecord::sepBug>                                         sepBug        {"sep bug", "sep bugs"};
TruthOf<&CpuRecord::f00fBug>                                        f00fBug       {"f00f bug", "f00f bugs"};
TruthOf<&CpuRecord::comaBug>                                        comaBug       {"coma bug", "coma bugs"};
TruthOf<&CpuRecord::fpu>                                            fpu           {"fpu", "fpus"};
TruthOf<&CpuRecord::fpuException>                                   fpuException  {"fpu exception", "fpu exceptions"};
TruthOf<&CpuRecord::wp>                                             wp            {"wp", "wps"};
Property<processor, hertz, Speed>                                   speed         {"speed", "speeds"};
Property<processor, integer, BogomipsOf>                            bogomips      {"bogomips", "bogomipses"};
TextOf<&CpuRecord::vendorId>                                        vendorName    {"vendor name", "vendor names"};
TextOf<&CpuRecord::modelName>                                       modelName     {"model name", "model names"};
TextOf<&CpuRecord::modelName>                                       brandString   {"brand string", "brand strings"};
Property<processor, inspector_string, FamilyNameOf>                 familyName    {"family name", "family names"};
TextOf<&CpuRecord::flagList>                                        flagList      {"flag list", "flag lists"};

GlobalProperty<cpupackage, Packages>                                packages      {"cpupackage", "cpupackages", ByValueOnly};
Property<cpupackage, integer, Count<&CpuPackages::packages>>        count         {"count", "counts"};
Property<cpupackage, integer, Count<&CpuPackages::cores>>           core          {"core", "cores"};
Property<cpupackage, integer, Count<&CpuPackages::threads>>         thread        {"thread", "threads"};
Property<cpupackage, boolean, Capability<&CpuPackages::smtCapable>> smtCapable    {"smt capable", "smt capables"};
Property<cpupackage, boolean, Capability<&CpuPackages::smtEnabled>> smtEnabled    {"smt enabled", "smt enableds"};
// clang-format on

}  // namespace
