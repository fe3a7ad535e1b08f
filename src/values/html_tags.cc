// The phrases that make elements: a bare word for each tag, the empty elements, and "html tag" for any tag.
#include <array>
#include <optional>
#include <utility>

#include "evaluator/adapters.h"
#include "values/html.h"
#include "values/html_attribute_list.h"

namespace {

using String = inspector_string;
using Attributes = html_attribute_list;

// ---- Words for tags -------------------------------------------------------------------------------------------------

struct HTMLTag {
    const char* word;
    const char* plural;
    std::string_view element;
};

// The plurals add an "s" and know no other rule.
// clang-format off
constexpr HTMLTag kTags[] = {
    {"html",       "htmls",       "html"},
    {"head",       "heads",       "head"},
    {"title",      "titles",      "title"},
    {"meta",       "metas",       "meta"},
    {"body",       "bodys",       "body"},
    {"div",        "divs",        "div"},
    {"span",       "spans",       "span"},
    {"address",    "addresss",    "address"},
    {"h1",         "h1s",         "h1"},
    {"h2",         "h2s",         "h2"},
    {"h3",         "h3s",         "h3"},
    {"h4",         "h4s",         "h4"},
    {"h5",         "h5s",         "h5"},
    {"h6",         "h6s",         "h6"},
    {"em",         "ems",         "em"},
    {"strong",     "strongs",     "strong"},
    {"dfn",        "dfns",        "dfn"},
    {"code",       "codes",       "code"},
    {"samp",       "samps",       "samp"},
    {"kbd",        "kbds",        "kbd"},
    {"var",        "vars",        "var"},
    {"cite",       "cites",       "cite"},
    {"abbr",       "abbrs",       "abbr"},
    {"acronym",    "acronyms",    "acronym"},
    {"blockquote", "blockquotes", "blockquote"},
    {"q",          "qs",          "q"},
    {"sub",        "subs",        "sub"},
    {"sup",        "sups",        "sup"},
    {"p",          "ps",          "p"},
    {"pre",        "pres",        "pre"},
    {"ins",        "inss",        "ins"},
    {"del",        "dels",        "del"},
    {"ul",         "uls",         "ul"},
    {"ol",         "ols",         "ol"},
    {"li",         "lis",         "li"},
    {"dt",         "dts",         "dt"},
    {"dd",         "dds",         "dd"},
    {"table",      "tables",      "table"},
    {"caption",    "captions",    "caption"},
    {"thead",      "theads",      "thead"},
    {"tfoot",      "tfoots",      "tfoot"},
    {"tbody",      "tbodys",      "tbody"},
    {"colgroup",   "colgroups",   "colgroup"},
    {"col",        "cols",        "col"},
    {"tr",         "trs",         "tr"},
    {"th",         "ths",         "th"},
    {"td",         "tds",         "td"},
    {"anchor",     "anchors",     "a"},
    {"link",       "links",       "link"},
    {"base",       "bases",       "base"},
    {"tt",         "tts",         "tt"},
    {"italic",     "italics",     "i"},
    {"b",          "bs",          "b"},
    {"big",        "bigs",        "big"},
    {"small",      "smalls",      "small"},
};
// clang-format on

const html_rope& AsMarkup(const html_rope& html) { return html; }
html_rope AsMarkup(const String& text) { return AsHTML(text); }

const String& AttributeText(const String& text) { return text; }
const String& AttributeText(const Attributes& list) { return list.text; }

template <class T>
html_rope Element(const void* tag, const String& attributes, const void* content) {
    return HTMLElement(String(adapters::As<HTMLTag>(tag).element), attributes, AsMarkup(adapters::As<T>(content)));
}

// The functions are shared by all tags: a registration's data is its row of the table.

// `word of content` with content of type T.
template <class T>
struct HTMLTagProperty : PropertyRegistrationObject {
    explicit HTMLTagProperty(const HTMLTag& tag) : PropertyRegistrationObject(Record(tag)) {}
    static bool Get(void* result, const void*, const void* content, void*, const void* tag) {
        return result == nullptr || adapters::Build(result, Element<T>(tag, {}, content));
    }

private:
    static PropertyAccessor Record(const HTMLTag& tag) {
        PropertyAccessor record = adapters::SimpleAccessor<HTMLTagProperty, html_rope, None, T>(
            tag.word, tag.plural, DependsOnlyOnParameters);
        record.data = &tag;
        return record;
    }
};

// `word attributes of content` with attributes of type I.
template <class I, class T>
struct HTMLTagPropertyByIndex : PropertyRegistrationObject {
    explicit HTMLTagPropertyByIndex(const HTMLTag& tag) : PropertyRegistrationObject(Record(tag)) {}
    static bool Get(void* result, const void* attributes, const void* content, void*, const void* tag) {
        return result == nullptr ||
               adapters::Build(result, Element<T>(tag, AttributeText(adapters::As<I>(attributes)), content));
    }

private:
    static PropertyAccessor Record(const HTMLTag& tag) {
        PropertyAccessor record = adapters::SimpleAccessor<HTMLTagPropertyByIndex, html_rope, I, T>(
            tag.word, tag.plural, DependsOnlyOnParameters);
        record.data = &tag;
        return record;
    }
};

// `content as word`.
template <class T>
struct HTMLTagCast : RegistrationObject<CastRegistration> {
    explicit HTMLTagCast(const HTMLTag& tag)
        : RegistrationObject(CastDefinition{tag.word, adapters::TypeNameOf<T>(), adapters::TypeNameOf<html_rope>(),
                                            &Thunk, &tag, DependsOnlyOnParameters, nullptr, nullptr, false}) {}
    static bool Thunk(void* result, const void* content, const void* tag) {
        return result == nullptr || adapters::Build(result, Element<T>(tag, {}, content));
    }
};

// The like phrases of one tag over content of type T.
template <class T>
struct HTMLTagRegistration {
    explicit HTMLTagRegistration(const HTMLTag& tag) : plain(tag), withText(tag), withList(tag) {
        // To cast to html is to escape, and makes no element.
        if (tag.word != std::string_view(InspectorTypeInfo<html_rope>::Name)) {
            cast.emplace(tag);
        }
    }

    HTMLTagProperty<T> plain;
    HTMLTagPropertyByIndex<String, T> withText;
    HTMLTagPropertyByIndex<Attributes, T> withList;
    std::optional<HTMLTagCast<T>> cast;
};

template <class T, size_t... Rows>
std::array<HTMLTagRegistration<T>, sizeof...(Rows)> Registrations(std::index_sequence<Rows...>) {
    return {HTMLTagRegistration<T>(kTags[Rows])...};
}
using EveryTag = std::make_index_sequence<std::size(kTags)>;

std::array ofString = Registrations<String>(EveryTag());
std::array ofHTML = Registrations<html_rope>(EveryTag());

// ---- Elements without content ---------------------------------------------------------------------------------------

html_rope LineBreak() { return EmptyHTMLElement(String("br"), {}); }
html_rope LineBreakWith(const String& attributes) { return EmptyHTMLElement(String("br"), attributes); }
html_rope Rule() { return EmptyHTMLElement(String("hr"), {}); }
html_rope RuleWith(const String& attributes) { return EmptyHTMLElement(String("hr"), attributes); }

// ---- Any tag --------------------------------------------------------------------------------------------------------

// The text up to its first blank is the tag, what follows the attributes.
html_rope HTMLTagOfHTML(const String& tag, const html_rope& content) {
    const size_t blank = tag.View().find_first_of(" \t\n\r");
    if (blank == std::string_view::npos) {
        return HTMLElement(tag, {}, content);
    }
    return HTMLElement({tag.start, blank}, {tag.start + blank + 1, tag.length - blank - 1}, content);
}

html_rope HTMLTagOfString(const String& tag, const String& content) { return HTMLTagOfHTML(tag, AsHTML(content)); }

using TagString = InspectorTuple2<String, String>;
using TagHTML = InspectorTuple2<String, html_rope>;
using TagList = InspectorTuple2<String, Attributes>;
using TagListString = InspectorTuple3<String, Attributes, String>;
using TagListHTML = InspectorTuple3<String, Attributes, html_rope>;

// In a tuple the tag stands as it is: the attributes have a place of their own.
const String& TagOf(const void* tuple) { return TupleElement<String>(tuple, 0); }
const String& ListOf(const void* tuple) { return TupleElement<Attributes>(tuple, 1).text; }

html_rope HTMLTag0S(const TagString& t) { return HTMLElement(TagOf(&t), {}, AsHTML(TupleElement<String>(&t, 1))); }
html_rope HTMLTag0H(const TagHTML& t) { return HTMLElement(TagOf(&t), {}, TupleElement<html_rope>(&t, 1)); }
html_rope HTMLTagNE(const TagList& t) { return EmptyHTMLElement(TagOf(&t), ListOf(&t)); }
html_rope HTMLTagNS(const TagListString& t) {
    return HTMLElement(TagOf(&t), ListOf(&t), AsHTML(TupleElement<String>(&t, 2)));
}
html_rope HTMLTagNH(const TagListHTML& t) { return HTMLElement(TagOf(&t), ListOf(&t), TupleElement<html_rope>(&t, 2)); }

// clang-format off
NamedProperty<String, html_rope, HTMLTagOfString>               tagOfString     {"html tag", "html tags"};
NamedProperty<html_rope, html_rope, HTMLTagOfHTML>              tagOfHTML       {"html tag", "html tags"};
PropertyByIndexOfWorld<html_rope, TagString, HTMLTag0S>         tag0S           {"html tag", "html tags"};
PropertyByIndexOfWorld<html_rope, TagHTML, HTMLTag0H>           tag0H           {"html tag", "html tags"};
PropertyByIndexOfWorld<html_rope, TagList, HTMLTagNE>           tagNE           {"html tag", "html tags"};
PropertyByIndexOfWorld<html_rope, TagListString, HTMLTagNS>     tagNS           {"html tag", "html tags"};
PropertyByIndexOfWorld<html_rope, TagListHTML, HTMLTagNH>       tagNH           {"html tag", "html tags"};

GlobalProperty<html_rope, LineBreak>                            br              {"br", "brs"};
NamedGlobalProperty<html_rope, LineBreakWith>                   brWith          {"br", "brs"};
GlobalProperty<html_rope, Rule>                                 hr              {"hr", "hrs"};
NamedGlobalProperty<html_rope, RuleWith>                        hrWith          {"hr", "hrs"};
// clang-format on

}  // namespace
