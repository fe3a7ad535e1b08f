#include "inspectors/grub.h"

#include <sys/stat.h>

#include "tests/inspectors/file_tree.h"

namespace {

class Grub : public testing::Test {
protected:
    Grub() {
        tree_.place.File("menu",
                         "# a comment\r\n"
                         "default 1\r\n"
                         "fallback 2 0,1\n\r"
                         "timeout 10\r"
                         "hiddenmenu\n"
                         "color white/blue yellow/red\n"
                         "splashimage (hd0,0)/splash.xpm.gz\n"
                         "gfxmenu (fd0)0+5,7\n"
                         "\n"
                         "title First image\n"
                         "root (hd0,0)\n"
                         "kernel /vmlinuz ro quiet\n"
                         "initrd /initrd.img\n"
                         "savedefault\n"
                         "quiet\n"
                         "module /m1 x\n"
                         "modulenounzip /m a b\n"
                         "\ttitle Second\n"
                         "rootnoverify (hd1,0,a)\n"
                         "chainloader +1\n"
                         "title Second\n");
        tree_.place.File("saved", "default saved\ncolor white/blue\n");
        tree_.place.File("wrong", "timeout 10\ntitle x\nkernel nonsense\n");
    }

    // The question of "menu", for which "grub" stands.
    Answer Of(const std::string& what) const { return tree_.Ask(what + " of grub config file \"@/menu\""); }
    Answer OfImage(const std::string& what) const { return Of(what + " of bootable image 1"); }

    FileTree tree_;
};

TEST_F(Grub, GlobalPhrases) {
    EXPECT_EQ(Of("path"), Values({tree_.Path("menu")}));
    EXPECT_EQ(Of("paths"), Values({tree_.Path("menu")}));
    EXPECT_EQ(Of("default image"), Values({"1"}));
    EXPECT_EQ(Of("default images"), Values({"1"}));
    EXPECT_EQ(Of("index of default image"), Values({"1"}));
    EXPECT_EQ(Of("fallback images"), Values({"2", "0", "1"}));
    EXPECT_EQ(Of("fallback image"), (Answer{{"2"}, "ArgumentNotUnique"}));
    EXPECT_EQ(Of("indexes of fallback images"), Values({"2", "0", "1"}));
    EXPECT_EQ(Of("fallback image 3"), Values({"1"}));
    EXPECT_EQ(Of("fallback images (0; 1; 4; -1)"), Values({"2"}));
    EXPECT_EQ(Of("fallback image 0"), DoesNotExist());
    EXPECT_EQ(Of("fallback image 4"), DoesNotExist());
    EXPECT_EQ(Of("gfxmenu"), Values({"(fd0)0+5,7"}));
    EXPECT_EQ(Of("block list of gfxmenu"), Values({"0+5,7"}));
    EXPECT_EQ(Of("block lists of gfxmenus"), Values({"0+5,7"}));
    EXPECT_EQ(Of("path of gfxmenu"), DoesNotExist());
    EXPECT_EQ(Of("splashimage"), Values({"(hd0,0)/splash.xpm.gz"}));
    EXPECT_EQ(Of("paths of splashimages"), Values({"/splash.xpm.gz"}));
    EXPECT_EQ(Of("path of splashimage"), Values({"/splash.xpm.gz"}));
    EXPECT_EQ(Of("device of splashimage"), Values({"(hd0,0)"}));
    EXPECT_EQ(Of("devices of splashimages"), Values({"(hd0,0)"}));
    EXPECT_EQ(Of("block list of splashimage"), DoesNotExist());
    EXPECT_EQ(Of("timeout"), Values({"10"}));
    EXPECT_EQ(Of("timeouts"), Values({"10"}));
    EXPECT_EQ(Of("hiddenmenu"), Values({"True"}));
    EXPECT_EQ(Of("hiddenmenus"), Values({"True"}));
}

TEST_F(Grub, Colors) {
    EXPECT_EQ(Of("normal of color scheme"), Values({"white/blue"}));
    EXPECT_EQ(Of("normals of color schemes"), Values({"white/blue"}));
    EXPECT_EQ(Of("highlight of color scheme"), Values({"yellow/red"}));
    EXPECT_EQ(Of("highlights of color schemes"), Values({"yellow/red"}));
    EXPECT_EQ(Of("foreground of normal of color scheme"), Values({"white"}));
    EXPECT_EQ(Of("foregrounds of normals of color scheme"), Values({"white"}));
    EXPECT_EQ(Of("background of highlight of color scheme"), Values({"red"}));
    EXPECT_EQ(Of("backgrounds of (normals of it; highlights of it) of color scheme"), Values({"blue", "red"}));
    EXPECT_EQ(tree_.Ask("highlight of color scheme of grub config file \"@/saved\""), DoesNotExist());
}

TEST_F(Grub, Images) {
    EXPECT_EQ(Of("bootable images"), Values({"First image", "Second", "Second"}));
    EXPECT_EQ(Of("titles of bootable images"), Values({"First image", "Second", "Second"}));
    EXPECT_EQ(Of("title of bootable image 2"), Values({"Second"}));
    EXPECT_EQ(Of("bootable image"), (Answer{{"First image"}, "ArgumentNotUnique"}));
    EXPECT_EQ(Of("bootable image 0"), DoesNotExist());
    EXPECT_EQ(Of("bootable image 4"), DoesNotExist());
    EXPECT_EQ(Of("bootable images (3; 4; 1)"), Values({"Second", "First image"}));
    EXPECT_EQ(Of("bootable image \"First image\""), Values({"First image"}));
    EXPECT_EQ(Of("bootable images (\"first image\"; \"First\"; \"Second\")"), Values({"Second"}));
    EXPECT_EQ(Of("chainloaders of bootable images \"Second\""), Values({"+1"})) << "the first of that title";
    EXPECT_EQ(Of("location of kernel of bootable image \"First image\""), Values({"/vmlinuz"}));
    EXPECT_EQ(OfImage("locations of kernels"), Values({"/vmlinuz"}));
    EXPECT_EQ(OfImage("boot arguments of kernel"), Values({"ro", "quiet"}));
    EXPECT_EQ(OfImage("boot argument 2 of kernel"), Values({"quiet"}));
    EXPECT_EQ(OfImage("boot arguments (0; 1; 3) of kernel"), Values({"ro"}));
    EXPECT_EQ(OfImage("boot argument of kernel"), (Answer{{"ro"}, "ArgumentNotUnique"}));
    EXPECT_EQ(OfImage("boot argument 3 of kernel"), DoesNotExist());
    EXPECT_EQ(OfImage("kernel").failure, "OperationNotDefined");
    EXPECT_EQ(OfImage("initrd"), Values({"/initrd.img"}));
    EXPECT_EQ(OfImage("path of initrds"), Values({"/initrd.img"}));
    EXPECT_EQ(OfImage("device of initrd"), DoesNotExist());
    EXPECT_EQ(OfImage("root"), Values({"(hd0,0)"}));
    EXPECT_EQ(OfImage("roots"), Values({"(hd0,0)"}));
    EXPECT_EQ(OfImage("rootnoverify"), DoesNotExist());
    EXPECT_EQ(Of("rootnoverifys of bootable images"), Values({"(hd1,0,a)"}));
    EXPECT_EQ(Of("rootnoverify of bootable image 2"), Values({"(hd1,0,a)"}));
    EXPECT_EQ(OfImage("chainloader"), DoesNotExist());
    EXPECT_EQ(Of("chainloader of bootable image 2"), Values({"+1"}));
    EXPECT_EQ(OfImage("savedefault"), Values({"True"}));
    EXPECT_EQ(OfImage("quiet"), Values({"True"}));
    EXPECT_EQ(Of("savedefaults of bootable images"), Values({"True", "False", "False"}));
    EXPECT_EQ(Of("quiets of bootable images"), Values({"True", "False", "False"}));
    EXPECT_EQ(OfImage("modules"), Values({"/m1 x", "/m a b"}));
    EXPECT_EQ(OfImage("module 2"), Values({"/m a b"}));
    EXPECT_EQ(OfImage("modules (0; 1; 3)"), Values({"/m1 x"}));
    EXPECT_EQ(OfImage("module"), (Answer{{"/m1 x"}, "ArgumentNotUnique"}));
    EXPECT_EQ(OfImage("nounzips of modules"), Values({"False", "True"}));
    EXPECT_EQ(OfImage("nounzip of module 2"), Values({"True"}));
    EXPECT_EQ(OfImage("location of module 2"), Values({"/m"}));
    EXPECT_EQ(OfImage("locations of modules"), Values({"/m1", "/m"}));
    EXPECT_EQ(OfImage("boot arguments of module 2"), Values({"a", "b"}));
    EXPECT_EQ(OfImage("boot argument 2 of module 2"), Values({"b"}));
    EXPECT_EQ(OfImage("boot argument of module 1"), Values({"x"}));
    EXPECT_EQ(OfImage("boot arguments 1 of modules"), Values({"x", "a"}));
}

TEST_F(Grub, WhatIsNotSaidIsNotThere) {
    const auto ofEmpty = [this](const std::string& what) {
        return tree_.Ask(what + " of grub config file \"@/empty\"");
    };
    for (const char* what : {"default image", "fallback image", "fallback image 1", "gfxmenu", "splashimage", "timeout",
                             "bootable image", "bootable image 1", "bootable image \"\"", "normal of color scheme"}) {
        EXPECT_EQ(ofEmpty(what), DoesNotExist()) << what;
    }
    EXPECT_EQ(ofEmpty("hiddenmenu"), Values({"False"}));
    EXPECT_EQ(ofEmpty("fallback images"), Nothing());
    EXPECT_EQ(tree_.Ask("default image of grub config file \"@/saved\""), Values({"saved"}));
    EXPECT_EQ(tree_.Ask("index of default image of grub config file \"@/saved\""), DoesNotExist());
}

TEST_F(Grub, AFileThatIsNoneIsNotThere) {
    tree_.place.Folder("folder");
    tree_.place.Link("link", "menu");
    EXPECT_EQ(tree_.Ask("paths of grub config files (\"@/wrong\"; \"@/none\"; \"\"; \"@/folder\"; \"/dev/zero\"; "
                        "\"@/dir/pipe\"; \"/proc/kmsg\"; \"@/link\")"),
              Values({tree_.Path("link")}));
    EXPECT_EQ(tree_.Ask("path of grub config file \"@/wrong\""), DoesNotExist());
    EXPECT_EQ(tree_.Ask("grub config file \"@/menu\"").failure, "OperationNotDefined");
}

TEST_F(Grub, TheFirstPlaceThatHasOneCounts) {
    const auto first = [this](std::vector<std::string> names) {
        for (std::string& name : names) {
            name = tree_.Path(name);
        }
        const std::optional<grub_config_file> config = FirstGrubConfig(names);
        return config ? (*config)->path : "none";
    };
    EXPECT_EQ(first({"menu", "saved"}), tree_.Path("menu"));
    EXPECT_EQ(first({"wrong", "saved"}), tree_.Path("saved"));
    EXPECT_EQ(first({"none", "empty"}), tree_.Path("empty"));
    EXPECT_EQ(first({"dir", "wrong"}), "none");
    EXPECT_EQ(Ask("paths of grub config files").failure, "");
}

// A line is read as the lines of a file are: one of more than the window is two.
TEST_F(Grub, ALongLineIsCut) {
    tree_.place.File("long", "title " + std::string(2042, 'x') + "timeout\nquiet\n");
    EXPECT_EQ(tree_.Ask("lengths of titles of bootable images of grub config file \"@/long\""), Values({"2042"}));
    EXPECT_EQ(tree_.Ask("quiet of bootable image of grub config file \"@/long\""), Values({"True"}));
}

// A part keeps the tree alive by itself.
TEST_F(Grub, APartOutlivesTheWhole) {
    std::optional<grub_color> color;
    {
        const std::optional<grub_config_file> config = ReadGrubConfig(tree_.place.Location("menu"));
        const grub_color_scheme scheme(*config, *(*config)->colorScheme);
        color.emplace(grub_color_pair(scheme, scheme->normal), scheme->normal.foreground);
    }
    EXPECT_EQ((*color)->text, "white");
}

}  // namespace
