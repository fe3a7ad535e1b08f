// Reads question files, whose format is that of the console's own output, so that a saved run can be run again: lines
// "Q: ..." are asked anew, the answers of the earlier run are dropped, and everything else is copied.
//
// A field is a name, ":" and a value.  A line that begins with space or tab continues the field before it.  Nothing is
// held but the name, in a fixed buffer: lines of any length pass in the runs in which they arrive.
#ifndef CONSOLE_QUESTIONER_H
#define CONSOLE_QUESTIONER_H

#include "foundation/character_set.h"
#include "foundation/const_data.h"
#include "foundation/line_receiver.h"

class Questioner final : public LineReceiver {
public:
    Questioner() = default;
    Questioner(const Questioner&) = delete;
    Questioner& operator=(const Questioner&) = delete;

    // Where copied text and questions go; called before use, and both must outlive the questioner.
    void SetReceivers(LineReceiver& output, LineReceiver& asker);

    void Start(uint64_t position) override;
    void Text(const unsigned char* begin, const unsigned char* end) override;
    void EndOfLine(uint64_t start, uint64_t end) override;
    // Asks the last question of the stream.
    void Finish(uint64_t position) override;

private:
    using Handler = void (Questioner::*)(ConstData&);

    void StartALine(ConstData& text);
    void EatWhiteSpace(ConstData& text);
    void PassText(ConstData& text);
    void HandleFieldName(ConstData& text);

    void ActOnName();
    void ClearName();
    void Write(LineReceiver& receiver, std::string_view text);

    static constexpr const CharacterSet& whiteSpace_ = CharacterSets::whiteSpace;
    Handler handler_ = &Questioner::StartALine;
    unsigned char nameBytes_[40];
    Buffer nameBuffer_{nameBytes_, nameBytes_ + sizeof nameBytes_};
    IgnoreLineReceiver ignored_;
    LineReceiver* sink_ = &ignored_;
    LineReceiver* output_ = nullptr;
    bool nameOverflowed_ = false;  // The line has been given up as a field and is being copied.
    LineReceiver* asker_ = nullptr;
};

#endif
