// Feeds arbitrary bytes, as a MIME message, to the whole chain from lines to the parts of multiparts.
//
// Nothing in a message is an error; every start must be followed by its end, in order; what is handed on must be no
// more than what came in; and the outcome must be the same when the same message comes in two runs.
#include <cstddef>
#include <cstdint>
#include <string>

#include "foundation/line_maker.h"
#include "foundation/multipart_splitter.h"
#include "fuzz/expect.h"

namespace {

// Writes down all that it is told, and checks the order of it.
class Record final : public MessageReceiver, private DataReceiver, private LineReceiver {
public:
    void StartMessage(uint64_t position) override {
        Expect(!inValue_ && !inBody_);
        ++open_;
        text += "[" + std::to_string(position) + " ";
    }
    DataReceiver& StartHeader(ConstData name) override {
        Expect(!inValue_ && !inBody_ && name.Length() <= HeaderMaker::kLongestName);
        text.append(name.View()).append("=");
        return *this;
    }
    Body EndHeaders(const ContentTypeReceiver& type) override {
        Expect(!inValue_ && !inBody_);
        text += "type" + std::to_string(type.ContentType()) + " ";
        return MessageReceiver::EndHeaders(type);
    }
    LineReceiver& StartBody() override { return *this; }
    MessageReceiver& StartPart(size_t index) override {
        text += "part" + std::to_string(index) + " ";
        return *this;
    }
    void EndMessage(uint64_t position) override {
        Expect(!inValue_ && !inBody_ && open_ != 0);
        --open_;
        text += std::to_string(position) + "]";
    }
    void RequireEnded() const { Expect(!inValue_ && !inBody_ && open_ == 0); }

    std::string text;
    size_t bytes = 0;

private:
    void Start() override { inValue_ = true; }
    void Data(const unsigned char* begin, const unsigned char* end) override { Add(inValue_, begin, end); }
    void Finish() override {
        Expect(inValue_);
        inValue_ = false;
        text += '}';
    }
    void Start(uint64_t) override { inBody_ = true; }
    void Text(const unsigned char* begin, const unsigned char* end) override { Add(inBody_, begin, end); }
    void EndOfLine(uint64_t start, uint64_t end) override {
        Expect(inBody_ && start < end && end - start <= 2);
        text += '\n';
    }
    void Finish(uint64_t) override {
        Expect(inBody_);
        inBody_ = false;
        text += ')';
    }
    void Add(bool allowed, const unsigned char* begin, const unsigned char* end) {
        Expect(allowed);
        text.append(begin, end);
        bytes += static_cast<size_t>(end - begin);
    }

    size_t open_ = 0;
    bool inValue_ = false;
    bool inBody_ = false;
};

std::string Read(ConstData message, size_t cut) {
    Record record;
    MultipartSplitter splitter(record);
    LineMaker lines(splitter);
    lines.Start();
    lines.Data(message.begin, message.begin + cut);
    lines.Data(message.begin + cut, message.end);
    lines.Finish();
    record.RequireEnded();
    Expect(record.bytes <= message.Length());
    return record.text;
}

}  // namespace

// The first two bytes say where the second look cuts the rest.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    const ConstData message(data + 2, data + size);
    const size_t cut = (data[0] * size_t{256} + data[1]) % (message.Length() + 1);
    Expect(Read(message, cut) == Read(message, 0));
    return 0;
}
