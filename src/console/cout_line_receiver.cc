#include "console/cout_line_receiver.h"

CoutLineReceiver::CoutLineReceiver(const char* path, bool flushing)
    : stream_(path == nullptr ? nullptr : fopen64(path, "w")), path_(path), flushing_(flushing) {
    if (stream_ == nullptr) {
        stream_ = stdout;
    }
}

CoutLineReceiver::~CoutLineReceiver() {
    if (stream_ == stdout) {
        std::fflush(stdout);
    } else {
        std::fclose(stream_);
    }
}

void CoutLineReceiver::Text(const unsigned char* begin, const unsigned char* end) {
    Text(std::string_view(reinterpret_cast<const char*>(begin), static_cast<size_t>(end - begin)));
}

void CoutLineReceiver::Text(std::string_view text) {
    if (atLineStart_ && !suppressedPrefix_.empty() && text.substr(0, suppressedPrefix_.size()) == suppressedPrefix_) {
        text.remove_prefix(suppressedPrefix_.size());
    }
    atLineStart_ = false;
    fwrite_unlocked(text.data(), 1, text.size(), stream_);
}

void CoutLineReceiver::EndOfLine(uint64_t, uint64_t) {
    putc_unlocked('\n', stream_);
    atLineStart_ = true;
    if (flushing_) {
        Flush();
    }
}
