#include "values/timed_value.h"

namespace {

TimedValueRegistration<integer> timedInteger;
TimedValueRegistration<boolean> timedBoolean;

}  // namespace
