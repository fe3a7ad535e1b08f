// The world, and what never has a value: the properties `error` and `nothing`, whose type fits either branch of an
// `if`.
#include "evaluator/adapters.h"

namespace {

undefined Error(const inspector_string& text) { MakeError(text); }
undefined Nothing() { NoResults(); }

// There is no value to convert; the cast is there so that the evaluation speaks where an answer is asked for.
inspector_string asString(const undefined&) { return {}; }

// clang-format off
Type<world>                                                         worldType;
Type<undefined>                                                     undefinedType;

NamedGlobalProperty<undefined, Error>                               error    {"error", "errors"};
GlobalProperty<undefined, Nothing>                                  nothing  {"nothing", "nothings"};

Cast<inspector_string, undefined, asString>                         toString {"string"};
// clang-format on

}  // namespace
