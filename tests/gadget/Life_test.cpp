/* Gadgets that die, and what is left of them: nothing. */

#include <tests/gadget/GadgetTest.h>

#include <Xm/RowColumn.h>

#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace corvidlmw::test {
namespace {

// Made before main, and so destroyed after all that is made later.
struct LateShell {
    Widget shell = nullptr;
    ~LateShell() {
        if (shell) {
            XtDestroyWidget(shell);
            _exit(EXIT_SUCCESS);
        }
    }
};
LateShell late_shell;

class LifeTest : public GadgetTest {
protected:
    void Destroy(Widget w) {
        XtDestroyWidget(w);
        Pump();
    }

    // With all that a gadget can have of its own.
    Widget MakeRich(int number, Pixmap picture) {
        return Make({{XmNforeground, 0x100 + number % 7},
                     {XmNbackground, 0x808000 + number % 3},
                     {XmNtopShadowColor, red},
                     {XmNbottomShadowColor, green},
                     {XmNshowArrow, True},
                     {XmNmarginLeft, number % 11},
                     {XmNlabelPixmap, picture},
                     {XmNsensitive, number % 2 == 0}});
    }
};

TEST_F(LifeTest, GivesBackAllThatItTook) {
    Show();
    const Pixmap picture = MakePicture(16, 16);
    Destroy(MakeRich(1, picture)); // what the toolkit makes once for all
    const auto before = ServerResources::Of(display);
    std::vector<Widget> gadgets;
    for (int i = 0; i < 40; ++i)
        gadgets.push_back(MakeRich(i, picture));
    Pump();
    EXPECT_GT(ServerResources::Of(display).gcs(), before.gcs());
    for (int i = 0; i < 40; ++i)
        Set(gadgets[static_cast<unsigned>(i)], {{XmNbackground, 0x606060 + i},
                                                {XmNmarginTop, i},
                                                {XmNlabelString, Label("other")},
                                                {XmNshadowThickness, i % 5}});
    Pump();
    for (Widget gadget : gadgets)
        XtDestroyWidget(gadget);
    Pump();
    EXPECT_EQ(ServerResources::Of(display), before);
    XFreePixmap(display, picture);
}

TEST_F(LifeTest, TheLastOneFreesTheArrow) {
    Show();
    Make(); // its tile
    const int pixmaps = ServerResources::Of(display).pixmaps();
    Widget one = Make({{XmNshowArrow, True}});
    Widget two = Make({{XmNshowArrow, True}});
    Widget red_one = Make({{XmNshowArrow, True}, {XmNbackground, red}});
    EXPECT_EQ(PartOf(one).arrow_pixmap, PartOf(two).arrow_pixmap);
    EXPECT_NE(PartOf(one).arrow_pixmap, PartOf(red_one).arrow_pixmap);
    Destroy(one);
    Destroy(red_one);
    EXPECT_EQ(ServerResources::Of(display).pixmaps(), pixmaps + 1);
    EXPECT_EQ(Picture::OfPixmap(display, PartOf(two).arrow_pixmap).area().width,
              PartOf(two).arrow_width);
    Destroy(two);
    EXPECT_EQ(ServerResources::Of(display).pixmaps(), pixmaps);
    // An arrow is no larger than the server has room for.
    Widget absurd = Make({{XmNshadowThickness, 30000}, {XmNshowArrow, True}});
    EXPECT_EQ(PartOf(absurd).arrow_width, 0);
}

TEST_F(LifeTest, ManyLooksComeAndGo) {
    Random random;
    Widget row = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, board, nullptr);
    Show();
    std::vector<Widget> alive;
    for (int i = 0; i < 600; ++i) {
        if (alive.size() < 20 || random.Chance(0.5))
            alive.push_back(Make(
                {{XmNmarginLeft, random.Between(0, 5)}, {XmNiconPlacement, random.Between(0, 3)}},
                random.Chance(0.5) ? row : nullptr));
        const auto index =
            static_cast<std::size_t>(random.Between(0, static_cast<int>(alive.size()) - 1));
        Set(alive[index], {{XmNmarginLeft, random.Between(0, 5)},
                           {XmNalignment, random.Between(0, 2)},
                           {XmNforeground, random.Between(0, 3)}});
        EXPECT_LE(Get<Dimension>(alive[index], XmNmarginLeft), 5);
        if (random.Chance(0.4)) {
            XtDestroyWidget(alive[index]);
            alive.erase(alive.begin() + static_cast<std::ptrdiff_t>(index));
        }
    }
    Pump();
}

TEST_F(LifeTest, AChangeWithinAChangeKeepsBoth) {
    static Widget inner;
    auto &slot = xmvIconGadgetClassRec.rect_class.resize;
    static XtWidgetProc resize = slot;
    slot = [](Widget w) {
        resize(w);
        if (w == std::exchange(inner, nullptr))
            Set(w, {{XmNmarginRight, 8}});
    };
    Widget gadget = Make();
    Show();
    inner = gadget;
    Set(gadget, {{XmNmarginLeft, 6}});
    slot = resize;
    EXPECT_EQ(Get<Dimension>(gadget, XmNmarginLeft), 6);
    EXPECT_EQ(Get<Dimension>(gadget, XmNmarginRight), 8);
    EXPECT_EQ(MirrorOf(gadget).margin_right, 8);
}

TEST_F(LifeTest, MayEndAfterTheStaticsOfTheLibrary) {
    const auto exit_with_gadgets = [] {
        XServer::Instance().ReopenRobot();
        const Client client;
        late_shell.shell = MakeShell(client.display, "late", 100, 100);
        XtVaCreateWidget(
            "icon", xmvIconGadgetClass,
            XtVaCreateWidget("board", xmBulletinBoardWidgetClass, late_shell.shell, nullptr),
            XmNshowArrow, True, nullptr);
        std::exit(EXIT_FAILURE);
    };
    EXPECT_EXIT(exit_with_gadgets(), ::testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST_F(LifeTest, AWarningOfAChangeMayMakeAnother) {
    static Widget inner;
    Widget gadget = inner = Make();
    const XtErrorHandler handler = XtAppSetWarningHandler(app, [](String) {
        if (Widget w = std::exchange(inner, nullptr))
            Set(w, {{XmNmarginRight, 8}, {XmNlabelString, Label("inner")}});
    });
    Set(gadget, {{XmNmarginLeft, 6}, {XmNalignment, 77}});
    XtAppSetWarningHandler(app, handler);
    EXPECT_EQ(inner, nullptr);
    EXPECT_EQ(TextOf(gadget), "inner");
    EXPECT_EQ(MirrorOf(gadget).margin_left, 6);
    EXPECT_EQ(MirrorOf(gadget).margin_right, 8);
}

} // namespace
} // namespace corvidlmw::test
