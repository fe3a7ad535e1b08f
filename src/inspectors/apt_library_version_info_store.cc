#include "inspectors/apt_library_version_info_store.h"

#include <algorithm>

namespace {

struct Row {
    AptLibraryVersionInfo info;
    const char* names;
    bool onlyWhereInstalled;
};

// clang-format off
constexpr Row kRows[] = {
    {{"4.6.",  "DebianApt_4_6.so",  "CacheCreator_deb_4_6",  "CacheDestroyer_deb_4_6",  "GetVersioningSystem_deb_4_6",  "GetEmptyIteratorMakers_deb_4_6"},
     "libapt-pkg-libc6.7-6.so.4.6, libapt-pkg-libc6.7-6.so.4.6.0", false},
    {{"4.10.", "DebianApt_4_10.so", "CacheCreator_deb_4_10", "CacheDestroyer_deb_4_10", "GetVersioningSystem_deb_4_10", "GetEmptyIteratorMakers_deb_4_10"},
     "libapt-pkg.so.4.10, libapt-pkg.so.4.10.1", false},
    {{"4.8.",  "DebianApt_4_8.so",  "CacheCreator_deb_4_8",  "CacheDestroyer_deb_4_8",  "GetVersioningSystem_deb_4_8",  "GetEmptyIteratorMakers_deb_4_8"},
     "libapt-pkg-libc6.10-6.so.4.8, libapt-pkg-libc6.10-6.so.4.8.0", false},
    {{"6.0.",  "DebianApt_6_0.so",  "CacheCreator_deb_6_0",  "CacheDestroyer_deb_6_0",  "GetVersioningSystem_deb_6_0",  "GetEmptyIteratorMakers_deb_6_0"},
     "libapt-pkg.so.6.0", true},
};
// clang-format on

std::string_view WithoutBlanksAround(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    const size_t end = text.find_last_not_of(kBlanks) + 1;
    return text.substr(begin, end - std::min(begin, end));
}

}  // namespace

AptLibraryVersionInfoStore::AptLibraryVersionInfoStore() : candidates_{"libapt-pkg.so"} {}

void AptLibraryVersionInfoStore::Add(const AptLibraryVersionInfo& info, std::string_view names) {
    generations_.push_back(info);
    while (!names.empty()) {
        const size_t comma = std::min(names.find(','), names.size());
        if (const std::string_view name = WithoutBlanksAround(names.substr(0, comma)); !name.empty()) {
            candidates_.emplace_back(name);
        }
        names.remove_prefix(std::min(comma + 1, names.size()));
    }
}

const AptLibraryVersionInfo* AptLibraryVersionInfoStore::Find(std::string_view version) const {
    const auto found = std::find_if(generations_.begin(), generations_.end(), [&](const AptLibraryVersionInfo& info) {
        return version.starts_with(info.versionPrefix);
    });
    return found == generations_.end() ? nullptr : &*found;
}

AptLibraryVersionInfoStore AptLibraryVersionInfoStore::Known(const IsInstalled& isInstalled) {
    AptLibraryVersionInfoStore store;
    for (const Row& row : kRows) {
        if (!row.onlyWhereInstalled || isInstalled(row.info.supportLibrary)) {
            store.Add(row.info, row.names);
        }
    }
    return store;
}
