// The words for what went wrong with a question, made in this one place.
//
// Each entry point is called inside a handler and throws the exception on into its own chain.  A failure has other
// words when a question is understood, when it is evaluated and when its result is converted.  Messages are cut at 256
// bytes.
#ifndef CONSOLE_EXPRESSION_MESSAGE_MAKER_H
#define CONSOLE_EXPRESSION_MESSAGE_MAKER_H

#include <cstddef>
#include <initializer_list>
#include <string_view>

class ExpressionMessageMaker {
public:
    void TakeNotUnderstood();
    void TakeNotEvaluated();
    void TakeNotConverted();

    // The message made last; its bytes are those of the maker.
    std::string_view Message() const { return {start_, static_cast<size_t>(write_ - start_)}; }

private:
    void Set(std::initializer_list<std::string_view> pieces);
    void Append(std::string_view text);
    void SetUnknown(std::string_view participle);

    char buffer_[256];
    char* write_ = buffer_;
    char* limit_ = buffer_ + sizeof buffer_;
    char* start_ = buffer_;
};

#endif
