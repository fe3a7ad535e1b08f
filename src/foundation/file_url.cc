#include "foundation/file_url.h"

#include "foundation/file_location.h"
#include "foundation/url_filters.h"
#include "foundation/url_info.h"

namespace {

void AppendFiltered(DataFilter& filter, ConstData text, std::string& result) {
    StringReceiver receiver(result);
    DataFilterer filterer(filter, receiver);
    filterer.Start();
    filterer.Data(text.begin, text.end);
    filterer.Finish();
}

}  // namespace

std::string FileURL(std::string_view path) {
    std::string url = "file://";
    if (!path.empty() && path.front() != '/') {
        url += '/';
    }
    for (URLPath pieces{ConstData(path)}; !pieces.Current().end;) {
        URLEncoder encoder;
        AppendFiltered(encoder, pieces.Current().range, url);
        if (!pieces.Forward().end) {
            url += '/';
        }
    }
    return url;
}

FileLocation FileLocationOfURL(const URLInfo& url) {
    std::string path;
    for (URLPath segments(url.Path()); !segments.Current().end;) {
        // A segment's unfinished escape ends with it.
        URLDecoder decoder;
        AppendFiltered(decoder, segments.Current().range, path);
        if (!segments.Forward().end) {
            path += '/';
        }
    }
    return FileLocation(path);
}
