#include "console/query_loops.h"

#include <cerrno>
#include <cstdio>
#include <string>

#include "client/process_table.h"
#include "console/question_chain.h"
#include "foundation/file_error.h"
#include "foundation/file_location.h"
#include "foundation/file_stat.h"
#include "foundation/read_lines.h"

namespace {

void Send(LineReceiver& receiver, const std::string& text) {
    const ConstData data(text);
    receiver.Text(data.begin, data.end);
}

// Reads a line with its terminator, however long.  False at the end of the input, where text without a terminator is
// dropped and the terminal's line is ended.
bool ReadQuestionLine(std::string& line) {
    line.clear();
    for (;;) {
        char buffer[1024] = {};
        errno = 0;
        if (std::fgets(buffer, sizeof buffer, stdin) == nullptr) {
            // A child that ends interrupts the read, and what had come of the line by then stands in the buffer; any
            // other trouble is the end of the input.
            if (std::feof(stdin) == 0 && errno == EINTR) {
                std::clearerr(stdin);
                line += buffer;
                continue;
            }
            break;
        }
        if (buffer[0] == '\0') {
            break;
        }
        line += buffer;
        if (line.back() == '\n' || line.back() == '\r') {
            return true;
        }
    }
    std::fputc('\n', stdout);
    std::fflush(stdout);
    return false;
}

}  // namespace

void RunInteractive(const ZendryCommandLine& commandLine, InspectorContext* context) {
    QuestionChain chain(commandLine, context, true);
    chain.questioner.Start(0);
    std::string line;
    for (;;) {
        // The prompt is a line of its own to the questioner: it closes the question before it, which prints its
        // answers.
        Send(chain.questioner, "Q: ");
        chain.output.Flush();
        if (!ReadQuestionLine(line)) {
            break;
        }
        // A question sees the processes of its own time; the look at them is left to the first that asks for it.
        ProcessTable::SGetInstance()->Expire();
        chain.asker.RestartTimer();
        Send(chain.questioner, line);
        chain.questioner.EndOfLine(0, 0);
    }
}

void RunBatch(const ZendryCommandLine& commandLine, InspectorContext* context) {
    if (commandLine.files.empty()) {
        return;
    }
    QuestionChain chain(commandLine, context, false);
    for (const char* name : commandLine.files) {
        try {
            const FileLocation file(name);
            // One that nobody writes to would hold the console when it is opened, and none can be read by positions.
            if (FileStat(file).IsFifo()) {
                throw FileSeekError(ESPIPE, name);
            }
            ReadLines(file, chain.questioner);
        } catch (const FileIOError& error) {
            errno = error.Code();
            std::perror(name);
        }
    }
}
