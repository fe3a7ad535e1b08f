// How much memory the process may take before it is told that there is no more.
#ifndef CONSOLE_MEMORY_LIMIT_H
#define CONSOLE_MEMORY_LIMIT_H

// A question that grows without end is to be answered "There's not enough memory."; left alone, the kernel would promise
// memory that the machine does not have and then kill the process.  So the process's data is limited to three quarters of
// the machine's memory, or to what limits it already.  Where no limit can be set, things stay as they are.
void LimitMemory();

#endif
