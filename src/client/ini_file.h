// One INI file in memory: sections, and keys with values in them, as iniparser reads and writes them.
//
// iniparser keeps a flat dictionary of "section" and "section:key".  What it does to a file on the way, and what stands
// here against it:
//
// - Names are lower-cased when they are read (tolower, in the process's locale), so they are looked up in lower case
//   here, at any length; its own look-ups cut a name at 1024 bytes.
// - A line of more than 1022 bytes, and one that is neither a comment, a "[section]" nor a "key = value", makes it
// refuse
//   the whole file.  A name or value that needs such a line is refused here before it is set.
// - A value is read up to the first ";" or "#" and stripped of blanks unless it is in quotes; quotes are taken off, and
//   a "\" at a line's end joins the next line.  When it writes, it writes the bare value.  Here a value is put into the
//   form from which it is read back, and one that has no such form is refused: a value with a line feed, one with a
//   zero byte, and one that needs quotes and holds both kinds of them.
// - It pads keys to 30 columns when it writes, which can make a line too long that was read: such a line is closed up.
// - Keys before the first section, and sections with ":" in their names, are read but not written, or as something
//   else.  Here both are written.
//
// Comments, the order of the keys of a section that stands twice, and the case of names are lost when a file is written
// again.
#ifndef CLIENT_INI_FILE_H
#define CLIENT_INI_FILE_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct _dictionary_;

class IniFile {
public:
    // Reads the file at `path`.  Null where iniparser refuses it, and where it is no regular file: a device or a pipe
    // could hold the process for ever.  Says nothing about it.
    static std::unique_ptr<IniFile> Load(const char* path);

    std::unique_ptr<IniFile> Copy() const;

    // A name as it is stored.
    static std::string Lowered(std::string_view name);

    // The value of a key, owned by this object until the key is set or removed; null where there is none.
    const char* Find(std::string_view section, std::string_view key) const;

    bool HasSection(std::string_view section) const;

    // The sections, in the dictionary's order, under the names that iniparser stores.
    const std::vector<const char*>& Sections() const { return sections_; }

    // Sets a key, in a section that is made where it is not there.  False, with nothing changed, for names and values
    // that would not be read back from a file as they are.
    bool Set(std::string_view section, std::string_view key, std::string_view value);

    // Remove a key, and a section with all its keys.  What is not there is left alone.
    void Remove(std::string_view section, std::string_view key);
    void RemoveSection(std::string_view section);

    // The file's text.  Nothing where a line would be too long to be read.
    std::optional<std::string> Text() const;

    // Whether every value is in the other file too, and no more than these.
    bool HasTheValuesOf(const IniFile& other) const;

private:
    struct Deleter {
        void operator()(_dictionary_* dictionary) const;
    };
    using Dictionary = std::unique_ptr<_dictionary_, Deleter>;
    static Dictionary NewDictionary();

    explicit IniFile(Dictionary dictionary) : dictionary_(std::move(dictionary)) { ListSections(); }
    void ListSections();

    Dictionary dictionary_;
    std::vector<const char*> sections_;
};

#endif
