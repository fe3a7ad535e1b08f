// The headers of a masthead: which there are, and into which field of the record each goes.
#ifndef CLIENT_MASTHEAD_HEADER_RECEIVER_H
#define CLIENT_MASTHEAD_HEADER_RECEIVER_H

#include <string_view>

#include "client/masthead.h"
#include "client/masthead_values.h"
#include "foundation/const_data.h"
#include "foundation/data_receiver.h"

class MastheadHeaderReceiver {
public:
    // Fills `masthead`, which must outlive this object: with all headers, or with `only` the one of that name, which
    // keeps what a masthead of any size takes to that.
    explicit MastheadHeaderReceiver(Masthead& masthead, std::string_view only = {})
        : masthead_(masthead), only_(only) {}
    MastheadHeaderReceiver(const MastheadHeaderReceiver&) = delete;
    MastheadHeaderReceiver& operator=(const MastheadHeaderReceiver&) = delete;

    static constexpr char cRequireFipsCryptography[] = "x-osl-require-fips-cryptography";

    // The receiver of the value of the header `name`, which is in lower case: for any that is no masthead's, one that
    // ignores it.
    DataReceiver& StartHeader(ConstData name);

private:
    using Receiver = DataReceiver& (MastheadHeaderReceiver::*)();
    struct Row {
        std::string_view name;
        Receiver receiver;
    };
    static const Row rows[];

    template <Masthead::Text Masthead::*field>
    DataReceiver& Text() {
        return masthead_.*field;
    }
    DataReceiver& OneMoreOmittedSite() { return masthead_.actionLockOmitSites.Append(); }
    DataReceiver& RequireFipsCryptography() { return requireFipsCryptography_; }
    DataReceiver& UniqueSiteId() { return uniqueSiteId_; }
    DataReceiver& Version() { return version_; }
    DataReceiver& UpdateFrequency() { return updateFrequency_; }
    DataReceiver& Relevance() { return relevance_; }

    Masthead& masthead_;
    const std::string_view only_;
    MastheadIntegerMaker requireFipsCryptography_{masthead_.requireFipsCryptography};
    MastheadIntegerMaker uniqueSiteId_{masthead_.uniqueSiteId};
    MastheadVersionMaker version_{masthead_};
    MastheadPeriodMaker updateFrequency_{masthead_.updateFrequency};
    MastheadRelevanceMaker relevance_{masthead_.relevance};
    IgnoreDataReceiver ignored_;
};

#endif
