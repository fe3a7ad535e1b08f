// Every row of the table of reserved names, in its order.
#include "foundation/reserved_names.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* name;
    const char* value;
};

// clang-format off
const Row rows[] = {
    {cRESERVED_FILENAME_UIAPP, "XOSLClientUI"},
    {cRESERVED_DIRECTORY_UIREFERENCE, "Reference"},
    {reservedMastheadFileName, "ActionSite.aqzm"},
    {reservedLibraryFolder, "OSLLib"},
    {reservedDevelopmentLibraryFolder, "ODELib"},
    {cRESERVED_DIRECTORY_DATA, "__OSLData"},
    {reservedReportFile, "__report"},
    {reservedEncryptedReportFile, "__encrypted_report"},
    {cRESERVED_DIRECTORY_UISUPPORT, "__UISupport"},
    {cRESERVED_DIRECTORY_UICACHE, "__UICache"},
    {cRESERVED_DIRECTORY_UISESSION, "__UISession"},
    {cRESERVED_DIRECTORY_GLOBAL, "__Global"},
    {cRESERVED_FILENAME_GLOBAL_OPTIONS, "Options"},
    {cRESERVED_FILENAME_TEMPORARY_BITMAP, "addsite.bmp"},
    {reservedActionSiteFile, "__action.qzm"},
    {reservedRelayList, "Relays.dat"},
    {reservedRevocationFolder, "__revocations"},
    {reservedRevocationList, "Revocations.crl"},
    {reservedRevocationData, "Revocations.dat"},
    {cRESERVED_DIRECTORY_LOGGING, "Logs"},
    {cRESERVED_DIRECTORY_ACTIONHISTORY, "ActionHistory.db"},
    {cRESERVED_DIRECTORY_POWERHISTORY, "PowerHistory.db"},
    {cRESERVED_DIRECTORY_USERSETTINGS, "UserSettings.db"},
    {reservedDownloadStatus, "DownloadStatusCache.db"},
    {reservedFullReportMarker, "__fullReportNeeded"},
    {reservedReportSequence, "ReportSequenceData"},
    {cRESERVED_USAGE_DIRECTORY_STATISTICS, "UsageData"},
    {cRESERVED_TECH_SUPPRT_SITE_NAME, "Ostrel"},
    {cRESERVED_SITE_ICONFILENAME, "siteicon.bmp"},
    {cRESERVED_SITE_ICONFILENAME_SMALL, "siteicos.bmp"},
    {cRESERVED_SITE_ICONFILENAME_LARGE, "siteicol.bmp"},
    {cRESERVED_PROFILE_FILENAME, "Profile.htm"},
    {cRESERVED_PROFILE_TEMPNAME, "__ofile.htm"},
    {reservedAppendFile, "__appendfile"},
    {reservedCreateFile, "__createfile"},
    {cRESERVED_UIIMAGE_FILENAME, "_clientui.ico"},
    {reservedCertificateStore, "CertStore.dat"},
    {cRESERVED_DIRECTORY_DOWNLOAD, "__Download"},
    {reservedDebugDownloadFolder, "__DebugDownload"},
    {reservedCacheFolder, "__Cache"},
    {cRESERVED_DIRECTORY_COMPLIANCE_DOCS, "__Compliance"},
    {cRESERVED_DIRECTORY_LOCAL, "__Local"},
    {cRESERVED_DIRECTORY_NOTATIONS, "Tmp"},
    {cRESERVED_DIRECTORY_GATHERING, "Get"},
    {cRESERVED_SITE_FILELIST, "FileList"},
    {cRESERVED_SITE_FILELIST_NEW, "FileLNew"},
    {cRESERVED_SITE_MASTHEAD, "Masthead"},
    {cRESERVED_SITE_ALTERNATE_MASTHEAD, "masthead"},
    {cRESERVED_SITE_DELETED_STORE, "Deleted"},
    {cRESERVED_SITE_SITEDATA, "SiteData"},
    {cRESERVED_SITE_SITEDATATEMP, "SiteTemp"},
    {cRESERVED_SITE_PROFILE, "SiteVars"},
    {cRESERVED_MARKER, "__"},
    {cRESERVED_EXCEPTION_PREFIX, "__ok"},
    {cRESERVED_EXTENSION, ".htm"},
    {cRESERVED_EXTENSION_LONG, ".html"},
    {cRESERVED_FILE_EXTENSION_TEXT, ".txt"},
    {reservedDeleteMarker, "__del"},
    {cRESERVED_FILE_EXTENSION_ADVICE_FILE, ".qzf"},
    {cRESERVED_FILE_EXTENSION_ADVICE_POOL, ".qzg"},
    {cRESERVED_FILE_EXTENSION_SITE_DEFINITION, ".qzm"},
    {reservedQueryFileExtension, ".zendry"},
    {cRESERVED_FILE_EXTENSION_SITE_LOG_FILE, ".log"},
    {cRESERVED_FILE_EXTENSION_SITE_BACKUP_LOG_FILE, ".bkg"},
    {cRESERVED_FILE_EXTENSION_NOTATION_TEMP, ".tmp"},
    {cRESERVED_FILE_EXTENSION_NOTATION, ".dat"},
    {cRESERVED_FILE_EXTENSION_DLL, ".so"},
    {cRESERVED_FILE_EXTENSION_SITE_DATA, ""},
    {cRESERVED_FILE_EXTENSION_PREFERENCES, ""},
    {cRESERVED_FILE_EXTENSION_PROFILE, ""},
    {cRESERVED_COMPANY_NAME, "Ostrel"},
};
// clang-format on

TEST(ReservedNames, EveryRowHasItsValue) {
    ASSERT_EQ(std::size(rows), 71u);
    for (const Row& row : rows) {
        EXPECT_STREQ(row.name, row.value);
    }
}

}  // namespace
