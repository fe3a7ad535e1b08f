// The lines of a file, pushed into a LineReceiver: the one way in which whole text files are read.
#ifndef FOUNDATION_READ_LINES_H
#define FOUNDATION_READ_LINES_H

#include <limits>

#include "foundation/const_data.h"
#include "foundation/line_receiver.h"

class FileLocation;

// The offset pair of a whole file.  The end is no promise of size: a range that ends behind the file ends with it.
inline constexpr Range<unsigned long> wholeFile{0, std::numeric_limits<unsigned long>::max()};

// Opens the file and gives `receiver` the lines that lie in `range` (byte offsets, the end excluded), with positions
// counted from the start of the file.  The file is closed on every path.  Throws the FileIOError of opening or
// reading, after which `receiver` has had no Finish, and lets the receiver's own exceptions through.
void ReadLines(const FileLocation& location, LineReceiver& receiver, Range<unsigned long> range = wholeFile);

#endif
