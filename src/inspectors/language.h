// The language that the system speaks, as its locale tells it.
#ifndef INSPECTORS_LANGUAGE_H
#define INSPECTORS_LANGUAGE_H

#include <string>
#include <string_view>

#include "registry/inspector_type_info.h"

// Two letters of language and of country, each with a zero byte behind them and empty where they are not known, and the
// locale as the platform writes it.
struct language {
    char code[3] = {};
    char country[3] = {};
    std::string platform;
};

// The language of a locale such as "de_AT.UTF-8": its first two bytes, and behind a "_" the two of the country.
language ParseLocale(std::string_view locale);

struct primary_language {
    char code[3] = {};
};

template <>
struct InspectorTypeInfo<language> : InspectorTypeBasics<language, 0> {
    static constexpr char Name[] = "language";
    static constexpr unsigned Size = sizeof(language);
};

template <>
struct InspectorTypeInfo<primary_language> : InspectorTypeBasics<primary_language, 0> {
    static constexpr char Name[] = "primary language";
    static constexpr unsigned Size = 3;
};

#endif
