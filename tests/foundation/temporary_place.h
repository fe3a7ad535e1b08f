// A folder of a test's own, deleted with all that is in it, and the few lines that put files there.
#ifndef TESTS_FOUNDATION_TEMPORARY_PLACE_H
#define TESTS_FOUNDATION_TEMPORARY_PLACE_H

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "foundation/file_location.h"

class TemporaryPlace {
public:
    TemporaryPlace() {
        std::string name = (std::filesystem::temp_directory_path() / "zendry_test_XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    TemporaryPlace(const TemporaryPlace&) = delete;
    TemporaryPlace& operator=(const TemporaryPlace&) = delete;
    ~TemporaryPlace() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string Path(const std::string& name = "") const { return name.empty() ? path_ : path_ + "/" + name; }
    FileLocation Location(const std::string& name = "") const { return FileLocation(Path(name)); }

    FileLocation File(const std::string& name, const std::string& content = "") const {
        std::ofstream(Path(name), std::ios::binary) << content;
        return Location(name);
    }
    FileLocation Folder(const std::string& name) const {
        std::filesystem::create_directories(Path(name));
        return Location(name);
    }
    FileLocation Link(const std::string& name, const std::string& target) const {
        std::filesystem::create_symlink(target, Path(name));
        return Location(name);
    }
    std::string Content(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool Has(const std::string& name) const {
        return std::filesystem::exists(std::filesystem::symlink_status(Path(name)));
    }

private:
    std::string path_;
};

#endif
