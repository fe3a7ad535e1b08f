// What the language cannot show of html: whose bytes a text has.
#include "values/html.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/stack_allocator.h"
#include "registry/type_registry.h"

namespace {

using String = inspector_string;

class Html : public testing::Test {
protected:
    StackAllocator<4096> memory_;
    AllocatorInstaller installed_{memory_};
};

TEST_F(Html, ATextThatNeedsNoEscapingSharesItsBytes) {
    const std::string_view text = "plain 'text' /;\xff";
    char* const before = memory_.Top();
    EXPECT_EQ(Escaped(String(text)).start, text.data());
    EXPECT_EQ(AsHTML(String(text)).markup.Flattened().start, text.data());
    EXPECT_EQ(Escaped(String()).start, nullptr);
    EXPECT_EQ(memory_.Top(), before);
}

TEST_F(Html, EveryByteIsEscapedByItsOwnRule) {
    for (int i = 0; i < 256; ++i) {
        const char c = static_cast<char>(i);
        const std::string expected = c == '&'   ? "&amp;"
                                     : c == '<' ? "&lt;"
                                     : c == '>' ? "&gt;"
                                     : c == '"' ? "&quot;"
                                                : std::string(1, c);
        EXPECT_EQ(Escaped(String(&c, 1)).View(), expected);
        std::string appended = "x";
        AppendEscaped(std::string_view(&c, 1), appended);
        EXPECT_EQ(appended, "x" + expected);
    }
}

TEST_F(Html, AnElementSharesTheBytesOfItsContent) {
    const std::string_view text = "some content";
    const html_rope element = HTMLElement(String("p", 1), String(), AsHTML(String(text)));
    rope_pieces pieces(element.markup);
    EXPECT_EQ(pieces.Next().View(), "<p>");
    EXPECT_EQ(pieces.Next().start, text.data());
    EXPECT_EQ(pieces.Next().View(), "</p>");
    EXPECT_TRUE(pieces.AtEnd());
}

TEST_F(Html, AMillionElementsInEachOther) {
    html_rope html = AsHTML(String("x", 1));
    std::string opening;
    std::string closing;
    for (int i = 0; i < 1000000; ++i) {
        html = HTMLElement(String("b", 1), String(), html);
        opening += "<b>";
        closing += "</b>";
    }
    EXPECT_TRUE(html.markup.Flattened().View() == opening + "x" + closing);
}

TEST_F(Html, IsNoRopeInTheLanguage) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    EXPECT_EQ(registry.TypeByName("html")->parent, nullptr);
    EXPECT_EQ(registry.TypeByName("html")->size, 16u);
    EXPECT_EQ(registry.TypeByName("rope")->size, 16u);
    EXPECT_EQ(registry.TypeByName("html attribute list")->size, 8u);
    EXPECT_EQ(registry.TypeByName("html")->fingerprint, nullptr);
    EXPECT_EQ(registry.TypeByName("rope")->fingerprint, nullptr);
}

}  // namespace
