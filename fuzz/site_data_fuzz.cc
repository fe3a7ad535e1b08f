// Feeds arbitrary bytes to what is read of a site and of the action lock.
//
// The first byte says as what: the lines of a site's data, which must say the same in two runs as in one; the headers
// of its masthead, in a data tree that is then scanned; or the text of the lock state.
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "client/action_lock_state.h"
#include "client/site_data.h"
#include "client/site_scan.h"
#include "foundation/file_location.h"
#include "foundation/line_maker.h"
#include "fuzz/expect.h"

namespace {

SiteMap Read(ConstData text, size_t cut) {
    SiteMap site;
    SiteDataMaker maker(site);
    HeaderMaker headers(maker);
    LineMaker lines(headers);
    lines.Start();
    lines.Data(text.begin, text.begin + cut);
    lines.Data(text.begin + cut, text.end);
    lines.Finish();
    return site;
}

void TestSiteData(ConstData text) {
    const SiteMap whole = Read(text, 0);
    const SiteMap halves = Read(text, text.Length() / 2);
    Expect(whole.version == halves.version && whole.versionList == halves.versionList && whole.tag == halves.tag &&
               whole.type == halves.type && whole.lastGatherTime == halves.lastGatherTime &&
               whole.subscribeTime == halves.subscribeTime &&
               whole.gatherScheduleAuthority == halves.gatherScheduleAuthority &&
               whole.gatherScheduleInterval == halves.gatherScheduleInterval && whole.evaluated == halves.evaluated,
           "two runs say another thing than one");
}

// A data folder with one site, in memory where there is such a place.
const std::string& DataFolder() {
    static const std::string path = [] {
        std::string folder = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
        folder += "/zendry_site_data_fuzz_XXXXXX";
        Expect(mkdtemp(folder.data()) != nullptr && mkdir((folder + "/site").c_str(), 0777) == 0, "no folder");
        return folder;
    }();
    return path;
}

void TestMasthead(ConstData headers) {
    const std::string text =
        "Content-Type: multipart/signed; boundary=s\n\n--s\n"
        "Content-Type: multipart/related; boundary=r; type=\"Application/x-Praxel-Site-Masthead\"\n\n--r\n\n"
        "X-Praxel-Site-Name: " +
        std::string(headers.View()) + "\n\n--r--\n\n--s\n\n--s--\n";
    {
        const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen((DataFolder() + "/site/Masthead").c_str(), "wb"),
                                                         std::fclose);
        Expect(file != nullptr && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size(), "no file");
    }
    const std::vector<SiteMap> sites = SitesInDataFolder(FileLocation(DataFolder()));
    Expect(sites.size() == 1 && sites[0].folderName == "site", "the site is lost");
    Expect(!sites[0].name.empty() && sites[0].name.size() <= 256, "a name out of bounds");
    Expect(!sites[0].url || (!sites[0].url->empty() && sites[0].url->size() <= 256), "a url out of bounds");
}

void TestLockState(ConstData text) {
    const std::string given(text.View());
    const std::optional<action_lock_state> state = action_lock_state::Parse(std::string(given));
    if (!state) {
        return;
    }
    Expect(given.compare(0, state->Text().size(), state->Text()) == 0, "a state that was not said");
    state->ExpirationDate();
    state->EffectiveDate();
    const std::optional<std::string_view> controller = state->Controller();
    Expect(!controller || given.find("controller=" + std::string(*controller)) != std::string::npos,
           "a controller that was not said");
    const std::optional<std::string_view> words = state->LockString();
    Expect(!words || given.find("text=" + std::string(*words)) != std::string::npos, "words that were not said");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const ConstData text(data + 1, data + size);
    switch (data[0] % 3) {
        case 0:
            TestSiteData(text);
            break;
        case 1:
            TestMasthead(text);
            break;
        default:
            TestLockState(text);
    }
    return 0;
}
