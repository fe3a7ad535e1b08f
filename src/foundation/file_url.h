// Between places in the file system and URLs of the scheme "file".
#ifndef FOUNDATION_FILE_URL_H
#define FOUNDATION_FILE_URL_H

#include <string>
#include <string_view>

class FileLocation;
class URLInfo;

// The URL of the place that the text names: an empty authority, and each piece between "/" as an encoded segment.  A
// relative path is taken from the root, since its first piece would be the URL's host.  The empty text has no path in
// its URL either.
std::string FileURL(std::string_view path);

// The place that the URL's path names, whatever its scheme and host: the segments decoded, with "/" between them; a "/"
// at the end is dropped.  Throws NoPathError when there is no path.
FileLocation FileLocationOfURL(const URLInfo& url);

#endif
