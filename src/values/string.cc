// Strings: counted bytes, compared as bytes.
#include "evaluator/adapters.h"

namespace {

// clang-format off
Type<inspector_string>                                              type;
// clang-format on

}  // namespace
