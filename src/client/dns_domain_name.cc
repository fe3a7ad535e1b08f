#include "client/dns_domain_name.h"

#include <unistd.h>

#include <algorithm>

#include "foundation/ascii.h"
#include "foundation/file_stat.h"
#include "foundation/read_lines.h"

namespace {

constexpr std::string_view kBlanks = " \t";

bool Same(std::string_view a, std::string_view b) {
    return Ascii::CompareIgnoringCase(ConstData(a), ConstData(b)) == 0;
}

std::string_view HostOf(std::string_view name) { return name.substr(0, name.find('.')); }

// A file that is not there or cannot be read says nothing.
void ReadIfThere(const char* path, LineReceiver& lines) {
    try {
        const FileLocation location(path);
        if (FileStat(location).IsRegular()) {
            ReadLines(location, lines);
        }
    } catch (const FileIOError&) {
    }
}

}  // namespace

std::optional<std::string_view> DomainOf(std::string_view name) {
    const size_t dot = name.find('.');
    std::string_view domain = dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
    if (domain.ends_with('.')) {
        domain.remove_suffix(1);
    }
    return domain.empty() ? std::nullopt : std::optional<std::string_view>(domain);
}

void WordLines::Text(const unsigned char* begin, const unsigned char* end) {
    const size_t taken = std::min(static_cast<size_t>(end - begin), kLongestLine - length_);
    std::copy_n(begin, taken, line_ + length_);
    length_ += taken;
    cut_ = cut_ || begin + taken != end;
}

void WordLines::EndOfLine(uint64_t, uint64_t) {
    std::string_view words(line_, length_);
    if (cut_) {
        words = words.substr(0, words.find_last_of(kBlanks) + 1);
    }
    Line(words.substr(0, words.find('#')));
    length_ = 0;
    cut_ = false;
}

std::string_view WordLines::TakeWord(std::string_view& words) {
    words.remove_prefix(std::min(words.find_first_not_of(kBlanks), words.size()));
    const std::string_view word = words.substr(0, words.find_first_of(kBlanks));
    words.remove_prefix(word.size());
    return word;
}

void HostsDomain::Line(std::string_view words) {
    if (!domain.empty()) {
        return;
    }
    TakeWord(words);  // the address
    std::optional<std::string_view> found;
    bool named = false;
    for (std::string_view name = TakeWord(words); !name.empty(); name = TakeWord(words)) {
        if (Same(HostOf(name), host_)) {
            named = true;
            found = found ? found : DomainOf(name);
        }
    }
    if (named && found) {
        domain = *found;
    }
}

void ResolverDomain::Line(std::string_view words) {
    const std::string_view keyword = TakeWord(words);
    if (keyword != "domain" && keyword != "search") {
        return;
    }
    std::string_view first = TakeWord(words);
    if (first.ends_with('.')) {
        first.remove_suffix(1);
    }
    domain = first;
}

bool GetDnsDomainName(std::string& name) {
    char host[1024] = {};
    if (gethostname(host, sizeof host - 1) != 0) {
        return false;
    }
    if (const auto own = DomainOf(host)) {
        name = *own;
        return true;
    }
    HostsDomain hosts(HostOf(host));
    ReadIfThere("/etc/hosts", hosts);
    if (!hosts.domain.empty()) {
        name = hosts.domain;
        return true;
    }
    ResolverDomain resolver;
    ReadIfThere("/etc/resolv.conf", resolver);
    name = resolver.domain;
    return !name.empty();
}
