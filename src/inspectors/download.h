// The folders that an agent downloads into.
#ifndef INSPECTORS_DOWNLOAD_H
#define INSPECTORS_DOWNLOAD_H

#include <cstdint>
#include <string_view>

#include "foundation/file_location.h"
#include "inspectors/folder.h"

// Where the named downloads of an action of the main site are, whose client folder is given.
FileLocation NamedDownloads(const FileLocation& clientFolder, std::string_view siteName, int64_t actionId);

// The folder of all downloads.
class download_storage_folder : public folder {
public:
    using folder::folder;
};

template <>
struct InspectorTypeInfo<download_storage_folder> : InspectorTypeBasics<download_storage_folder, 0> {
    static constexpr char Name[] = "download storage folder";
    static constexpr unsigned Size = sizeof(download_storage_folder);
    static constexpr const char* Parent = InspectorTypeInfo<folder>::Name;
};

#endif
