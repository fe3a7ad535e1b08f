// The version of a site: a fixed row of numbers, one for each component of the site, compared as a whole.
#ifndef VALUES_SITE_VERSION_LIST_H
#define VALUES_SITE_VERSION_LIST_H

#include <algorithm>
#include <array>
#include <compare>
#include <cstdint>

#include "language/character_lexeme.h"
#include "language/ignored_text_lexeme.h"
#include "language/lexer.h"
#include "language/numeral_lexeme.h"
#include "language/text_lexeme.h"
#include "registry/inspector_type_info.h"

// A component that was not given is 0, so that "1" and "1,0" are the same.
class SiteVersionList {
public:
    static constexpr size_t kComponents = 128;

    const uint32_t& operator[](size_t n) const { return components_[n]; }
    uint32_t& operator[](size_t n) { return components_[n]; }

    // Whether every component is at least that of `other`: a partial order, and not that of "<=".
    bool Contains(const SiteVersionList& other) const {
        return std::equal(components_.begin(), components_.end(), other.components_.begin(),
                          [](uint32_t mine, uint32_t its) { return mine >= its; });
    }

    // The first component that differs decides.
    friend bool operator==(const SiteVersionList&, const SiteVersionList&) = default;
    friend auto operator<=>(const SiteVersionList&, const SiteVersionList&) = default;

private:
    std::array<uint32_t, kComponents> components_{};
};

template <>
struct InspectorTypeInfo<SiteVersionList> : InspectorTypeBasics<SiteVersionList, 0> {
    static constexpr char Name[] = "site version list";
    static constexpr unsigned Size = 512;
};

// Puts the numerals of a text into a list, one after the other.  Nothing is refused: commas and other text have no
// effect, a number too large for its component is the greatest, and what comes behind the last component is dropped.
class ManyVersionMaker final : public EndLexemeAcceptor,
                               public CharacterLexemeAcceptor,
                               public NumeralLexemeAcceptor,
                               public TextLexemeAcceptor {
public:
    const SiteVersionList& List() const { return list_; }

    void Start() override;
    void End(unsigned long) override {}
    void Accept(unsigned long, unsigned long, unsigned char) override {}
    void Accept(unsigned long start, unsigned long end, uint64_t value) override;
    void TooLarge(unsigned long start, unsigned long end) override;
    void Accept(unsigned long, unsigned long, const unsigned char*, const unsigned char*) override {}
    void End(unsigned long, unsigned long) override {}

private:
    SiteVersionList list_;
    size_t cursor_ = 0;
};

// Cuts the text of a list into commas, numerals, blanks and other text.  Every byte is of one of these, so that a digit
// ends other text and begins a numeral: "1a2" has two.
class ManyVersionLexer final : public Lexer {
public:
    // The maker must outlive the lexer.
    explicit ManyVersionLexer(ManyVersionMaker& maker);

    Lexeme& ChooseLexeme(unsigned char byte) override;

private:
    CharacterLexeme comma_;
    NumeralLexeme numeral_;
    IgnoredTextLexeme blanks_;
    TextLexeme text_;
};

// The list that the text stands for; there is one for every text.
SiteVersionList StringToSiteVersionList(const inspector_string& text);

#endif
