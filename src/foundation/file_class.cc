#include "foundation/file_class.h"

#include "foundation/ascii.h"
#include "foundation/reserved_names.h"

namespace {

struct Row {
    const char* extension;
    FileClass code;
};

constexpr Row rows[] = {
    {cRESERVED_FILE_EXTENSION_SITE_DEFINITION, FileClass::SiteDefinition},
    {cRESERVED_FILE_EXTENSION_ADVICE_POOL, FileClass::AdvicePool},
    {cRESERVED_FILE_EXTENSION_ADVICE_FILE, FileClass::AdviceFile},
    {cRESERVED_EXTENSION, FileClass::Page},
    {cRESERVED_EXTENSION_LONG, FileClass::Page},
    {cRESERVED_FILE_EXTENSION_TEXT, FileClass::Text},
    {cRESERVED_FILE_EXTENSION_SITE_LOG_FILE, FileClass::SiteLog},
    {cRESERVED_FILE_EXTENSION_SITE_BACKUP_LOG_FILE, FileClass::SiteBackupLog},
    {cRESERVED_FILE_EXTENSION_DLL, FileClass::DynamicLibrary},
    {cRESERVED_FILE_EXTENSION_NOTATION, FileClass::Notation},
    {cRESERVED_FILE_EXTENSION_SITE_DATA, FileClass::SiteData},
    {cRESERVED_FILE_EXTENSION_PREFERENCES, FileClass::Preferences},
    {cRESERVED_FILE_EXTENSION_PROFILE, FileClass::Profile},
};

}  // namespace

FileClass ClassOfExtension(std::string_view extension) {
    for (const Row& row : rows) {
        if (Ascii::CompareIgnoringCase(ConstData(std::string_view(row.extension)), ConstData(extension)) == 0) {
            return row.code;
        }
    }
    return FileClass::Other;
}

const char* ExtensionOfClass(FileClass code) {
    for (const Row& row : rows) {
        if (row.code == code) {
            return row.extension;
        }
    }
    return "";
}
