// The classes of reserved files, told by their extension.
#ifndef FOUNDATION_FILE_CLASS_H
#define FOUNDATION_FILE_CLASS_H

#include <string_view>

enum class FileClass {
    SiteDefinition = 1,
    AdvicePool = 2,
    AdviceFile = 3,
    Page = 4,
    Text = 5,
    SiteLog = 6,
    SiteBackupLog = 7,
    DynamicLibrary = 8,
    Notation = 9,
    SiteData = 10,
    Profile = 11,
    Preferences = 12,
    Other = 13,
};

// The class of files with this extension, its dot included and its ASCII case disregarded; Other for an extension
// that is not reserved.  Three classes have the empty extension, which answers with the first of them, SiteData.
FileClass ClassOfExtension(std::string_view extension);

// The first extension of the class, dot included; the empty text for Other and for a code that is no class.
const char* ExtensionOfClass(FileClass code);

#endif
