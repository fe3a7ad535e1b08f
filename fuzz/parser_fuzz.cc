// Feeds arbitrary bytes to the lexer and the parser of the relevance language.
//
// Whatever the bytes, the parser may refuse them by one of its own exceptions and in no other way; what it tells the
// semantics must balance; and the outcome must be the same when the same text comes in two runs.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/expect.h"
#include "language/guard_lexer.h"
#include "language/guard_parser.h"
#include "tests/language/counting_semantics.h"

namespace {

// The counts at the end, and the failure if there was one.
std::string Outcome(GuardLexer& lexer, const GuardParser& parser, const CountingSemantics& semantics, ConstData text,
                    size_t cut) {
    std::string failure;
    try {
        lexer.Start();
        lexer.Data(text.begin, text.begin + cut);
        lexer.Data(text.begin + cut, text.end);
        lexer.Finish();
    } catch (const DebuggableException& exception) {
        failure = exception.what();
    }
    Expect(!semantics.underflow);
    Expect(!failure.empty() || (parser.Finished() && semantics.Balanced()));
    return failure + " " + std::to_string(semantics.expressions) + " " + std::to_string(semantics.names) + " " +
           std::to_string(semantics.operators) + " " + std::to_string(semantics.items) + " " +
           std::to_string(semantics.accepted);
}

}  // namespace

// The first two bytes say where the second look cuts the rest.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    const ConstData text(data + 2, data + size);
    const size_t cut = (data[0] * size_t{256} + data[1]) % (text.Length() + 1);
    CountingSemantics semantics;
    GuardParser parser(semantics);
    GuardLexer lexer(parser, parser);
    const std::string whole = Outcome(lexer, parser, semantics, text, 0);
    Expect(Outcome(lexer, parser, semantics, text, cut) == whole);
    return 0;
}
