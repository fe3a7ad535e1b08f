#include "evaluator/failure.h"

#include <cstdio>

InspectorInternalError::InspectorInternalError(std::string_view file, int line) noexcept : InspectorDefinedError("") {
    std::snprintf(text_, sizeof text_, "Inspector internal error (file: %.*s line: %d)", static_cast<int>(file.size()),
                  file.data(), line);
}

void NoResults() { throw NoSuchObject(); }

void MakeError(const inspector_string& text) { throw UserDefinedInspectionError(text.View()); }
