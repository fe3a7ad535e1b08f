// The client start-up: what the console has to find and bring up before the first question.
#ifndef CONSOLE_START_UP_H
#define CONSOLE_START_UP_H

#include <optional>

#include "console/eval_context.h"
#include "foundation/file_location.h"

// Loads the configuration, fixes the storage locations, starts the crypto library in the mode that settings and
// masthead want, and makes the context that evaluations run in.  `program` is the program's own path.  What goes wrong
// is said on standard error; false, with no context, where that ends the process.
bool StartClient(const FileLocation& program, std::optional<EvalContext>& context);

#endif
