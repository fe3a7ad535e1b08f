// A folder of a test's own with one of everything that can stand in a folder.
#ifndef TESTS_INSPECTORS_FILE_TREE_H
#define TESTS_INSPECTORS_FILE_TREE_H

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"

class FileTree {
public:
    FileTree() {
        place.File("reg", "hello world\n");
        place.File("empty");
        place.Folder("dir");
        place.File("dir/a.txt", "aaaaa");
        place.File("dir/A.TXT");
        place.File("dir/.hidden", "h");
        place.Folder("dir/sub");
        place.File("dir/sub/deep", "deep");
        place.Folder("dir/zsub");
        place.Link("dir/link", "a.txt");
        place.Link("dir/tosub", "sub");
        place.Link("dir/dangling", "nowhere");
        place.Link("dir/self", "self");
        mkfifo(Path("dir/pipe").c_str(), 0644);
        place.Link("dir/topipe", "pipe");
        MakeSocket("dir/sock");
        place.Link("dir/tosock", "sock");
        place.Link("dir/todev", "/dev/null");
        place.Folder("hollow");
    }

    std::string Path(const std::string& name = "") const { return place.Path(name); }
    std::vector<std::string> Paths(const std::vector<std::string>& names, const std::string& folder) const {
        std::vector<std::string> paths;
        for (const std::string& name : names) {
            paths.push_back(Path(folder) + "/" + name);
        }
        return paths;
    }

    // The question with "@" standing for the folder.
    Answer Ask(std::string question) const {
        for (size_t at = question.find('@'); at != std::string::npos; at = question.find('@')) {
            question.replace(at, 1, Path());
        }
        return ::Ask(question);
    }

    TemporaryPlace place;

private:
    void MakeSocket(const std::string& name) const {
        const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
        struct sockaddr_un address {};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, Path(name).c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(bind(descriptor, reinterpret_cast<struct sockaddr*>(&address), sizeof address), 0);
        close(descriptor);
    }
};

#endif
