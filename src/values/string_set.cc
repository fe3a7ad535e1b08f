// The type "string set".
#include "values/inspector_set.h"

namespace {

InspectorSetRegistration<inspector_string> registration;

}  // namespace
