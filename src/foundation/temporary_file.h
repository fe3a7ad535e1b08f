// Names that nothing else has, and the places for what lives only for a while.
#ifndef FOUNDATION_TEMPORARY_FILE_H
#define FOUNDATION_TEMPORARY_FILE_H

#include <string_view>

#include "foundation/file_location.h"

// Make a new folder, or a new empty file, in `parent`, whose name is `prefix` and six random letters or digits.  Throw
// EmptyFileLocationError for an empty parent, and CreateUniqueFileLocationFailed with the code 1 for a folder and 0 for
// a file.  A parent of more than 4088 bytes less the prefix is cut there.
FileLocation UniqueFolder(const FileLocation& parent, std::string_view prefix);
FileLocation UniqueFile(const FileLocation& parent, std::string_view prefix);

// "/tmp".
FileLocation TemporaryFolder();

// A unique file in the temporary folder, with the prefix "temp"; or with another, after making sure of the folder.
FileLocation TemporaryFile();
FileLocation TemporaryFile(std::string_view prefix);

// The latter into `out`, with a null prefix standing for "ostrel".  Returns false, and leaves `out` alone, when
// anything was thrown.
bool TryTemporaryFile(FileLocation& out, const char* prefix);

// A free name beside `location`, or inside it when it is a folder: what is written there can be moved to `location`
// without leaving its file system.
FileLocation SiblingTemporary(const FileLocation& location, std::string_view prefix = "temp");

// The place of a user's scratch folder, or the folder for all users when the name is empty.  Not asked for, and not
// made.
FileLocation PrivateFolder(std::string_view name);

#endif
