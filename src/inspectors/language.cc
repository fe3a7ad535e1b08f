#include "inspectors/language.h"

#include <clocale>
#include <cstring>
#include <optional>

#include "evaluator/adapters.h"
#include "inspectors/environment.h"
#include "inspectors/locale_names.h"
#include "values/string.h"

language ParseLocale(std::string_view locale) {
    constexpr size_t kLetters = 2;
    constexpr size_t kCountryAt = 3;
    language parsed;
    parsed.platform = locale;
    locale.substr(0, kLetters).copy(parsed.code, kLetters);
    if (locale.size() > kCountryAt + 1 && locale[kLetters] == '_') {
        locale.substr(kCountryAt, kLetters).copy(parsed.country, kLetters);
    }
    return parsed;
}

namespace {

constexpr size_t kShortestLocale = 2;

// The program itself sets no locale, so that its own is mostly "C" and says nothing; then the environment speaks.
std::optional<language> SystemLocale() {
    const char* own = setlocale(LC_CTYPE, nullptr);
    if (own == nullptr) {
        return ParseLocale("en");
    }
    if (std::strlen(own) >= kShortestLocale) {
        return ParseLocale(own);
    }
    for (const char* name : {"LANG", "LC_CTYPE"}) {
        const std::optional<std::string> value = OwnEnvironmentVariable(name);
        if (value && value->size() >= kShortestLocale) {
            return ParseLocale(*value);
        }
    }
    return std::nullopt;
}

std::optional<inspector_string> AsString(const language& spoken) {
    const std::string_view name = LanguageName(spoken.code[0], spoken.code[1]);
    if (name.empty()) {
        return std::nullopt;
    }
    const std::string_view country = CountryName(spoken.country[0], spoken.country[1]);
    if (country.empty()) {
        return inspector_string(name);
    }
    return CopiedString(std::string(name) + " (" + std::string(country) + ")");
}

std::optional<inspector_string> SystemLanguage() {
    const std::optional<language> spoken = SystemLocale();
    return spoken ? AsString(*spoken) : std::nullopt;
}

primary_language PrimaryLanguage(const language& spoken) {
    primary_language primary;
    std::memcpy(primary.code, spoken.code, sizeof primary.code);
    return primary;
}

inspector_string PlatformId(const language& spoken) { return CopiedString(spoken.platform); }

std::optional<inspector_string> PrimaryAsString(const primary_language& primary) {
    const std::string_view name = LanguageName(primary.code[0], primary.code[1]);
    return name.empty() ? std::nullopt : std::optional<inspector_string>(name);
}

// clang-format off
Type<language>                                                      type;
Type<primary_language>                                              primaryType;

GlobalProperty<language, SystemLocale>                              systemLocale    {"system locale", "system locales", ByValueOnly};
GlobalProperty<language, SystemLocale>                              uiLanguage      {"system ui language", "system ui languages", ByValueOnly};
GlobalProperty<inspector_string, SystemLanguage>                    systemLanguage  {"system language", "system languages", ByValueOnly};
Property<language, primary_language, PrimaryLanguage>               primaryLanguage {"primary language", "primary languages"};
Property<language, inspector_string, PlatformId>                    platformId      {"platform id", "platform ids"};

Cast<inspector_string, language, AsString>                          toString        {"string"};
Cast<inspector_string, primary_language, PrimaryAsString>           primaryToString {"string"};
// clang-format on

}  // namespace
