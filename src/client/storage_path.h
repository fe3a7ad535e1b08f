// The places of the agent's data tree, and what the names in it mean.
//
// Three locations are given from outside at start-up: the program, the storage location and the library location.  All
// others follow from them by the table of reserved names.  A place that has one location in a process is built at the
// first call of its getter and kept: every further call returns the same object, also when a given location has been
// replaced since.  A place that depends on a site or on a name is built anew at each call.
//
// The data, global and log folders are made when their getter is first called, with mode 0777 through the umask.  What
// makes that fail (the file layer's exceptions) is thrown once: the location is kept, and the next call returns it
// without trying again.  Nothing here takes a lock; the first uses are those of the start-up, on the main thread.
#ifndef CLIENT_STORAGE_PATH_H
#define CLIENT_STORAGE_PATH_H

#include <cstdint>
#include <memory>
#include <string_view>

#include "foundation/file_location.h"
#include "foundation/file_name.h"

namespace StoragePath {

// Owns every location that is given or kept here.  One object lives until the process exits; the end of any clears all
// of them, so that references got before die.
class StoragePathMemManager {
public:
    StoragePathMemManager() = default;
    StoragePathMemManager(const StoragePathMemManager&) = delete;
    StoragePathMemManager& operator=(const StoragePathMemManager&) = delete;
    ~StoragePathMemManager();
};

// The locations that are given from outside.  Each setter replaces the object, so that references got before die.
void SetExecutableLocation(const FileLocation& location);
void SetStorageLocation(const FileLocation& location);
void SetLibLocation(const FileLocation& location);

// The program's own path; null where none has been given.
const FileLocation* GetExecutableLocation();

// The folder of the libraries.  Throws UnsetLibLocation where none has been given.
const FileLocation& GetLibLocation();

// The storage location itself, under which the data tree lies.  Throws UnsetStorageLocation where none has been given.
const FileLocation& GetGlobalLocation();

// <storage>/__OSLData, and what lies in it for all sites together.  The first three are made when first asked for.
const FileLocation& GetDataFolderLocation();
const FileLocation& GetGlobalFolderLocation();
const FileLocation& GetLogFolderLocation();
const FileLocation& GetUserSettingsLocation();
const FileLocation& GetPowerHistoryLocation();
const FileLocation& GetActionHistoryLocation();
const FileLocation& GetGlobalOptionsLocation();
const FileLocation& GetTemporaryBitmapLocation();
const FileLocation& GetUISessionLocation();
const FileLocation& GetUICacheLocation();
const FileLocation& GetUISupportLocation();

// Under the library location and beside the program.  The latter throws EmptyFileLocationError where no program has
// been given.
const FileLocation& GetReferenceLocation();
const FileLocation& GetUIProgramLocation();

// Whether the data, log and global folders can be had.  Throws nothing.
bool IsReady();

// The folder of a site, and what a user interface keeps of it.
FileLocation SiteFolderLocation(std::string_view siteFolderName);
FileLocation SiteUIIconLocation(std::string_view siteName);

// What lies in a site's folder.
FileLocation SiteLocalLocation(const FileLocation& siteFolder);
FileLocation SiteDataLocation(const FileLocation& siteFolder);
FileLocation SiteTemporaryDataLocation(const FileLocation& siteFolder);
FileLocation SiteVariablesLocation(const FileLocation& siteFolder);
FileLocation SiteDeletedStoreLocation(const FileLocation& siteFolder);
FileLocation SiteMastheadLocation(const FileLocation& siteFolder);
FileLocation SiteLocalMastheadLocation(const FileLocation& siteFolder);
FileLocation SiteAlternateMastheadLocation(const FileLocation& siteFolder);
FileLocation SiteFileListLocation(const FileLocation& siteFolder);
FileLocation SiteNewFileListLocation(const FileLocation& siteFolder);
FileLocation SiteIconLocation(const FileLocation& siteFolder);
FileLocation SiteSmallIconLocation(const FileLocation& siteFolder);
FileLocation SiteLargeIconLocation(const FileLocation& siteFolder);
FileLocation SiteProfileLocation(const FileLocation& siteFolder);
FileLocation SiteGatheringLocation(const FileLocation& siteFolder);
FileLocation SiteNotationsLocation(const FileLocation& siteFolder);
FileLocation SiteDownloadLocation(const FileLocation& siteFolder);
FileLocation SiteComplianceDocumentLocation(const FileLocation& siteFolder, std::string_view name);
FileLocation SiteHiddenPageLocation(const FileLocation& siteFolder, std::string_view name);

// What lies in any folder of the tree.
FileLocation ProfileTemporaryLocation(const FileLocation& folder);
FileLocation ReservedFileLocation(const FileLocation& folder, std::string_view name);
FileLocation NotationLocation(const FileLocation& folder, const FileName& file);
FileLocation NotationTemporaryLocation(const FileLocation& folder, const FileName& file);

// The named downloads of an action of the main site.
FileLocation NamedDownloadsLocation(const FileLocation& clientFolder, std::string_view siteName, int64_t actionId);

// The log and the backup log of a day.
FileLocation DailyLogLocation(int year, int month, int day);
FileLocation DailyBackupLogLocation(int year, int month, int day);

// YYYYMMDD and `extension`.  Numbers that are wider than their columns are written whole; throws DataOverflow where the
// three together do not fit 32 bytes.
FileName DailyLogName(int year, int month, int day, std::string_view extension);

struct LogDate {
    int64_t year;
    int64_t month;
    int64_t day;

    friend bool operator==(const LogDate& a, const LogDate& b) = default;
};

// The date in a log's name, by its first eight bytes, which are taken for digits unseen.  Throws IllegalFileName for a
// name of eight bytes or fewer.
LogDate DateOfLogName(const FileName& name);

// The same by the number that the name begins with: 0 for a name that begins with none.
LogDate DateOfLogNumber(const FileName& name);

// Whether the name of a place is kept for the system: it begins with "__", but not with "__ok".  Case does not count.
bool IsReservedName(const FileLocation& location);

// What stands behind the last "/" or "\" of a path; nothing where the path ends in one.
std::string_view BaseName(std::string_view path);

// Deletes a file tree that lies in the data folder; what is not there or lies elsewhere is left alone, and nothing is
// reported.  A path with a ".." in it may lead anywhere and so lies elsewhere.
void DeleteTreeInData(const FileLocation& location);

}  // namespace StoragePath

#endif
