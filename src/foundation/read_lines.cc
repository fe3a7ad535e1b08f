#include "foundation/read_lines.h"

#include <algorithm>

#include "foundation/file_reader.h"
#include "foundation/line_maker.h"

void ReadLines(const FileLocation& location, LineReceiver& receiver, Range<unsigned long> range) {
    unsigned char block[2048];
    LineMaker lines(receiver);
    UnixPlatform::FileReadingPath path(location);
    FileReader reader(path, range.start);
    lines.Start(range.start);
    while (reader.Position() < range.end && reader.HasData()) {
        Buffer out(block, block + std::min<uint64_t>(sizeof block, range.end - reader.Position()));
        reader.Fill(out);
        lines.Data(out.begin, out.write);
    }
    lines.Finish();
}
