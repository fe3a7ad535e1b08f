// The two loops that drive the console: questions typed at the prompt, and questions in files.
#ifndef CONSOLE_QUERY_LOOPS_H
#define CONSOLE_QUERY_LOOPS_H

#include "console/command_line.h"
#include "evaluator/inspector_context.h"

// Asks what is typed on standard input, until it ends.
void RunInteractive(const ZendryCommandLine& commandLine, InspectorContext* context);

// Asks the questions of the command line's files, in order.  A file that cannot be read is reported on standard error,
// and the next one follows.
void RunBatch(const ZendryCommandLine& commandLine, InspectorContext* context);

#endif
