#include "values/site_version_list.h"

#include <charconv>
#include <limits>

#include "evaluator/adapters.h"
#include "values/aggregates.h"
#include "values/string.h"

namespace {

constexpr uint32_t kGreatestComponent = std::numeric_limits<uint32_t>::max();

constexpr CharacterSet kOtherText = [] {
    CharacterSet set;
    for (unsigned c = 0; c < 256; ++c) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte != ',' && !CharacterSets::digits.Contains(byte) && !CharacterSets::lineWhiteSpace.Contains(byte)) {
            set = set | CharacterSet::Between(byte, byte);
        }
    }
    return set;
}();

}  // namespace

void ManyVersionMaker::Start() {
    list_ = SiteVersionList();
    cursor_ = 0;
}

void ManyVersionMaker::Accept(unsigned long, unsigned long, uint64_t value) {
    if (cursor_ < SiteVersionList::kComponents) {
        list_[cursor_++] = static_cast<uint32_t>(std::min<uint64_t>(value, kGreatestComponent));
    }
}

void ManyVersionMaker::TooLarge(unsigned long start, unsigned long end) {
    Accept(start, end, uint64_t{kGreatestComponent});
}

ManyVersionLexer::ManyVersionLexer(ManyVersionMaker& maker)
    : Lexer(maker), comma_(maker), numeral_(maker), blanks_(CharacterSets::lineWhiteSpace), text_(kOtherText, maker) {}

Lexeme& ManyVersionLexer::ChooseLexeme(unsigned char byte) {
    if (byte == ',') {
        return comma_;
    }
    if (CharacterSets::digits.Contains(byte)) {
        return numeral_;
    }
    if (CharacterSets::lineWhiteSpace.Contains(byte)) {
        return blanks_;
    }
    return text_;
}

SiteVersionList StringToSiteVersionList(const inspector_string& text) {
    ManyVersionMaker maker;
    ManyVersionLexer lexer(maker);
    lexer.Start();
    lexer.Data(text.Data().begin, text.Data().end);
    lexer.Finish();
    return maker.List();
}

namespace {

integer SiteVersionListComponent(integer n, const SiteVersionList& list) {
    return n < integer(SiteVersionList::kComponents) ? list[static_cast<size_t>(n.Value())] : 0;
}

// In decimal, joined by commas, without the zeros at the end: the list of zeros is the empty text.
inspector_string SiteVersionListToString(const SiteVersionList& list) {
    size_t count = SiteVersionList::kComponents;
    while (count != 0 && list[count - 1] == 0) {
        --count;
    }
    char text[SiteVersionList::kComponents * sizeof "4294967295,"];
    char* end = text;
    for (size_t i = 0; i < count; ++i) {
        if (i != 0) {
            *end++ = ',';
        }
        end = std::to_chars(end, std::end(text), list[i]).ptr;
    }
    return CopiedString({text, static_cast<size_t>(end - text)});
}

boolean Contains(const SiteVersionList& a, const SiteVersionList& b) { return a.Contains(b); }

// clang-format off
Type<SiteVersionList>                                                           type;

NamedGlobalProperty<SiteVersionList, StringToSiteVersionList>                   ofString    {"site version list", "site version lists"};
NumberedProperty<SiteVersionList, integer, SiteVersionListComponent>            component   {"component", "components"};

Cast<SiteVersionList, inspector_string, StringToSiteVersionList>                fromString  {"site version list"};
Cast<inspector_string, SiteVersionList, SiteVersionListToString>                toString    {"string"};

ComparableInspectorRegistration<SiteVersionList>                                comparable;
RelationContains<SiteVersionList, SiteVersionList, Contains>                    contains;
// clang-format on

}  // namespace
