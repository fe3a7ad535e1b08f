// Feeds arbitrary bytes to the reader of tuple strings, and what it reads to the writer.
//
// A text is refused by one of two exceptions and in no other way; every item lies inside the text; items written one
// after the other read back as they were; and any text at all reads back as the one item that it was written as.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/tuple_text.h"
#include "fuzz/expect.h"

namespace {

using Items = std::vector<std::string_view>;

// The items, none for a text that is malformed.
std::optional<Items> ItemsOf(std::string_view text) {
    const std::less_equal<const char*> before;
    Items items;
    try {
        for (TupleTextReader reader(text); !reader.AtEnd();) {
            items.push_back(reader.Next());
            Expect(before(text.data(), items.back().data()) &&
                   before(items.back().data() + items.back().size(), text.data() + text.size()));
        }
    } catch (const BadTupleString&) {
        return std::nullopt;
    } catch (const MismatchedParentheses&) {
        return std::nullopt;
    }
    return items;
}

std::string Written(const Items& items) {
    std::string text;
    for (size_t i = 0; i < items.size(); ++i) {
        text += i == 0 ? "" : ", ";
        const TupleItemWrapping wrapping = WrappingOfTupleItem(items[i]);
        const size_t start = text.size();
        text.resize(start + wrapping.Length(items[i]));
        Expect(WriteTupleItem(items[i], wrapping, text.data() + start) == text.data() + text.size());
    }
    return text;
}

void ExpectReadBack(const Items& items) {
    // The empty text has no items, and so the one empty item cannot be told from none.
    if (items == Items{std::string_view()}) {
        return;
    }
    const std::string text = Written(items);
    Expect(ItemsOf(text) == items);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const std::optional<Items> items = ItemsOf(text); items) {
        ExpectReadBack(*items);
    }
    ExpectReadBack({text});
    ExpectReadBack({text, "b", text});
    return 0;
}
