#include "client/masthead_header_receiver.h"

#include <algorithm>
#include <iterator>

// In the order of the names, which are looked up by halving.
// clang-format off
constexpr MastheadHeaderReceiver::Row MastheadHeaderReceiver::rows[] = {
    {"date",                               &MastheadHeaderReceiver::Text<&Masthead::date>},
    {"from",                               &MastheadHeaderReceiver::Text<&Masthead::from>},
    {"organization",                       &MastheadHeaderReceiver::Text<&Masthead::organization>},
    {"subject",                            &MastheadHeaderReceiver::Text<&Masthead::subject>},
    {"x-organization-common-name",         &MastheadHeaderReceiver::Text<&Masthead::organizationCommonName>},
    {"x-osl-action-lock-controller",       &MastheadHeaderReceiver::Text<&Masthead::actionLockController>},
    {"x-osl-action-lock-initial",          &MastheadHeaderReceiver::Text<&Masthead::actionLockInitial>},
    {"x-osl-action-lock-omit-site",        &MastheadHeaderReceiver::OneMoreOmittedSite},
    {"x-osl-mirror-download-url",          &MastheadHeaderReceiver::Text<&Masthead::mirrorDownloadUrl>},
    {"x-osl-mirror-gather-url",            &MastheadHeaderReceiver::Text<&Masthead::mirrorGatherUrl>},
    {cRequireFipsCryptography,             &MastheadHeaderReceiver::RequireFipsCryptography},
    {"x-praxel-site-assertion",            &MastheadHeaderReceiver::Text<&Masthead::siteAssertion>},
    {"x-praxel-site-bbs",                  &MastheadHeaderReceiver::Text<&Masthead::siteBbs>},
    {"x-praxel-site-codicil",              &MastheadHeaderReceiver::Text<&Masthead::siteCodicil>},
    {"x-praxel-site-gather-url",           &MastheadHeaderReceiver::Text<&Masthead::siteGatherUrl>},
    {"x-praxel-site-location",             &MastheadHeaderReceiver::Text<&Masthead::siteLocation>},
    {"x-praxel-site-masthead-version",     &MastheadHeaderReceiver::Version},
    {"x-praxel-site-name",                 &MastheadHeaderReceiver::Text<&Masthead::siteName>},
    {"x-praxel-site-registration-url",     &MastheadHeaderReceiver::Text<&Masthead::siteRegistrationUrl>},
    {"x-praxel-site-report-url",           &MastheadHeaderReceiver::Text<&Masthead::siteReportUrl>},
    {"x-praxel-site-unique-site-id",       &MastheadHeaderReceiver::UniqueSiteId},
    {"x-praxel-site-update-frequency",     &MastheadHeaderReceiver::UpdateFrequency},
    {"x-relevant-when",                    &MastheadHeaderReceiver::Relevance},
    {"x-site-location-absolute-directory", &MastheadHeaderReceiver::Text<&Masthead::siteLocationAbsoluteDirectory>},
    {"x-web-page",                         &MastheadHeaderReceiver::Text<&Masthead::webPage>},
};
// clang-format on

DataReceiver& MastheadHeaderReceiver::StartHeader(ConstData name) {
    static_assert(std::ranges::is_sorted(rows, {}, &Row::name));
    const Row* const row = std::ranges::lower_bound(rows, name.View(), {}, &Row::name);
    const bool isWanted = row != std::end(rows) && row->name == name.View() && (only_.empty() || row->name == only_);
    return isWanted ? (this->*row->receiver)() : ignored_;
}
