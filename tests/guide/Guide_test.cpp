/* Each step of the guide: its program does what its page says, and looks like its picture. */

#include "Program.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

#include <X11/keysym.h>

namespace corvidlmw::test {

namespace {

namespace fs = std::filesystem;

// ---- Pictures ----------------------------------------------------------------------------------

// Of what is drawn on the background, so that an arc that is missing counts also in a window that is nearly
// empty. Not every pixel need be the same: a text cursor blinks.
constexpr double largest_difference = 0.01;

Pixel MostFrequent(const Picture &picture) {
    const XRectangle area = picture.area();
    std::map<Pixel, int> counts;
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x)
            ++counts[picture.At(x, y)];
    const auto largest =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto &a, const auto &b) { return a.second < b.second; });
    return largest == counts.end() ? Picture::nowhere : largest->first;
}

double ShareThatDiffers(const Picture &kept, const Picture &now) {
    const XRectangle area = kept.area();
    const int drawn = area.width * area.height - kept.Count(MostFrequent(kept));
    int different = 0;
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x)
            different += kept.At(x, y) != now.At(x, y) ? 1 : 0;
    return static_cast<double>(different) / std::max(drawn, 1);
}

// ---- Steps -------------------------------------------------------------------------------------

// The test of step NN-name is Guide.NN_name; what a program writes to a file it writes to a directory of
// the test's own.
class Guide : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        for (char &c : name)
            c = c == '_' ? '-' : c;
        step = name.substr(std::strlen("Step"));
        directory = fs::path(GUIDE_OUT) / step;
        fs::remove_all(directory);
        fs::create_directories(directory);
    }

    // Further arguments, and variables of the environment.
    void Start(Program::Words arguments = {}, const Program::Words &environment = {}) {
        arguments.insert(arguments.begin(), std::string(GUIDE_PROGRAMS "/guide-") + step);
        program.emplace(directory, arguments, environment);
    }

    void TearDown() override {
        if (!program)
            return;
        EXPECT_EQ(program->Close(), 0) << "closing the window does not end the program";
        EXPECT_EQ(program->Complaints(), "");
    }

    // The picture that the page shows. The kept one is made anew where the environment asks for it.
    void ExpectPicture() {
        const Picture picture = program->Look();
        const std::string file = step + ".png";
        ASSERT_TRUE(picture.SavePng(fs::path(GUIDE_OUT) / file));
        if (std::getenv("CORVIDLMW_KEEP_PICTURES")) {
            ASSERT_TRUE(picture.SavePng(fs::path(GUIDE "/pictures") / file));
            return;
        }
        const Picture kept = Picture::FromPng(fs::path(GUIDE "/pictures") / file);
        ASSERT_EQ(kept.area(), picture.area());
        EXPECT_LE(ShareThatDiffers(kept, picture), largest_difference)
            << "see " << GUIDE_OUT << "/" << file << "; ./run guide makes the pictures anew";
    }

    std::string File(const char *name) const {
        std::ifstream in{directory / name};
        return {std::istreambuf_iterator<char>{in}, {}};
    }

    static std::string Data(const char *name) { return fs::path(GUIDE "/steps") / name; }

    std::string step;
    fs::path directory;
    std::optional<Program> program;
};

const char *const birds = "05-dot-file/birds.dot";

int Right(const XRectangle &r) {
    return r.x + r.width;
}

int Bottom(const XRectangle &r) {
    return r.y + r.height;
}

TEST_F(Guide, Step01_window) {
    Start();
    ExpectPicture();
    if (!Program::answers)
        return;
    EXPECT_EQ(program->Count("XmGraph"), 1);
    EXPECT_EQ(program->Count("XmPushButtonGadget"), 1);
}

TEST_F(Guide, Step02_arc) {
    Start();
    ExpectPicture();
    if (!Program::answers)
        return;
    // XmNchildSpacing is 40 pixels.
    const XRectangle egg = program->Place("egg");
    const XRectangle chick = program->Place("chick");
    EXPECT_EQ(chick.x, Right(egg) + 40);
    EXPECT_EQ(program->Place("raven").x, Right(chick) + 40);
    // The arcs are drawn between them.
    const Pixel black = 0;
    const Picture picture = program->Look();
    const auto middle = static_cast<short>(egg.y + egg.height / 2);
    EXPECT_GT(picture.Count(black, {static_cast<short>(Right(egg)), middle, 40, 1}), 20);
}

TEST_F(Guide, Step03_arc_looks) {
    Start();
    ExpectPicture();
    if (!Program::answers)
        return;
    // The loop and its label lie above the node and are the only red things.
    const Pixel firebrick = 0xb22222;
    const auto red = program->Look().Box(firebrick);
    ASSERT_TRUE(red);
    EXPECT_LE(Bottom(*red), program->Place("chick").y + 3);
    EXPECT_EQ(program->Place("nest").x, Right(program->Place("parents")) + 80);
}

TEST_F(Guide, Step04_layout) {
    Start();
    if (!Program::answers)
        return;
    EXPECT_GT(program->Place("test").x, Right(program->Place("build")));
    EXPECT_GT(program->Place("build").x, Right(program->Place("edit")));
    program->Click("vertical");
    EXPECT_GT(program->Place("test").y, Bottom(program->Place("build")));
    EXPECT_GT(program->Place("build").y, Bottom(program->Place("edit")));
    program->Click("vertical");
    program->Click("butterfly");
    EXPECT_GT(program->Place("review").x, Right(program->Place("edit")));
    EXPECT_GT(program->Place("release").x, Right(program->Place("review")));
    program->Click("release");
    EXPECT_EQ(program->Place("test").x, program->Place("review").x);
    EXPECT_GT(program->Place("release").x, Right(program->Place("test")));
    ExpectPicture();
    program->Click("butterfly");
    EXPECT_GT(program->Place("review").x, Right(program->Place("edit")));
}

TEST_F(Guide, Step05_dot_file) {
    Start({Data(birds)});
    ExpectPicture();
    if (!Program::answers)
        return;
    EXPECT_EQ(program->Count("XmPushButtonGadget"), 11);
    EXPECT_GT(program->Place("raven").x, Right(program->Place("corvus")));
    EXPECT_GT(program->Place("rook").x, Right(program->Place("crow")));
}

TEST_F(Guide, Step06_icons) {
    Start({Data(birds)});
    ExpectPicture();
    if (!Program::answers)
        return;
    EXPECT_EQ(program->Count("XmvIconGadget"), 11);
}

TEST_F(Guide, Step07_selection) {
    Start({Data(birds)});
    program->Drag({5, 5}, {470, 320});
    EXPECT_NE(program->Said().find(" corvids corvus coloeus"), std::string::npos);
    if (!Program::answers)
        return;
    program->Click("raven");
    EXPECT_EQ(program->Said(), "selected: raven\n");
    program->Click(program->Middle("jay"), Button1, ControlMask);
    EXPECT_EQ(program->Said(), "selected: raven jay\n");
    // Half way from a node to the other.
    const XRectangle coloeus = program->Place("coloeus");
    const XRectangle jackdaw = program->Place("jackdaw");
    program->Click({static_cast<short>((Right(coloeus) + jackdaw.x) / 2),
                    static_cast<short>(coloeus.y + coloeus.height / 2)});
    EXPECT_EQ(program->Said(), "selected: coloeus->jackdaw\n");
    // A rubber band around two nodes and the arc between them; its press takes the selection back.
    const XRectangle crow = program->Place("crow");
    const XRectangle rook = program->Place("rook");
    program->Drag({static_cast<short>(crow.x - 5), static_cast<short>(crow.y - 5)},
                  {static_cast<short>(Right(rook) + 5), static_cast<short>(Bottom(rook) + 5)});
    EXPECT_EQ(program->Said(), "selected:\nselected: crow rook crow->rook\n");
    program->Click(program->Middle("corvus"), Button1, ShiftMask);
    EXPECT_NE(program->Said().find(" corvus raven crow rook"), std::string::npos);
    ExpectPicture();
}

class GuideEditing : public Guide {
protected:
    void EditByGesture() {
        const XRectangle jay = program->Place("jay");
        program->Click({jay.x, static_cast<short>(Bottom(jay) + 30)}, Button2, ShiftMask);
        program->Drag(program->Middle("garrulus"), program->Middle("Node"), Button2, ShiftMask);
        // Once more: there is such an arc.
        program->Drag(program->Middle("garrulus"), program->Middle("Node"), Button2, ShiftMask);
        EXPECT_EQ(program->Said(), "refused: garrulus->new1\n");
        // The end at the jackdaw goes to the magpie.
        const XRectangle jackdaw = program->Place("jackdaw");
        program->Drag(
            {static_cast<short>(jackdaw.x - 6), static_cast<short>(jackdaw.y + jackdaw.height / 2)},
            program->Middle("magpie"), Button2);
        program->Click("rook");
        program->Click("delete");
        ExpectPicture();
        program->Click("save");
        EXPECT_EQ(program->Said(), "saved: birds.dot\n");
        const std::string saved = File("birds.dot");
        EXPECT_NE(saved.find("garrulus -> new1"), std::string::npos) << saved;
        EXPECT_NE(saved.find("coloeus -> magpie"), std::string::npos) << saved;
        EXPECT_EQ(saved.find("coloeus -> jackdaw"), std::string::npos) << saved;
        EXPECT_EQ(saved.find("rook"), std::string::npos) << saved;
    }
};

TEST_F(GuideEditing, Step08_editing) {
    fs::copy(Data(birds), directory);
    Start({"birds.dot"});
    if (Program::answers)
        EditByGesture();
    // All, by a rubber band and the two buttons.
    program->Drag({5, 45}, {470, 365});
    program->Click({20, 15});
    program->Click({70, 15});
    EXPECT_EQ(program->Said(), "saved: birds.dot\n");
    EXPECT_EQ(File("birds.dot").find("corv"), std::string::npos) << File("birds.dot");
}

const char *const corvids = "09-overview/corvids.dot";

TEST_F(Guide, Step09_overview) {
    Start({Data(corvids)});
    const Picture before = program->Look();
    program->Drag({440, 30}, {440, 90});
    EXPECT_FALSE(before == program->Look());
    ExpectPicture();
    const int scrolled = Program::answers ? program->Place("raven").y : 0;
    program->Drag({440, 90}, {440, 60});
    if (!Program::answers)
        return;
    EXPECT_GT(program->Place("raven").y, scrolled + 50);
}

TEST_F(Guide, Step10_search) {
    Start({Data(corvids)});
    const int before = Program::answers ? program->Place("raven").y : 0;
    program->Type("jay\n\n\n");
    ExpectPicture();
    if (!Program::answers)
        return;
    EXPECT_LT(program->Place("raven").y, before - 100);
}

class GuideCommands : public Guide {
protected:
    void ExpectGap(int pixels) {
        if (Program::answers) {
            EXPECT_EQ(program->Place("raven").x - Right(program->Place("corvus")), pixels);
        }
    }
};

TEST_F(GuideCommands, Step11_commands) {
    Start({Data(birds)}, {"XAPPLRESDIR=" + directory.string()});
    const Picture without = program->Look();
    EXPECT_EQ(program->Close(), 0);
    Start({Data(birds)}, {"XAPPLRESDIR=" + Data("11-commands")});
    EXPECT_FALSE(without == program->Look()) << "the resource file has no effect";

    program->Key(XK_p, ControlMask);
    EXPECT_EQ(program->Said(), "printed: graph.ps\n");
    const std::string paper = File("graph.ps");
    EXPECT_TRUE(paper.starts_with("%!")) << paper;
    EXPECT_NE(paper.find("(raven)"), std::string::npos);
    EXPECT_NE(paper.find("\nshowpage\n"), std::string::npos);

    ExpectGap(40);
    program->Key(XK_equal, ControlMask);
    ExpectGap(60);
    program->Key(XK_minus, ControlMask);
    ExpectGap(40);
    program->Key(XK_t, ControlMask);
    ExpectPicture();
    EXPECT_EQ(program->CloseBy(XK_q, ControlMask), 0);
    EXPECT_EQ(program->Complaints(), "");
    program.reset();
}

class GuideBrowser : public Guide {
protected:
    void JoinAndDelete() {
        program->Drag(program->Middle("Garrulus"), program->Middle("magpie"), Button2, ShiftMask);
        program->Click("jay");
        ExpectPicture();
        program->Key(XK_d, ControlMask);
        program->Key(XK_s, ControlMask);
        const std::string saved = File("corvids.dot");
        EXPECT_NE(saved.find("Garrulus -> magpie"), std::string::npos) << saved;
        EXPECT_EQ(saved.find("Garrulus -> jay"), std::string::npos) << saved;
    }
};

TEST_F(GuideBrowser, Step12_browser) {
    fs::copy(Data(corvids), directory);
    Start({"corvids.dot"}, {"XAPPLRESDIR=" + Data("12-browser")});
    program->Type("jay\n");
    if (Program::answers)
        JoinAndDelete();
    // What can be seen at the upper left, by a rubber band.
    program->Drag({175, 45}, {560, 400});
    program->Key(XK_d, ControlMask);
    program->Key(XK_s, ControlMask);
    const std::string saved = File("corvids.dot");
    EXPECT_EQ(saved.find("black-headed jay"), std::string::npos) << saved;
    EXPECT_NE(saved.find("raven"), std::string::npos) << saved;
}

} // namespace

} // namespace corvidlmw::test
