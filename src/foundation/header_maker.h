// Cuts the header lines of a message into names and values, and hands on the lines of its body as they are.
//
// A header is a name, ":" and a value.  A line that begins with space or tab continues the value before it; an empty
// line ends the headers.  Nothing is held but the name, in a fixed buffer: values of any length pass in the runs in
// which they arrive.
#ifndef FOUNDATION_HEADER_MAKER_H
#define FOUNDATION_HEADER_MAKER_H

#include "foundation/character_set.h"
#include "foundation/const_data.h"
#include "foundation/data_receiver.h"
#include "foundation/line_receiver.h"

class HeaderReceiver {
public:
    virtual ~HeaderReceiver() = default;

    // `name` is in lower case and lasts as long as the call.  What is returned is given the value as one stream, with
    // one blank for each fold, and must live until that stream's Finish.
    virtual DataReceiver& StartHeader(ConstData name) = 0;

    // After the last header, by an empty line or by the end of the stream; `position` is where the body begins.  What
    // is returned is given the lines of the body, from Start to Finish.
    virtual LineReceiver& EndHeaders(uint64_t position) = 0;
};

// Reads one message from Start to Finish, and then the next one.  A line without a colon, or whose name is longer than
// the buffer, is dropped with the lines that continue it.
class HeaderMaker final : public LineReceiver {
public:
    static constexpr size_t kLongestName = 40;

    explicit HeaderMaker(HeaderReceiver& receiver) : receiver_(receiver) {}
    HeaderMaker(const HeaderMaker&) = delete;
    HeaderMaker& operator=(const HeaderMaker&) = delete;

    void Start(uint64_t position) override;
    void Text(const unsigned char* begin, const unsigned char* end) override;
    void EndOfLine(uint64_t start, uint64_t end) override;
    void Finish(uint64_t position) override;

private:
    using Handler = void (HeaderMaker::*)(ConstData&);

    void StartHeaderLine(ConstData& text);
    void HandleFieldName(ConstData& text);
    void EatWhiteSpace(ConstData& text);
    void PassText(ConstData& text);

    bool LineIsEmpty() const;
    void ClearName();
    void StartValue();
    void FinishValue();
    void StartBody(uint64_t position);

    HeaderReceiver& receiver_;
    Handler handler_ = &HeaderMaker::HandleFieldName;
    unsigned char nameBytes_[kLongestName];
    Buffer name_{nameBytes_, nameBytes_ + kLongestName};
    bool nameOverflowed_ = false;
    DataReceiver* value_ = nullptr;  // null while there is no value, or one that nobody wants
    LineReceiver* body_ = nullptr;   // null until the headers are over
};

#endif
