// Markup: a rope whose text is trusted, so that plain text is escaped on its way in.
#ifndef VALUES_HTML_H
#define VALUES_HTML_H

#include <string>
#include <string_view>

#include "registry/inspector_type_info.h"
#include "values/rope.h"

// Of no kin to a rope in the language: what is trusted is told by the type.
struct html_rope {
    rope markup;
};

template <>
struct InspectorTypeInfo<html_rope> : InspectorTypeBasics<html_rope, 0> {
    static constexpr char Name[] = "html";
    static constexpr unsigned Size = 16;
};

// The text with "&", "<", ">" and the quotation mark replaced by their entities, in evaluation memory; a text without
// these shares its bytes.  Throws NoInspectorAllocator, std::bad_alloc.
inspector_string Escaped(const inspector_string& text);
// Puts the text behind `bytes`, escaped likewise.
void AppendEscaped(std::string_view text, std::string& bytes);

// The string as markup that means the same text.
html_rope AsHTML(const inspector_string& text);

// An element with content, and one without.  The tag and the attributes stand as they are written; empty attributes
// leave no blank.
html_rope HTMLElement(const inspector_string& tag, const inspector_string& attributes, const html_rope& content);
html_rope EmptyHTMLElement(const inspector_string& tag, const inspector_string& attributes);

#endif
