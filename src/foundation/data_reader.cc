#include "foundation/data_reader.h"

void DataReader::Read(unsigned char* begin, unsigned char* end) {
    Buffer out(begin, end);
    while (!out.Full()) {
        if (!HasData()) {
            throw NoMoreData();
        }
        Fill(out);
    }
}
