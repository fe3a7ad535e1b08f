#include "client/ini_file.h"

#include <iniparser/iniparser.h>
#include <sys/stat.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <unordered_map>
#include <unordered_set>

namespace {

constexpr size_t longestLine = 1022;

// What iniparser has to say about a file goes nowhere: whether it was read is all that counts.
int SaidToNobody(const char*, ...) { return 0; }

bool IsBlank(char byte) { return std::isspace(static_cast<unsigned char>(byte)) != 0; }

bool HasBlankEnds(std::string_view text) { return !text.empty() && (IsBlank(text.front()) || IsBlank(text.back())); }

bool Contains(std::string_view text, std::string_view anyOfThese) {
    return text.find_first_of(anyOfThese) != std::string_view::npos;
}

std::string Entry(std::string_view section, std::string_view key) {
    return IniFile::Lowered(section).append(":").append(IniFile::Lowered(key));
}

// What a line cannot hold: it would end there.
constexpr std::string_view lineEnds("\n\0", 2);

bool IsSectionName(std::string_view name) {
    return !name.empty() && name.size() + 2 <= longestLine && !HasBlankEnds(name) && !Contains(name, lineEnds) &&
           !Contains(name, "]");
}

bool IsKeyName(std::string_view name) {
    return !name.empty() && name.front() != '#' && name.front() != ';' && !HasBlankEnds(name) &&
           !Contains(name, lineEnds) && !Contains(name, "=");
}

// The text behind a key's "=" from which `value` is read.
std::optional<std::string> WrittenForm(std::string_view value) {
    std::string form(value);
    if (value.empty()) {
        return form;
    }
    if (Contains(value, lineEnds)) {
        return std::nullopt;
    }
    // A "]" at the end could make a section's line of it, by a key that begins with "[".
    const bool badEnd = HasBlankEnds(value) || value.back() == '\\' || value.back() == ']';
    const bool quoteFirst = value.front() == '"' || value.front() == '\'';
    const bool cut = Contains(value, ";#");
    if (!badEnd && !quoteFirst && !cut) {
        return form;
    }
    for (const char quote : {'"', '\''}) {
        if (value.find(quote) == std::string_view::npos) {
            return quote + form + quote;
        }
    }
    // Both quotes are in it.  Bare, a value that begins with a quote is read whole only where the same quote follows;
    // an empty comment covers its end.
    const bool bare = !cut && !HasBlankEnds(value) && (!quoteFirst || value[1] == value[0]);
    return bare ? std::optional<std::string>(form + ';') : std::nullopt;
}

// A line as iniparser writes it, without the blanks around its "=" where it would be too long with them.
std::string_view ClosedUp(std::string_view line, std::string& room) {
    const size_t equals = line.find('=');
    if (line.size() <= longestLine || equals == std::string_view::npos) {
        return line;
    }
    room = line.substr(0, equals);
    room.erase(room.find_last_not_of(' ') + 1);
    room.append("=").append(line.substr(std::min(equals + 2, line.size())));
    return room;
}

// A stream into memory.
class MemoryStream {
public:
    MemoryStream() : file_(open_memstream(&bytes_, &size_)) {
        if (file_ == nullptr) {
            throw std::bad_alloc();
        }
    }
    MemoryStream(const MemoryStream&) = delete;
    MemoryStream& operator=(const MemoryStream&) = delete;
    ~MemoryStream() {
        std::fclose(file_);
        std::free(bytes_);
    }

    FILE* File() const { return file_; }

    // What was written so far.  Throws std::bad_alloc where the stream could not hold it.
    std::string_view Written() const {
        if (std::fflush(file_) != 0 || std::ferror(file_) != 0) {
            throw std::bad_alloc();
        }
        return {bytes_, size_};
    }

private:
    char* bytes_ = nullptr;
    size_t size_ = 0;
    FILE* file_;
};

// Calls `visit(key, value)` for each entry; the value of a section is null.
template <class Visit>
void ForEachEntry(const dictionary& entries, const Visit& visit) {
    for (ssize_t i = 0; i < entries.size; ++i) {
        if (entries.key[i] != nullptr) {
            visit(entries.key[i], entries.val[i]);
        }
    }
}

void SetOrThrow(dictionary& entries, const char* key, const char* value) {
    if (dictionary_set(&entries, key, value) != 0) {
        throw std::bad_alloc();
    }
}

// Which section an entry belongs to: the longest whose name and a ":" it begins with, since both a section's name and a
// key may have ":" in them.  The empty name for one that stands before any section.
class SectionIndex {
public:
    explicit SectionIndex(const std::vector<const char*>& sections) : sections_(sections.begin(), sections.end()) {}

    std::string_view SectionOf(std::string_view entry) const {
        for (size_t colon = entry.rfind(':'); colon != 0; colon = entry.rfind(':', colon - 1)) {
            const std::string_view section = entry.substr(0, colon);
            if (colon == std::string_view::npos || sections_.contains(section)) {
                return colon == std::string_view::npos ? std::string_view() : section;
            }
        }
        return {};
    }

private:
    std::unordered_set<std::string_view> sections_;
};

}  // namespace

std::string IniFile::Lowered(std::string_view name) {
    std::string lowered(name);
    for (char& byte : lowered) {
        byte = static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
    }
    return lowered;
}

void IniFile::Deleter::operator()(_dictionary_* entries) const { dictionary_del(entries); }

std::unique_ptr<IniFile> IniFile::Load(const char* path) {
    struct stat place {};
    if (stat(path, &place) != 0 || !S_ISREG(place.st_mode)) {
        return nullptr;
    }
    iniparser_set_error_callback(SaidToNobody);
    Dictionary read(iniparser_load(path));
    return read == nullptr ? nullptr : std::unique_ptr<IniFile>(new IniFile(std::move(read)));
}

IniFile::Dictionary IniFile::NewDictionary() {
    Dictionary made(dictionary_new(0));
    if (made == nullptr) {
        throw std::bad_alloc();
    }
    return made;
}

std::unique_ptr<IniFile> IniFile::Copy() const {
    Dictionary copy = NewDictionary();
    ForEachEntry(*dictionary_, [&](const char* key, const char* value) { SetOrThrow(*copy, key, value); });
    return std::unique_ptr<IniFile>(new IniFile(std::move(copy)));
}

const char* IniFile::Find(std::string_view section, std::string_view key) const {
    return dictionary_get(dictionary_.get(), Entry(section, key).c_str(), nullptr);
}

bool IniFile::HasSection(std::string_view section) const {
    static constexpr char absent[] = "";
    return dictionary_get(dictionary_.get(), Lowered(section).c_str(), absent) == nullptr;
}

bool IniFile::Set(std::string_view section, std::string_view key, std::string_view value) {
    const std::optional<std::string> form = WrittenForm(value);
    if (!form || !IsSectionName(section) || !IsKeyName(key) || key.size() + 1 + form->size() > longestLine) {
        return false;
    }
    const std::string name = Lowered(section);
    // Where a ":" makes the section's name that of a key, the key keeps its value.
    if (dictionary_get(dictionary_.get(), name.c_str(), nullptr) == nullptr) {
        SetOrThrow(*dictionary_, name.c_str(), nullptr);
    }
    SetOrThrow(*dictionary_, Entry(section, key).c_str(), std::string(value).c_str());
    ListSections();
    return true;
}

void IniFile::Remove(std::string_view section, std::string_view key) {
    dictionary_unset(dictionary_.get(), Entry(section, key).c_str());
    ListSections();
}

void IniFile::RemoveSection(std::string_view section) {
    const std::string name = Lowered(section);
    const SectionIndex index(sections_);
    std::vector<std::string> entries;
    ForEachEntry(*dictionary_, [&](const char* key, const char* value) {
        if (name == (value == nullptr ? key : index.SectionOf(key))) {
            entries.emplace_back(key);
        }
    });
    for (const std::string& entry : entries) {
        dictionary_unset(dictionary_.get(), entry.c_str());
    }
    ListSections();
}

std::optional<std::string> IniFile::Text() const {
    // One dictionary to a section: what iniparser writes for one of a whole file has the keys of a neighbour in it,
    // where the neighbour's name goes on behind a ":".
    std::unordered_map<std::string_view, Dictionary> written;
    const SectionIndex index(sections_);
    MemoryStream stream;
    ForEachEntry(*dictionary_, [&](const char* key, const char* value) {
        if (value == nullptr) {
            return;
        }
        const std::optional<std::string> form = WrittenForm(value);
        const char* const text = form ? form->c_str() : value;
        const std::string_view section = index.SectionOf(key);
        if (section.empty()) {
            std::fprintf(stream.File(), "%s = %s\n", key + 1, text);
            return;
        }
        Dictionary& ofSection = written[section];
        if (ofSection == nullptr) {
            ofSection = NewDictionary();
        }
        SetOrThrow(*ofSection, key, text);
    });
    for (const char* section : sections_) {
        if (section[0] != '\0') {
            Dictionary& ofSection = written[section];
            if (ofSection == nullptr) {
                ofSection = NewDictionary();
            }
            SetOrThrow(*ofSection, section, nullptr);
            iniparser_dumpsection_ini(ofSection.get(), section, stream.File());
        }
    }

    std::string text;
    std::string room;
    for (std::string_view rest = stream.Written(); !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const std::string_view closed = ClosedUp(line, room);
        if (closed.size() > longestLine) {
            return std::nullopt;
        }
        text.append(closed).append("\n");
    }
    return text;
}

bool IniFile::HasTheValuesOf(const IniFile& other) const {
    bool same = true;
    size_t values = 0;
    ForEachEntry(*other.dictionary_, [&](const char* key, const char* value) {
        if (value != nullptr) {
            ++values;
            const char* const own = dictionary_get(dictionary_.get(), key, nullptr);
            same = same && own != nullptr && std::strcmp(own, value) == 0;
        }
    });
    ForEachEntry(*dictionary_, [&](const char*, const char* value) { values -= value != nullptr; });
    return same && values == 0;
}

void IniFile::ListSections() {
    sections_.clear();
    ForEachEntry(*dictionary_, [&](const char* key, const char* value) {
        if (value == nullptr) {
            sections_.push_back(key);
        }
    });
}
