// The names that users know custom sites by.
#ifndef CLIENT_CUSTOM_SITE_NAME_H
#define CLIENT_CUSTOM_SITE_NAME_H

#include <cstddef>
#include <string_view>

#include "foundation/debuggable_exception.h"

struct LookupCustomSiteResultBufTooSmall : DebuggableException {
    LookupCustomSiteResultBufTooSmall() noexcept : DebuggableException("LookupCustomSiteResultBufTooSmall") {}
};

// Puts the name of the custom site that is stored as `storedName`, and a zero, into the buffer: the value "name" of the
// site's section among the settings of custom sites.  False where there is none, or whatever else goes wrong, except
// that a name too long for the buffer throws LookupCustomSiteResultBufTooSmall.
bool LookupCustomSiteName(std::string_view storedName, char* buffer, size_t size);

#endif
