// The type "integer set".
#include "values/inspector_set.h"

namespace {

InspectorSetRegistration<integer> registration;

}  // namespace
