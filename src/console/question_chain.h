// The chain of objects between a line and its answers, in the order of their construction.
#ifndef CONSOLE_QUESTION_CHAIN_H
#define CONSOLE_QUESTION_CHAIN_H

#include "console/command_line.h"
#include "console/cout_line_receiver.h"
#include "console/expression_message_maker.h"
#include "console/guard_receiver.h"
#include "console/question_asker.h"
#include "console/questioner.h"
#include "evaluator/inspector_context.h"

// Made once for a loop and destroyed in reverse at its end.  Lines go in at the questioner.  The context may be null
// and must outlive the chain.
struct QuestionChain {
    // An interactive chain does not echo what was typed, tells every question's time and sends each line on at once.
    // Throws std::bad_alloc.
    QuestionChain(const ZendryCommandLine& commandLine, InspectorContext* context, bool interactive)
        : output(commandLine.outputFile, interactive), receiver(context), asker(receiver, messages, output) {
        asker.SetEcho(!interactive);
        asker.Configure(true, interactive || commandLine.timing, true, commandLine.showTypes);
        questioner.SetReceivers(output, asker);
    }

    CoutLineReceiver output;
    ExpressionMessageMaker messages;
    zendryGuardReceiver receiver;
    QuestionAsker asker;
    Questioner questioner;
};

#endif
