#include "client/zendry_options_manager.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <thread>
#include <vector>

#include "tests/client/configuration.h"

namespace {

void SetModificationSecond(const std::string& path, time_t second) {
    const timespec times[2] = {{second, 0}, {second, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

std::vector<std::string> SectionsOf(ZendryOptionsManager& manager) {
    std::vector<std::string> sections;
    size_t cursor = 0;
    for (const char* section = nullptr; manager.NextSection(cursor, section);) {
        sections.emplace_back(section);
        EXPECT_EQ(cursor, sections.size());
    }
    return sections;
}

// No root, whom no mode keeps out of a folder, while the object lives.
class Unprivileged {
public:
    Unprivileged() : was_(geteuid()) {
        if (was_ == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged() {
        if (was_ == 0) {
            EXPECT_EQ(seteuid(was_), 0);
        }
    }

private:
    uid_t was_;
};

TEST(ConfigurationLoad, AnUnsetPathIsSaidAndEveryReadFails) {
    const Configuration files;
    files.Relay("[s]\nk = relay\n");
    unsetenv("OSLClientConfigPath");
    const std::string said = ErrorOutput([] {
        ZendryOptionsManager manager;
        EXPECT_EQ(Text(manager, "s", "k"), "none");
        EXPECT_FALSE(manager.SectionExists("s"));
        EXPECT_FALSE(manager.WriteString("s", "k", "v"));
        EXPECT_FALSE(manager.DeleteKey("s", "k"));
        EXPECT_TRUE(SectionsOf(manager).empty());
    });
    EXPECT_EQ(said, "OSLClientConfigPath must be set\n");
}

TEST(ConfigurationLoad, AMissingFileWithoutADefaultIsSaidTwice) {
    const Configuration files;
    files.Relay("[s]\nk = relay\n");
    const std::string said = ErrorOutput([] {
        ZendryOptionsManager manager;
        EXPECT_EQ(Text(manager, "s", "k"), "none");
    });
    EXPECT_EQ(said, "No default config file found\nCould not open config file '" + files.Path() +
                        "': No such file or directory\n");
    EXPECT_FALSE(files.Place().Has("client.ini"));
}

TEST(ConfigurationLoad, AMissingFileIsCopiedFromItsDefault) {
    const Configuration files;
    files.Place().File("client.ini.default", "[s]\nk = default\n");
    const std::string said = ErrorOutput([] {
        ZendryOptionsManager manager;
        EXPECT_EQ(Text(manager, "s", "k"), "default");
    });
    EXPECT_EQ(said, "");
    EXPECT_EQ(files.Content(), "[s]\nk = default\n");
    EXPECT_TRUE(files.Place().Has("client.ini.default"));
    EXPECT_FALSE(files.Place().Has("client.ini.tmp"));
}

TEST(ConfigurationLoad, AFileThatIsThereIsNotTakenFromItsDefault) {
    const Configuration files;
    files.Client("[s]\nk = own\n");
    files.Place().File("client.ini.default", "[s]\nk = default\n");
    ZendryOptionsManager manager;
    EXPECT_EQ(Text(manager, "s", "k"), "own");
}

TEST(ConfigurationLoad, ADefaultThatCannotBeCopiedIsSaid) {
    const Configuration files;
    files.Place().Folder("client.ini.default");
    const std::string said = ErrorOutput([] { ZendryOptionsManager manager; });
    EXPECT_EQ(said, "Error copying default config file\nCould not open config file '" + files.Path() +
                        "': No such file or directory\n");
    EXPECT_FALSE(files.Place().Has("client.ini"));
    EXPECT_FALSE(files.Place().Has("client.ini.tmp"));
}

TEST(ConfigurationLoad, AHalfCopiedDefaultIsNeverTakenForTheFile) {
    const Configuration files;
    files.Place().File("client.ini.default", "[s]\n" + std::string(5000, '\n') + "k = default\n");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    testing::internal::CaptureStderr();  // its file must not fall under the limit
    const rlimit small = {100, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    { const ZendryOptionsManager manager; }
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 34), "Error copying default config file\n");
    EXPECT_FALSE(files.Place().Has("client.ini"));
    EXPECT_FALSE(files.Place().Has("client.ini.tmp"));
}

TEST(ConfigurationLoad, AnUnreadableFileIsSaid) {
    const Configuration files;
    files.Client("[s]\nk = v\n");
    ASSERT_EQ(chmod(files.Path().c_str(), 0), 0);
    ASSERT_EQ(chmod(files.Place().Path().c_str(), 0755), 0);
    std::string said;
    {
        const Unprivileged user;
        said = ErrorOutput([] {
            ZendryOptionsManager manager;
            EXPECT_EQ(Text(manager, "s", "k"), "none");
        });
    }
    EXPECT_EQ(said, "Could not open config file '" + files.Path() + "': Permission denied\n");
}

TEST(ConfigurationLoad, WhatTheLibraryRefusesLeavesNoValues) {
    const Configuration files;
    files.Relay("[s]\nk = relay\n");
    for (const std::string& text :
         {std::string("[s]\nk = v\nneither\n"), std::string("= v\n"), "[s]\nk = " + std::string(1100, 'v') + "\n",
          "; " + std::string(1100, 'c') + "\n", std::string("\xEF\xBB\xBF[s]\nk = v\n"), std::string("[s\nk = v")}) {
        files.Client(text);
        const std::string said = ErrorOutput([] {
            ZendryOptionsManager manager;
            EXPECT_EQ(Text(manager, "s", "k"), "none");
            EXPECT_FALSE(manager.SectionExists("s"));
            EXPECT_FALSE(manager.WriteString("s", "k", "v"));
        });
        EXPECT_EQ(said, "") << text;
        EXPECT_EQ(files.Content(), text);
    }
}

TEST(ConfigurationLoad, WhatIsNoRegularFileLeavesNoValues) {
    const Configuration files;
    files.Place().Folder("folder");
    ASSERT_EQ(mkfifo(files.Place().Path("pipe").c_str(), 0666), 0);
    files.Place().Link("zeros", "/dev/zero");
    for (const char* name : {"folder", "pipe", "zeros"}) {
        files.Name(name);
        const std::string said = ErrorOutput([] {
            ZendryOptionsManager manager;
            EXPECT_EQ(Text(manager, "s", "k"), "none");
            EXPECT_FALSE(manager.WriteString("s", "k", "v"));
        });
        EXPECT_EQ(said, "") << name;
    }
}

TEST(ConfigurationLoad, ARelayFileThatIsRefusedOrMissingIsNoRelayFile) {
    const Configuration files;
    files.Client("[s]\nk = v\n");
    files.Relay("junk\n");
    const std::string said = ErrorOutput([&] {
        ZendryOptionsManager manager;
        EXPECT_EQ(SectionsOf(manager), std::vector<std::string>({"s"}));
        std::filesystem::remove(files.Place().Path("relay.ini"));
        manager.Load();
        EXPECT_EQ(Text(manager, "s", "k"), "v");
    });
    EXPECT_EQ(said, "");
}

TEST(ConfigurationLoad, FilesAreReadAgainWhenTheirTimesHaveChanged) {
    const Configuration files;
    files.Client("[s]\nk = 1\n");
    files.Relay("[s]\nr = 1\n");
    SetModificationSecond(files.Path(), 1000);
    SetModificationSecond(files.Place().Path("relay.ini"), 1000);
    ZendryOptionsManager manager;

    files.Client("[s]\nk = 2\n");
    SetModificationSecond(files.Path(), 1000);
    manager.Load();
    EXPECT_EQ(Text(manager, "s", "k"), "1");
    SetModificationSecond(files.Path(), 999);
    manager.Load();
    EXPECT_EQ(Text(manager, "s", "k"), "2");

    // Either time has both read.
    files.Client("[s]\nk = 3\n");
    SetModificationSecond(files.Path(), 999);
    files.Relay("[s]\nr = 3\n");
    SetModificationSecond(files.Place().Path("relay.ini"), 1001);
    manager.Load();
    EXPECT_EQ(Text(manager, "s", "k"), "3");
    EXPECT_EQ(Text(manager, "s", "r"), "3");

    unsetenv("OSLClientConfigPath");
    EXPECT_EQ(ErrorOutput([&] { manager.Load(); }), "OSLClientConfigPath must be set\n");
    EXPECT_EQ(Text(manager, "s", "k"), "none");
}

// A file that goes away keeps what was read of it, and one that comes again is read as ever.
TEST(ConfigurationLoad, WhatWasReadStaysWhereTheFileCannotBeOpenedAgain) {
    const Configuration files;
    files.Client("[s]\nk = 1\n");
    ZendryOptionsManager manager;
    std::filesystem::remove(files.Path());
    EXPECT_EQ(ErrorOutput([&] { manager.Load(); }), "No default config file found\nCould not open config file '" +
                                                        files.Path() + "': No such file or directory\n");
    EXPECT_EQ(Text(manager, "s", "k"), "1");
    files.Place().File("client.ini.default", "[s]\nk = default\n");
    EXPECT_EQ(ErrorOutput([&] { manager.Load(); }), "");
    EXPECT_EQ(Text(manager, "s", "k"), "default");
    EXPECT_EQ(files.Content(), "[s]\nk = default\n");
}

TEST(ConfigurationRead, NamesAreLookedUpWithoutRegardToCase) {
    const Configuration files;
    files.Client("[Software\\Some Company\\Part]\nSome Key = Some Value\nlast=1\r\n");
    ZendryOptionsManager manager;
    EXPECT_EQ(Text(manager, "software\\SOME company\\Part", "SOME KEY"), "Some Value");
    EXPECT_EQ(Text(manager, "Software\\Some Company\\Part", "last"), "1");
    EXPECT_EQ(Text(manager, "Software\\\\Some Company\\\\Part", "last"), "none");
    EXPECT_TRUE(manager.SectionExists("SOFTWARE\\some company\\PART"));
    EXPECT_FALSE(manager.SectionExists("Software"));
    EXPECT_FALSE(manager.SectionExists("Software\\Some Company\\Part:last"));
    EXPECT_EQ(SectionsOf(manager), std::vector<std::string>({"software\\some company\\part"}));
}

TEST(ConfigurationRead, LongNamesAreFound) {
    const std::string section(1000, 'S');
    const std::string key(1000, 'K');
    const Configuration files;
    files.Client("[" + section + "]\n" + key + " = v\n");
    ZendryOptionsManager manager;
    EXPECT_EQ(Text(manager, section, key), "v");
    EXPECT_EQ(Text(manager, section, key + "x"), "none");
    EXPECT_TRUE(manager.WriteString(section, "other", "w"));
    ZendryOptionsManager again;
    EXPECT_EQ(Text(again, section, key), "v");
    EXPECT_EQ(Text(again, section, "other"), "w");
}

TEST(ConfigurationRead, TheRelayFileStandsBehindTheClientFile) {
    const Configuration files;
    files.Client("[both]\nk = client\nc = client\n[own]\nk = client\n");
    files.Relay("[Both]\nk = relay\nr = relay\n[Relays]\nk = relay\n");
    ZendryOptionsManager manager;
    EXPECT_EQ(Text(manager, "both", "k"), "client");
    EXPECT_EQ(Text(manager, "both", "c"), "client");
    EXPECT_EQ(Text(manager, "both", "r"), "relay");
    EXPECT_EQ(Text(manager, "relays", "k"), "relay");
    EXPECT_TRUE(manager.SectionExists("own"));
    EXPECT_TRUE(manager.SectionExists("relays"));
    EXPECT_EQ(SectionsOf(manager), std::vector<std::string>({"both", "own", "both", "relays"}));
}

TEST(ConfigurationRead, RelaySettingsAreNeverWritten) {
    const Configuration files;
    files.Client("[s]\nk = client\n");
    files.Relay("[r]\nk = relay\n");
    ZendryOptionsManager manager;
    EXPECT_TRUE(manager.WriteString("r", "k", "own"));
    EXPECT_EQ(Text(manager, "r", "k"), "own");
    EXPECT_TRUE(manager.DeleteSection("r"));
    EXPECT_EQ(Text(manager, "r", "k"), "relay");
    EXPECT_TRUE(manager.DeleteKey("r", "k"));
    EXPECT_EQ(Text(manager, "r", "k"), "relay");
    EXPECT_EQ(files.Place().Content("relay.ini"), "[r]\nk = relay\n");
    EXPECT_EQ(files.Content().find("relay"), std::string::npos);
}

TEST(ConfigurationRead, Numbers) {
    struct Row {
        const char* text;
        int64_t wide;
        int32_t narrow;
        uint32_t natural;
    };
    const std::vector<Row> rows = {
        {"0", 0, 0, 0},
        {"17", 17, 17, 17},
        {"-2", -2, -2, 4294967294},
        {"+5", 5, 5, 5},
        {"12 monkeys", 12, 12, 12},
        {"junk", 0, 0, 0},
        {"0x10", 0, 0, 0},
        {"", 0, 0, 0},
        {"2147483648", 2147483648, 2147483647, 2147483648},
        {"-2147483649", -2147483649, -2147483648, 2147483647},
        {"4294967295", 4294967295, 2147483647, 4294967295},
        {"4294967296", 4294967296, 2147483647, 4294967295},
        {"99999999999999999999", INT64_MAX, 2147483647, 4294967295},
        {"-99999999999999999999", INT64_MIN, -2147483648, 4294967295},
    };
    const Configuration files;
    std::string text = "[n]\n";
    for (size_t i = 0; i != rows.size(); ++i) {
        text += "k" + std::to_string(i) + " = " + rows[i].text + "\n";
    }
    files.Client(text);
    ZendryOptionsManager manager;
    for (size_t i = 0; i != rows.size(); ++i) {
        const std::string key = "k" + std::to_string(i);
        int64_t wide = 99;
        int32_t narrow = 99;
        uint32_t natural = 99;
        EXPECT_TRUE(manager.ReadInteger64("n", key, wide));
        EXPECT_TRUE(manager.ReadSigned("n", key, narrow));
        EXPECT_TRUE(manager.ReadUnsigned("n", key, natural));
        EXPECT_EQ(wide, rows[i].wide) << rows[i].text;
        EXPECT_EQ(narrow, rows[i].narrow) << rows[i].text;
        EXPECT_EQ(natural, rows[i].natural) << rows[i].text;
    }
    int64_t wide = 99;
    int32_t narrow = 99;
    uint32_t natural = 99;
    EXPECT_FALSE(manager.ReadInteger64("n", "none", wide));
    EXPECT_FALSE(manager.ReadSigned("n", "none", narrow));
    EXPECT_FALSE(manager.ReadUnsigned("n", "none", natural));
    EXPECT_EQ(wide + narrow + natural, 297);
}

TEST(ConfigurationRead, BuffersMustHoldTheTextAndItsEnd) {
    const Configuration files;
    files.Client("[s]\nk = 12345\nempty =\n");
    ZendryOptionsManager manager;
    size_t size = 0;
    EXPECT_TRUE(manager.ReadBuffered("s", "k", nullptr, size));
    EXPECT_EQ(size, 6u);
    EXPECT_TRUE(manager.ReadBuffered("s", "empty", nullptr, size));
    EXPECT_EQ(size, 1u);
    EXPECT_FALSE(manager.ReadBuffered("s", "none", nullptr, size));
    EXPECT_EQ(size, 1u);

    std::array<char, 8> buffer;
    for (size = 0; size != 6; ++size) {
        buffer.fill('#');
        size_t given = size;
        EXPECT_FALSE(manager.ReadBuffered("s", "k", buffer.data(), given)) << size;
        EXPECT_EQ(std::string(buffer.data(), 8), "########");
    }
    EXPECT_TRUE(manager.ReadBuffered("s", "k", buffer.data(), size));
    EXPECT_EQ(std::string(buffer.data(), 8), std::string("12345\0##", 8));
    size = 1;
    EXPECT_TRUE(manager.ReadBuffered("s", "empty", buffer.data(), size));
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_FALSE(manager.ReadBuffered("s", "none", buffer.data(), size));
}

TEST(ConfigurationRead, Times) {
    const Configuration files;
    files.Client(
        "[t]\n"
        "zoned = Tue, 09 Mar 1999 10:11:12 +0000\n"
        "west = 09 Mar 1999 00:00:00 -0500\n"
        "named = Wed, 01 Jan 2020 00:00:00 gmt\n"
        "zoneless = Tue, 09 Mar 1999 10:11:12\n"
        "weekday = Wed, 09 Mar 1999 10:11:12 +0000\n"
        "junk = junk\n"
        "empty =\n");
    ZendryOptionsManager manager;
    moment time;
    EXPECT_TRUE(manager.ReadTime("t", "zoned", time));
    EXPECT_EQ(time.Microseconds(), 920974272000000);
    EXPECT_TRUE(manager.ReadTime("t", "west", time));
    EXPECT_EQ(time.Microseconds(), 920955600000000);
    EXPECT_TRUE(manager.ReadTime("t", "named", time));
    EXPECT_EQ(time.Microseconds(), 1577836800000000);
    for (const char* key : {"zoneless", "weekday", "junk", "empty", "none"}) {
        EXPECT_FALSE(manager.ReadTime("t", key, time)) << key;
        EXPECT_EQ(time.Microseconds(), 1577836800000000);
    }
}

TEST(ConfigurationWrite, KeysAreSetInTheFile) {
    const Configuration files;
    files.Client("[Old]\nKey = v\n");
    ZendryOptionsManager manager;
    EXPECT_TRUE(manager.WriteString("New\\Section", "Key", "Some Value"));
    EXPECT_TRUE(manager.WriteSigned("old", "signed", -7));
    EXPECT_TRUE(manager.WriteUnsigned("old", "unsigned", 4294967295));
    EXPECT_TRUE(manager.WriteInteger64("old", "wide", INT64_MIN));
    EXPECT_TRUE(manager.WriteTime("old", "time", moment(920974272999999)));
    EXPECT_FALSE(manager.WriteTime("old", "no year", moment(INT64_MIN)));
    EXPECT_TRUE(manager.WriteString("OLD", "key", "w"));
    EXPECT_EQ(files.Content(),
              "\n[old]\n"
              "key                            = w\n"
              "signed                         = -7\n"
              "unsigned                       = 4294967295\n"
              "wide                           = -9223372036854775808\n"
              "time                           = Tue, 09 Mar 1999 10:11:12 +0000\n"
              "\n\n[new\\section]\n"
              "key                            = Some Value\n\n");
    ZendryOptionsManager again;
    for (ZendryOptionsManager* read : {&manager, &again}) {
        EXPECT_EQ(Text(*read, "new\\section", "key"), "Some Value");
        EXPECT_EQ(Text(*read, "old", "key"), "w");
        int64_t wide = 0;
        EXPECT_TRUE(read->ReadInteger64("old", "wide", wide));
        EXPECT_EQ(wide, INT64_MIN);
    }
}

TEST(ConfigurationWrite, KeysAndSectionsAreDeleted) {
    const Configuration files;
    files.Client("[s]\na = 1\nb = 2\n[s\\t]\na = 3\n[st]\na = 4\n");
    ZendryOptionsManager manager;
    EXPECT_TRUE(manager.DeleteKey("S", "A"));
    EXPECT_EQ(Text(manager, "s", "a"), "none");
    EXPECT_EQ(Text(manager, "s", "b"), "2");
    EXPECT_TRUE(manager.DeleteKey("s", "never"));
    EXPECT_TRUE(manager.DeleteKey("s", "b"));
    EXPECT_TRUE(manager.SectionExists("s"));
    EXPECT_TRUE(manager.DeleteSection("S"));
    ZendryOptionsManager again;
    EXPECT_EQ(SectionsOf(again), std::vector<std::string>({"s\\t", "st"}));
    EXPECT_EQ(Text(again, "s\\t", "a"), "3");
    EXPECT_EQ(Text(again, "st", "a"), "4");
}

TEST(ConfigurationWrite, TheNewFileIsOfModeSixSixSix) {
    const Configuration files;
    files.Client("[s]\n");
    ASSERT_EQ(chmod(files.Path().c_str(), 0600), 0);
    ZendryOptionsManager manager;
    const mode_t before = umask(02);
    EXPECT_TRUE(manager.WriteString("s", "k", "v"));
    umask(before);
    struct stat found {};
    ASSERT_EQ(stat(files.Path().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, mode_t{0664});
}

// A configuration with one value, and a write that is to fail: the file, what is read, and the folder are as before.
class FailingWrite : public testing::Test {
protected:
    FailingWrite() {
        files_.Client(text_);
        manager_ = std::make_unique<ZendryOptionsManager>();
    }

    // Returns what was said.
    std::string Fails() {
        const std::string said = ErrorOutput([&] {
            EXPECT_FALSE(manager_->WriteString("s", "k", "new"));
            EXPECT_FALSE(manager_->DeleteKey("s", "k"));
            EXPECT_FALSE(manager_->DeleteSection("s"));
        });
        EXPECT_EQ(files_.Content(), text_);
        EXPECT_EQ(Text(*manager_, "s", "k"), "old");
        EXPECT_EQ(SectionsOf(*manager_), std::vector<std::string>({"s", "t"}));
        return said;
    }

    const std::string text_ = "; kept\n[s]\nk = old\n[t]\nk = other\n";
    const Configuration files_;
    std::unique_ptr<ZendryOptionsManager> manager_;
};

TEST_F(FailingWrite, WhereThePathIsUnsetSince) {
    unsetenv("OSLClientConfigPath");
    const std::string once = "OSLClientConfigPath must be set\n";
    EXPECT_EQ(Fails(), once + once + once);
}

TEST_F(FailingWrite, WhereTheFolderMayNotBeWritten) {
    ASSERT_EQ(chmod(files_.Place().Path().c_str(), 0555), 0);
    {
        const Unprivileged user;
        EXPECT_EQ(Fails(), "");
    }
    ASSERT_EQ(chmod(files_.Place().Path().c_str(), 0755), 0);
    EXPECT_FALSE(files_.Place().Has("client.ini.tmp"));
}

TEST_F(FailingWrite, WhereTheWorkingFileCannotBeOpened) {
    files_.Place().Folder("client.ini.tmp");
    EXPECT_EQ(Fails(), "");
    EXPECT_TRUE(files_.Place().Has("client.ini.tmp"));
}

// What an interrupted write left behind is no hindrance, and nothing of it is kept.
TEST(ConfigurationWrite, AWorkingFileThatWasLeftIsWrittenOver) {
    const Configuration files;
    files.Client("[s]\nk = old\n");
    files.Place().File("client.ini.tmp", "[left]\n" + std::string(10000, '#'));
    ZendryOptionsManager manager;
    EXPECT_TRUE(manager.WriteString("s", "k", "new"));
    EXPECT_FALSE(files.Place().Has("client.ini.tmp"));
    ZendryOptionsManager again;
    EXPECT_EQ(Text(again, "s", "k"), "new");
    EXPECT_EQ(SectionsOf(again), std::vector<std::string>({"s"}));
}

TEST_F(FailingWrite, WhereTheDiskIsFull) {
    files_.Place().Link("client.ini.tmp", "/dev/full");
    const std::string said = ErrorOutput([&] { EXPECT_FALSE(manager_->WriteString("s", "k", "new")); });
    EXPECT_EQ(said, "");
    EXPECT_EQ(files_.Content(), text_);
    EXPECT_EQ(Text(*manager_, "s", "k"), "old");
    EXPECT_FALSE(files_.Place().Has("client.ini.tmp"));
    EXPECT_TRUE(manager_->WriteString("s", "k", "new"));
}

TEST_F(FailingWrite, WhereTheFileGrowsTooLarge) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {3, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_EQ(Fails(), "");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(files_.Place().Has("client.ini.tmp"));
}

TEST_F(FailingWrite, WhereTheWorkingFileCannotBeFlushed) {
    files_.Place().Link("client.ini.tmp", "/dev/null");
    EXPECT_FALSE(manager_->WriteString("s", "k", "new"));
    EXPECT_EQ(files_.Content(), text_);
    EXPECT_EQ(Text(*manager_, "s", "k"), "old");
    EXPECT_FALSE(files_.Place().Has("client.ini.tmp"));
}

TEST_F(FailingWrite, WhereTheWorkingFileCannotBeRenamed) {
    files_.Place().Folder("folder");
    files_.Name("folder");
    EXPECT_EQ(Fails(), "");
    EXPECT_FALSE(files_.Place().Has("folder.tmp"));
}

TEST_F(FailingWrite, WhereTheFileCannotHoldTheValueOrTheName) {
    const std::string line(2000, 'v');
    for (const std::string& value : {std::string("a\nb"), std::string("a\0b", 3), std::string("\"it's\""),
                                     std::string("it's \"a\";"), line, line.substr(0, 1021)}) {
        EXPECT_FALSE(manager_->WriteString("s", "k", value)) << value;
    }
    for (const std::string& section : {std::string(), std::string("a]"), std::string("a]b"), std::string("a\nb"),
                                       std::string(" a"), std::string("a "), line}) {
        EXPECT_FALSE(manager_->WriteString(section, "k", "v")) << section;
    }
    for (const std::string& key : {std::string(), std::string("a=b"), std::string("#a"), std::string(";a"),
                                   std::string("a\n"), std::string(" a"), std::string("a\t"), line}) {
        EXPECT_FALSE(manager_->WriteString("s", key, "v")) << key;
    }
    EXPECT_EQ(files_.Content(), text_);
    EXPECT_EQ(Text(*manager_, "s", "k"), "old");
    EXPECT_EQ(SectionsOf(*manager_), std::vector<std::string>({"s", "t"}));
    EXPECT_TRUE(manager_->WriteString("s", "k", "new"));
}

TEST(ConfigurationThreads, WritesAndReadsOfTwoThreadsAreWhole) {
    const Configuration files;
    files.Client("[first]\nk = 0\n[second]\nk = 0\n");
    ZendryOptionsManager manager;
    const auto work = [&](const std::string& section) {
        for (int i = 1; i <= 40; ++i) {
            EXPECT_TRUE(manager.WriteSigned(section, "k", i));
            const std::lock_guard lock(manager.AccessLock());
            int32_t read = 0;
            EXPECT_TRUE(manager.ReadSigned(section, "k", read));
            EXPECT_EQ(read, i);
            EXPECT_EQ(SectionsOf(manager).size(), 2u);
        }
    };
    std::thread first(work, "first");
    std::thread second(work, "second");
    first.join();
    second.join();
    ZendryOptionsManager again;
    EXPECT_EQ(Text(again, "first", "k"), "40");
    EXPECT_EQ(Text(again, "second", "k"), "40");
}

}  // namespace
