#include "inspectors/grub.h"

#include <charconv>

#include "evaluator/adapters.h"
#include "foundation/file_reader.h"
#include "foundation/file_stat.h"
#include "inspectors/line_window.h"
#include "values/integer.h"
#include "values/string.h"

// What is no regular file might never end, or never begin.
std::optional<grub_config_file> ReadGrubConfig(const FileLocation& location) {
    if (location.IsEmpty() || !FileStat(location).IsRegular()) {
        return std::nullopt;
    }
    GrubConfigParser parser;
    try {
        UnixPlatform::FileReadingPath open(location);
        FileReader reader(open);
        unsigned char buffer[kLineWindow];
        LineWindow window(reader, Buffer(buffer, buffer + sizeof buffer));
        while (window.Next()) {
            if (!parser.Line(window.Text())) {
                return std::nullopt;
            }
        }
    } catch (const FileIOError&) {
        return std::nullopt;
    }
    parser.Config().path = location.Text();
    return grub_config_file(std::make_shared<const GrubConfig>(std::move(parser.Config())));
}

namespace {

constexpr const char* kPlaces[] = {"/boot/grub/menu.lst", "/boot/grub/grub.conf"};

std::optional<grub_config_file> ConfigFile() { return FirstGrubConfig(kPlaces); }
std::optional<grub_config_file> ConfigFileAt(const inspector_string& path) {
    return ReadGrubConfig(FileLocation(path.View()));
}

// The shapes of the properties: what each gives is told by the member of the record that it is registered with.

template <auto Member, class Whole>
inspector_string Text(const Whole& whole) {
    return CopiedString((*whole).*Member);
}

template <auto Member, class Whole>
std::optional<inspector_string> OptionalText(const Whole& whole) {
    const auto& member = (*whole).*Member;
    return member ? std::optional<inspector_string>(CopiedString(*member)) : std::nullopt;
}

template <auto Member, class Whole>
boolean Flag(const Whole& whole) {
    return (*whole).*Member;
}

template <auto Member, class Whole>
std::optional<integer> Number(const Whole& whole) {
    const std::optional<int64_t>& member = (*whole).*Member;
    return member ? std::optional<integer>(*member) : std::nullopt;
}

template <auto Member, class R, class Whole>
R Part(const Whole& whole) {
    return R(whole, (*whole).*Member);
}

template <auto Member, class R, class Whole>
std::optional<R> OptionalPart(const Whole& whole) {
    const auto& member = (*whole).*Member;
    return member ? std::optional<R>(std::in_place, whole, *member) : std::nullopt;
}

// A member of a list as a value: a handle on it, or a copy of the text that it is.
template <class R, class Whole, class Element>
R ElementOf(const Whole& whole, const Element& element) {
    if constexpr (std::is_same_v<R, inspector_string>) {
        return CopiedString(element);
    } else {
        return R(whole, element);
    }
}

// Counted from 1.
template <auto Member, class R, class Whole>
std::optional<R> NumberedElement(const integer& n, const Whole& whole) {
    const auto& list = (*whole).*Member;
    if (n.Value() < 1 || static_cast<uint64_t>(n.Value()) > list.size()) {
        return std::nullopt;
    }
    return ElementOf<R>(whole, list[static_cast<size_t>(n.Value() - 1)]);
}

template <auto Member, class R, class Whole>
class element_iterator {
public:
    void Start(Of, const Whole&) { next_ = 0; }
    bool Finished(Of, const Whole& whole) const { return next_ == ((*whole).*Member).size(); }
    R Next(Of, const Whole& whole) { return ElementOf<R>(whole, ((*whole).*Member)[next_++]); }

private:
    size_t next_ = 0;
};

std::optional<grub_bootable_image> ImageOfTitle(const inspector_string& title, const grub_config_file& config) {
    for (const GrubBootableImage& image : config->bootableImages) {
        if (image.title == title.View()) {
            return grub_bootable_image(config, image);
        }
    }
    return std::nullopt;
}

inspector_string ChoiceAsString(const grub_image_choice& choice) {
    if (!choice->index) {
        return inspector_string("saved");
    }
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof digits, *choice->index);
    return CopiedString({digits, static_cast<size_t>(result.ptr - digits)});
}

using String = inspector_string;
using Config = grub_config_file;
using Image = grub_bootable_image;
using Location = grub_file_location;
using Kernel = grub_kernel;
using Module = grub_module;

template <class Whole, auto Member>
using TextOf = Property<Whole, String, Text<Member, Whole>>;
template <class Whole, auto Member>
using FlagOf = Property<Whole, boolean, Flag<Member, Whole>>;
template <class Whole, auto Member>
using NumberOf = Property<Whole, integer, Number<Member, Whole>>;
template <class Whole, class R, auto Member>
using PartOf = Property<Whole, R, Part<Member, R, Whole>>;
template <class Whole, class R, auto Member>
using OptionalPartOf = Property<Whole, R, OptionalPart<Member, R, Whole>>;
template <class Whole, class R, auto Member>
using NumberedPartOf = NumberedProperty<Whole, R, NumberedElement<Member, R, Whole>>;
template <class Whole, class R, auto Member, class Iterator = element_iterator<Member, R, Whole>>
using PartsOf = IteratedPropertyOfObject<Iterator, R, Whole, &Iterator::Next, &Iterator::Next, &Iterator::Start,
                                         &Iterator::Finished>;
template <class T, auto Member>
using AsText = Cast<String, T, Text<Member, T>>;

// clang-format off
Type<grub_device>                                                               deviceType;
Type<grub_block_list>                                                           blockListType;
Type<Location>                                                                  locationType;
Type<Kernel>                                                                    kernelType;
Type<Module>                                                                    moduleType;
Type<Image>                                                                     imageType;
Type<grub_image_choice>                                                         choiceType;
Type<grub_color>                                                                colorType;
Type<grub_color_pair>                                                           pairType;
Type<grub_color_scheme>                                                         schemeType;
Type<Config>                                                                    configType;

GlobalProperty<Config, ConfigFile>                                              config              {"grub config file", "grub config files", ByValueOnly};
NamedGlobalProperty<Config, ConfigFileAt>                                       configAt            {"grub config file", "grub config files", ByValueOnly};
TextOf<Config, &GrubConfig::path>                                               pathOfConfig        {"path", "paths"};
OptionalPartOf<Config, grub_image_choice, &GrubConfig::defaultImage>            defaultImage        {"default image", "default images"};
PartsOf<Config, grub_image_choice, &GrubConfig::fallbackImages>                 fallbackImages      {"fallback image", "fallback images"};
NumberedPartOf<Config, grub_image_choice, &GrubConfig::fallbackImages>          fallbackImage       {"fallback image", "fallback images"};
OptionalPartOf<Config, Location, &GrubConfig::gfxmenu>                          gfxmenu             {"gfxmenu", "gfxmenus"};
OptionalPartOf<Config, Location, &GrubConfig::splashimage>                      splashimage         {"splashimage", "splashimages"};
NumberOf<Config, &GrubConfig::timeout>                                          timeout             {"timeout", "timeouts"};
FlagOf<Config, &GrubConfig::hiddenmenu>                                         hiddenmenu          {"hiddenmenu", "hiddenmenus"};
PartsOf<Config, Image, &GrubConfig::bootableImages>                             images              {"bootable image", "bootable images"};
NumberedPartOf<Config, Image, &GrubConfig::bootableImages>                      numberedImage       {"bootable image", "bootable images"};
NamedProperty<Config, Image, ImageOfTitle>                                      titledImage         {"bootable image", "bootable images"};
OptionalPartOf<Config, grub_color_scheme, &GrubConfig::colorScheme>             colorScheme         {"color scheme", "color schemes"};

TextOf<Image, &GrubBootableImage::title>                                        title               {"title", "titles"};
OptionalPartOf<Image, Kernel, &GrubBootableImage::kernel>                       kernel              {"kernel", "kernels"};
OptionalPartOf<Image, Location, &GrubBootableImage::chainloader>                chainloader         {"chainloader", "chainloaders"};
OptionalPartOf<Image, Location, &GrubBootableImage::initrd>                     initrd              {"initrd", "initrds"};
OptionalPartOf<Image, grub_device, &GrubBootableImage::root>                    root                {"root", "roots"};
OptionalPartOf<Image, grub_device, &GrubBootableImage::rootnoverify>            rootnoverify        {"rootnoverify", "rootnoverifys"};
FlagOf<Image, &GrubBootableImage::savedefault>                                  savedefault         {"savedefault", "savedefaults"};
FlagOf<Image, &GrubBootableImage::quiet>                                        quiet               {"quiet", "quiets"};
PartsOf<Image, Module, &GrubBootableImage::modules>                             modules             {"module", "modules"};
NumberedPartOf<Image, Module, &GrubBootableImage::modules>                      numberedModule      {"module", "modules"};

PartOf<Kernel, Location, &GrubKernel::location>                                 locationOfKernel    {"location", "locations"};
PartOf<Module, Location, &GrubModule::location>                                 locationOfModule    {"location", "locations"};
PartsOf<Kernel, String, &GrubKernel::bootArguments>                             argumentsOfKernel   {"boot argument", "boot arguments"};
NumberedPartOf<Kernel, String, &GrubKernel::bootArguments>                      argumentOfKernel    {"boot argument", "boot arguments"};
PartsOf<Module, String, &GrubModule::bootArguments>                             argumentsOfModule   {"boot argument", "boot arguments"};
NumberedPartOf<Module, String, &GrubModule::bootArguments>                      argumentOfModule    {"boot argument", "boot arguments"};
FlagOf<Module, &GrubModule::nounzip>                                            nounzip             {"nounzip", "nounzips"};

OptionalPartOf<Location, grub_device, &GrubFileLocation::device>                device              {"device", "devices"};
OptionalPartOf<Location, grub_block_list, &GrubFileLocation::blockList>         blockList           {"block list", "block lists"};
Property<Location, String, OptionalText<&GrubFileLocation::path, Location>>     pathOfLocation      {"path", "paths"};
NumberOf<grub_image_choice, &GrubImageChoice::index>                            index               {"index", "indexes"};
PartOf<grub_color_pair, grub_color, &GrubColorPair::foreground>                 foreground          {"foreground", "foregrounds"};
PartOf<grub_color_pair, grub_color, &GrubColorPair::background>                 background          {"background", "backgrounds"};
PartOf<grub_color_scheme, grub_color_pair, &GrubColorScheme::normal>            normal              {"normal", "normals"};
OptionalPartOf<grub_color_scheme, grub_color_pair, &GrubColorScheme::highlight> highlight           {"highlight", "highlights"};

AsText<grub_device, &GrubDevice::text>                                          deviceAsString      {"string"};
AsText<grub_block_list, &GrubBlockList::text>                                   blockListAsString   {"string"};
AsText<Location, &GrubFileLocation::text>                                       locationAsString    {"string"};
AsText<Module, &GrubModule::text>                                               moduleAsString      {"string"};
AsText<Image, &GrubBootableImage::title>                                        imageAsString       {"string"};
Cast<String, grub_image_choice, ChoiceAsString>                                 choiceAsString      {"string"};
AsText<grub_color, &GrubColor::text>                                            colorAsString       {"string"};
AsText<grub_color_pair, &GrubColorPair::text>                                   pairAsString        {"string"};
// clang-format on

}  // namespace
