// What the agent notes of a site in its private area: the file "SiteData", header lines of which each is a property.
//
//     Version: 12
//     Type: Custom Site
//     Last-Gather-Time: Tue, 09 Mar 1999 10:11:12 +0000
#ifndef CLIENT_SITE_DATA_H
#define CLIENT_SITE_DATA_H

#include <string>

#include "client/site_map.h"
#include "foundation/header_maker.h"

class FileLocation;

// Puts the headers of one file into a record.  A line that does not parse leaves its property absent, the last of
// several lines of a name decides, and lines of other names are passed over.
class SiteDataMaker final : public HeaderReceiver {
public:
    // The record must outlive the maker.
    explicit SiteDataMaker(SiteMap& site) : value_(site) {}

    DataReceiver& StartHeader(ConstData name) override;
    LineReceiver& EndHeaders(uint64_t position) override;

private:
    using Setter = void (*)(SiteMap& site, const std::string& value);
    struct Property;
    static const Property properties[];

    // Gathers the value of one header and sets its property.
    class Value final : public DataReceiver {
    public:
        explicit Value(SiteMap& site) : site_(site) {}
        Value& Sets(Setter setter) {
            setter_ = setter;
            return *this;
        }
        void Start() override { text_.clear(); }
        void Data(const unsigned char* begin, const unsigned char* end) override { text_.append(begin, end); }
        void Finish() override;

    private:
        SiteMap& site_;
        Setter setter_ = nullptr;
        std::string text_;
    };

    Value value_;
    IgnoreLineReceiver body_;
};

// Reads the file into the record, as far as its first mebibyte.  Throws the FileIOError of opening or reading,
// std::bad_alloc.
void ReadSiteData(const FileLocation& location, SiteMap& site);

#endif
