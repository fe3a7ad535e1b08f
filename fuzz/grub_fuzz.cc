// Arbitrary bytes as a GRUB configuration.  What is taken can be written again from the tree, and the text that is
// written says the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/expect.h"
#include "inspectors/grub_config.h"

namespace {

std::optional<GrubConfig> Parsed(std::string_view text) {
    GrubConfigParser parser;
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), text.size());
        if (!parser.Line(text.substr(0, end))) {
            return std::nullopt;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return std::move(parser.Config());
}

class Writer {
public:
    void Line(std::string_view word, std::string_view rest = {}) {
        text_.append(word).append(" ").append(rest).append("\n");
    }
    void Place(std::string_view word, const std::optional<GrubFileLocation>& place) {
        if (place) {
            Expect(place->path.has_value() != place->blockList.has_value());
            const std::string device = place->device ? place->device->text : "";
            Expect(place->text == device + (place->path ? *place->path : place->blockList->text));
            Line(word, place->text);
        }
    }
    void Device(std::string_view word, const std::optional<GrubDevice>& device) {
        if (device) {
            Line(word, device->text);
        }
    }
    void Program(std::string_view word, const GrubProgram& program) {
        std::string rest = program.location.text;
        for (const std::string& argument : program.bootArguments) {
            rest.append(" ").append(argument);
        }
        Line(word, rest);
    }
    void Image(const GrubBootableImage& image) {
        Line("title", image.title);
        if (image.kernel) {
            Program("kernel", *image.kernel);
        }
        Place("chainloader", image.chainloader);
        Place("initrd", image.initrd);
        Device("root", image.root);
        Device("rootnoverify", image.rootnoverify);
        if (image.savedefault) {
            Line("savedefault");
        }
        if (image.quiet) {
            Line("quiet");
        }
        for (const GrubModule& module : image.modules) {
            Program(module.nounzip ? "modulenounzip" : "module", module);
        }
    }
    std::string Config(const GrubConfig& config) {
        if (config.defaultImage) {
            Line("default", config.defaultImage->index ? std::to_string(*config.defaultImage->index) : "saved");
        }
        if (!config.fallbackImages.empty()) {
            std::string numbers;
            for (const GrubImageChoice& choice : config.fallbackImages) {
                numbers += std::to_string(*choice.index) + ", ";
            }
            Line("fallback", numbers);
        }
        Place("gfxmenu", config.gfxmenu);
        Place("splashimage", config.splashimage);
        if (config.timeout) {
            Line("timeout", std::to_string(*config.timeout));
        }
        if (config.hiddenmenu) {
            Line("hiddenmenu");
        }
        if (config.colorScheme) {
            const GrubColorPair& normal = config.colorScheme->normal;
            Expect(normal.text == normal.foreground.text + "/" + normal.background.text);
            Line("color",
                 normal.text + (config.colorScheme->highlight ? " " + config.colorScheme->highlight->text : ""));
        }
        for (const GrubBootableImage& image : config.bootableImages) {
            Image(image);
        }
        return std::move(text_);
    }

private:
    std::string text_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::optional<GrubConfig> config = Parsed(std::string_view(reinterpret_cast<const char*>(data), size));
    if (config) {
        const std::string written = Writer().Config(*config);
        const std::optional<GrubConfig> again = Parsed(written);
        Expect(again.has_value() && Writer().Config(*again) == written);
    }
    return 0;
}
