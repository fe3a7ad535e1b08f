#include "inspectors/download.h"

#include "evaluator/inspector_action_context.h"
#include "tests/inspectors/file_tree.h"

namespace {

// A host that lends its places; each test says which.
FileLocation globalLocation;
FileLocation clientFolder;
ActionOrigin origin;
bool actionRuns;

class StorageHost : public InspectorContext, public InspectorStorageContext {
public:
    explicit StorageHost(bool withGetter = true) {
        if (withGetter) {
            getGlobalLocation = []() -> const FileLocation& { return globalLocation; };
        }
    }
};

class ActionHost : public InspectorContext, public InspectorActionContext {
public:
    explicit ActionHost(bool withFunction = true) {
        if (withFunction) {
            currentActionOrigin = []() { return actionRuns ? std::optional<ActionOrigin>(origin) : std::nullopt; };
        }
    }
};

TEST(DownloadStorage, IsInTheDataFolderOfTheStorageLocation) {
    const TemporaryPlace place;
    globalLocation = place.Location();
    StorageHost host;
    EXPECT_EQ(Ask("download storage folder", &host), DoesNotExist());
    place.Folder("__OSLData/__Download");
    EXPECT_EQ(Ask("download storage folder", &host), Values({place.Path("__OSLData/__Download")}));
    EXPECT_EQ(Ask("total size of download storage folder", &host), Values({"0"}));
    place.File("__OSLData/__Download/a", "123");
    place.Folder("__OSLData/__Download/b/c");
    place.File("__OSLData/__Download/b/c/d", "45");
    place.Link("__OSLData/__Download/dangling", "nowhere");
    EXPECT_EQ(Ask("total sizes of download storage folders", &host), Values({"5"}));
    EXPECT_EQ(Ask("number of files of download storage folder", &host), Values({"1"}));
}

TEST(DownloadStorage, AFileInItsPlaceIsNone) {
    const TemporaryPlace place;
    place.Folder("__OSLData");
    place.File("__OSLData/__Download");
    globalLocation = place.Location();
    StorageHost host;
    EXPECT_EQ(Ask("download storage folder", &host), DoesNotExist());
}

TEST(DownloadStorage, WhatTheHostLacksIsSaid) {
    EXPECT_EQ(Ask("download storage folder"), Fails("NoInspectorContext"));
    ActionHost other;
    EXPECT_EQ(Ask("download storage folder", &other), Fails("InspectorStorageContextError"));
    StorageHost without(false);
    EXPECT_EQ(Ask("download storage folder", &without), Fails("InspectorStorageContextError"));
}

TEST(Downloads, OfAnOrdinarySiteAreInItsFolder) {
    const TemporaryPlace place;
    clientFolder = place.Folder("data/Site");
    origin = {17, false, "Site", &clientFolder};
    actionRuns = true;
    ActionHost host;
    EXPECT_EQ(Ask("download folder", &host), DoesNotExist());
    EXPECT_EQ(Ask("download path \"x\"", &host), DoesNotExist());
    place.Folder("data/Site/__Download");
    EXPECT_EQ(Ask("download folder", &host), Values({place.Path("data/Site/__Download")}));
    EXPECT_EQ(Ask("download path \"x\"", &host), Values({place.Path("data/Site/__Download/x")}));
    EXPECT_EQ(Ask("download file \"x\"", &host), DoesNotExist());
    place.File("data/Site/__Download/x", "1234");
    EXPECT_EQ(Ask("size of download file \"x\"", &host), Values({"4"}));
    EXPECT_EQ(Ask("download file \"\"", &host), DoesNotExist());
}

TEST(Downloads, OfTheMainSiteAreByActionInTheGlobalFolder) {
    const TemporaryPlace place;
    clientFolder = place.Folder("data/Main");
    origin = {42, true, "Main", &clientFolder};
    actionRuns = true;
    place.Folder("data/__Global/__Download/Main/42/named");
    ActionHost host;
    EXPECT_EQ(Ask("download folders", &host), Values({place.Path("data/__Global/__Download/Main/42/named")}));
    EXPECT_EQ(Ask("download paths (\"a\"; \"b/c\"; \"..\"; \"\"; \"d\")", &host),
              Values({place.Path("data/__Global/__Download/Main/42/named/a"),
                      place.Path("data/__Global/__Download/Main/42/named/d")}));
}

TEST(Downloads, WhatTheHostLacksIsSaid) {
    EXPECT_EQ(Ask("download folder"), Fails("NoInspectorContext"));
    StorageHost other;
    EXPECT_EQ(Ask("download folder", &other), Fails("NoInspectorContext"));
    EXPECT_EQ(Ask("download file \"x\"", &other), Fails("NoInspectorContext"));
    ActionHost without(false);
    EXPECT_EQ(Ask("download folder", &without), Fails("InspectorActionContextError"));
    actionRuns = false;
    ActionHost host;
    EXPECT_EQ(Ask("download folder", &host), DoesNotExist());
}

TEST(Downloads, AnIllegalNameIsNoneBeforeTheHostIsAsked) {
    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("a/b"), std::string(256, 'n')}) {
        EXPECT_EQ(Ask("download path \"" + name + "\""), DoesNotExist()) << name;
    }
    EXPECT_EQ(Ask("download path \"" + std::string(255, 'n') + "\""), Fails("NoInspectorContext"));
}

}  // namespace
