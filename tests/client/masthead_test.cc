// Mastheads: the chain of receivers from the file inward, the table of headers and the values in them.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "client/masthead_maker.h"
#include "evaluator/inspector_context.h"
#include "foundation/line_maker.h"
#include "foundation/multipart_splitter.h"
#include "tests/foundation/cut_everywhere.h"
#include "tests/foundation/temporary_place.h"

namespace {

void Give(MessageReceiver& message, const Runs& runs) {
    MultipartSplitter splitter(message);
    LineMaker lines(splitter);
    lines.Start();
    for (const std::string_view run : runs) {
        const ConstData data(run);
        lines.Data(data.begin, data.end);
    }
    lines.Finish();
}

std::string Field(const char* name, std::string_view value) {
    return value.empty() ? "" : std::string(name).append("={").append(value).append("} ");
}
std::string Field(const char* name, int64_t value, int64_t unset) {
    return value == unset ? "" : Field(name, std::to_string(value));
}

// The fields that were set, in the order of the record.
std::string Told(const Masthead& masthead) {
    std::string told;
    told += Field("date", masthead.date.Text().View());
    told += Field("from", masthead.from.Text().View());
    told += Field("organization", masthead.organization.Text().View());
    told += Field("subject", masthead.subject.Text().View());
    told += Field("lock controller", masthead.actionLockController.Text().View());
    told += Field("lock initial", masthead.actionLockInitial.Text().View());
    for (size_t i = 0; i != masthead.actionLockOmitSites.Size(); ++i) {
        told += "omit={" + std::string(masthead.actionLockOmitSites[i].Text().View()) + "} ";
    }
    told += Field("mirror download", masthead.mirrorDownloadUrl.Text().View());
    told += Field("mirror gather", masthead.mirrorGatherUrl.Text().View());
    told += Field("fips", masthead.requireFipsCryptography, 0);
    told += Field("assertion", masthead.siteAssertion.Text().View());
    told += Field("bbs", masthead.siteBbs.Text().View());
    told += Field("codicil", masthead.siteCodicil.Text().View());
    told += Field("gather", masthead.siteGatherUrl.Text().View());
    told += Field("location", masthead.siteLocation.Text().View());
    told += Field("version", masthead.mastheadVersion.Text().View());
    told += Field("first of version", masthead.mastheadVersionList[0], 0);
    told += Field("second of version", masthead.mastheadVersionList[1], 0);
    told += Field("name", masthead.siteName.Text().View());
    told += Field("registration", masthead.siteRegistrationUrl.Text().View());
    told += Field("report", masthead.siteReportUrl.Text().View());
    told += Field("id", masthead.uniqueSiteId, 0);
    told += Field("frequency", masthead.updateFrequency, Masthead::kOneDay);
    told += Field("common name", masthead.organizationCommonName.Text().View());
    told += Field("relevance", masthead.relevance);
    told += Field("directory", masthead.siteLocationAbsoluteDirectory.Text().View());
    told += Field("page", masthead.webPage.Text().View());
    if (!told.empty()) {
        told.pop_back();
    }
    return told;
}

std::string ReadRuns(const Runs& runs) {
    Masthead masthead;
    MastheadHeaderReceiver headers(masthead);
    MastheadMaker maker(headers);
    try {
        Give(maker, runs);
    } catch (const DebuggableException& failure) {
        return failure.what();
    }
    return std::string(maker.IsSigned() ? "signed " : "bare ") + (maker.IsComplete() ? "" : "open ") + Told(masthead);
}

// Cut at every byte.
std::string Read(std::string_view message) { return CutEverywhere(message, ReadRuns); }

const std::string type = "Application/x-Praxel-Site-Masthead";

// The content of a masthead, whose first part is `part`.
std::string Content(std::string_view part, const std::string& ofType = "\"" + type + "\"") {
    return "Content-Type: multipart/related; boundary=r; type=" + ofType + "\n\nbefore\n--r\n" + std::string(part) +
           "\n--r\nSubject: of the second part\n\nFrom: it\n--r--\nafter\n";
}
std::string Signed(std::string_view content) {
    return "Content-Type: multipart/signed; boundary=\"s s\"\nSubject: outside\n\n--s s\n" + std::string(content) +
           "\n--s s\nSubject: signature\n\nnobody\n--s s--\n";
}
// One header, in a part that has none of its own, and its value alone.
std::string ValueOf(const std::string& header) {
    const std::string told = ReadRuns({Signed(Content("\n" + header + "\n"))});
    return told == "signed " ? "" : told.substr(told.find('{') + 1, told.rfind('}') - told.find('{') - 1);
}

TEST(MastheadHeaders, EachHasItsField) {
    const std::vector<std::pair<const char*, const char*>> rows = {
        {"Date", "date"},
        {"From", "from"},
        {"Organization", "organization"},
        {"Subject", "subject"},
        {"X-OSL-Action-Lock-Controller", "lock controller"},
        {"X-OSL-Action-Lock-Initial", "lock initial"},
        {"X-OSL-Action-Lock-Omit-Site", "omit"},
        {"X-OSL-Mirror-Download-URL", "mirror download"},
        {"X-OSL-Mirror-Gather-URL", "mirror gather"},
        {"X-Praxel-Site-Assertion", "assertion"},
        {"X-Praxel-Site-BBS", "bbs"},
        {"X-Praxel-Site-Codicil", "codicil"},
        {"X-Praxel-Site-Gather-URL", "gather"},
        {"X-Praxel-Site-Location", "location"},
        {"X-Praxel-Site-Masthead-Version", "version"},
        {"X-Praxel-Site-Name", "name"},
        {"X-Praxel-Site-Registration-URL", "registration"},
        {"X-Praxel-Site-Report-URL", "report"},
        {"X-Organization-Common-Name", "common name"},
        {"X-Relevant-When", "relevance"},
        {"X-Site-Location-Absolute-Directory", "directory"},
        {"X-Web-Page", "page"},
    };
    for (const auto& [header, field] : rows) {
        const std::string line = std::string(header) + ": some text; of it";
        const std::string told = std::string("signed ") + field + "={some text; of it}";
        EXPECT_EQ(Read(Signed(Content("\n" + line + "\n"))), told);
        EXPECT_EQ(ReadRuns({Signed(Content(line + "\n"))}), told) << "a header of the part itself";
        std::string lower = line;
        for (char& byte : lower) {
            byte = static_cast<char>(std::tolower(byte));
        }
        EXPECT_EQ(ReadRuns({Signed(Content("\n" + lower + "\n"))}), told);
    }
    EXPECT_EQ(Read(Signed(Content("\nX-OSL-Require-FIPS-Cryptography: 1\n"))), "signed fips={1}");
    EXPECT_EQ(Read(Signed(Content("\nX-Praxel-Site-Unique-Site-Id: 70000\n"))), "signed id={70000}");
    EXPECT_EQ(Read(Signed(Content("\nX-Praxel-Site-Update-Frequency: hour\n"))), "signed frequency={3600000000}");
}

TEST(MastheadHeaders, AnyOtherIsIgnored) {
    for (const char* name : {"x-praxel-site", "x-praxel-site-names", "dat", "dates", "reply-to", "x-osl-", "a", "zz"}) {
        EXPECT_EQ(ReadRuns({Signed(Content("\n" + std::string(name) + ": x\n"))}), "signed ") << name;
    }
}

TEST(MastheadHeaders, FoldsAreOneBlank) {
    EXPECT_EQ(Read(Signed(Content("\nSubject: one\n two\n\t  three\nFrom:\n x\n"))),
              "signed from={ x} subject={one two three}");
    EXPECT_EQ(Read(Signed(Content("\nX-OSL-Require-FIPS-Cryptography:\n 1\n"))), "signed fips={1}");
    EXPECT_EQ(Read(Signed(Content("\nX-Praxel-Site-Update-Frequency: two\n  weeks\n"))),
              "signed frequency={1209600000000}");
}

TEST(MastheadHeaders, OfThePartAndOfItsContentTheLastCounts) {
    EXPECT_EQ(Read(Signed(Content("From: part\nSubject: part\n\nFrom: content\nDate: content\n\nDate: body\n"))),
              "signed date={content} from={content} subject={part}");
    EXPECT_EQ(Read(Signed(Content("\nFrom: 1\nX-Relevant-When: true\nFrom: 2\nX-Relevant-When: false\n"))),
              "signed from={2} relevance={false}");
}

TEST(MastheadHeaders, OmittedSitesAreAList) {
    EXPECT_EQ(Read(Signed(Content("X-OSL-Action-Lock-Omit-Site: a\n\nX-OSL-Action-Lock-Omit-Site: b\n"
                                  "X-OSL-Action-Lock-Omit-Site:\nX-OSL-Action-Lock-Omit-Site: a\n"))),
              "signed omit={a} omit={b} omit={} omit={a}");
}

TEST(MastheadHeaders, TextsAreCutAndRelevanceIsNot) {
    const std::string text(300, 'x');
    EXPECT_EQ(ValueOf("Subject: " + text), text.substr(0, 256));
    EXPECT_EQ(ValueOf("X-OSL-Action-Lock-Omit-Site: " + text), text.substr(0, 256));
    EXPECT_EQ(ValueOf("X-Relevant-When: " + text), text);
}

TEST(MastheadHeaders, OneAloneCanBeAskedFor) {
    Masthead masthead;
    MastheadHeaderReceiver headers(masthead, MastheadHeaderReceiver::cRequireFipsCryptography);
    MastheadMaker maker(headers);
    Give(maker, {Signed(Content("Subject: x\nX-OSL-Action-Lock-Omit-Site: a\nX-Relevant-When: r\n"
                                "X-OSL-Require-FIPS-Cryptography: 2\n"))});
    EXPECT_EQ(Told(masthead), "fips={2}");
}

TEST(MastheadValues, Integers) {
    const std::vector<std::pair<std::string, int64_t>> rows = {
        {"0", 0},
        {"1", 1},
        {"-1", -1},
        {"+7", 7},
        {"  \t9", 9},
        {"12 monkeys", 12},
        {"1 2", 1},
        {"yes", 0},
        {"", 0},
        {"-", 0},
        {"- 1", 0},
        {"+-1", 0},
        {"0x10", 0},
        {"9223372036854775807", INT64_MAX},
        {"9223372036854775808", INT64_MAX},
        {"-9223372036854775808", INT64_MIN},
        {"-9223372036854775809", INT64_MIN},
        {"99999999999999999999999999999999", INT64_MAX},
        {std::string(400, '0') + "5", 5},
    };
    for (const auto& [text, value] : rows) {
        const std::string outcome = CutEverywhere(text, [](const Runs& runs) {
            int64_t number = 99;
            MastheadIntegerMaker maker(number);
            maker.Start();
            for (const std::string_view run : runs) {
                maker(ConstData(run));
            }
            maker.Finish();
            return std::to_string(number);
        });
        EXPECT_EQ(outcome, std::to_string(value)) << text;
    }
    EXPECT_EQ(ValueOf("X-Praxel-Site-Unique-Site-Id: 1\nX-Praxel-Site-Unique-Site-Id: -5"), "-5");
}

TEST(MastheadValues, Periods) {
    const std::vector<std::pair<std::string, int64_t>> rows = {
        {"day", 86400},
        {"eight hours", 28800},
        {"fifteen minutes", 900},
        {"half day", 43200},
        {"half hour", 1800},
        {"hour", 3600},
        {"month", 2592000},
        {"two days", 172800},
        {"two months", 5184000},
        {"two weeks", 1209600},
        {"week", 604800},
        {"", 86400},
        {"hours", 86400},
        {"Hour", 86400},
        {"hour ", 86400},
        {"two", 86400},
        {"year", 86400},
        {"3600", 86400},
        {"fifteen minutess", 86400},
        {"fifteen minute", 86400},
        {"a", 86400},
        {"zz", 86400},
    };
    for (const auto& [text, seconds] : rows) {
        const std::string outcome = CutEverywhere(text, [](const Runs& runs) {
            int64_t period = 1;
            MastheadPeriodMaker maker(period);
            maker.Start();
            for (const std::string_view run : runs) {
                maker(ConstData(run));
            }
            maker.Finish();
            return std::to_string(period);
        });
        EXPECT_EQ(outcome, std::to_string(seconds * 1000000)) << text;
    }
    EXPECT_EQ(Masthead().updateFrequency, 86400000000);
}

TEST(MastheadValues, Versions) {
    EXPECT_EQ(Read(Signed(Content("\nX-Praxel-Site-Masthead-Version: 3.14\n"))),
              "signed version={3.14} first of version={3} second of version={14}");
    Masthead masthead;
    MastheadVersionMaker maker(masthead);
    maker.Start();
    maker(ConstData(std::string_view("7,0,5")));
    maker.Finish();
    EXPECT_EQ(masthead.mastheadVersionList[0], 7u);
    EXPECT_EQ(masthead.mastheadVersionList[2], 5u);
}

TEST(MastheadContent, TheTypeIsComparedWithoutCase) {
    for (const char* spelled : {"\"Application/x-Praxel-Site-Masthead\"", "\"APPLICATION/X-PRAXEL-SITE-MASTHEAD\"",
                                "\"application/x-praxel-site-masthead\""}) {
        EXPECT_EQ(ReadRuns({Signed(Content("From: x\n", spelled))}), "signed from={x}") << spelled;
    }
    for (const char* other : {"\"\"", "x", "\"Application/x-Praxel-Site-Masthead2\"", "\"Application/x-Praxel-Site\"",
                              "\" Application/x-Praxel-Site-Masthead\"", "Application/x-Praxel-Site-Masthead"}) {
        EXPECT_EQ(ReadRuns({Signed(Content("From: x\n", other))}), "NotAMasthead") << other;
    }
}

TEST(MastheadContent, IsReadBareToo) { EXPECT_EQ(Read(Content("From: x\n\nDate: y\n")), "bare date={y} from={x}"); }

TEST(MastheadContent, AnythingElseIsNoMasthead) {
    for (const char* message :
         {"", "\n", "From: x\n\n", "Content-Type: text/plain\n\nx", "Content-Type: multipart/mixed; boundary=x\n\n",
          "Content-Type: multipart/related; boundary=x\n\n--x--",
          "Content-Type: Application/x-Praxel-Site-Masthead\n\n"}) {
        EXPECT_EQ(ReadRuns({message}), "NotAMasthead") << message;
        EXPECT_EQ(ReadRuns({Signed(message)}), "NotAMasthead") << message;
    }
    EXPECT_EQ(Read("Content-Type: text/plain\n\nFrom: x\n"), "NotAMasthead");
    EXPECT_EQ(Read(Signed(Signed(Content("From: x\n")))), "NotAMasthead");
}

TEST(MastheadContent, WhatIsCutOffIsReadAsFarAsItGoes) {
    EXPECT_EQ(Read("Content-Type: multipart/signed\n\n"), "signed open ");
    EXPECT_EQ(Read("Content-Type: multipart/signed; boundary=s\n\n--s"), "NotAMasthead");
    EXPECT_EQ(Read("Content-Type: multipart/signed; boundary=s\n\n--s--\n"), "signed open ");
    const std::string whole = Signed(Content("From: x\n\nDate: y"));
    for (size_t length = 0; length != whole.size(); ++length) {
        const std::string told = ReadRuns({std::string_view(whole).substr(0, length)});
        EXPECT_TRUE(told.starts_with("signed ") || told == "NotAMasthead") << told;
    }
}

// The first part alone counts, and is not looked into for parts of its own.
TEST(MastheadContent, PartsInPartsSayNothing) {
    const std::string inner = Content("Subject: inner\n");
    EXPECT_EQ(ReadRuns({Signed(Content("From: x\n\nDate: y\n\n" + inner))}), "signed date={y} from={x}");
    EXPECT_EQ(ReadRuns({Signed(Content(inner))}), "signed ");
}

TEST(MastheadContent, AThousandPartsInEachOther) {
    std::string message = "From: innermost\n\n";
    for (int depth = 0; depth < 1000; ++depth) {
        const std::string boundary = "b" + std::to_string(depth);
        message = "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + "\n" + message +
                  "\n--" + boundary + "--\n";
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ReadRuns({message}), "NotAMasthead");
    EXPECT_EQ(ReadRuns({Signed(message)}), "NotAMasthead");
    EXPECT_EQ(ReadRuns({Signed(Content("From: x\n\n" + message))}), "signed from={x}");
    EXPECT_EQ(ReadRuns({Signed(Content("From: x\n") + message)}), "signed from={x}");
    std::string nested = Content("From: x\n");
    for (int depth = 0; depth < 1000; ++depth) {
        nested = Signed(nested);
    }
    EXPECT_EQ(ReadRuns({nested}), "NotAMasthead");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

TEST(FipsRequirement, IsThatOfASignedMasthead) {
    const TemporaryPlace place;
    const auto required = [&](const std::string& text) { return ReadFipsRequirement(place.File("masthead", text)); };
    const std::string yes = "\nX-OSL-Require-FIPS-Cryptography: 1\n";
    EXPECT_TRUE(required(Signed(Content(yes))));
    EXPECT_TRUE(required(Signed(Content(yes.substr(1)))));
    EXPECT_FALSE(required(Signed(Content("\nX-OSL-Require-FIPS-Cryptography: 0\n"))));
    EXPECT_FALSE(required(Signed(Content("\nX-OSL-Require-FIPS-Cryptography: yes\n"))));
    EXPECT_FALSE(required(Signed(Content("\n"))));
    EXPECT_FALSE(required(Content(yes)));
    EXPECT_FALSE(required(Signed(Content(yes, "\"text/plain\""))));
    EXPECT_FALSE(required(yes));
    EXPECT_FALSE(required(""));
    place.Link("link", place.Path("masthead"));
    required(Signed(Content(yes)));
    EXPECT_TRUE(ReadFipsRequirement(place.Location("link")));
}

TEST(FipsRequirement, WhatIsNoFileRequiresNothing) {
    const TemporaryPlace place;
    EXPECT_FALSE(ReadFipsRequirement(FileLocation()));
    EXPECT_FALSE(ReadFipsRequirement(place.Location()));
    EXPECT_FALSE(ReadFipsRequirement(place.Location("missing")));
    EXPECT_FALSE(ReadFipsRequirement(FileLocation("/dev/zero")));
    EXPECT_FALSE(ReadFipsRequirement(FileLocation("/proc/self/mem")));
    ASSERT_EQ(mkfifo(place.Path("fifo").c_str(), 0600), 0);
    EXPECT_FALSE(ReadFipsRequirement(place.Location("fifo")));
}

// Behind its headers a masthead of any length is not read.
TEST(FipsRequirement, TheRestOfALongFileIsNotRead) {
    const TemporaryPlace place;
    place.File("masthead", Signed(Content("\nX-OSL-Require-FIPS-Cryptography: 1\n")));
    std::filesystem::resize_file(place.Path("masthead"), uint64_t{1} << 40);
    EXPECT_TRUE(ReadFipsRequirement(place.Location("masthead")));
}

TEST(ReadMastheadFile, TellsWhatIsWrong) {
    const TemporaryPlace place;
    Masthead masthead;
    MastheadHeaderReceiver headers(masthead);
    EXPECT_THROW(ReadMasthead(place.File("a", "x"), headers), NotAMasthead);
    EXPECT_THROW(ReadMasthead(place.File("a", Content("From: x\n")), headers), NotASignedMessage);
    EXPECT_THROW(ReadMasthead(place.Location("missing"), headers), FileIOError);
    ReadMasthead(place.File("a", Signed(Content("From: y\n"))), headers);
    EXPECT_EQ(Told(masthead), "from={y}");
}

TEST(MastheadFailures, HaveTheirNames) {
    EXPECT_STREQ(NotAMasthead().what(), "NotAMasthead");
    EXPECT_STREQ(NotASignedMessage().what(), "NotASignedMessage");
    EXPECT_STREQ(NoVerifiedSignature().what(), "NoVerifiedSignature");
    EXPECT_STREQ(NoAuthorizedSignature().what(), "NoAuthorizedSignature");
}

}  // namespace
