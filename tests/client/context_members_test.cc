// What the console lends to inspectors beside its stores: the list of libraries and the DNS domain.
#include <gtest/gtest.h>

#include <string>

#include "client/dns_domain_name.h"
#include "client/inspector_library_list.h"
#include "foundation/line_maker.h"
#include "tests/foundation/cut_everywhere.h"

namespace {

TEST(InspectorLibraries, AreFoundByNameAndByPlace) {
    EXPECT_EQ(InspectorLibraryList::SFind("One"), nullptr);
    EXPECT_EQ(InspectorLibraryList::SFindByNumber(0), nullptr);
    InspectorLibraryList::Add(0, "One");
    InspectorLibraryList::Add(7, "Two");
    ASSERT_NE(InspectorLibraryList::SFind("Two"), nullptr);
    EXPECT_EQ(InspectorLibraryList::SFind("Two")->number, 7u);
    EXPECT_EQ(InspectorLibraryList::SFind("Two"), InspectorLibraryList::SFindByNumber(1));
    EXPECT_EQ(InspectorLibraryList::SFindByNumber(0)->name, "One");
    EXPECT_EQ(InspectorLibraryList::SFind("two"), nullptr);
    EXPECT_EQ(InspectorLibraryList::SFind("Tw"), nullptr);
    EXPECT_EQ(InspectorLibraryList::SFindByNumber(2), nullptr);
    EXPECT_EQ(InspectorLibraryList::SFindByNumber(7), nullptr);
}

template <class Reader>
std::string DomainIn(std::string_view text, const Reader& unread) {
    return CutEverywhere(text, [&](const Runs& runs) {
        Reader reader = unread;
        LineMaker lines(reader);
        lines.Start();
        for (const std::string_view run : runs) {
            const ConstData data(run);
            lines.Data(data.begin, data.end);
        }
        lines.Finish();
        return reader.domain;
    });
}
std::string Hosts(std::string_view text) { return DomainIn(text, HostsDomain("box")); }
std::string Resolver(std::string_view text) { return DomainIn(text, ResolverDomain()); }

TEST(DnsDomain, OfAName) {
    EXPECT_EQ(DomainOf("box"), std::nullopt);
    EXPECT_EQ(DomainOf("box."), std::nullopt);
    EXPECT_EQ(DomainOf(""), std::nullopt);
    EXPECT_EQ(DomainOf("box.example.org"), "example.org");
    EXPECT_EQ(DomainOf("box.example.org."), "example.org");
}

TEST(DnsDomain, OfTheHostsFile) {
    EXPECT_EQ(Hosts("127.0.0.1 localhost\n127.0.1.1\tbox.example.org box\n"), "example.org");
    EXPECT_EQ(Hosts("127.0.1.1 box BOX.Example.org"), "Example.org");
    EXPECT_EQ(Hosts("127.0.1.1 box\n10.0.0.1 box.a box.b\n10.0.0.2 box.c\n"), "a");
    EXPECT_EQ(Hosts("127.0.1.1 boxes.example.org boxes\n"), "");
    EXPECT_EQ(Hosts("127.0.1.1 other # box.example.org\n"), "");
    EXPECT_EQ(Hosts("box.example.org\n"), "");
    EXPECT_EQ(Hosts(""), "");
    EXPECT_EQ(Hosts("127.0.1.1 " + std::string(1006, 'x') + " box.example.org\n10.0.0.1 box.after\n"), "after");
}

TEST(DnsDomain, OfTheResolverFile) {
    EXPECT_EQ(Resolver("nameserver 10.0.0.1\nsearch example.org other.org\noptions ndots:5\n"), "example.org");
    EXPECT_EQ(Resolver("domain one.org\nsearch two.org.\n"), "two.org");
    EXPECT_EQ(Resolver("search two.org\ndomain\tone.org"), "one.org");
    EXPECT_EQ(Resolver("# domain one.org\n; domain one.org\nsearch .\n"), "");
    EXPECT_EQ(Resolver("search\n"), "");
    EXPECT_EQ(Resolver(""), "");
}

}  // namespace
