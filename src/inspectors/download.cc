#include "inspectors/download.h"

#include <new>
#include <string>

#include "evaluator/adapters.h"
#include "evaluator/inspector_action_context.h"
#include "evaluator/inspector_context.h"
#include "foundation/reserved_names.h"
#include "inspectors/descendant_walk.h"
#include "inspectors/file.h"
#include "values/integer.h"
#include "values/string.h"

FileLocation NamedDownloads(const FileLocation& clientFolder, std::string_view siteName, int64_t actionId) {
    const FileLocation global(clientFolder.Parent(), cRESERVED_DIRECTORY_GLOBAL);
    const FileLocation ofSite(FileLocation(global, cRESERVED_DIRECTORY_DOWNLOAD), siteName);
    return {FileLocation(ofSite, std::to_string(actionId)), "named"};
}

namespace {

// In the data folder of the host's storage location.
std::optional<download_storage_folder> DownloadStorageFolder() {
    const auto& storage = ContextInterface<InspectorStorageContext, InspectorStorageContextError>();
    if (storage.getGlobalLocation == nullptr) {
        throw InspectorStorageContextError();
    }
    const FileLocation dataFolder(storage.getGlobalLocation(), cRESERVED_DIRECTORY_DATA);
    return At<download_storage_folder>(FileLocation(dataFolder, cRESERVED_DIRECTORY_DOWNLOAD));
}

// The bytes of all files below, by the walk that `descendants` makes.  A tree that cannot be walked has no sum;
// that memory ran out is no fault of the tree's.
std::optional<integer> TotalSize(const download_storage_folder& store) {
    try {
        std::optional<integer> sum = 0;
        DescendantWalk walk(store.Location());
        for (const FileStat* found = walk.NextFile(); found != nullptr && sum; found = walk.NextFile()) {
            sum = *sum + integer(found->Target().st_size);
        }
        return sum;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return std::nullopt;
    }
}

FileLocation DownloadLocation(const ActionOrigin& action) {
    return action.isOfMainSite ? NamedDownloads(*action.clientFolder, action.siteName, action.actionId)
                               : FileLocation(*action.clientFolder, cRESERVED_DIRECTORY_DOWNLOAD);
}

// A host without actions has no context for them at all: kept as it stands, the words are those of a missing context.
std::optional<folder> DownloadFolder() {
    const auto& actions = ContextInterface<InspectorActionContext, NoInspectorContext>();
    if (actions.currentActionOrigin == nullptr) {
        throw InspectorActionContextError();
    }
    const std::optional<ActionOrigin> action = actions.currentActionOrigin();
    if (!action || action->clientFolder == nullptr) {
        return std::nullopt;
    }
    return At<folder>(DownloadLocation(*action));
}

bool IsFileName(std::string_view text) {
    try {
        FileName::Checked(text);
        return true;
    } catch (const IllegalFileName&) {
        return false;
    } catch (const IllegalFileNameLength&) {
        return false;
    }
}

// The path that a download of this name has or would have.
std::optional<inspector_string> DownloadPath(const inspector_string& name) {
    if (!IsFileName(name.View())) {
        return std::nullopt;
    }
    const std::optional<folder> downloads = DownloadFolder();
    if (!downloads) {
        return std::nullopt;
    }
    const FileLocation path(downloads->Location(), name.View());
    return CopiedString(path.Text());
}

std::optional<file> DownloadFile(const inspector_string& name) {
    const std::optional<folder> downloads = DownloadFolder();
    return downloads ? Inside<file>(name, *downloads) : std::nullopt;
}

// clang-format off
Type<download_storage_folder>                                       type;

GlobalProperty<download_storage_folder, DownloadStorageFolder>      storageFolder {"download storage folder", "download storage folders", ByValueOnly};
Property<download_storage_folder, integer, TotalSize>               totalSize     {"total size", "total sizes", ByValueOnly};
GlobalProperty<folder, DownloadFolder>                              downloads     {"download folder", "download folders", ByValueOnly};
NamedGlobalProperty<inspector_string, DownloadPath>                 path          {"download path", "download paths", ByValueOnly};
NamedGlobalProperty<file, DownloadFile>                             downloadFile  {"download file", "download files", ByValueOnly};
// clang-format on

}  // namespace
