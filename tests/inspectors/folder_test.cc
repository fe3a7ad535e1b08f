#include "inspectors/folder.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include "tests/inspectors/file_tree.h"

namespace {

TEST(Folders, GiveTheEntriesOfEachKindInTheOrderOfTheirBytes) {
    const FileTree tree;
    EXPECT_EQ(tree.Ask("files of folder \"@/dir\""), Values(tree.Paths({".hidden", "A.TXT", "a.txt", "link"}, "dir")));
    EXPECT_EQ(tree.Ask("folders of folder \"@/dir\""), Values(tree.Paths({"sub", "tosub", "zsub"}, "dir")));
    EXPECT_EQ(tree.Ask("symlinks of folder \"@/dir\""),
              Values(tree.Paths({"dangling", "link", "self", "todev", "topipe", "tosock", "tosub"}, "dir")));
    EXPECT_EQ(tree.Ask("device files of folder \"@/dir\""), Values(tree.Paths({"todev"}, "dir")));
    EXPECT_EQ(tree.Ask("fifo files of folder \"@/dir\""), Values(tree.Paths({"pipe", "topipe"}, "dir")));
    EXPECT_EQ(tree.Ask("socket files of folder \"@/dir\""), Values(tree.Paths({"sock", "tosock"}, "dir")));
    for (const std::string kind : {"files", "folders", "symlinks", "device files", "fifo files", "socket files"}) {
        EXPECT_EQ(tree.Ask(kind + " of folder \"@/hollow\""), Nothing());
    }
    EXPECT_EQ(tree.Ask("file of folder \"@/dir\""), (Answer{{tree.Path("dir/.hidden")}, "ArgumentNotUnique"}));
    EXPECT_EQ(tree.Ask("file of folder \"@/hollow\""), DoesNotExist());
}

TEST(Folders, TheNamesThatMatchAreFoundByTheirCase) {
    const FileTree tree;
    EXPECT_EQ(tree.Ask("names of find files \"*.txt\" of folder \"@/dir\""), Values({"a.txt"}));
    EXPECT_EQ(tree.Ask("names of find files \"?.???\" of folder \"@/dir\""), Values({"A.TXT", "a.txt"}));
    EXPECT_EQ(tree.Ask("names of find folders \"*sub\" of folder \"@/dir\""), Values({"sub", "tosub", "zsub"}));
    EXPECT_EQ(tree.Ask("names of find files (\"l*\"; \"sub\"; \"A*\") of folder \"@/dir\""), Values({"link", "A.TXT"}));
    EXPECT_EQ(tree.Ask("find file \"dir/a.txt\" of folder \"@\""), DoesNotExist());
    EXPECT_EQ(tree.Ask("find folders \"\" of folder \"@/dir\""), Nothing());
}

TEST(Folders, OneThatIsNotThereFailsOnlyWhereOneIsMeant) {
    EXPECT_EQ(Ask("files of folder \"/missing\""), DoesNotExist());
    EXPECT_EQ(Ask("files of folders \"/missing\""), Nothing());
    EXPECT_EQ(Ask("descendants of folders \"/missing\""), Nothing());
    EXPECT_EQ(Ask("folder \"/missing\""), DoesNotExist());
}

TEST(Folders, TheRootsEntriesHaveTwoSlashes) {
    EXPECT_EQ(Ask("(pathname of it) of folders whose (name of it = \"etc\") of folder \"/\""), Values({"//etc"}));
}

TEST(Folders, DescendantsComeAtTheirFoldersPlace) {
    const FileTree tree;
    EXPECT_EQ(tree.Ask("descendants of folder \"@\""),
              Values(tree.Paths({"dir/.hidden", "dir/A.TXT", "dir/a.txt", "dir/link", "dir/sub/deep", "dir/tosub/deep",
                                 "empty", "reg"},
                                "")));
    EXPECT_EQ(tree.Ask("descendant folders of folder \"@\""),
              Values(tree.Paths({"dir", "dir/sub", "dir/tosub", "dir/zsub", "hollow"}, "")));
    EXPECT_EQ(tree.Ask("descendants of folder \"@/hollow\""), Nothing());
    EXPECT_EQ(tree.Ask("descendant folders of folder \"@/hollow\""), Nothing());
    EXPECT_EQ(tree.Ask("names of descendants of folders (\"@/dir/sub\"; \"@/dir/tosub\")"), Values({"deep", "deep"}));
}

// The kernel follows 40 links in one path: the folder itself, 40 ways through the link, and the next is dangling.
TEST(Folders, ALoopOfLinksEndsWhereTheKernelRefusesTheNext) {
    const TemporaryPlace place;
    place.File("f");
    place.Link("up", ".");
    const Answer files = Ask("descendants of folder \"" + place.Path() + "\"");
    EXPECT_EQ(files.failure, "");
    ASSERT_EQ(files.values.size(), 41u);
    EXPECT_EQ(files.values.front(), place.Path("f"));
    EXPECT_EQ(Ask("descendant folders of folder \"" + place.Path() + "\"").values.size(), 40u);
}

// The walk goes deeper than a process may have files open, and ends with the first path that the kernel refuses.
TEST(Folders, APathThatGrowsTooLongEndsTheWalk) {
    const TemporaryPlace place;
    std::string path = place.Path();
    const int saved = open(".", O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(chdir(path.c_str()), 0);
    size_t depth = 0;
    for (; path.size() < 4200; ++depth) {
        ASSERT_EQ(mkdir("d", 0777), 0);
        ASSERT_EQ(chdir("d"), 0);
        path += "/d";
    }
    ASSERT_EQ(fchdir(saved), 0);
    close(saved);
    const Answer folders = Ask("descendant folders of folder \"" + place.Path() + "\"");
    EXPECT_EQ(folders.failure, "FileItemError");
    const size_t fit = (4095 - place.Path().size()) / 2;
    EXPECT_GT(fit, 1024u);
    EXPECT_EQ(folders.values.size(), fit);
    EXPECT_EQ(folders.text,
              "File error \"13FileItemError\" on \"" + path.substr(0, place.Path().size() + 2 * (fit + 1)) + "\"");
    EXPECT_EQ(Ask("descendants of folder \"" + place.Path() + "\"").failure, "FileItemError");
}

TEST(Folders, AWalkKeepsFewFilesOpen) {
    const TemporaryPlace place;
    std::string name = "d";
    for (int i = 0; i < 300; ++i, name += "/d") {
        place.Folder(name);
    }
    place.File(name.substr(0, name.size() - 2) + "/last");
    struct rlimit limit;
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    const struct rlimit low = {96, limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &low), 0);
    const Answer found = Ask("names of descendants of folder \"" + place.Path() + "\"");
    setrlimit(RLIMIT_NOFILE, &limit);
    EXPECT_EQ(found, Values({"last"}));
}

// The exit status of a child that is nobody: 0 when `check` held.
template <class Check>
int AsNobody(const Check& check) {
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) {
            _exit(2);
        }
        _exit(check() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Folders, OneThatCanBeReadButNotSearchedIsAnError) {
    const FileTree tree;
    ASSERT_EQ(chmod(tree.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(tree.Path("dir").c_str(), 0444), 0);
    const std::string expected = "File error \"13FileItemError\" on \"" + tree.Path("dir/.hidden") + "\"";
    for (const std::string what :
         {"files", "folders", "symlinks", "fifo files", "descendants", "descendant folders", "find files \".h*\""}) {
        EXPECT_EQ(AsNobody([&] {
                      const Answer answer = tree.Ask(what + " of folder \"@/dir\"");
                      return answer == Fails("FileItemError") && answer.text == expected;
                  }),
                  0)
            << what;
    }
    EXPECT_EQ(AsNobody([&] { return tree.Ask("find files \"no such name\" of folder \"@/dir\"") == Nothing(); }), 0);
    chmod(tree.Path("dir").c_str(), 0755);
}

TEST(Folders, OneThatCannotBeReadIsEmpty) {
    const FileTree tree;
    ASSERT_EQ(chmod(tree.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(tree.Path("dir").c_str(), 0111), 0);
    EXPECT_EQ(AsNobody([&] {
                  return tree.Ask("files of folder \"@/dir\"") == Nothing() &&
                         tree.Ask("descendants of folder \"@\"") == Values(tree.Paths({"empty", "reg"}, "")) &&
                         tree.Ask("size of file \"a.txt\" of folder \"@/dir\"") == Values({"5"});
              }),
              0);
    chmod(tree.Path("dir").c_str(), 0755);
}

TEST(Folders, AnAnswerCanBeAskedAgain) {
    const FileTree tree;
    EXPECT_EQ(tree.Ask("(number of files of it) of (folder \"@/dir\"; folder \"@/hollow\"; folder \"@/dir/sub\")"),
              Values({"4", "0", "1"}));
    EXPECT_EQ(tree.Ask("exists descendants of folder \"@\""), Values({"True"}));
}

}  // namespace
