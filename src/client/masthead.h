// A masthead: the signed description of a site, with its name, its servers and its policies.
#ifndef CLIENT_MASTHEAD_H
#define CLIENT_MASTHEAD_H

#include <cstdint>
#include <string>

#include "foundation/bounded_text.h"
#include "foundation/extensible_array.h"
#include "values/site_version_list.h"
#include "values/version.h"

// What the headers of a masthead say.  A header that is not there leaves its field as it is here; one that stands twice
// counts with its last value.
struct Masthead {
    // A value is cut at 256 bytes.
    using Text = BoundedText<256>;

    static constexpr int64_t kOneDay = 86'400'000'000;

    Text date;
    Text from;
    Text organization;
    Text subject;
    Text actionLockController;
    Text actionLockInitial;
    ExtensibleArray<Text> actionLockOmitSites;  // one for each of the headers
    Text mirrorDownloadUrl;
    Text mirrorGatherUrl;
    int64_t requireFipsCryptography = 0;
    Text siteAssertion;
    Text siteBbs;
    Text siteCodicil;
    Text siteGatherUrl;
    Text siteLocation;
    Text mastheadVersion;
    SiteVersionList mastheadVersionList;  // the numbers of the same header
    Text siteName;
    Text siteRegistrationUrl;
    Text siteReportUrl;
    int64_t uniqueSiteId = 0;
    int64_t updateFrequency = kOneDay;  // in microseconds
    Text organizationCommonName;
    std::string relevance;
    Text siteLocationAbsoluteDirectory;
    Text webPage;

    // The version of the masthead, in evaluation memory, to be compared as versions are.
    inspector_version Version() const { return inspector_version(inspector_string(mastheadVersion.Text().View())); }
};

#endif
