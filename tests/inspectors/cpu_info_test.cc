// Processor records of old and new machines, the names of their families, and their packages.
#include "inspectors/cpu_info.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <limits>

#include "foundation/file_error.h"
#include "inspectors/processor.h"
#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"

namespace {

constexpr std::string_view kOldIntel =
    "processor\t: 0\nvendor_id\t: GenuineIntel\ncpu family\t: 6\nmodel\t\t: 8\nmodel name\t: Pentium III (Coppermine)\n"
    "stepping\t: 10\ncpu MHz\t\t: 1002.275\ncache size\t: 256 KB\nfdiv_bug\t: no\nhlt_bug\t\t: no\nsep_bug\t\t: yes\n"
    "f00f_bug\t: yes\ncoma_bug\t: no\nfpu\t\t: yes\nfpu_exception\t: yes\ncpuid level\t: 2\nwp\t\t: yes\n"
    "flags\t\t: fpu vme de pse tsc msr pae mce cx8 sep mtrr pge mca cmov pat pse36 mmx fxsr sse\n"
    "bogomips\t: 1998.84\n\n";

TEST(CpuInfo, OfAnOldIntelHasEveryField) {
    const std::vector<CpuRecord> records = ParseCpuInfo(kOldIntel);
    ASSERT_EQ(records.size(), 1U);
    const CpuRecord& record = records[0];
    EXPECT_EQ(record.index, 0);
    EXPECT_EQ(record.mhz, 1002.275);
    EXPECT_EQ(record.bogomips, 1998.84);
    EXPECT_EQ(record.family, 6);
    EXPECT_EQ(record.model, 8);
    EXPECT_EQ(record.stepping, 10);
    EXPECT_EQ(record.cpuidLevel, 2);
    EXPECT_EQ(record.fdivBug, false);
    EXPECT_EQ(record.hltBug, false);
    EXPECT_EQ(record.sepBug, true);
    EXPECT_EQ(record.f00fBug, true);
    EXPECT_EQ(record.comaBug, false);
    EXPECT_EQ(record.fpu, true);
    EXPECT_EQ(record.fpuException, true);
    EXPECT_EQ(record.wp, true);
    EXPECT_EQ(record.vendorId, "GenuineIntel");
    EXPECT_EQ(record.modelName, "Pentium III (Coppermine)");
    EXPECT_EQ(record.flagList, "fpu vme de pse tsc msr pae mce cx8 sep mtrr pge mca cmov pat pse36 mmx fxsr sse");
    EXPECT_EQ(record.physicalId, std::nullopt);
    EXPECT_EQ(record.siblings, std::nullopt);
    EXPECT_EQ(record.cpuCores, std::nullopt);
    EXPECT_EQ(FamilyName(record), "Pentium III");
}

TEST(CpuInfo, HasARecordForEachProcessorLine) {
    const auto records = ParseCpuInfo("Processor: 0\nMODEL: 1\nprocessor : 1\nmodel : 2\n");
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].model, 1);
    EXPECT_EQ(records[1].index, 1);
    EXPECT_EQ(records[1].model, 2);
}

TEST(CpuInfo, WithoutKnownKeysHasNoRecords) {
    EXPECT_TRUE(ParseCpuInfo("").empty());
    EXPECT_TRUE(ParseCpuInfo("Hardware : board\nSerial : 0\n").empty());
    EXPECT_TRUE(ParseCpuInfo("model : 5\nbogomips : 3\n").empty());
    EXPECT_TRUE(ParseCpuInfo(std::string(100000, '\n')).empty());
}

TEST(CpuInfo, TellsPrefixesApart) {
    const auto records = ParseCpuInfo("processor: 0\nfpu_exception : yes\n");
    EXPECT_EQ(records[0].fpuException, true);
    EXPECT_EQ(records[0].fpu, std::nullopt);
    const auto named = ParseCpuInfo("processor: 0\nmodel name : x\n");
    EXPECT_EQ(named[0].modelName, "x");
    EXPECT_EQ(named[0].model, std::nullopt);
    EXPECT_EQ(ParseCpuInfo("processor: 0\nwpxyz : yes\n")[0].wp, true);
}

TEST(CpuInfo, TakesTextsBehindTheColonAndOneByte) {
    EXPECT_EQ(ParseCpuInfo("processor: 0\nvendor:xabc\n")[0].vendorId, "abc");
    EXPECT_EQ(ParseCpuInfo("processor: 0\nvendor_id\t: \t  a b \r\n")[0].vendorId, "a b ");
    EXPECT_EQ(ParseCpuInfo("processor: 0\nvendor:")[0].vendorId, "");
    EXPECT_EQ(ParseCpuInfo("processor: 0\nvendor")[0].vendorId, std::nullopt);
    EXPECT_EQ(ParseCpuInfo("processor: 0\nmodel : junk")[0].model, 0);
}

TEST(CpuInfo, IsReadInPiecesOf255Bytes) {
    // The rest of a line that is too long is looked at like a line of its own.
    const std::string flags = "flags : " + std::string(255 - 8, 'a');
    const auto records = ParseCpuInfo("processor: 0\n" + flags + "wp yes\nmodel : 3\n");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].flagList, std::string(255 - 8, 'a'));
    EXPECT_EQ(records[0].wp, true);
    EXPECT_EQ(records[0].model, 3);
}

// What a record of the one line says.
CpuRecord Line(const std::string& line) { return ParseCpuInfo("processor : 0\n" + line + "\n").at(0); }

TEST(CpuInfo, TakesEveryKeyInAnyCaseFromTheFrontOfALine) {
    EXPECT_EQ(Line("CPU MHZ : 1.5").mhz, 1.5);
    EXPECT_EQ(Line("Physical ID : 3").physicalId, 3);
    EXPECT_EQ(Line("SIBLINGS : 4").siblings, 4);
    EXPECT_EQ(Line("CPU cores : 5").cpuCores, 5);
    EXPECT_EQ(Line("CPU Family : 6").family, 6);
    EXPECT_EQ(Line("Stepping : 7").stepping, 7);
    EXPECT_EQ(Line("CPUID level : 8").cpuidLevel, 8);
    EXPECT_EQ(Line("BogoMIPS : 9.5").bogomips, 9.5);
    EXPECT_EQ(Line("FDIV_bug : yes").fdivBug, true);
    EXPECT_EQ(Line("HLT_bug : yes").hltBug, true);
    EXPECT_EQ(Line("SEP_bug : yes").sepBug, true);
    EXPECT_EQ(Line("F00F_bug : yes").f00fBug, true);
    EXPECT_EQ(Line("COMA_bug : yes").comaBug, true);
    EXPECT_EQ(Line("WP : yes").wp, true);
    EXPECT_EQ(Line("FPU_exception : yes").fpuException, true);
    EXPECT_EQ(Line("FPU : yes").fpu, true);
    EXPECT_EQ(Line("Vendor : v").vendorId, "v");
    EXPECT_EQ(Line("Flags : f").flagList, "f");
    EXPECT_EQ(Line("Model Name : n").modelName, "n");
    EXPECT_EQ(Line("Model : 10").model, 10);
    EXPECT_EQ(Line(" model : 10").model, std::nullopt);
    EXPECT_EQ(Line("the model : 10").model, std::nullopt);
    EXPECT_EQ(ParseCpuInfo(" processor : 1\n").size(), 0U);
}

TEST(CpuInfo, TakesNumbersInDecimalAndTruthFromAYesAnywhere) {
    EXPECT_EQ(Line("model :  \t -12abc").model, -12);
    EXPECT_EQ(Line("model : 0x1f").model, 0);
    EXPECT_EQ(Line("model : 017").model, 17);
    EXPECT_EQ(Line("model\t5").model, std::nullopt);
    EXPECT_EQ(Line("bogomips : 1e3 x").bogomips, 1000);
    EXPECT_EQ(Line("cpu MHz").mhz, std::nullopt);
    EXPECT_EQ(Line("wp : Yes").wp, false);
    EXPECT_EQ(Line("wp : ").wp, false);
    EXPECT_EQ(Line("hlt_bug yes : no").hltBug, true);
}

TEST(CpuInfo, IsReadFromAFileAsItIsFromMemory) {
    const TemporaryPlace place;
    for (const std::string& text :
         {std::string(kOldIntel), std::string(), "processor : 0\nflags : " + std::string(600, 'a') + "\nmodel : 3",
          "processor : 0\n" + std::string(255, 'x') + "model : 4\n" + std::string(254, 'x') + "\nmodel : 5\n"}) {
        place.File("cpuinfo", text);
        const auto read = ReadCpuInfo(place.Path("cpuinfo").c_str());
        const auto parsed = ParseCpuInfo(text);
        ASSERT_EQ(read.size(), parsed.size());
        for (size_t i = 0; i < read.size(); ++i) {
            EXPECT_EQ(read[i].model, parsed[i].model);
            EXPECT_EQ(read[i].flagList, parsed[i].flagList);
            EXPECT_EQ(read[i].modelName, parsed[i].modelName);
        }
    }
}

TEST(CpuInfo, ThatCannotBeOpenedIsAFileErrorWithoutANumber) {
    const TemporaryPlace place;
    try {
        ReadCpuInfo(place.Path("gone").c_str());
        FAIL();
    } catch (const FileIOError& error) {
        EXPECT_EQ(error.Code(), 0);
        EXPECT_EQ(error.FirstPath(), place.Path("gone"));
    }
}

TEST(CpuInfo, RoundsTheClockAndTheBogomips) {
    CpuRecord record;
    EXPECT_EQ(Hertz(record), std::nullopt);
    EXPECT_EQ(Bogomips(record), std::nullopt);
    record.mhz = 1002.2754994;
    record.bogomips = 1998.49;
    EXPECT_EQ(Hertz(record), 1002275499);
    EXPECT_EQ(Bogomips(record), 1998);
    record.mhz = 1002.2754996;
    record.bogomips = 1998.5;
    EXPECT_EQ(Hertz(record), 1002275500);
    EXPECT_EQ(Bogomips(record), 1999);
    for (const char* beyond : {"inf", "-inf", "nan", "1e19", "-1e19"}) {
        const CpuRecord read = Line("cpu MHz : " + std::string(beyond) + "\nbogomips : " + beyond);
        EXPECT_EQ(Hertz(read), std::nullopt) << beyond;
        EXPECT_EQ(Bogomips(read), std::nullopt) << beyond;
    }
}

CpuRecord Of(std::string_view vendor, int64_t family, int64_t model, std::string_view name) {
    CpuRecord record;
    record.vendorId = vendor;
    record.family = family;
    record.model = model;
    record.modelName = name;
    return record;
}

TEST(ModelName, LosesItsMarks) {
    EXPECT_EQ(ShortenedModelName("GenuineIntel", "Intel(R) Core(TM)2 Duo CPU     E8400  @ 3.00GHz"),
              "Core2 Duo     E8400  @ 3.00GHz");
    EXPECT_EQ(ShortenedModelName("GenuineIntel", "Intel Xeon(tm) CPU(r) x"), "Xeon x");
    EXPECT_EQ(ShortenedModelName("AuthenticAMD", "AMD Athlon(tm) 64 Processor 3000+"), "Athlon 64 3000+");
    EXPECT_EQ(ShortenedModelName("CyrixInstead", "AMD Intel CPU"), "AMD Intel CPU");
}

struct FamilyRow {
    const char* vendor;
    int64_t family;
    int64_t model;
    const char* name;
    const char* expected;
};

constexpr FamilyRow kFamilies[] = {
    {"GenuineIntel", 0, 0, "", "8086"},
    {"GenuineIntel", 2, 0, "", "80286"},
    {"GenuineIntel", 3, 0, "", "80386"},
    {"GenuineIntel", 4, 8, "486 DX/4", "80486"},
    {"CyrixInstead", 5, 4, "Cyrix MediaGXtm MMXtm Enhanced", "MediaGX"},
    {"GenuineIntel", 5, 2, "Pentium 75 - 200", "Pentium"},
    {"GenuineIntel", 6, 1, "Pentium Pro", "Pentium Pro"},
    {"GenuineIntel", 6, 0, "", "Pentium Pro"},
    {"GenuineIntel", 6, 3, "Pentium II (Klamath)", "Pentium II"},
    {"GenuineIntel", 6, 5, "Pentium II (Deschutes)", "Pentium II"},
    {"GenuineIntel", 6, 5, "Celeron (Covington)", "Celeron"},
    {"GenuineIntel", 6, 5, "Pentium II Xeon", "Pentium II Xeon"},
    {"GenuineIntel", 6, 6, "Celeron (Mendocino)", "Celeron"},
    {"GenuineIntel", 6, 6, "Mobile Pentium II", "Pentium II"},
    {"GenuineIntel", 6, 8, "Celeron (Coppermine)", "Celeron"},
    {"GenuineIntel", 6, 7, "Pentium III (Katmai)", "Pentium III"},
    {"GenuineIntel", 6, 10, "Pentium III Xeon", "Pentium III Xeon"},
    {"GenuineIntel", 6, 11, "Pentium III Extreme", "Pentium III Extreme"},
    {"GenuineIntel", 15, 2, "Intel(R) Pentium(R) 4 CPU 2.80GHz", "Pentium 4"},
    {"GenuineIntel", 15, 6, "Intel(R) Pentium(R) D CPU 3.00GHz", "Pentium D"},
    {"GenuineIntel", 6, 13, "Intel(R) Pentium(R) M processor 1.73GHz", "Pentium M"},
    {"GenuineIntel", 15, 1, "Intel(R) Celeron(R) CPU 1.70GHz", "Celeron"},
    {"GenuineIntel", 15, 4, "Intel(R) Celeron(R) D CPU 3.06GHz", "Celeron D"},
    {"GenuineIntel", 6, 9, "Intel(R) Celeron(R) M processor", "Celeron M"},
    {"GenuineIntel", 15, 4, "Intel(R) Xeon(TM) CPU 3.00GHz", "Xeon"},
    {"GenuineIntel", 6, 45, "Intel(R) Xeon(R) CPU E5-2670 0 @ 2.60GHz", "Xeon"},
    {"GenuineIntel", 6, 207, "INTEL(R) XEON(R) PLATINUM 8581C CPU @ 2.30GHz", "Xeon"},
    {"GenuineIntel", 7, 0, "Itanium", "Itanium"},
    {"GenuineIntel", 31, 0, "Madison", "Itanium 2"},
    {"GenuineIntel", 6, 14, "Genuine Intel(R) CPU T2400 @ 1.83GHz", "Core"},
    {"GenuineIntel", 6, 14, "Intel(R) Xeon(R) CPU LV", "Xeon"},
    {"GenuineIntel", 6, 14, "Intel(R) Celeron(R) M CPU 420 @ 1.60GHz", "Celeron M"},
    {"GenuineIntel", 6, 14, "Intel(R) Pentium(R) Dual CPU T2060 @ 1.60GHz", "Pentium"},
    {"GenuineIntel", 6, 158, "Intel(R) Core(TM) i7-8700 CPU @ 3.20GHz", "Core"},
    {"GenuineIntel", 6, 42, "Intel(R) Celeron(R) CPU G530 @ 2.40GHz", "Celeron"},
    {"GenuineIntel", 6, 42, "Intel(R) Pentium(R) CPU G620 @ 2.60GHz", "Pentium"},
    {"GenuineIntel", 6, 28, "Intel(R) Atom(TM) CPU 330 @ 1.60GHz", "Unknown"},
    {"GenuineIntel", 6, 15, "Intel(R) Core(TM)2 CPU 6600 @ 2.40GHz", "Core 2"},
    {"GenuineIntel", 6, 22, "Intel(R) Core(TM)2 Solo CPU U2100", "Core 2 Solo"},
    {"GenuineIntel", 6, 23, "Intel(R) Core(TM)2 Duo CPU E8400 @ 3.00GHz", "Core 2 Duo"},
    {"GenuineIntel", 6, 15, "Intel(R) Core(TM)2 Quad CPU Q6600 @ 2.40GHz", "Core 2 Quad"},
    {"GenuineIntel", 6, 15, "Intel(R) Core(TM)2 Extreme CPU X6800", "Core 2 Extreme"},
    {"GenuineIntel", 6, 29, "Intel(R) Xeon(R) CPU E7440 @ 2.40GHz", "Xeon"},
    {"GenuineIntel", 6, 22, "Intel(R) Celeron(R) CPU 440 @ 2.00GHz", "Celeron"},
    {"GenuineIntel", 6, 23, "Pentium(R) Dual-Core CPU E5200 @ 2.50GHz", "Pentium"},
    {"GenuineIntel", 6, 21, "Intel(R) EP80579 Integrated Processor", "Intel EP80579"},
    {"GenuineIntel", 32, 0, "Dual-Core Intel(R) Itanium(R) 2 9040", "Itanium 2"},
    {"GenuineIntel", 1, 0, "", "Unknown"},
    {"AuthenticAMD", 6, 3, "AMD Duron(tm) Processor", "Duron"},
    {"AuthenticAMD", 15, 31, "AMD Athlon(tm) 64 Processor 3000+", "Athlon"},
    {"AuthenticAMD", 6, 4, "", "Athlon"},
    {"AuthenticAMD", 3, 0, "", "80386"},
    {"AuthenticAMD", 4, 14, "Am5x86-WT", "80486"},
    {"AuthenticAMD", 5, 8, "AMD-K6(tm) 3D processor", "Unknown"},
    {"AuthenticAMD", 15, 44, "AMD Sempron(tm) Processor 3000+", "Unknown"},
    {"CyrixInstead", 4, 9, "Cx486DX2", "80486"},
    {"CyrixInstead", 6, 0, "M II 3.5x Core/Bus Clock", "Unknown"},
    {"CentaurHauls", 4, 0, "", "80486"},
    {"AuthenticAMD", 25, 17, "AMD EPYC", "Unknown"},
    {"CentaurHauls", 6, 7, "VIA Samuel 2", "Unknown"},
    {"Other", 6, 15, "Intel(R) Core(TM)2 Duo", "Unknown"},
};

TEST(FamilyName, ComesFromNumbersAndWords) {
    for (const FamilyRow& row : kFamilies) {
        EXPECT_EQ(FamilyName(Of(row.vendor, row.family, row.model, row.name)), row.expected) << row.name;
    }
    EXPECT_EQ(FamilyName(CpuRecord()), "Unknown");
}

TEST(CpuPackages, AreCountedByTheirPhysicalIds) {
    const auto records = ParseCpuInfo(
        "processor: 0\nphysical id: 0\nsiblings: 4\ncpu cores: 2\nflags : fpu ht sse\n"
        "processor: 1\nphysical id: 1\nsiblings: 4\ncpu cores: 2\nflags : fpu ht sse\n"
        "processor: 2\nphysical id: 0\nsiblings: 4\ncpu cores: 2\nflags : fpu ht sse\n");
    const CpuPackages sum = CountPackages(records);
    EXPECT_EQ(sum.packages, 2);
    EXPECT_EQ(sum.cores, 4);
    EXPECT_EQ(sum.threads, 8);
    EXPECT_TRUE(sum.smtCapable);
    EXPECT_TRUE(sum.smtEnabled);
}

TEST(CpuPackages, WithoutTheirKeysAreOneCoreAndOneThreadEach) {
    const CpuPackages sum = CountPackages(ParseCpuInfo("processor: 0\nflags : height\nprocessor: 1\n"));
    EXPECT_EQ(sum.packages, 2);
    EXPECT_EQ(sum.cores, 2);
    EXPECT_EQ(sum.threads, 2);
    EXPECT_FALSE(sum.smtCapable);
    EXPECT_FALSE(sum.smtEnabled);
}

TEST(CpuPackages, HaveNoSumThatDoesNotFit) {
    const std::string most = std::to_string(std::numeric_limits<int64_t>::max());
    const CpuPackages cores = CountPackages(ParseCpuInfo("processor: 0\ncpu cores: " + most + "\nprocessor: 1\n"));
    EXPECT_EQ(cores.packages, 2);
    EXPECT_EQ(cores.cores, std::nullopt);
    EXPECT_EQ(cores.threads, 2);
    const CpuPackages threads = CountPackages(
        ParseCpuInfo("processor: 0\nsiblings: -" + most + "\nprocessor: 1\nsiblings: -2\nprocessor: 2\nsiblings: 4\n"));
    EXPECT_EQ(threads.cores, 3);
    EXPECT_EQ(threads.threads, std::nullopt);
    EXPECT_EQ(CountPackages(ParseCpuInfo("processor: 0\ncpu cores: " + most + "\n")).cores,
              std::numeric_limits<int64_t>::max());
}

TEST(CpuPackages, MayBeCapableOfThreadsThatAreNotEnabled) {
    const CpuPackages sum =
        CountPackages(ParseCpuInfo("processor: 0\nphysical id: 0\nsiblings: 2\ncpu cores: 2\nflags : fpu\n"
                                   "processor: 1\nphysical id: 0\nsiblings: 2\ncpu cores: 2\nflags : fpu ht\n"));
    EXPECT_EQ(sum.packages, 1);
    EXPECT_EQ(sum.cores, 2);
    EXPECT_EQ(sum.threads, 2);
    EXPECT_TRUE(sum.smtCapable);
    EXPECT_FALSE(sum.smtEnabled);
}

TEST(CpuPackages, WithoutAPhysicalIdAreOfOneRecordEach) {
    const CpuPackages sum =
        CountPackages(ParseCpuInfo("processor: 0\nsiblings: 4\ncpu cores: 2\n"
                                   "processor: 1\nphysical id: 0\n"
                                   "processor: 2\nphysical id: 0\nsiblings: 9\n"));
    EXPECT_EQ(sum.packages, 2);
    EXPECT_EQ(sum.cores, 3);
    EXPECT_EQ(sum.threads, 5) << "a package's first record speaks for it";
    EXPECT_TRUE(sum.smtEnabled);
    EXPECT_EQ(CountPackages({}).packages, 0);
}

// Others' records in the place of this machine's.
class CachedProcessors : public testing::Test {
protected:
    CachedProcessors() { ClearProcessorCache.Fill(ParseCpuInfo(text_)); }
    ~CachedProcessors() override { ClearCaches(true); }

private:
    // Each has one of the facts that are true or false, and numbers of its own.
    const std::string text_ =
        "processor : 5\nfdiv_bug : yes\nhlt_bug : no\nmodel : 1\ncpu family : 2\nstepping : 3\ncpuid level : 4\n"
        "cpu MHz : 1002.275\nbogomips : 1998.5\nvendor_id : v\nmodel name : m (R)\nflags : f\n"
        "processor : 6\nhlt_bug : yes\nfdiv_bug : no\n"
        "processor : 7\nsep_bug : yes\n"
        "processor : 8\nf00f_bug : yes\n"
        "processor : 9\ncoma_bug : yes\n"
        "processor : 10\nfpu : yes\n"
        "processor : 11\nfpu_exception : yes\n"
        "processor : 12\nwp : yes\n";
};

TEST_F(CachedProcessors, EachPhraseGivesItsOwnField) {
    EXPECT_EQ(Ask("(index of it, model of it, family of it, stepping of it, cpuid level of it) of main processor as "
                  "string"),
              Values({"5, 1, 2, 3, 4"}));
    EXPECT_EQ(Ask("(speed of it as string; bogomips of it as string) of main processor"),
              Values({"1002275000 hertz", "1999"}));
    EXPECT_EQ(
        Ask("(vendor name of it; model name of it; brand string of it; family name of it; flag list of it) of main "
            "processor"),
        Values({"v", "m (R)", "m (R)", "Unknown", "f"}));
    const char* const facts[] = {"fdiv bug", "hlt bug", "sep bug",       "f00f bug",
                                 "coma bug", "fpu",     "fpu exception", "wp"};
    int index = 5;
    for (const std::string fact : facts) {
        EXPECT_EQ(Ask("(index of it as string) of processors whose (exists " + fact + " of it and " + fact + " of it)"),
                  Values({std::to_string(index++)}))
            << fact;
    }
    EXPECT_EQ(Ask("fdiv bugs of processors; hlt bugs of processors; exists sep bug of main processor"),
              Values({"True", "False", "False", "True", "False"}));
    EXPECT_EQ(Ask("index of processor 7"), Values({"12"})) << "counted by their places";
    EXPECT_EQ(Ask("index of processor 8"), DoesNotExist());
    EXPECT_EQ(Ask("exists speed of processor 1; exists bogomips of processor 1; exists model name of processor 1"),
              Values({"False", "False", "False"}));
    EXPECT_EQ(Ask("count of cpupackage"), Values({"8"}));
}

TEST_F(CachedProcessors, StayUntilTheCachesAreCleared) {
    EXPECT_EQ(Ask("number of processors"), Values({"8"}));
    ClearCaches(false);
    EXPECT_EQ(Ask("number of processors"), Values({std::to_string(sysconf(_SC_NPROCESSORS_ONLN))}));
}

TEST(Processors, OfThisMachineAnswer) {
    EXPECT_EQ(Ask("number of processors"), Values({std::to_string(sysconf(_SC_NPROCESSORS_ONLN))}));
    EXPECT_EQ(Ask("indexes of processors"),
              Ask("index of main processor; indexes of processors whose (index of it > 0)"));
    EXPECT_EQ(Ask("exists processor 0"), Values({"True"}));
    EXPECT_EQ(Ask("exists processor 1000000"), Values({"False"}));
    EXPECT_EQ(Ask("exists processor (-1)"), Values({"False"}));
    const std::vector<CpuRecord> records = ReadCpuInfo();
    if (!records.empty() && records[0].modelName) {
        EXPECT_EQ(Ask("(model name of it; brand string of it) of main processor"),
                  Values({*records[0].modelName, *records[0].modelName}));
    }
    EXPECT_EQ(Ask("count of cpupackage"), Values({std::to_string(CountPackages(records).packages)}));
}

// What a phrase should answer for each of some records: nothing for those that lack it.
template <class Get>
std::vector<std::string> OfEach(const std::vector<CpuRecord>& records, const Get& get) {
    std::vector<std::string> texts;
    for (const CpuRecord& record : records) {
        if (const std::optional<std::string> text = get(record)) {
            texts.push_back(*text);
        }
    }
    return texts;
}

// Asked of all processors in the plural and of the first in the singular.
template <class Get>
void ExpectOfEach(const std::string& singular, const std::string& plural, const Get& get) {
    SCOPED_TRACE(singular);
    const std::vector<CpuRecord> records = ReadCpuInfo();
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(Ask("(" + plural + " of it as string) of processors"), Values(OfEach(records, get)));
    EXPECT_EQ(Ask("(" + plural + " of it as string) of main processors"), Values(OfEach({records[0]}, get)));
    const std::optional<std::string> first = get(records[0]);
    EXPECT_EQ(Ask(singular + " of main processor as string"), first ? Values({*first}) : DoesNotExist());
}

TEST(Processors, OfThisMachineAnswerEveryPhraseInBothNumbers) {
    using Text = std::optional<std::string>;
    const auto number = [](const char* singular, const char* plural, std::optional<int64_t> CpuRecord::*field) {
        ExpectOfEach(singular, plural, [field](const CpuRecord& record) {
            return record.*field ? Text(std::to_string(*(record.*field))) : Text();
        });
    };
    const auto truth = [](const char* singular, const char* plural, std::optional<bool> CpuRecord::*field) {
        ExpectOfEach(singular, plural, [field](const CpuRecord& record) {
            return record.*field ? Text(*(record.*field) ? "True" : "False") : Text();
        });
    };
    const auto text = [](const char* singular, const char* plural, Text CpuRecord::*field) {
        ExpectOfEach(singular, plural, [field](const CpuRecord& record) { return record.*field; });
    };
    number("index", "indexes", &CpuRecord::index);
    number("family", "families", &CpuRecord::family);
    number("model", "models", &CpuRecord::model);
    number("stepping", "steppings", &CpuRecord::stepping);
    number("cpuid level", "cpuid levels", &CpuRecord::cpuidLevel);
    truth("fdiv bug", "fdiv bugs", &CpuRecord::fdivBug);
    truth("hlt bug", "hlt bugs", &CpuRecord::hltBug);
    truth("sep bug", "sep bugs", &CpuRecord::sepBug);
    truth("f00f bug", "f00f bugs", &CpuRecord::f00fBug);
    truth("coma bug", "coma bugs", &CpuRecord::comaBug);
    truth("fpu", "fpus", &CpuRecord::fpu);
    truth("fpu exception", "fpu exceptions", &CpuRecord::fpuException);
    truth("wp", "wps", &CpuRecord::wp);
    text("vendor name", "vendor names", &CpuRecord::vendorId);
    text("model name", "model names", &CpuRecord::modelName);
    text("brand string", "brand strings", &CpuRecord::modelName);
    text("flag list", "flag lists", &CpuRecord::flagList);
    ExpectOfEach("family name", "family names",
                 [](const CpuRecord& record) { return Text(std::string(FamilyName(record))); });
    ExpectOfEach("bogomips", "bogomipses", [](const CpuRecord& record) {
        return record.bogomips ? Text(std::to_string(std::llround(*record.bogomips))) : Text();
    });
}

// The speed of a processor changes from one reading to the next.
TEST(Processors, HaveASpeedWhereTheKernelTellsIt) {
    const std::vector<CpuRecord> records = ReadCpuInfo();
    ASSERT_FALSE(records.empty());
    const std::string told = records[0].mhz ? "True" : "False";
    EXPECT_EQ(Ask("exists speed of main processor; exists speeds of main processors"), Values({told, told}));
    EXPECT_EQ(Ask("exists (speeds of processors) whose (it <= 0 * Hz)"), Values({"False"}));
}

TEST(CpuPackages, OfThisMachineAnswerEveryPhraseInBothNumbers) {
    const CpuPackages sum = CountPackages(ReadCpuInfo());
    const Answer expected =
        Values({std::to_string(sum.packages), std::to_string(sum.cores.value()), std::to_string(sum.threads.value()),
                sum.smtCapable ? "True" : "False", sum.smtEnabled ? "True" : "False"});
    EXPECT_EQ(Ask("(count of it as string; core of it as string; thread of it as string; smt capable of it as string; "
                  "smt enabled of it as string) of cpupackage"),
              expected);
    EXPECT_EQ(Ask("(counts of it as string; cores of it as string; threads of it as string; smt capables of it as "
                  "string; smt enableds of it as string) of cpupackages"),
              expected);
}

}  // namespace
