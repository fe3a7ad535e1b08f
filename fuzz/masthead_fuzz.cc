// Feeds arbitrary bytes, as a masthead, to the whole chain from lines to the fields of the record.
//
// A masthead is read or refused; texts keep to their bounds; what is read with all headers and with one alone is the
// same; and so it is when the same masthead comes in two runs.
#include <cstddef>
#include <cstdint>
#include <string>

#include "client/masthead_maker.h"
#include "foundation/line_maker.h"
#include "foundation/multipart_splitter.h"
#include "fuzz/expect.h"

namespace {

struct Outcome {
    std::string refused;  // by whom; empty for a masthead
    std::string fields;
    int64_t required = 0;
};

void Read(MastheadMaker& maker, ConstData message, size_t cut, std::string& refused) {
    MultipartSplitter splitter(maker);
    LineMaker lines(splitter);
    try {
        lines.Start();
        lines.Data(message.begin, message.begin + cut);
        lines.Data(message.begin + cut, message.end);
        lines.Finish();
    } catch (const DebuggableException& failure) {
        refused = failure.what();
        Expect(refused == "NotAMasthead");
    }
}

Outcome ReadWhole(ConstData message, size_t cut) {
    Outcome outcome;
    Masthead masthead;
    MastheadHeaderReceiver headers(masthead);
    MastheadMaker maker(headers);
    Read(maker, message, cut, outcome.refused);
    const auto add = [&](ConstData text) {
        Expect(text.Length() <= 256);
        outcome.fields.append(text.View()).append("\n");
    };
    for (const Masthead::Text* text : {&masthead.date,
                                       &masthead.from,
                                       &masthead.organization,
                                       &masthead.subject,
                                       &masthead.actionLockController,
                                       &masthead.actionLockInitial,
                                       &masthead.mirrorDownloadUrl,
                                       &masthead.mirrorGatherUrl,
                                       &masthead.siteAssertion,
                                       &masthead.siteBbs,
                                       &masthead.siteCodicil,
                                       &masthead.siteGatherUrl,
                                       &masthead.siteLocation,
                                       &masthead.mastheadVersion,
                                       &masthead.siteName,
                                       &masthead.siteRegistrationUrl,
                                       &masthead.siteReportUrl,
                                       &masthead.organizationCommonName,
                                       &masthead.siteLocationAbsoluteDirectory,
                                       &masthead.webPage}) {
        add(text->Text());
    }
    for (size_t i = 0; i != masthead.actionLockOmitSites.Size(); ++i) {
        add(masthead.actionLockOmitSites[i].Text());
    }
    Expect(masthead.relevance.size() <= message.Length());
    Expect(masthead.updateFrequency >= 900'000'000 && masthead.updateFrequency <= 5'184'000'000'000);
    outcome.fields += masthead.relevance + "\n" + std::to_string(masthead.updateFrequency) + "\n" +
                      std::to_string(masthead.uniqueSiteId) + "\n" + std::to_string(masthead.mastheadVersionList[0]);
    outcome.required = masthead.requireFipsCryptography;
    return outcome;
}

Outcome ReadRequirement(ConstData message) {
    Outcome outcome;
    Masthead masthead;
    MastheadHeaderReceiver headers(masthead, MastheadHeaderReceiver::cRequireFipsCryptography);
    MastheadMaker maker(headers);
    Read(maker, message, 0, outcome.refused);
    outcome.required = masthead.requireFipsCryptography;
    return outcome;
}

}  // namespace

// The first two bytes say where the second look cuts the rest.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    const ConstData message(data + 2, data + size);
    const size_t cut = (data[0] * size_t{256} + data[1]) % (message.Length() + 1);
    const Outcome whole = ReadWhole(message, 0);
    const Outcome halves = ReadWhole(message, cut);
    Expect(whole.refused == halves.refused && whole.fields == halves.fields && whole.required == halves.required);
    const Outcome one = ReadRequirement(message);
    Expect(one.refused == whole.refused && one.required == whole.required);
    return 0;
}
