#include "inspectors/distribution.h"

#include <algorithm>

#include "foundation/ascii.h"
#include "foundation/stdio_file.h"

namespace {

constexpr size_t kReleaseBytes = 1023;
constexpr size_t kLsbReleaseBytes = 2047;

// A line end counts as a blank.
constexpr std::string_view kBlanks = " \t\r\n";

bool Contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

std::string_view FirstLine(std::string_view text) { return text.substr(0, text.find_first_of("\r\n")); }

std::string_view WithoutBlanksAround(std::string_view text) {
    const size_t begin = text.find_first_not_of(kBlanks);
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

// Up to the byte and a blank just before it.
std::string_view CutAt(std::string_view text, char byte) {
    const size_t cut = text.find(byte);
    if (cut == std::string_view::npos) {
        return text;
    }
    text = text.substr(0, cut);
    if (text.ends_with(' ')) {
        text.remove_suffix(1);
    }
    return text;
}

std::string Joined(std::string_view a, std::string_view b) {
    std::string text(a);
    text += b;
    return text;
}

// The first that finds something ends the probing.
using Found = std::optional<Distribution>;

Found ProbeVMware(const ReleaseFileReader& read) {
    const auto text = read("/proc/vmware/version", kReleaseBytes);
    if (!text || !text->starts_with("VMware ")) {
        return std::nullopt;
    }
    return Distribution{std::string(CutAt(FirstLine(*text), '[')), {}, {}};
}

Found ProbeOracle(const ReleaseFileReader& read) {
    constexpr std::string_view kStart = "enterprise linux enterprise linux ";
    const auto text = read("/etc/enterprise-release", kReleaseBytes);
    if (!text || !Ascii::BeginsWithIgnoringCase(*text, kStart)) {
        return std::nullopt;
    }
    const std::string_view version = CutAt(FirstLine(std::string_view(*text).substr(kStart.size())), '(');
    return Distribution{Joined("Linux Oracle Enterprise ", version), std::string(version), {}};
}

struct PrefixRow {
    std::string_view prefix;
    std::string_view name;
};

constexpr PrefixRow kRedHat[] = {
    {"red hat linux release ", "Linux Red Hat "},
    {"fedora release ", "Linux Fedora "},
    {"fedora core release ", "Linux Fedora Core "},
    {"red hat enterprise linux ws release ", "Linux Red Hat Enterprise WS "},
    {"red hat enterprise linux es release ", "Linux Red Hat Enterprise ES "},
    {"red hat enterprise linux as release ", "Linux Red Hat Enterprise AS "},
    {"red hat enterprise linux server release ", "Linux Red Hat Enterprise Server "},
    {"red hat enterprise linux client release ", "Linux Red Hat Enterprise Client "},
    {"red hat enterprise linux workstation release ", "Linux Red Hat Enterprise Workstation "},
    {"centos release ", "Linux CentOS "},
    {"centos linux release ", "Linux CentOS "},
};

constexpr PrefixRow kSuse[] = {
    {"suse linux enterprise server ", "Linux SuSE Enterprise Server "},
    {"suse linux enterprise desktop ", "Linux SuSE Enterprise Desktop "},
    {"suse linux ", "Linux SuSE "},
    {"suse sles-", "Linux SuSE "},
};

template <size_t Rows>
Found ProbePrefixes(const ReleaseFileReader& read, const char* path, const PrefixRow (&rows)[Rows]) {
    const auto text = read(path, kReleaseBytes);
    if (!text) {
        return std::nullopt;
    }
    const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                   [&](const PrefixRow& r) { return Ascii::BeginsWithIgnoringCase(*text, r.prefix); });
    if (row == std::end(rows)) {
        return std::nullopt;
    }
    const std::string_view rest = std::string_view(*text).substr(row->prefix.size());
    const std::string_view version = rest.substr(0, rest.find_first_of(kBlanks));
    return Distribution{Joined(row->name, version), std::string(version), {}};
}

struct CodenameRow {
    std::string_view start;
    std::string_view codename;
};

constexpr CodenameRow kDebian[] = {
    {"6.0", "squeeze"},   //
    {"5.0", "lenny"},     //
    {"4.0", "etch"},      //
    {"3.1", "sarge"},     //
    {"3.0", "woody"},     //
    {"2.2", "potato"},    //
    {"2.1", "slink"},     //
    {"2.0", "hamm"},      //
    {"7.", "wheezy"},     //
    {"8.", "jessie"},     //
    {"9.", "stretch"},    //
    {"10.", "buster"},    //
    {"11.", "bullseye"},  //
    {"12.", "bookworm"},  //
    {"13.", "trixie"},    //
};

std::string_view LinuxOf(std::string_view kernel) { return Contains(kernel, "Linux") ? "Linux " : ""; }

Found ProbeDebian(const ReleaseFileReader& read, std::string_view kernel) {
    const auto text = read("/etc/debian_version", kReleaseBytes);
    if (!text || text->empty()) {
        return std::nullopt;
    }
    const std::string_view line = WithoutBlanksAround(FirstLine(*text));
    std::string_view localCodename;
    Distribution found;
    if (const size_t sid = line.find("/sid"); sid != std::string_view::npos) {
        localCodename = "unstable";
        found.version = line.substr(0, sid);
    } else if (const size_t testing = line.find("/testing"); testing != std::string_view::npos) {
        localCodename = "testing";
        found.version = line.substr(0, testing);
    }
    const auto* row = std::find_if(std::begin(kDebian), std::end(kDebian),
                                   [&](const CodenameRow& r) { return line.starts_with(r.start); });
    if (row != std::end(kDebian)) {
        found.version = line;
        found.codename = row->codename;
    }
    found.name = Joined(LinuxOf(kernel), "Debian ") + found.version;
    if (found.codename.empty()) {
        found.codename = localCodename;
    }
    return found;
}

// A value of at least three bytes between quotes loses them.
std::string_view Unquoted(std::string_view value) {
    return value.size() >= 3 && value.starts_with('"') && value.ends_with('"') ? value.substr(1, value.size() - 2)
                                                                               : value;
}

Found ProbeUbuntu(const ReleaseFileReader& read, std::string_view kernel) {
    constexpr std::string_view kProduct = "Ubuntu ";
    const auto text = read("/etc/lsb-release", kLsbReleaseBytes);
    if (!text || text->empty()) {
        return std::nullopt;
    }
    Distribution found;
    std::string_view description;
    for (std::string_view rest = *text; !rest.empty();) {
        const std::string_view line = FirstLine(rest);
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const size_t equals = line.find('=');
        if (equals == std::string_view::npos || line.find('=', equals + 1) != std::string_view::npos) {
            continue;
        }
        const std::string_view key = line.substr(0, equals);
        const std::string_view value = Unquoted(line.substr(equals + 1));
        if (key == "DISTRIB_RELEASE") {
            found.version = value;
        } else if (key == "DISTRIB_CODENAME") {
            found.codename = value;
        } else if (key == "DISTRIB_DESCRIPTION") {
            description = value.starts_with(kProduct) ? value.substr(kProduct.size()) : std::string_view();
        }
    }
    const bool server = Contains(kernel, "-pae ") || Contains(kernel, "-server ");
    found.name = Joined(LinuxOf(kernel), kProduct) + (server ? "Server " : "");
    found.name += description;
    return found;
}

// The text up to the end of its first token that begins with a digit and stands behind a blank; all of it where it has
// none.
std::string_view CutBehindNumber(std::string_view text) {
    for (size_t at = 1; at < text.size(); ++at) {
        const bool behindBlank = text[at - 1] == ' ' || text[at - 1] == '\t';
        if (behindBlank && text[at] >= '0' && text[at] <= '9') {
            return text.substr(0, text.find_first_of(kBlanks, at));
        }
    }
    return text;
}

void RemoveLinux(std::string& text) {
    constexpr std::string_view kWord = "Linux ";
    for (size_t at = 0; at + kWord.size() <= text.size(); ++at) {
        if (Ascii::EqualIgnoringCase(std::string_view(text).substr(at, kWord.size()), kWord)) {
            text.erase(at, kWord.size());
            return;
        }
    }
}

// The kernel's line has the compiler's note of the distribution in its third parentheses.
Found ProbeCompilerNote(std::string_view kernel) {
    constexpr int kNote = 3;
    size_t open = std::string_view::npos;
    for (int i = 0; i < kNote; ++i) {
        open = kernel.find('(', open + 1);
        if (open == std::string_view::npos) {
            return std::nullopt;
        }
    }
    const std::string_view note = kernel.substr(open + 1);
    std::string text(CutBehindNumber(note.substr(0, note.find(')'))));
    RemoveLinux(text);
    return Distribution{Joined("Linux ", text), {}, {}};
}

Found ProbeKernel(const ReleaseFileReader& read) {
    const auto kernel = read("/proc/version", kReleaseBytes);
    if (!kernel || kernel->empty()) {
        return std::nullopt;
    }
    if (Contains(*kernel, "Debian")) {
        if (Found found = ProbeDebian(read, *kernel)) {
            return found;
        }
    }
    if (Contains(*kernel, "Ubuntu")) {
        if (Found found = ProbeUbuntu(read, *kernel)) {
            return found;
        }
    }
    return ProbeCompilerNote(*kernel);
}

}  // namespace

Distribution ProbeDistribution(const ReleaseFileReader& read) {
    if (Found found = ProbeVMware(read)) {
        return *found;
    }
    if (Found found = ProbeOracle(read)) {
        return *found;
    }
    if (Found found = ProbePrefixes(read, "/etc/redhat-release", kRedHat)) {
        return *found;
    }
    if (Found found = ProbePrefixes(read, "/etc/SuSE-release", kSuse)) {
        return *found;
    }
    return ProbeKernel(read).value_or(Distribution());
}

std::optional<std::string> ReadReleaseFile(const char* path, size_t most) {
    const StdioFile file = OpenStdioFile(path);
    if (file == nullptr) {
        return std::nullopt;
    }
    std::string text(most, '\0');
    text.resize(fread(text.data(), 1, text.size(), file.get()));
    return text;
}
