#include "inspectors/grub_config.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace {

// White space, digits and letters are those of ASCII, whatever the locale.
constexpr std::string_view kSpace = " \t\n\v\f\r";
constexpr std::string_view kDigits = "0123456789";

std::string_view WithoutSpaceBefore(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(kSpace), text.size()));
}

std::string_view WithoutSpaceBehind(std::string_view text) { return text.substr(0, text.find_last_not_of(kSpace) + 1); }

// Cuts the first word off; the empty text where there is none.
std::string_view TakeWord(std::string_view& text, std::string_view separators = kSpace) {
    text = text.substr(std::min(text.find_first_not_of(separators), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(separators));
    text.remove_prefix(word.size());
    return word;
}

// Takes the digits at the front; false where there are none.
bool TakeDigits(std::string_view& text) {
    const size_t count = std::min(text.find_first_not_of(kDigits), text.size());
    text.remove_prefix(count);
    return count != 0;
}

bool Take(std::string_view& text, char byte) {
    if (!text.starts_with(byte)) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

// All of the text as a decimal number with or without a minus.
std::optional<int64_t> Number(std::string_view text) {
    int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// An image's number has no minus.
std::optional<int64_t> ImageNumber(std::string_view text) {
    return text.starts_with('-') ? std::nullopt : Number(text);
}

// ---- Devices and places ---------------------------------------------------------------------------------------------

constexpr std::string_view kDriveWords[] = {"fd", "hd", "cd", "nd"};

void TakeDrive(std::string_view& text) {
    for (std::string_view word : kDriveWords) {
        if (text.starts_with(word)) {
            text.remove_prefix(word.size());
            break;
        }
    }
    TakeDigits(text);
}

// A number, or the letter of a BSD partition.
bool TakePartition(std::string_view& text) {
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'h') {
        text.remove_prefix(1);
        return true;
    }
    return TakeDigits(text);
}

// Cuts a device off the front: in parentheses a drive and its partitions, each of which may be missing.
std::optional<GrubDevice> TakeDevice(std::string_view& text) {
    std::string_view rest = text;
    if (!Take(rest, '(')) {
        return std::nullopt;
    }
    TakeDrive(rest);
    while (Take(rest, ',')) {
        if (!TakePartition(rest)) {
            return std::nullopt;
        }
    }
    if (!Take(rest, ')')) {
        return std::nullopt;
    }
    GrubDevice device{std::string(text.substr(0, text.size() - rest.size()))};
    text = rest;
    return device;
}

// "12" or "12+5" or "+5".
bool TakeBlockListEntry(std::string_view& text) {
    const bool hasNumber = TakeDigits(text);
    return Take(text, '+') ? TakeDigits(text) : hasNumber;
}

// ---- Programs -------------------------------------------------------------------------------------------------------

bool ParseProgram(std::string_view text, GrubProgram& program) {
    program.text = text;
    std::optional<GrubFileLocation> location = ParseGrubFileLocation(TakeWord(text));
    if (!location) {
        return false;
    }
    program.location = *std::move(location);
    for (std::string_view word = TakeWord(text); !word.empty(); word = TakeWord(text)) {
        program.bootArguments.emplace_back(word);
    }
    return true;
}

// ---- Colours --------------------------------------------------------------------------------------------------------

// Those of the first row may stand in the background, too.
constexpr std::string_view kDarkColors[] = {
    "black", "blue", "green", "cyan", "red", "magenta", "brown", "light-gray",
};
constexpr std::string_view kBrightColors[] = {
    "dark-gray", "light-blue", "light-green", "light-cyan", "light-red", "light-magenta", "yellow", "white",
};

template <size_t Count>
bool IsOneOf(std::string_view text, const std::string_view (&words)[Count]) {
    return std::find(std::begin(words), std::end(words), text) != std::end(words);
}

bool IsForeground(std::string_view text) {
    constexpr std::string_view kBlink = "blink-";
    if (text.starts_with(kBlink)) {
        text.remove_prefix(kBlink.size());
    }
    return IsOneOf(text, kDarkColors) || IsOneOf(text, kBrightColors);
}

std::optional<GrubColorPair> ParseColorPair(std::string_view text) {
    const size_t slash = text.find('/');
    if (slash == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view foreground = text.substr(0, slash);
    const std::string_view background = text.substr(slash + 1);
    if (!IsForeground(foreground) || !IsOneOf(background, kDarkColors)) {
        return std::nullopt;
    }
    return GrubColorPair{std::string(text), {std::string(foreground)}, {std::string(background)}};
}

// ---- Keywords -------------------------------------------------------------------------------------------------------

template <class T>
bool Assign(std::optional<T>& to, std::optional<T>&& value) {
    to = std::move(value);
    return to.has_value();
}

// Only the first word counts: what follows a place or a device is not its.
std::string_view FirstWord(std::string_view rest) { return TakeWord(rest); }

template <auto Member>
bool SetFlag(auto& record, std::string_view) {
    record.*Member = true;
    return true;
}

template <auto Member>
bool SetLocation(auto& record, std::string_view rest) {
    return Assign(record.*Member, ParseGrubFileLocation(FirstWord(rest)));
}

template <auto Member>
bool SetDevice(auto& record, std::string_view rest) {
    return Assign(record.*Member, ParseGrubDevice(FirstWord(rest)));
}

bool SetDefault(GrubConfig& config, std::string_view rest) {
    if (rest == "saved") {
        config.defaultImage = GrubImageChoice{};
        return true;
    }
    const std::optional<int64_t> number = ImageNumber(rest);
    config.defaultImage = GrubImageChoice{number};
    return number.has_value();
}

bool SetFallback(GrubConfig& config, std::string_view rest) {
    config.fallbackImages.clear();
    constexpr std::string_view kSeparators = ", \t\n\v\f\r";
    for (std::string_view word = TakeWord(rest, kSeparators); !word.empty(); word = TakeWord(rest, kSeparators)) {
        const std::optional<int64_t> number = ImageNumber(word);
        if (!number) {
            return false;
        }
        config.fallbackImages.push_back({number});
    }
    return !config.fallbackImages.empty();
}

bool SetTimeout(GrubConfig& config, std::string_view rest) { return Assign(config.timeout, Number(rest)); }

bool SetColor(GrubConfig& config, std::string_view rest) {
    return Assign(config.colorScheme, ParseGrubColorScheme(rest));
}

bool SetKernel(GrubBootableImage& image, std::string_view rest) { return ParseProgram(rest, image.kernel.emplace()); }

template <bool Nounzip>
bool AddModule(GrubBootableImage& image, std::string_view rest) {
    GrubModule& added = image.modules.emplace_back();
    added.nounzip = Nounzip;
    return ParseProgram(rest, added);
}

template <class Record>
struct Keyword {
    std::string_view word;
    bool (*apply)(Record& record, std::string_view rest);
};

// "title" is beside these: it is known in both places, and begins an image.
constexpr Keyword<GrubConfig> kGlobalKeywords[] = {
    {"hiddenmenu", &SetFlag<&GrubConfig::hiddenmenu>},        //
    {"default", &SetDefault},                                 //
    {"color", &SetColor},                                     //
    {"fallback", &SetFallback},                               //
    {"gfxmenu", &SetLocation<&GrubConfig::gfxmenu>},          //
    {"splashimage", &SetLocation<&GrubConfig::splashimage>},  //
    {"timeout", &SetTimeout},                                 //
};

constexpr Keyword<GrubBootableImage> kImageKeywords[] = {
    {"kernel", &SetKernel},                                          //
    {"chainloader", &SetLocation<&GrubBootableImage::chainloader>},  //
    {"initrd", &SetLocation<&GrubBootableImage::initrd>},            //
    {"root", &SetDevice<&GrubBootableImage::root>},                  //
    {"rootnoverify", &SetDevice<&GrubBootableImage::rootnoverify>},  //
    {"savedefault", &SetFlag<&GrubBootableImage::savedefault>},      //
    {"quiet", &SetFlag<&GrubBootableImage::quiet>},                  //
    {"module", &AddModule<false>},                                   //
    {"modulenounzip", &AddModule<true>},                             //
};

template <class Record, size_t Count>
bool Apply(const Keyword<Record> (&keywords)[Count], Record& record, std::string_view word, std::string_view rest) {
    for (const Keyword<Record>& keyword : keywords) {
        if (keyword.word == word) {
            return keyword.apply(record, rest);
        }
    }
    return true;
}

}  // namespace

std::optional<GrubDevice> ParseGrubDevice(std::string_view text) {
    std::optional<GrubDevice> device = TakeDevice(text);
    return text.empty() ? device : std::nullopt;
}

std::optional<GrubBlockList> ParseGrubBlockList(std::string_view text) {
    std::string_view rest = text;
    do {
        if (!TakeBlockListEntry(rest)) {
            return std::nullopt;
        }
    } while (Take(rest, ','));
    return rest.empty() ? std::optional(GrubBlockList{std::string(text)}) : std::nullopt;
}

std::optional<GrubFileLocation> ParseGrubFileLocation(std::string_view text) {
    GrubFileLocation location;
    location.text = text;
    if (text.starts_with('(')) {
        location.device = TakeDevice(text);
        if (!location.device) {
            return std::nullopt;
        }
    }
    if (text.starts_with('/')) {
        location.path = text;
        return location;
    }
    location.blockList = ParseGrubBlockList(text);
    return location.blockList ? std::optional(std::move(location)) : std::nullopt;
}

std::optional<GrubColorScheme> ParseGrubColorScheme(std::string_view text) {
    std::string_view rest = text;
    std::optional<GrubColorPair> normal = ParseColorPair(TakeWord(rest));
    if (!normal) {
        return std::nullopt;
    }
    GrubColorScheme scheme{*std::move(normal), std::nullopt};
    if (const std::string_view word = TakeWord(rest); !word.empty()) {
        scheme.highlight = ParseColorPair(word);
        if (!scheme.highlight || !WithoutSpaceBefore(rest).empty()) {
            return std::nullopt;
        }
    }
    return scheme;
}

bool GrubConfigParser::Line(std::string_view line) {
    const std::string_view word = TakeWord(line);
    const std::string_view rest = WithoutSpaceBehind(WithoutSpaceBefore(line));
    if (word.empty() || word.front() == '#') {
        return true;
    }
    if (word == "title") {
        config_.bootableImages.emplace_back().title = rest;
        return true;
    }
    return config_.bootableImages.empty() ? Apply(kGlobalKeywords, config_, word, rest)
                                          : Apply(kImageKeywords, config_.bootableImages.back(), word, rest);
}
