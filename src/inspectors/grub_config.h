// What the configuration of the legacy GRUB says: its text, line by line, made into a tree of plain records.
//
// A line is a keyword and the rest.  What stands before the first "title" is for the whole; each "title" begins an
// image that can be booted.  A keyword that is not known says nothing, and one that is known must be followed by what
// it takes, or the whole text is refused.
#ifndef INSPECTORS_GRUB_CONFIG_H
#define INSPECTORS_GRUB_CONFIG_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A text that was found to be what it has to be, kept as it was written.
struct GrubDevice {
    std::string text;
};
struct GrubBlockList {
    std::string text;
};
struct GrubColor {
    std::string text;
};

// On the device, if one is told, either a path or a block list.
struct GrubFileLocation {
    std::string text;
    std::optional<GrubDevice> device;
    std::optional<GrubBlockList> blockList;
    std::optional<std::string> path;
};

// What is loaded, and the words behind it.
struct GrubProgram {
    std::string text;
    GrubFileLocation location;
    std::vector<std::string> bootArguments;
};
struct GrubKernel : GrubProgram {};
struct GrubModule : GrubProgram {
    bool nounzip = false;
};

// The number of an image, counted from 0; none is the image that was saved.
struct GrubImageChoice {
    std::optional<int64_t> index;
};

struct GrubColorPair {
    std::string text;
    GrubColor foreground;
    GrubColor background;
};
struct GrubColorScheme {
    GrubColorPair normal;
    std::optional<GrubColorPair> highlight;
};

struct GrubBootableImage {
    std::string title;
    std::optional<GrubKernel> kernel;
    std::optional<GrubFileLocation> chainloader;
    std::optional<GrubFileLocation> initrd;
    std::optional<GrubDevice> root;
    std::optional<GrubDevice> rootnoverify;
    bool savedefault = false;
    bool quiet = false;
    std::vector<GrubModule> modules;
};

struct GrubConfig {
    std::string path;
    std::optional<GrubImageChoice> defaultImage;
    std::vector<GrubImageChoice> fallbackImages;
    std::optional<GrubFileLocation> gfxmenu;
    std::optional<GrubFileLocation> splashimage;
    std::optional<int64_t> timeout;
    bool hiddenmenu = false;
    std::vector<GrubBootableImage> bootableImages;
    std::optional<GrubColorScheme> colorScheme;
};

// Takes the lines one after the other.  A keyword that is said again takes the place of what it said before; modules
// and images are added.
class GrubConfigParser {
public:
    // False where the line's value is wrong; the text is then refused, and what has been made of it is of no use.
    bool Line(std::string_view line);

    // What the lines said.  Its path is left to the caller.
    GrubConfig& Config() { return config_; }

private:
    GrubConfig config_;
};

// The values as such.  None where the text is not one.
std::optional<GrubDevice> ParseGrubDevice(std::string_view text);
std::optional<GrubBlockList> ParseGrubBlockList(std::string_view text);
std::optional<GrubFileLocation> ParseGrubFileLocation(std::string_view text);
std::optional<GrubColorScheme> ParseGrubColorScheme(std::string_view text);

#endif
