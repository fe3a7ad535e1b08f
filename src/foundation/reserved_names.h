// The reserved names of the agent's data tree, and of what stands beside its executable: one row to a name, in the
// table's order.  Nothing else in the system spells one of these.
//
// The rows whose names begin with cRESERVED_ are vocabulary that tools outside know by these names; the others are
// rows of the same table under names of our own.  Many have no reader in this system and are kept so that what looks
// at such a tree sees the same names.
#ifndef FOUNDATION_RESERVED_NAMES_H
#define FOUNDATION_RESERVED_NAMES_H

// clang-format off
inline constexpr char cRESERVED_FILENAME_UIAPP[] = "XOSLClientUI";  // the user-interface program, beside the executable
inline constexpr char cRESERVED_DIRECTORY_UIREFERENCE[] = "Reference";  // reference files under the library location
inline constexpr char reservedMastheadFileName[] = "ActionSite.aqzm";  // the masthead file of the main site
inline constexpr char reservedLibraryFolder[] = "OSLLib";  // a library folder
inline constexpr char reservedDevelopmentLibraryFolder[] = "ODELib";  // a library folder
inline constexpr char cRESERVED_DIRECTORY_DATA[] = "__OSLData";  // top of the data tree
inline constexpr char reservedReportFile[] = "__report";  // an outgoing report
inline constexpr char reservedEncryptedReportFile[] = "__encrypted_report";  // an outgoing report after encryption
inline constexpr char cRESERVED_DIRECTORY_UISUPPORT[] = "__UISupport";
inline constexpr char cRESERVED_DIRECTORY_UICACHE[] = "__UICache";
inline constexpr char cRESERVED_DIRECTORY_UISESSION[] = "__UISession";
inline constexpr char cRESERVED_DIRECTORY_GLOBAL[] = "__Global";  // data shared by all sites
inline constexpr char cRESERVED_FILENAME_GLOBAL_OPTIONS[] = "Options";
inline constexpr char cRESERVED_FILENAME_TEMPORARY_BITMAP[] = "addsite.bmp";
inline constexpr char reservedActionSiteFile[] = "__action.qzm";
inline constexpr char reservedRelayList[] = "Relays.dat";
inline constexpr char reservedRevocationFolder[] = "__revocations";
inline constexpr char reservedRevocationList[] = "Revocations.crl";
inline constexpr char reservedRevocationData[] = "Revocations.dat";
inline constexpr char cRESERVED_DIRECTORY_LOGGING[] = "Logs";  // dated log files
inline constexpr char cRESERVED_DIRECTORY_ACTIONHISTORY[] = "ActionHistory.db";
inline constexpr char cRESERVED_DIRECTORY_POWERHISTORY[] = "PowerHistory.db";
inline constexpr char cRESERVED_DIRECTORY_USERSETTINGS[] = "UserSettings.db";
inline constexpr char reservedDownloadStatus[] = "DownloadStatusCache.db";
inline constexpr char reservedFullReportMarker[] = "__fullReportNeeded";
inline constexpr char reservedReportSequence[] = "ReportSequenceData";
inline constexpr char cRESERVED_USAGE_DIRECTORY_STATISTICS[] = "UsageData";  // application usage data
inline constexpr char cRESERVED_TECH_SUPPRT_SITE_NAME[] = "Ostrel";
inline constexpr char cRESERVED_SITE_ICONFILENAME[] = "siteicon.bmp";
inline constexpr char cRESERVED_SITE_ICONFILENAME_SMALL[] = "siteicos.bmp";
inline constexpr char cRESERVED_SITE_ICONFILENAME_LARGE[] = "siteicol.bmp";
inline constexpr char cRESERVED_PROFILE_FILENAME[] = "Profile.htm";
inline constexpr char cRESERVED_PROFILE_TEMPNAME[] = "__ofile.htm";
inline constexpr char reservedAppendFile[] = "__appendfile";
inline constexpr char reservedCreateFile[] = "__createfile";
inline constexpr char cRESERVED_UIIMAGE_FILENAME[] = "_clientui.ico";
inline constexpr char reservedCertificateStore[] = "CertStore.dat";
inline constexpr char cRESERVED_DIRECTORY_DOWNLOAD[] = "__Download";
inline constexpr char reservedDebugDownloadFolder[] = "__DebugDownload";
inline constexpr char reservedCacheFolder[] = "__Cache";
inline constexpr char cRESERVED_DIRECTORY_COMPLIANCE_DOCS[] = "__Compliance";
inline constexpr char cRESERVED_DIRECTORY_LOCAL[] = "__Local";  // a site's private area
inline constexpr char cRESERVED_DIRECTORY_NOTATIONS[] = "Tmp";
inline constexpr char cRESERVED_DIRECTORY_GATHERING[] = "Get";
inline constexpr char cRESERVED_SITE_FILELIST[] = "FileList";
inline constexpr char cRESERVED_SITE_FILELIST_NEW[] = "FileLNew";
inline constexpr char cRESERVED_SITE_MASTHEAD[] = "Masthead";
inline constexpr char cRESERVED_SITE_ALTERNATE_MASTHEAD[] = "masthead";
inline constexpr char cRESERVED_SITE_DELETED_STORE[] = "Deleted";
inline constexpr char cRESERVED_SITE_SITEDATA[] = "SiteData";
inline constexpr char cRESERVED_SITE_SITEDATATEMP[] = "SiteTemp";
inline constexpr char cRESERVED_SITE_PROFILE[] = "SiteVars";
inline constexpr char cRESERVED_MARKER[] = "__";  // prefix of reserved names
inline constexpr char cRESERVED_EXCEPTION_PREFIX[] = "__ok";  // reserved-looking prefix that is not reserved
inline constexpr char cRESERVED_EXTENSION[] = ".htm";
inline constexpr char cRESERVED_EXTENSION_LONG[] = ".html";
inline constexpr char cRESERVED_FILE_EXTENSION_TEXT[] = ".txt";
inline constexpr char reservedDeleteMarker[] = "__del";
inline constexpr char cRESERVED_FILE_EXTENSION_ADVICE_FILE[] = ".qzf";
inline constexpr char cRESERVED_FILE_EXTENSION_ADVICE_POOL[] = ".qzg";
inline constexpr char cRESERVED_FILE_EXTENSION_SITE_DEFINITION[] = ".qzm";
inline constexpr char reservedQueryFileExtension[] = ".zendry";
inline constexpr char cRESERVED_FILE_EXTENSION_SITE_LOG_FILE[] = ".log";
inline constexpr char cRESERVED_FILE_EXTENSION_SITE_BACKUP_LOG_FILE[] = ".bkg";
inline constexpr char cRESERVED_FILE_EXTENSION_NOTATION_TEMP[] = ".tmp";
inline constexpr char cRESERVED_FILE_EXTENSION_NOTATION[] = ".dat";
inline constexpr char cRESERVED_FILE_EXTENSION_DLL[] = ".so";
inline constexpr char cRESERVED_FILE_EXTENSION_SITE_DATA[] = "";
inline constexpr char cRESERVED_FILE_EXTENSION_PREFERENCES[] = "";
inline constexpr char cRESERVED_FILE_EXTENSION_PROFILE[] = "";
inline constexpr char cRESERVED_COMPANY_NAME[] = "Ostrel";  // the first element of the settings-store path
// clang-format on

#endif
