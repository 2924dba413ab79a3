/* Where the toolkit takes the gadget for one of its label gadgets: row columns of all types, option
 * menus, cascade buttons. The sanitizers watch its memory. */

#include <tests/gadget/GadgetTest.h>

#include <X11/keysym.h>
#include <Xm/CascadeBG.h>
#include <Xm/CascadeBGP.h>
#include <Xm/Container.h>
#include <Xm/Form.h>
#include <Xm/LabelG.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleBG.h>

namespace corvidlmw::test {
namespace {

class MenusTest : public GadgetTest {
protected:
    // Label, icon, toggle, icon, push button: each with the margins that the toolkit evens out.
    void Fill(Widget parent) {
        label = XtVaCreateManagedWidget("a label", xmLabelGadgetClass, parent, XmNmarginTop, 3,
                                        nullptr);
        first = Make({{XmNmarginLeft, 6}}, parent, "first");
        toggle = XtVaCreateManagedWidget("toggle", xmToggleButtonGadgetClass, parent, nullptr);
        second = Make({{XmNshowArrow, True}, {XmNmarginBottom, 9}}, parent, "second");
        button = XtVaCreateManagedWidget("push", xmPushButtonGadgetClass, parent, XmNmarginRight,
                                         11, nullptr);
    }

    // What is ours is as it was set, and the mirror is true but for margins that were added to.
    void ExpectWhole(Widget gadget, const std::string &text) {
        const auto &record = *reinterpret_cast<XmvIconGadget>(gadget);
        EXPECT_EQ(TextOf(gadget), text);
        EXPECT_EQ(record.label._label, record.icon.label_string);
        EXPECT_EQ(record.label.font, record.icon.font_list);
        EXPECT_EQ(record.label.pixmap, record.icon.label_pixmap);
        EXPECT_EQ(record.label.normal_GC, record.icon.normal_gc);
        const auto &part = *record.icon.cache;
        const auto &mirror = *record.label.cache;
        EXPECT_EQ(mirror.label_type, XmSTRING);
        EXPECT_EQ(mirror.alignment, part.alignment);
        EXPECT_EQ(mirror.menu_type, part.menu_type);
        EXPECT_EQ(mirror.foreground, part.foreground);
        EXPECT_EQ(part.foreground, ink);
        EXPECT_GE(mirror.margin_left, part.margin_left);
    }

    void ExpectAllWhole() {
        ExpectWhole(first, "first");
        ExpectWhole(second, "second");
        EXPECT_EQ(PartOf(first).cache->margin_left, 6);
        EXPECT_EQ(PartOf(second).cache->margin_bottom, 9);
        EXPECT_EQ(TextOf(label), "a label");
        for (Widget neighbour : {label, toggle, button}) {
            EXPECT_LT(MirrorOf(neighbour).margin_left, 60);
            EXPECT_LE(MirrorOf(neighbour).margin_top, 20);
        }
    }

    void Change() {
        Set(first, {{XmNmarginLeft, 2}, {XmNalignment, XmALIGNMENT_END}});
        Set(first, {{XmNmarginLeft, 6}});
        Set(second, {{XmNlabelString, Label("other")}, {XmNforeground, red}});
        Set(second, {{XmNlabelString, Label("second")}, {XmNforeground, ink}});
        Set(second, {{XmNshadowThickness, 4}, {XmNbackground, 0x808080}});
        // Of the label's own margins the toolkit would free what it has not allocated.
        Set(label, {{XmNlabelString, Label("longer label")}});
        Set(label, {{XmNlabelString, Label("a label")}});
    }

    Widget label = nullptr;
    Widget first = nullptr;
    Widget toggle = nullptr;
    Widget second = nullptr;
    Widget button = nullptr;
};

TEST_F(MenusTest, RowColumnsOfEveryPackingLeaveGadgetsAndNeighboursWhole) {
    Show();
    for (const int orientation : {XmVERTICAL, XmHORIZONTAL})
        for (const int packing : {XmPACK_TIGHT, XmPACK_COLUMN, XmPACK_NONE})
            for (const int alignment :
                 {-1, int{XmALIGNMENT_BEGINNING}, int{XmALIGNMENT_CENTER}, int{XmALIGNMENT_END}})
                for (const int vertical :
                     {int{XmALIGNMENT_CENTER}, int{XmALIGNMENT_BASELINE_TOP},
                      int{XmALIGNMENT_BASELINE_BOTTOM}, int{XmALIGNMENT_CONTENTS_TOP}}) {
                    SCOPED_TRACE(std::to_string(orientation) + " " + std::to_string(packing) + " " +
                                 std::to_string(alignment) + " " + std::to_string(vertical));
                    Widget row = XtVaCreateManagedWidget(
                        "row", xmRowColumnWidgetClass, board, XmNorientation, orientation,
                        XmNpacking, packing, XmNisAligned, alignment >= 0, XmNentryAlignment,
                        alignment < 0 ? XmALIGNMENT_END : alignment, XmNentryVerticalAlignment,
                        vertical, XmNnumColumns, 2, nullptr);
                    Fill(row);
                    Pump();
                    Change();
                    ExpectAllWhole();
                    Set(row, {{XmNadjustMargin, False}, {XmNentryAlignment, XmALIGNMENT_CENTER}});
                    Set(row, {{XmNadjustMargin, True}});
                    Pump();
                    ExpectAllWhole();
                    XtDestroyWidget(first);
                    Pump();
                    ExpectWhole(second, "second");
                    XtDestroyWidget(row);
                }
}

TEST_F(MenusTest, ARowColumnEvensOutItsMarginsToo) {
    Widget row = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, board, nullptr);
    Fill(row);
    Show();
    EXPECT_EQ(MirrorOf(first).margin_left, MirrorOf(toggle).margin_left);
    EXPECT_GT(MirrorOf(first).margin_left, 6);
    EXPECT_EQ(PartOf(first).text_x, 3 + 2 + MirrorOf(first).margin_left);
    Set(first, {{XmNmarginMiddle, 5}});
    EXPECT_EQ(PartOf(first).text_x, 3 + 2 + MirrorOf(first).margin_left);
}

TEST_F(MenusTest, RadioBoxesAndFormsHoldIt) {
    Arg args[] = {{Name(XmNisHomogeneous), False}};
    Widget radio = XmCreateRadioBox(board, Name("radio"), args, 1);
    XtManageChild(radio);
    Fill(radio);
    Show();
    Change();
    ExpectAllWhole();
    XtDestroyWidget(radio);
    Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, board, nullptr);
    Fill(form);
    Set(second,
        {{XmNtopAttachment, XmATTACH_WIDGET}, {XmNtopWidget, reinterpret_cast<XtArgVal>(first)}});
    Change();
    Pump();
    ExpectWhole(first, "first");
    EXPECT_GE(second->core.y, first->core.y + first->core.height);
    XtDestroyWidget(form);
    Widget container = XtVaCreateManagedWidget("container", xmContainerWidgetClass, board, nullptr);
    Widget inside = Make({}, container, "inside");
    Pump();
    Set(inside, {{XmNmarginLeft, 2}});
    ExpectWhole(inside, "inside");
}

// ---- Menus ----------------------------------------------------------------------------------------

TEST_F(MenusTest, APopupIsDrawnOnlyWhileItIsUp) {
    Widget menu = XmCreatePopupMenu(board, Name("menu"), nullptr, 0);
    Fill(menu);
    Show();
    EXPECT_EQ(PartOf(first).cache->menu_type, XmMENU_POPUP);
    EXPECT_EQ(reinterpret_cast<XmvIconGadget>(first)->gadget.highlight_thickness, 0);
    EXPECT_FALSE(Get<Boolean>(first, XmNtraversalOn));
    Change();
    ExpectAllWhole();
    XtRealizeWidget(menu);
    {
        Recorder recorder;
        XtClass(first)->core_class.expose(first, nullptr, nullptr);
        EXPECT_EQ(recorder.Drawing(XtWindow(menu)).size(), 1u);
    }
    XButtonPressedEvent event{};
    event.x_root = event.y_root = 200;
    XmMenuPosition(menu, &event);
    XtManageChild(menu);
    Pump();
    {
        Recorder recorder;
        XtClass(first)->core_class.expose(first, nullptr, nullptr);
        EXPECT_GT(recorder.Drawing(XtWindow(menu)).size(), 2u);
    }
    EXPECT_GT(Picture::Of(first).Count(ink), 20);
    CallbackLog<> help;
    help.Add(first, XmNhelpCallback);
    XEvent key{};
    key.xkey.type = KeyPress;
    key.xkey.display = display;
    key.xkey.window = XtWindow(menu);
    auto *record = reinterpret_cast<XmGadgetClass>(XtClass(first));
    record->gadget_class.input_dispatch(first, &key, XmHELP_EVENT);
    Pump();
    EXPECT_EQ(help.size(), 1u);
}

TEST_F(MenusTest, AnOptionMenuShowsWhatItSays) {
    Widget menu = XmCreatePulldownMenu(board, Name("menu"), nullptr, 0);
    Fill(menu);
    Arg args[] = {{Name(XmNsubMenuId), reinterpret_cast<XtArgVal>(menu)},
                  {Name(XmNmenuHistory), reinterpret_cast<XtArgVal>(first)}};
    Widget option = XmCreateOptionMenu(board, Name("option"), args, 2);
    XtManageChild(option);
    Show();
    Widget shown = XmOptionButtonGadget(option);
    EXPECT_EQ(TextOf(shown), "first");
    Set(option, {{XmNmenuHistory, reinterpret_cast<XtArgVal>(second)}});
    EXPECT_EQ(TextOf(shown), "second");
    Set(second, {{XmNlabelString, Label("changed")}});
    EXPECT_EQ(TextOf(shown), "changed");
    ExpectWhole(second, "changed");
    Widget fallback = Make({}, option, "in the option menu itself");
    Set(fallback, {{XmNmarginLeft, 3}});
    XtDestroyWidget(second);
    Pump();
    XtDestroyWidget(option);
    XtDestroyWidget(menu);
    Pump();
}

TEST_F(MenusTest, AMenuOfOnlyIconsWorksFromTheFirstOne) {
    Widget menu = XmCreatePulldownMenu(board, Name("menu"), nullptr, 0);
    Widget only = Make({}, menu, "only");
    Arg args[] = {{Name(XmNsubMenuId), reinterpret_cast<XtArgVal>(menu)}};
    Widget option = XmCreateOptionMenu(board, Name("option"), args, 1);
    XtManageChild(option);
    Show();
    Click(XmOptionButtonGadget(option), 5, 5);
    Key(XK_Escape);
    Pump();
    ExpectWhole(only, "only");
}

TEST_F(MenusTest, MenuBarsAndEntryCallbacksPassItBy) {
    CallbackLog<XmRowColumnCallbackStruct> log;
    Widget bar = XmCreateMenuBar(board, Name("bar"), nullptr, 0);
    XtVaCreateManagedWidget("cascade", xmCascadeButtonGadgetClass, bar, nullptr);
    XtManageChild(bar);
    while (!warnings().empty())
        ExpectWarning("");
    Widget row = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, board, XmNy, 60, nullptr);
    log.Add(row, XmNentryCallback);
    Fill(row);
    Show();
    Change();
    ExpectAllWhole();
    Click(first, 5, 5);
    EXPECT_TRUE(log.empty());
}

// The toolkit has a function _XmCreateArrowPixmaps of its own, for cascade buttons.
TEST_F(MenusTest, CascadeButtonsKeepTheirArrows) {
    Widget icon = Make({{XmNshowArrow, True}});
    Widget menu = XmCreatePopupMenu(board, Name("menu"), nullptr, 0);
    Widget submenu = XmCreatePulldownMenu(menu, Name("submenu"), nullptr, 0);
    Widget cascade = XtVaCreateManagedWidget("cascade", xmCascadeButtonGadgetClass, menu,
                                             XmNsubMenuId, submenu, nullptr);
    Show();
    const auto &record = *reinterpret_cast<XmCascadeButtonGadgetRec *>(cascade);
    const Pixmap theirs = record.cascade_button.cache->cascade_pixmap;
    EXPECT_NE(theirs, XmUNSPECIFIED_PIXMAP);
    EXPECT_NE(PartOf(icon).arrow_pixmap, XmUNSPECIFIED_PIXMAP);
    EXPECT_NE(PartOf(icon).arrow_pixmap, theirs);
    EXPECT_EQ(Picture::OfPixmap(display, theirs).area().width,
              record.cascade_button.cascade_rect.width);
    EXPECT_EQ(Picture::OfPixmap(display, PartOf(icon).arrow_pixmap).area().width,
              PartOf(icon).arrow_width);
    Widget another = Make({{XmNshowArrow, True}});
    EXPECT_EQ(PartOf(another).arrow_pixmap, PartOf(icon).arrow_pixmap);
    XtDestroyWidget(icon);
    XtDestroyWidget(cascade);
    Pump();
    EXPECT_EQ(Picture::OfPixmap(display, PartOf(another).arrow_pixmap).area().width,
              PartOf(another).arrow_width);
    XtDestroyWidget(menu);
}

TEST_F(MenusTest, HelpClimbsToWhoHasSome) {
    Widget icon = Make({{XmNtraversalOn, True}});
    CallbackLog<> help;
    help.Add(board, XmNhelpCallback);
    Show();
    XmProcessTraversal(icon, XmTRAVERSE_CURRENT);
    Pump();
    Key(XK_F1);
    EXPECT_EQ(help.reasons(), (std::vector<int>{XmCR_HELP}));
}

} // namespace
} // namespace corvidlmw::test
