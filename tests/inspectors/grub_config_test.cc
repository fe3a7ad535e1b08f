#include "inspectors/grub_config.h"

#include <gtest/gtest.h>

namespace {

std::optional<GrubConfig> Parsed(const std::vector<std::string>& lines) {
    GrubConfigParser parser;
    for (const std::string& line : lines) {
        if (!parser.Line(line)) {
            return std::nullopt;
        }
    }
    return parser.Config();
}

// The first image of a text that begins with a title.
std::optional<GrubBootableImage> Image(std::vector<std::string> lines) {
    lines.insert(lines.begin(), "title t");
    std::optional<GrubConfig> config = Parsed(lines);
    return config ? std::optional(config->bootableImages.at(0)) : std::nullopt;
}

TEST(GrubDevice, IsADriveAndItsPartitionsInParentheses) {
    for (const char* text : {"()", "(hd0)", "(fd0)", "(hd)", "(cd)", "(nd)", "(hd0,0)", "(hd10,12)", "(hd0,a)",
                             "(hd0,0,a)", "(hd0,1,h)", "(0)", "(,0)", "(,a)"}) {
        const std::optional<GrubDevice> device = ParseGrubDevice(text);
        ASSERT_TRUE(device) << text;
        EXPECT_EQ(device->text, text);
    }
    for (const char* text :
         {"",         "(",       ")",     "hd0",   "hd0,0",  "(hd0",   "(hd0))", "(hd0)x",   "(hd0,)",   "(hd0,i)",
          "(hd0,0,)", "(hd0;0)", "(xx0)", "(HD0)", "( hd0)", "(hd0 )", "[hd0]",  "(hd0,0a)", "(hd0,-1)", "(hd0,0"}) {
        EXPECT_FALSE(ParseGrubDevice(text)) << text;
    }
}

TEST(GrubBlockList, IsAListOfStretches) {
    for (const char* text : {"+1", "0+1", "5", "0+1,2+3", "1,2,+3", "0"}) {
        const std::optional<GrubBlockList> list = ParseGrubBlockList(text);
        ASSERT_TRUE(list) << text;
        EXPECT_EQ(list->text, text);
    }
    for (const char* text : {"", "+", "1+", "a", "-1", ",1", "1,", "1,,2", "1+2+3", "1 2", "/x", "0x10"}) {
        EXPECT_FALSE(ParseGrubBlockList(text)) << text;
    }
}

TEST(GrubFileLocation, IsAPathOrABlockListPerhapsOnADevice) {
    const std::optional<GrubFileLocation> both = ParseGrubFileLocation("(hd0,1)/boot/vmlinuz");
    ASSERT_TRUE(both);
    EXPECT_EQ(both->text, "(hd0,1)/boot/vmlinuz");
    EXPECT_EQ(both->device->text, "(hd0,1)");
    EXPECT_EQ(both->path, "/boot/vmlinuz");
    EXPECT_FALSE(both->blockList);
    const std::optional<GrubFileLocation> path = ParseGrubFileLocation("/");
    ASSERT_TRUE(path);
    EXPECT_EQ(path->path, "/");
    EXPECT_FALSE(path->device);
    const std::optional<GrubFileLocation> blocks = ParseGrubFileLocation("(fd0)+1");
    ASSERT_TRUE(blocks);
    EXPECT_EQ(blocks->device->text, "(fd0)");
    EXPECT_EQ(blocks->blockList->text, "+1");
    EXPECT_FALSE(blocks->path);
    for (const char* text : {"", "(hd0)", "boot/x", "(hd0)boot", "(xx0)/x", "(hd0,0/x", "--force", "+", "\"/x\""}) {
        EXPECT_FALSE(ParseGrubFileLocation(text)) << text;
    }
}

TEST(GrubColors, AreOneOrTwoPairs) {
    const std::optional<GrubColorScheme> two = ParseGrubColorScheme("white/blue \t blink-black/light-gray");
    ASSERT_TRUE(two);
    EXPECT_EQ(two->normal.text, "white/blue");
    EXPECT_EQ(two->normal.foreground.text, "white");
    EXPECT_EQ(two->normal.background.text, "blue");
    EXPECT_EQ(two->highlight->text, "blink-black/light-gray");
    EXPECT_EQ(two->highlight->foreground.text, "blink-black");
    const std::optional<GrubColorScheme> one = ParseGrubColorScheme("light-cyan/black");
    ASSERT_TRUE(one);
    EXPECT_FALSE(one->highlight);
    for (const std::string color : {"black", "blue", "green", "cyan", "red", "magenta", "brown", "light-gray"}) {
        EXPECT_TRUE(ParseGrubColorScheme(color + "/" + color)) << color;
    }
    for (const std::string color :
         {"dark-gray", "light-blue", "light-green", "light-cyan", "light-red", "light-magenta", "yellow", "white"}) {
        EXPECT_TRUE(ParseGrubColorScheme(color + "/black")) << color;
        EXPECT_TRUE(ParseGrubColorScheme("blink-" + color + "/black")) << color;
        EXPECT_FALSE(ParseGrubColorScheme("black/" + color)) << color;
    }
    for (const char* text : {"", "white", "white/", "/blue", "white/blue/red", "White/blue", "pink/blue",
                             "white / blue", "white/blue red", "white/blue red/black x", "black/blink-blue", "7/0"}) {
        EXPECT_FALSE(ParseGrubColorScheme(text)) << text;
    }
}

TEST(GrubConfig, WithoutAKnownLineHasNothingInIt) {
    for (const auto& lines : std::vector<std::vector<std::string>>{{},
                                                                   {""},
                                                                   {"   \t"},
                                                                   {"# default 1"},
                                                                   {"#default 1"},
                                                                   {"  #x"},
                                                                   {"unknown x"},
                                                                   {"default=1"},
                                                                   {"kernel nonsense"},
                                                                   {"DEFAULT 1"},
                                                                   {"titles x"},
                                                                   {"root x"}}) {
        const std::optional<GrubConfig> config = Parsed(lines);
        ASSERT_TRUE(config);
        EXPECT_FALSE(config->defaultImage || config->gfxmenu || config->splashimage || config->timeout ||
                     config->hiddenmenu || config->colorScheme);
        EXPECT_TRUE(config->fallbackImages.empty() && config->bootableImages.empty());
    }
}

TEST(GrubConfig, GlobalValues) {
    EXPECT_EQ(Parsed({"default 2"})->defaultImage->index, 2);
    EXPECT_EQ(Parsed({"\t default \t 007 \t\r"})->defaultImage->index, 7);
    EXPECT_EQ(Parsed({"default saved"})->defaultImage->index, std::nullopt);
    EXPECT_EQ(Parsed({"default 1", "default 2"})->defaultImage->index, 2) << "the last one counts";
    EXPECT_EQ(Parsed({"timeout 10"})->timeout, 10);
    EXPECT_EQ(Parsed({"timeout -1"})->timeout, -1);
    EXPECT_TRUE(Parsed({"hiddenmenu"})->hiddenmenu);
    EXPECT_TRUE(Parsed({"hiddenmenu 0"})->hiddenmenu);
    EXPECT_EQ(Parsed({"splashimage (hd0,0)/x.xpm.gz"})->splashimage->path, "/x.xpm.gz");
    EXPECT_EQ(Parsed({"gfxmenu /m y"})->gfxmenu->path, "/m");
    EXPECT_EQ(Parsed({"color white/blue"})->colorScheme->normal.text, "white/blue");
    const auto fallbacks = [](const char* line) {
        std::vector<int64_t> numbers;
        const std::optional<GrubConfig> config = Parsed({line});
        for (const GrubImageChoice& choice : config->fallbackImages) {
            numbers.push_back(*choice.index);
        }
        return numbers;
    };
    EXPECT_EQ(fallbacks("fallback 2 0,1"), (std::vector<int64_t>{2, 0, 1}));
    EXPECT_EQ(fallbacks("fallback 1 , 2,\t3"), (std::vector<int64_t>{1, 2, 3}));
}

TEST(GrubConfig, AWrongGlobalValueRefusesTheText) {
    for (const char* line : {"default",
                             "default x",
                             "default -1",
                             "default 1 2",
                             "default +1",
                             "default Saved",
                             "default saved x",
                             "default 99999999999999999999",
                             "timeout",
                             "timeout x",
                             "timeout 5s",
                             "timeout 1 2",
                             "timeout 99999999999999999999",
                             "fallback",
                             "fallback ,",
                             "fallback x",
                             "fallback 1 x",
                             "fallback -1",
                             "fallback saved",
                             "splashimage",
                             "splashimage x",
                             "gfxmenu",
                             "gfxmenu (hd0)",
                             "color",
                             "color x",
                             "color white/blue x"}) {
        EXPECT_FALSE(Parsed({line})) << line;
    }
}

TEST(GrubConfig, ATitleBeginsAnImage) {
    const std::optional<GrubConfig> config =
        Parsed({"timeout 1", "title  A title # with  blanks ", "root (hd0,0)", "title", "quiet", "title last",
                "timeout nonsense", "default nonsense", "hiddenmenu"});
    ASSERT_TRUE(config);
    ASSERT_EQ(config->bootableImages.size(), 3u);
    EXPECT_EQ(config->bootableImages[0].title, "A title # with  blanks");
    EXPECT_EQ(config->bootableImages[0].root->text, "(hd0,0)");
    EXPECT_FALSE(config->bootableImages[0].quiet);
    EXPECT_EQ(config->bootableImages[1].title, "");
    EXPECT_TRUE(config->bootableImages[1].quiet);
    EXPECT_FALSE(config->bootableImages[1].root);
    EXPECT_EQ(config->timeout, 1);
    EXPECT_FALSE(config->hiddenmenu);
}

TEST(GrubConfig, ValuesOfAnImage) {
    const std::optional<GrubBootableImage> image = Image(
        {"kernel (hd0,0)/vmlinuz  ro\troot=/dev/sda1 ", "initrd /initrd.img", "chainloader +1", "root (hd0,1)",
         "rootnoverify (hd1) x", "savedefault", "quiet", "module /a", "modulenounzip /m a b", "module (fd0)0+5 c"});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->title, "t");
    EXPECT_EQ(image->kernel->location.text, "(hd0,0)/vmlinuz");
    EXPECT_EQ(image->kernel->bootArguments, (std::vector<std::string>{"ro", "root=/dev/sda1"}));
    EXPECT_EQ(image->initrd->path, "/initrd.img");
    EXPECT_EQ(image->chainloader->blockList->text, "+1");
    EXPECT_EQ(image->root->text, "(hd0,1)");
    EXPECT_EQ(image->rootnoverify->text, "(hd1)");
    EXPECT_TRUE(image->savedefault && image->quiet);
    ASSERT_EQ(image->modules.size(), 3u);
    EXPECT_EQ(image->modules[0].text, "/a");
    EXPECT_FALSE(image->modules[0].nounzip);
    EXPECT_TRUE(image->modules[0].bootArguments.empty());
    EXPECT_EQ(image->modules[1].text, "/m a b");
    EXPECT_TRUE(image->modules[1].nounzip);
    EXPECT_EQ(image->modules[1].bootArguments, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(image->modules[2].location.blockList->text, "0+5");
    EXPECT_FALSE(image->modules[2].nounzip);
    EXPECT_EQ(Image({"kernel /a b", "kernel /c"})->kernel->bootArguments.size(), 0u) << "the last one counts";
}

TEST(GrubConfig, AWrongValueOfAnImageRefusesTheText) {
    for (const char* line :
         {"kernel", "kernel x", "kernel (hd0)", "initrd", "initrd x", "chainloader", "chainloader +",
          "chainloader --force +1", "root", "root x", "root hd0", "root (hd0,0)/boot", "rootnoverify", "rootnoverify (",
          "module", "module x", "modulenounzip", "modulenounzip x"}) {
        EXPECT_FALSE(Image({line})) << line;
    }
}

}  // namespace
