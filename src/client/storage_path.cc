#include "client/storage_path.h"

#include <array>
#include <cstdlib>
#include <string>

#include "foundation/ascii.h"
#include "foundation/const_data.h"
#include "foundation/file_error.h"
#include "foundation/file_operations.h"
#include "foundation/reserved_names.h"
#include "inspectors/download.h"

namespace StoragePath {

namespace {

// The places that are built once and kept, as indexes.
enum Place : size_t {
    DataFolder,
    GlobalFolder,
    LogFolder,
    UserSettings,
    PowerHistory,
    ActionHistory,
    GlobalOptions,
    TemporaryBitmap,
    UISession,
    UICache,
    UISupport,
    Reference,
    UIProgram,
    places
};

using Kept = std::unique_ptr<const FileLocation>;

// There from the first instruction on; the manager is what empties them.
constinit Kept executable;
constinit Kept storage;
constinit Kept library;
constinit std::array<Kept, places> derived;

StoragePathMemManager atExit;

constexpr mode_t folderMode = 0777;

template <class Parent>
const FileLocation& Derived(Place place, Parent parent, const char* name) {
    Kept& kept = derived[place];
    if (kept == nullptr) {
        kept = std::make_unique<FileLocation>(parent(), name);
    }
    return *kept;
}

// The same for a folder that is to be there.
template <class Parent>
const FileLocation& Ensured(Place place, Parent parent, const char* name) {
    const bool first = derived[place] == nullptr;
    const FileLocation& location = Derived(place, parent, name);
    if (first) {
        EnsureDirectory(location, folderMode);
    }
    return location;
}

FileLocation ExecutableFolder() { return executable == nullptr ? FileLocation() : executable->Parent(); }

// A number in decimal, padded with zeros to `width` columns, behind what `out` holds.
void AppendPadded(Buffer& out, int number, size_t width) {
    std::string digits = std::to_string(number);
    digits.insert(0, width - std::min(width, digits.size()), '0');
    if (digits.size() > out.Room()) {
        throw DataOverflow();
    }
    out.write = std::copy(digits.begin(), digits.end(), out.write);
}

bool BeginsWith(std::string_view name, std::string_view prefix) {
    return name.size() >= prefix.size() &&
           Ascii::CompareIgnoringCase(ConstData(name.substr(0, prefix.size())), ConstData(prefix)) == 0;
}

bool ClimbsUp(std::string_view path) {
    for (size_t at = 0; at <= path.size();) {
        const size_t end = std::min(path.find('/', at), path.size());
        if (path.substr(at, end - at) == "..") {
            return true;
        }
        at = end + 1;
    }
    return false;
}

bool IsInDataFolder(const FileLocation& location) {
    try {
        return IsInside(GetDataFolderLocation(), location) && !ClimbsUp(location.Text());
    } catch (const InvalidFileLocation&) {
        return false;  // a relative path that does not pass the data folder on its way up
    }
}

}  // namespace

StoragePathMemManager::~StoragePathMemManager() {
    for (Kept& kept : derived) {
        kept.reset();
    }
    library.reset();
    storage.reset();
    executable.reset();
}

void SetExecutableLocation(const FileLocation& location) { executable = std::make_unique<FileLocation>(location); }
void SetStorageLocation(const FileLocation& location) { storage = std::make_unique<FileLocation>(location); }
void SetLibLocation(const FileLocation& location) { library = std::make_unique<FileLocation>(location); }

const FileLocation* GetExecutableLocation() { return executable.get(); }

const FileLocation& GetLibLocation() {
    if (library == nullptr) {
        throw UnsetLibLocation();
    }
    return *library;
}

const FileLocation& GetGlobalLocation() {
    if (storage == nullptr) {
        throw UnsetStorageLocation();
    }
    return *storage;
}

// clang-format off
const FileLocation& GetDataFolderLocation()      { return Ensured(DataFolder,      GetGlobalLocation,       cRESERVED_DIRECTORY_DATA); }
const FileLocation& GetGlobalFolderLocation()    { return Ensured(GlobalFolder,    GetDataFolderLocation,   cRESERVED_DIRECTORY_GLOBAL); }
const FileLocation& GetLogFolderLocation()       { return Ensured(LogFolder,       GetGlobalFolderLocation, cRESERVED_DIRECTORY_LOGGING); }
const FileLocation& GetUserSettingsLocation()    { return Derived(UserSettings,    GetGlobalFolderLocation, cRESERVED_DIRECTORY_USERSETTINGS); }
const FileLocation& GetPowerHistoryLocation()    { return Derived(PowerHistory,    GetGlobalFolderLocation, cRESERVED_DIRECTORY_POWERHISTORY); }
const FileLocation& GetActionHistoryLocation()   { return Derived(ActionHistory,   GetGlobalFolderLocation, cRESERVED_DIRECTORY_ACTIONHISTORY); }
const FileLocation& GetGlobalOptionsLocation()   { return Derived(GlobalOptions,   GetGlobalFolderLocation, cRESERVED_FILENAME_GLOBAL_OPTIONS); }
const FileLocation& GetTemporaryBitmapLocation() { return Derived(TemporaryBitmap, GetGlobalFolderLocation, cRESERVED_FILENAME_TEMPORARY_BITMAP); }
const FileLocation& GetUISessionLocation()       { return Derived(UISession,       GetDataFolderLocation,   cRESERVED_DIRECTORY_UISESSION); }
const FileLocation& GetUICacheLocation()         { return Derived(UICache,         GetDataFolderLocation,   cRESERVED_DIRECTORY_UICACHE); }
const FileLocation& GetUISupportLocation()       { return Derived(UISupport,       GetDataFolderLocation,   cRESERVED_DIRECTORY_UISUPPORT); }
const FileLocation& GetReferenceLocation()       { return Derived(Reference,       GetLibLocation,          cRESERVED_DIRECTORY_UIREFERENCE); }
const FileLocation& GetUIProgramLocation()       { return Derived(UIProgram,       ExecutableFolder,        cRESERVED_FILENAME_UIAPP); }
// clang-format on

bool IsReady() {
    try {
        GetDataFolderLocation();
        GetLogFolderLocation();
        GetGlobalFolderLocation();
        return true;
    } catch (...) {
        return false;
    }
}

FileLocation SiteFolderLocation(std::string_view siteFolderName) { return {GetDataFolderLocation(), siteFolderName}; }
FileLocation SiteUIIconLocation(std::string_view siteName) {
    return {FileLocation(GetDataFolderLocation(), siteName), cRESERVED_UIIMAGE_FILENAME};
}

// clang-format off
FileLocation SiteLocalLocation(const FileLocation& siteFolder)             { return {siteFolder, cRESERVED_DIRECTORY_LOCAL}; }
FileLocation SiteDataLocation(const FileLocation& siteFolder)              { return {SiteLocalLocation(siteFolder), cRESERVED_SITE_SITEDATA}; }
FileLocation SiteTemporaryDataLocation(const FileLocation& siteFolder)     { return {SiteLocalLocation(siteFolder), cRESERVED_SITE_SITEDATATEMP}; }
FileLocation SiteVariablesLocation(const FileLocation& siteFolder)         { return {SiteLocalLocation(siteFolder), cRESERVED_SITE_PROFILE}; }
FileLocation SiteDeletedStoreLocation(const FileLocation& siteFolder)      { return {SiteLocalLocation(siteFolder), cRESERVED_SITE_DELETED_STORE}; }
FileLocation SiteMastheadLocation(const FileLocation& siteFolder)          { return {siteFolder, cRESERVED_SITE_MASTHEAD}; }
FileLocation SiteLocalMastheadLocation(const FileLocation& siteFolder)     { return {SiteLocalLocation(siteFolder), cRESERVED_SITE_MASTHEAD}; }
FileLocation SiteAlternateMastheadLocation(const FileLocation& siteFolder) { return {siteFolder, cRESERVED_SITE_ALTERNATE_MASTHEAD}; }
FileLocation SiteFileListLocation(const FileLocation& siteFolder)          { return {siteFolder, cRESERVED_SITE_FILELIST}; }
FileLocation SiteNewFileListLocation(const FileLocation& siteFolder)       { return {siteFolder, cRESERVED_SITE_FILELIST_NEW}; }
FileLocation SiteIconLocation(const FileLocation& siteFolder)              { return {siteFolder, cRESERVED_SITE_ICONFILENAME}; }
FileLocation SiteSmallIconLocation(const FileLocation& siteFolder)         { return {siteFolder, cRESERVED_SITE_ICONFILENAME_SMALL}; }
FileLocation SiteLargeIconLocation(const FileLocation& siteFolder)         { return {siteFolder, cRESERVED_SITE_ICONFILENAME_LARGE}; }
FileLocation SiteProfileLocation(const FileLocation& siteFolder)           { return {siteFolder, cRESERVED_PROFILE_FILENAME}; }
FileLocation SiteGatheringLocation(const FileLocation& siteFolder)         { return {siteFolder, cRESERVED_DIRECTORY_GATHERING}; }
FileLocation SiteNotationsLocation(const FileLocation& siteFolder)         { return {siteFolder, cRESERVED_DIRECTORY_NOTATIONS}; }
FileLocation SiteDownloadLocation(const FileLocation& siteFolder)          { return {siteFolder, cRESERVED_DIRECTORY_DOWNLOAD}; }
FileLocation ProfileTemporaryLocation(const FileLocation& folder)          { return {folder, cRESERVED_PROFILE_TEMPNAME}; }
// clang-format on

FileLocation SiteComplianceDocumentLocation(const FileLocation& siteFolder, std::string_view name) {
    return {FileLocation(siteFolder, cRESERVED_DIRECTORY_COMPLIANCE_DOCS), name};
}
FileLocation SiteHiddenPageLocation(const FileLocation& siteFolder, std::string_view name) {
    return {siteFolder, std::string(cRESERVED_MARKER).append(name).append(cRESERVED_EXTENSION)};
}
FileLocation ReservedFileLocation(const FileLocation& folder, std::string_view name) {
    return {folder, std::string(cRESERVED_MARKER).append(name)};
}
FileLocation NotationLocation(const FileLocation& folder, const FileName& file) {
    return {folder, file.stem() + cRESERVED_FILE_EXTENSION_NOTATION};
}
FileLocation NotationTemporaryLocation(const FileLocation& folder, const FileName& file) {
    return {folder, file.stem() + cRESERVED_FILE_EXTENSION_NOTATION_TEMP};
}

FileLocation NamedDownloadsLocation(const FileLocation& clientFolder, std::string_view siteName, int64_t actionId) {
    return NamedDownloads(clientFolder, siteName, actionId);
}

FileLocation DailyLogLocation(int year, int month, int day) {
    return {GetLogFolderLocation(), DailyLogName(year, month, day, cRESERVED_FILE_EXTENSION_SITE_LOG_FILE)};
}
FileLocation DailyBackupLogLocation(int year, int month, int day) {
    return {GetLogFolderLocation(), DailyLogName(year, month, day, cRESERVED_FILE_EXTENSION_SITE_BACKUP_LOG_FILE)};
}

FileName DailyLogName(int year, int month, int day, std::string_view extension) {
    std::array<unsigned char, 32> bytes;
    Buffer date(bytes.data(), bytes.data() + bytes.size());
    AppendPadded(date, year, 4);
    AppendPadded(date, month, 2);
    AppendPadded(date, day, 2);
    return FileName(date.Filled().View()) + extension;
}

LogDate DateOfLogName(const FileName& name) {
    const std::string_view text = name.Text();
    if (text.size() <= 8) {
        throw IllegalFileName();
    }
    const auto number = [&](size_t at, size_t digits) {
        int64_t value = 0;
        for (const char digit : text.substr(at, digits)) {
            value = value * 10 + (digit - '0');
        }
        return value;
    };
    return {number(0, 4), number(4, 2), number(6, 2)};
}

LogDate DateOfLogNumber(const FileName& name) {
    const int64_t number = std::strtol(name.CString(), nullptr, 10);
    return {number / 10000, number % 10000 / 100, number % 100};
}

bool IsReservedName(const FileLocation& location) {
    const std::string_view path = location.Text();
    const std::string_view name = path.substr(path.rfind('/') + 1);
    return BeginsWith(name, cRESERVED_MARKER) && !BeginsWith(name, cRESERVED_EXCEPTION_PREFIX);
}

std::string_view BaseName(std::string_view path) { return path.substr(path.find_last_of("/\\") + 1); }

void DeleteTreeInData(const FileLocation& location) {
    if (IsInDataFolder(location)) {
        DeleteTreeIfThere(location);
    }
}

}  // namespace StoragePath
