// The tags of the text that an agent keeps the state of an action in, and the words that its fields hold.
//
// The text is a row of fields, each a tag and its value, closed by cActionTagEnd:
//
//     :pending=1:id=17:constrained=0:
//
// The console keeps no such text; the tags are here so that hosts that do agree on them.
#ifndef CLIENT_ACTION_TAGS_H
#define CLIENT_ACTION_TAGS_H

#include "foundation/const_data.h"

extern const ConstData cActionTagPending;
extern const ConstData cActionTagId;
extern const ConstData cActionTagDateTrue;
extern const ConstData cActionTagDateFalse;
extern const ConstData cActionTagConstrained;
extern const ConstData cActionTagConstraint;
extern const ConstData cActionTagSystemConstraint;
extern const ConstData cActionTagFirstActiveCount;
extern const ConstData cActionTagActiveCount;
extern const ConstData cActionTagActiveLineNumber;
extern const ConstData cActionTagActiveStartTime;
extern const ConstData cActionTagLastActiveLineNumber;
extern const ConstData cActionTagLastActiveTime;
extern const ConstData cActionTagLastChangeTime;
extern const ConstData cActionTagWaitingForDownloads;
extern const ConstData cActionTagActive;
extern const ConstData cActionTagStatus;
extern const ConstData cActionTagPendingRestart;
extern const ConstData cActionTagPendingLogin;
extern const ConstData cActionTagActionId;
extern const ConstData cActionTagSubActionOrdinal;
extern const ConstData cActionTagExitCode;
extern const ConstData cActionTagDownloadFailed;
extern const ConstData cActionTagActionDependencyCanceled;
extern const ConstData cActionTagActionDependencyWaitingOnUser;

// Behind the last field.
extern const ConstData cActionTagEnd;

// A boolean field.
extern const ConstData cActionValueTrue;
extern const ConstData cActionValueFalse;

// A status.
extern const ConstData cActionValueRunning;
extern const ConstData cActionValueNotRelevant;
extern const ConstData cActionValueFailed;
extern const ConstData cActionValueExecuted;
extern const ConstData cActionValueWaiting;
extern const ConstData cActionValueNotExecuted;

#endif
