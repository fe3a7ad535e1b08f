// The English names of languages (ISO 639-1) and countries (ISO 3166-1 alpha-2), and of those whose codes have been
// withdrawn while locales still bear them: the language "sh", the countries "AN" and "CS".
#ifndef INSPECTORS_LOCALE_NAMES_H
#define INSPECTORS_LOCALE_NAMES_H

#include <string_view>

// By the code's two letters, which are lower-case for a language and upper-case for a country; empty for any pair that
// is no code.
std::string_view LanguageName(char first, char second);
std::string_view CountryName(char first, char second);

#endif
