#include "client/action_tags.h"

#include <string_view>

using std::operator""sv;

// clang-format off
const ConstData cActionTagPending                       (":pending="sv);
const ConstData cActionTagId                            (":id="sv);
const ConstData cActionTagDateTrue                      (":pt="sv);
const ConstData cActionTagDateFalse                     (":ct="sv);
const ConstData cActionTagConstrained                   (":constrained="sv);
const ConstData cActionTagConstraint                    (":constraint="sv);
const ConstData cActionTagSystemConstraint              (":sysconstraint="sv);
const ConstData cActionTagFirstActiveCount              (":fac="sv);
const ConstData cActionTagActiveCount                   (":ac="sv);
const ConstData cActionTagActiveLineNumber              (":al="sv);
const ConstData cActionTagActiveStartTime               (":ast="sv);
const ConstData cActionTagLastActiveLineNumber          (":lal="sv);
const ConstData cActionTagLastActiveTime                (":lat="sv);
const ConstData cActionTagLastChangeTime                (":lct="sv);
const ConstData cActionTagWaitingForDownloads           (":wfd="sv);
const ConstData cActionTagActive                        (":act="sv);
const ConstData cActionTagStatus                        (":s="sv);
const ConstData cActionTagPendingRestart                (":pr="sv);
const ConstData cActionTagPendingLogin                  (":pl="sv);
const ConstData cActionTagActionId                      (":aid="sv);
const ConstData cActionTagSubActionOrdinal              (":sao="sv);
const ConstData cActionTagExitCode                      (":ec="sv);
const ConstData cActionTagDownloadFailed                (":df="sv);
const ConstData cActionTagActionDependencyCanceled      (":adc="sv);
const ConstData cActionTagActionDependencyWaitingOnUser (":adwu="sv);

const ConstData cActionTagEnd                           (":"sv);

const ConstData cActionValueTrue                        ("1"sv);
const ConstData cActionValueFalse                       ("0"sv);

const ConstData cActionValueRunning                     ("Running"sv);
const ConstData cActionValueNotRelevant                 ("Not Relevant"sv);
const ConstData cActionValueFailed                      ("Failed"sv);
const ConstData cActionValueExecuted                    ("Executed"sv);
const ConstData cActionValueWaiting                     ("Waiting"sv);
const ConstData cActionValueNotExecuted                 ("Not Executed"sv);
// clang-format on
