// Content items and analyses of a host that has some.
#include "tests/host/embedding_host.h"
#include "tests/host/phrases.h"

namespace {

class PraxelsTest : public testing::Test {
protected:
    PraxelsTest() {
        SiteMap first;
        first.name = "First";
        SiteMap second;
        second.name = "Second";
        host.holder.Replace({first, second});
        Add(1, 0, true);
        Add(2, 0, false);
        Add(3, 1, true);
        Add(4, 0, std::nullopt);
        Add(5, 0, true);
        host.items[0].headers = {{"From", "a"}, {"x-header", "b"}, {"FROM", "c"}};
    }

    void Add(int64_t id, size_t siteNumber, std::optional<bool> relevant) {
        HostPraxels::Item item;
        item.id = id;
        item.site = host.Site(siteNumber);
        item.relevant = relevant;
        host.items.push_back(item);
    }
    Answer Asked(std::string_view question) { return Ask(question, &host); }

    EmbeddingHost host;
};

TEST_F(PraxelsTest, OfASiteAllAndTheRelevantOnes) {
    EXPECT_EQ(Asked("ids of praxels of site \"First\""), Values({"1", "2", "4", "5"}));
    EXPECT_EQ(Asked("ids of relevant praxels of site \"First\""), Values({"1", "5"}));
    EXPECT_EQ(Asked("ids of praxels of sites"), Values({"1", "2", "4", "5", "3"}));
    ExpectValue(host, {"id of praxel", "ids of praxels", " of site \"Second\"", "3"});
    ExpectValue(host, {"id of relevant praxel", "ids of relevant praxels", " of site \"Second\"", "3"});
    EXPECT_EQ(Asked("id of praxel of site \"First\"").failure, "ArgumentNotUnique");
    EXPECT_EQ(Asked("praxels of sites"), Fails("OperationNotDefined"));
}

TEST_F(PraxelsTest, PropertiesInEachSpelling) {
    const std::string ofSecond = " of praxel of site \"Second\"";
    ExpectValue(host, {"id", "ids", ofSecond, "3"});
    ExpectValue(host, {"relevance", "relevances", ofSecond, "True"});
    ExpectValue(host, {"name of site", "names of sites", ofSecond, "Second"});
    EXPECT_EQ(Asked("relevances of praxels of site \"First\""), Values({"True", "False", "True"}));
    host.items[2].site = nullptr;
    host.analysis = &host.items[2];
    ExpectNone(host, {"name of site", "names of sites", " of current analysis", ""});
}

TEST_F(PraxelsTest, HeadersAllAndByName) {
    const std::string ofFirst = " of praxels whose (id of it = 1) of site \"First\"";
    EXPECT_EQ(Asked("names of headers" + ofFirst), Values({"From", "x-header", "FROM"}));
    EXPECT_EQ(Asked("values of headers" + ofFirst), Values({"a", "b", "c"}));
    EXPECT_EQ(Asked("values of headers \"from\"" + ofFirst), Values({"a", "c"}));
    host.analysis = &host.items[0];
    ExpectValue(host, {"value of header \"X-HEADER\"", "values of headers \"x-header\"", " of current analysis", "b"});
    ExpectValue(host,
                {"name of header \"X-HEADER\"", "names of headers \"x-header\"", " of current analysis", "x-header"});
    ExpectNone(host, {"value of header \"x\"", "values of headers \"x\"", " of current analysis", ""});
    EXPECT_EQ(Asked("headers of current analysis"), Fails("OperationNotDefined"));
}

TEST_F(PraxelsTest, WhileTheHostRewritesItsItemsNoneCanBeLookedAt) {
    host.analysis = &host.items[0];
    host.praxelsAreBusy = true;
    for (const Phrase& phrase : std::vector<Phrase>{
             {"relevance", "relevances", " of current analysis", ""},
             {"value of header \"x-header\"", "values of headers", " of current analysis", ""},
             {"id of praxel", "ids of praxels", " of site \"Second\"", ""},
             {"id of relevant praxel", "ids of relevant praxels", " of site \"Second\"", ""},
         }) {
        ExpectFailure(&host, phrase, "CannotEvaluateNow");
    }
    ExpectValue(host, {"id", "ids", " of current analysis", "1"});
    static_cast<InspectorPraxelContext&>(host).isBusy = nullptr;
    ExpectValue(host, {"relevance", "relevances", " of current analysis", "True"});
}

TEST_F(PraxelsTest, TheCurrentAnalysis) {
    ExpectNone(host, {"id of current analysis", "ids of current analyses", "", ""});
    ExpectNone(host, {"last time of analysis", "last times of analysiss", "", ""});
    host.analysis = &host.items[3];
    ExpectValue(host, {"id of current analysis", "ids of current analyses", "", "4"});
    ExpectNone(host, {"last time of analysis", "last times of analysiss", "", ""});
    host.lastTimes[4] = 921'024'672'000'000;
    EXPECT_EQ(Asked("exists analysis"), Values({"True"}));
    EXPECT_EQ(Asked("last time of analysis as universal string"), Values({"Wed, 10 Mar 1999 00:11:12 +0000"}));
    EXPECT_EQ(Asked("(last times of analysiss) as universal string"), Values({"Wed, 10 Mar 1999 00:11:12 +0000"}));
    EXPECT_EQ(Asked("analysis"), Fails("OperationNotDefined"));
}

}  // namespace
