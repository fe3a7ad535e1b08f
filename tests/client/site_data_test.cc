// What the agent notes of a site: every line of the file, and lines that are none.
#include "client/site_data.h"

#include <gtest/gtest.h>

#include "client/site_names.h"
#include "foundation/line_maker.h"
#include "tests/foundation/cut_everywhere.h"
#include "tests/foundation/temporary_place.h"

namespace {

// What a text says, a word to a property.
std::string Told(const SiteMap& site) {
    std::string told;
    const auto add = [&](const std::string& word) { told += (told.empty() ? "" : " ") + word; };
    if (site.version) {
        add("version=" + std::to_string(*site.version));
    }
    if (site.versionList) {
        add("list=" + std::to_string((*site.versionList)[0]) + "," + std::to_string((*site.versionList)[1]));
    }
    if (site.tag) {
        add("tag={" + *site.tag + "}");
    }
    if (site.type) {
        add("type=" + std::string(*SiteNames::NameOf(SiteNames::types, site.type)));
    }
    if (site.lastGatherTime) {
        add("gathered=" + std::to_string(site.lastGatherTime->Microseconds()));
    }
    if (site.subscribeTime) {
        add("subscribed=" + std::to_string(site.subscribeTime->Microseconds()));
    }
    if (site.gatherScheduleAuthority) {
        add("authority=" + std::string(*SiteNames::NameOf(SiteNames::authorities, site.gatherScheduleAuthority)));
    }
    if (site.gatherScheduleInterval) {
        add("interval=" + std::to_string(site.gatherScheduleInterval->Microseconds()));
    }
    if (site.evaluated) {
        add(*site.evaluated ? "evaluated" : "not evaluated");
    }
    return told;
}

std::string ReadRuns(const Runs& runs) {
    SiteMap site;
    SiteDataMaker maker(site);
    HeaderMaker headers(maker);
    LineMaker lines(headers);
    lines.Start();
    for (const std::string_view run : runs) {
        const ConstData data(run);
        lines.Data(data.begin, data.end);
    }
    lines.Finish();
    return Told(site);
}

// Cut at every byte.
std::string Read(std::string_view text) { return CutEverywhere(text, ReadRuns); }

TEST(SiteData, EveryLineIsAProperty) {
    EXPECT_EQ(Read("Version: 12\n"
                   "Site-Version-List: 3,4\n"
                   "Site-Tag: a tag\n"
                   "Type: Master Action Site\n"
                   "Last-Gather-Time: Thu, 01 Jan 1970 00:00:01 +0000\n"
                   "Subscribe-Time: Thu, 01 Jan 1970 00:00:02 +0000\n"
                   "Gather-Schedule-Authority: Disable\n"
                   "Gather-Schedule-Interval: 1 day, 00:00:01\n"
                   "Evaluated: true\n"),
              "version=12 list=3,4 tag={a tag} type=Master Action Site gathered=1000000 subscribed=2000000 "
              "authority=Disable interval=86401000000 evaluated");
}

TEST(SiteData, EachTypeAndEachAuthority) {
    for (const auto& row : SiteNames::types) {
        EXPECT_EQ(Read("Type: " + std::string(row.name)), "type=" + std::string(row.name));
    }
    for (const auto& row : SiteNames::authorities) {
        EXPECT_EQ(Read("gather-schedule-authority:" + std::string(row.name)), "authority=" + std::string(row.name));
    }
}

TEST(SiteData, WhatDoesNotParseIsAbsent) {
    EXPECT_EQ(Read("Version: 1.2\nType: custom site\nLast-Gather-Time: yesterday\n"
                   "Subscribe-Time: Thu, 01 Jan 1970 00:00:02\nGather-Schedule-Authority: Nobody\n"
                   "Gather-Schedule-Interval: often\nEvaluated: True\n"),
              "");
    EXPECT_EQ(Read("Version: 9223372036854775808\nEvaluated: 1\nType:\nVersion :\n"), "");
    EXPECT_EQ(Read("Evaluated: false\nEvaluated: no\n"), "");
    EXPECT_EQ(Read(""), "");
}

TEST(SiteData, IsHeaderLines) {
    EXPECT_EQ(Read("VERSION:\t 12 \t\r\nOther: x\nno colon\nsite-tag: a\n  b\n"), "version=12 tag={a b}");
    EXPECT_EQ(Read("Version: 1\n\nVersion: 2\n"), "version=1");
    EXPECT_EQ(Read("Version: 1\nVersion: 2"), "version=2");
    EXPECT_EQ(Read("Site-Tag:\n"), "tag={}");
}

TEST(SiteData, OfAFileIsReadAsFarAsItsFirstMebibyte) {
    const TemporaryPlace place;
    SiteMap site;
    ReadSiteData(place.File("data", "Version: 1\nSite-Tag: " + std::string(2 << 20, 'x') + "\nVersion: 2\n"), site);
    EXPECT_EQ(site.version, 1);
    EXPECT_LT(site.tag->size(), size_t{1} << 20);
    EXPECT_THROW(ReadSiteData(place.Location("none"), site), FileIOError);
}

}  // namespace
