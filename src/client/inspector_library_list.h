// The libraries of inspectors that the program has.
#ifndef CLIENT_INSPECTOR_LIBRARY_LIST_H
#define CLIENT_INSPECTOR_LIBRARY_LIST_H

#include "evaluator/inspector_context.h"

// One list for the process, filled at start-up; an entry stays where it is.
namespace InspectorLibraryList {

// Appends an entry.  `name` must live as long as the program.
void Add(unsigned number, std::string_view name);

// Null where there is no such entry.  By number is by place, counted from 0 in the order of Add.
const InspectorLibrary* SFind(std::string_view name);
const InspectorLibrary* SFindByNumber(unsigned place);

}  // namespace InspectorLibraryList

#endif
