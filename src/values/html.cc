#include "values/html.h"

#include <algorithm>
#include <cstring>

#include "evaluator/adapters.h"
#include "values/html_attribute_list.h"

namespace {

// What stands in markup for a byte; empty where the byte stands for itself.
constexpr std::string_view EntityOf(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        default:
            return {};
    }
}

size_t EscapedLength(std::string_view text) {
    size_t length = text.size();
    for (char c : text) {
        if (const std::string_view entity = EntityOf(c); !entity.empty()) {
            length += entity.size() - 1;
        }
    }
    return length;
}

// Writes texts one after the other into memory that was taken for all of them.
class TextWriter {
public:
    explicit TextWriter(size_t length) : next_(static_cast<char*>(InspectorAllocate(length))) {}

    TextWriter& operator<<(std::string_view text) {
        next_ = std::copy_n(text.data(), text.size(), next_);
        return *this;
    }

    // What was written since the last call.
    inspector_string Written() {
        const char* start = std::exchange(start_, next_);
        return {start, static_cast<size_t>(next_ - start)};
    }

private:
    char* next_;
    char* start_ = next_;
};

constexpr std::string_view BlankBefore(const inspector_string& attributes) {
    return attributes.length == 0 ? std::string_view() : std::string_view(" ");
}

}  // namespace

inspector_string Escaped(const inspector_string& text) {
    const size_t length = EscapedLength(text.View());
    if (length == text.length) {
        return text;
    }
    TextWriter out(length);
    for (const char& c : text.View()) {
        const std::string_view entity = EntityOf(c);
        out << (entity.empty() ? std::string_view(&c, 1) : entity);
    }
    return out.Written();
}

void AppendEscaped(std::string_view text, std::string& bytes) {
    for (char c : text) {
        if (const std::string_view entity = EntityOf(c); entity.empty()) {
            bytes += c;
        } else {
            bytes += entity;
        }
    }
}

html_rope AsHTML(const inspector_string& text) { return {rope(Escaped(text))}; }

html_rope HTMLElement(const inspector_string& tag, const inspector_string& attributes, const html_rope& content) {
    const std::string_view blank = BlankBefore(attributes);
    TextWriter out(std::strlen("<></>") + 2 * tag.length + blank.size() + attributes.length);
    out << "<" << tag.View() << blank << attributes.View() << ">";
    const inspector_string opening = out.Written();
    out << "</" << tag.View() << ">";
    const inspector_string closing = out.Written();
    return {opening & content.markup & closing};
}

html_rope EmptyHTMLElement(const inspector_string& tag, const inspector_string& attributes) {
    const std::string_view blank = BlankBefore(attributes);
    TextWriter out(std::strlen("</>") + tag.length + blank.size() + attributes.length);
    out << "<" << tag.View() << blank << attributes.View() << "/>";
    return {rope(out.Written())};
}

namespace {

using String = inspector_string;

html_rope html_rope_of(const String& markup) { return {rope(markup)}; }
html_rope Identity(const html_rope& html) { return html; }
String AsString(const html_rope& html) { return html.markup.Flattened(); }

html_rope WithString(const html_rope& a, const String& b) { return {a.markup & Escaped(b)}; }
html_rope BehindString(const String& a, const html_rope& b) { return {Escaped(a) & b.markup}; }
html_rope Joined(const html_rope& a, const html_rope& b) { return {a.markup & b.markup}; }

// Texts that are gathered from a stream, whose elements are gone when the next one comes: the bytes are this object's
// and live as long as the evaluation.
class html_gatherer {
protected:
    void Append(std::string_view markup) { bytes_ += markup; }
    void Append(const html_rope& html) { html.markup.AppendTo(bytes_); }
    void Append(const String& text) { AppendEscaped(text.View(), bytes_); }
    void Clear() { bytes_.clear(); }
    html_rope Gathered() const { return {rope(String(bytes_))}; }

private:
    std::string bytes_;
};

// The separator stands before each element but the first, and is that of the element behind it.
class html_concatenation : html_gatherer {
public:
    void Initialize() {
        Clear();
        begun_ = false;
    }
    void Aggregate(Of, const html_rope& element) { Append(element); }
    template <class T>
    void Aggregate(const html_rope& separator, Of, const T& element) {
        if (begun_) {
            Append(separator);
        }
        begun_ = true;
        Append(element);
    }
    html_rope FirstFinal() const { return Gathered(); }

private:
    bool begun_ = false;
};

// Each element in its item tag, with the list tag round the whole.  Attributes are written before the first element,
// and so are those that are told with it.
template <class List>
class html_list_concatenation : html_gatherer {
public:
    void Initialize() {
        Clear();
        begun_ = false;
    }
    template <class T>
    void Aggregate(Of, const T& element) {
        Open({});
        AppendItem(element);
    }
    template <class T>
    void Aggregate(const String& attributes, Of, const T& element) {
        Open(attributes.View());
        AppendItem(element);
    }
    template <class T>
    void Aggregate(const html_attribute_list& attributes, Of, const T& element) {
        Open(attributes.text.View());
        AppendItem(element);
    }
    html_rope FirstFinal() {
        Open({});
        AppendTag("</", List::kList);
        return Gathered();
    }

private:
    void AppendTag(std::string_view opening, std::string_view tag) {
        Append(opening);
        Append(tag);
        Append(std::string_view(">"));
    }
    void Open(std::string_view attributes) {
        if (begun_) {
            return;
        }
        begun_ = true;
        if (attributes.empty()) {
            AppendTag("<", List::kList);
            return;
        }
        Append(std::string_view("<"));
        Append(List::kList);
        AppendTag(" ", attributes);
    }
    template <class T>
    void AppendItem(const T& element) {
        AppendTag("<", List::kItem);
        Append(element);
        AppendTag("</", List::kItem);
    }

    bool begun_ = false;
};

struct UnorderedList {
    static constexpr char kSingular[] = "unordered list";
    static constexpr char kPlural[] = "unordered lists";
    static constexpr std::string_view kList = "ul";
    static constexpr std::string_view kItem = "li";
};
struct OrderedList {
    static constexpr char kSingular[] = "ordered list";
    static constexpr char kPlural[] = "ordered lists";
    static constexpr std::string_view kList = "ol";
    static constexpr std::string_view kItem = "li";
};
struct DefinitionList {
    static constexpr char kSingular[] = "definition list";
    static constexpr char kPlural[] = "definition lists";
    static constexpr std::string_view kList = "dl";
    static constexpr std::string_view kItem = "dd";
};

// The like phrases of one list over elements of one type.
template <class List, class T>
struct HTMLListRegistration {
    using Maker = html_list_concatenation<List>;
    AggregatingProperty<Maker, T, html_rope> plain{List::kSingular, List::kPlural};
    AggregatingPropertyByIndex<Maker, String, T, html_rope> withText{List::kSingular, List::kPlural};
    AggregatingPropertyByIndex<Maker, html_attribute_list, T, html_rope> withList{List::kSingular, List::kPlural};
};

// clang-format off
Type<html_rope>                                                                 type;

NamedGlobalProperty<html_rope, html_rope_of>                                    ofString        {"html", "htmls"};

Cast<html_rope, String, AsHTML>                                                 fromString      {"html"};
Cast<html_rope, html_rope, Identity>                                            fromHTML        {"html"};
Cast<String, html_rope, AsString>                                               toString        {"string"};

OperatorConcatenate<html_rope, String, html_rope, WithString>                   withString;
OperatorConcatenate<String, html_rope, html_rope, BehindString>                 behindString;
OperatorConcatenate<html_rope, html_rope, html_rope, Joined>                    withHTML;

AggregatingProperty<html_concatenation, html_rope, html_rope>                   plain           {"concatenation", "concatenations"};
AggregatingPropertyByIndex<html_concatenation, html_rope, html_rope, html_rope> separated       {"concatenation", "concatenations"};
AggregatingPropertyByIndex<html_concatenation, html_rope, String, html_rope>    separatedText   {"concatenation", "concatenations"};

HTMLListRegistration<UnorderedList, String>                                     unordered;
HTMLListRegistration<UnorderedList, html_rope>                                  unorderedHTML;
HTMLListRegistration<OrderedList, String>                                       ordered;
HTMLListRegistration<OrderedList, html_rope>                                    orderedHTML;
HTMLListRegistration<DefinitionList, String>                                    definitions;
HTMLListRegistration<DefinitionList, html_rope>                                 definitionsHTML;
// clang-format on

}  // namespace
