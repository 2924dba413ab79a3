// Widgets of every creation function, fetched by the Motif Resource Manager from a compiled module.

#include <tests/support/DisplayTest.h>
#include <tests/uil/Uil.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>
#include <corvidlmw/uil/Mrm.h>

#include <Mrm/MrmPublic.h>
#include <Xm/DialogS.h>
#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>

#include <map>

namespace {

using namespace corvidlmw::test;

const char include_line[] = "include file 'corvidlmw/uil/Corvidlmw.uil';\n";

class UilFetchTest : public DisplayTest {
protected:
    static void SetUpTestSuite() {
        MrmInitialize();
        ASSERT_EQ(CorvidlmwMrmRegisterClasses(), Cardinal(MrmSUCCESS));
        ASSERT_EQ(CorvidlmwMrmRegisterClasses(), Cardinal(MrmSUCCESS)) << "a second time";
    }

    // The widget of that name, below the shell; null if there is none.
    Widget Fetch(const std::string &body, const char *name) {
        const UilModule module(include_line + body);
        EXPECT_EQ(module.complaints(), "");
        std::string file = module.uid_file();
        char *files[] = {file.data()};
        MrmHierarchy hierarchy = nullptr;
        MrmType type;
        Widget widget = nullptr;
        EXPECT_EQ(MrmOpenHierarchyPerDisplay(display, 1, files, nullptr, &hierarchy),
                  Cardinal(MrmSUCCESS));
        const Cardinal status = MrmFetchWidget(hierarchy, Name(name), shell, &widget, &type);
        MrmCloseHierarchy(hierarchy);
        return status == MrmSUCCESS ? widget : nullptr;
    }

    static char *Name(const char *name) { return const_cast<char *>(name); }

    // Arcs are no children that the toolkit would find by name.
    static Widget OnlyArc(Widget graph) {
        int count = 0;
        WidgetList arcs = XmGraphGetArcs(graph, &count);
        return count == 1 ? arcs[0] : nullptr;
    }

    // What stands between the two: what a creation function makes beside the widget.
    static std::string Around(Widget child, Widget top) {
        Widget parent = XtParent(child);
        if (parent == top) {
            return "nothing";
        }
        if (XmIsDialogShell(parent)) {
            return "a dialog shell";
        }
        const bool scrolled = XmIsScrolledWindow(parent) || XmIsScrolledWindow(XtParent(parent));
        return scrolled ? "a scrolled window" : "something else";
    }
    static std::string WhatItMakes(const std::string &procedure) {
        if (procedure.ends_with("Dialog")) {
            return "a dialog shell";
        }
        const bool scrolled = procedure.find("Scrolled") != std::string::npos;
        return scrolled ? "a scrolled window" : "nothing";
    }

    template <typename Value>
    static Value Get(Widget widget, const char *resource) {
        Value value{};
        XtVaGetValues(widget, resource, &value, NULL);
        return value;
    }
};

TEST_F(UilFetchTest, EveryCreationFunctionIsKnown) {
    const std::map<std::string, WidgetClass> classes = {
        {"XmCreateGraph", xmGraphWidgetClass},
        {"XmCreateManagedGraph", xmGraphWidgetClass},
        {"XmCreateScrolledGraph", xmGraphWidgetClass},
        {"XmCreateArc", xmArcWidgetClass},
        {"LmCreateList", lmListWidgetClass},
        {"LmCreateScrolledList", lmListWidgetClass},
        {"XmCreateGrid", xmGridWidgetClass},
        {"XmCreateGridDialog", xmGridWidgetClass},
        {"XmCreateHorzPanedWindow", xmHorzPanedWindowWidgetClass},
        {"XmCreateRubberBoard", xmRubberBoardWidgetClass},
        {"XmCreateRubberBoardDialog", xmRubberBoardWidgetClass},
        {"XmCreateSpringBox", xmSpringBoxWidgetClass},
        {"XmCreateSpringBoxDialog", xmSpringBoxWidgetClass},
        {"SvCreateScrollBar", svScrollBarWidgetClass},
        {"XmvCreateIconGadget", xmvIconGadgetClass},
    };
    EXPECT_EQ(UilProcedures().size(), classes.size());
    for (const std::string &procedure : UilProcedures()) {
        const bool arc = procedure == "XmCreateArc";
        const char *parent = arc ? "XmCreateGraph" : "XmCreateGrid";
        const std::string body = "object parent : user_defined procedure " + std::string(parent) +
                                 " { controls { user_defined child; }; };\n" +
                                 "object child : user_defined procedure " + procedure + " { };\n";
        Widget top = Fetch(body, "parent");
        ASSERT_NE(top, nullptr) << procedure;
        Widget child = arc ? OnlyArc(top) : XtNameToWidget(top, "*child");
        ASSERT_NE(child, nullptr) << procedure;
        EXPECT_EQ(XtClass(child), classes.at(procedure)) << procedure;
        EXPECT_EQ(Around(child, top), WhatItMakes(procedure)) << procedure;
        EXPECT_TRUE(XtIsManaged(child) || procedure.ends_with("Dialog")) << procedure;
        XtDestroyWidget(top);
    }
}

TEST_F(UilFetchTest, ValuesOfAllTypesArrive) {
    Widget grid = Fetch(R"(
        object grid : user_defined procedure XmCreateGrid {
            arguments { XmNnumRows = 3; XmNnumColumns = 2; XmNdefaultSpacing = 7; XmNshowGrid = true; };
            controls { user_defined rows; user_defined bar; user_defined icon; };
        };
        object rows : user_defined procedure LmCreateList {
            arguments {
                XmNitems = string_table('one', 'two', 'three');
                XmNselectionPolicy = XmEXTENDED_SELECT;
                XmNshowIcons = false;
                XmNrow = 2;
                XmNcolumn = 1;
                XmNgravity = SouthEastGravity;
            };
        };
        object bar : user_defined procedure SvCreateScrollBar {
            arguments { XmNorientation = XmHORIZONTAL; XmNvalue = 40; XmNbackground = color('red'); };
        };
        object icon : user_defined procedure XmvCreateIconGadget {
            arguments {
                XmNlabelString = 'a text';
                XmNiconPlacement = XmICON_TOP;
                XmNshowArrow = true;
                XmNshadowType = XmSHADOW_DROP;
            };
        };)",
                        "grid");
    ASSERT_NE(grid, nullptr);
    Widget list = XtNameToWidget(grid, "rows"), bar = XtNameToWidget(grid, "bar"),
           icon = XtNameToWidget(grid, "icon");
    EXPECT_EQ(Get<Dimension>(grid, XmNdefaultSpacing), 7);
    EXPECT_EQ(Get<Boolean>(grid, XmNshowGrid), True);
    EXPECT_EQ(Get<int>(list, XmNitemCount), 3);
    EXPECT_EQ(Get<unsigned char>(list, XmNselectionPolicy), XmEXTENDED_SELECT);
    EXPECT_EQ(Get<Boolean>(list, XmNshowIcons), False);
    EXPECT_EQ(Get<int>(list, XmNrow), 2);
    EXPECT_EQ(Get<int>(list, XmNgravity), SouthEastGravity);
    EXPECT_EQ(Get<int>(bar, XmNvalue), 40);
    XColor red, exact;
    XAllocNamedColor(display, DefaultColormapOfScreen(XtScreen(bar)), "red", &red, &exact);
    EXPECT_EQ(Get<Pixel>(bar, XmNbackground), red.pixel);
    EXPECT_EQ(Get<int>(icon, XmNiconPlacement), XmICON_TOP);
    EXPECT_EQ(Get<Boolean>(icon, XmNshowArrow), True);
    EXPECT_EQ(Get<unsigned char>(icon, XmNshadowType), XmSHADOW_DROP);
    XtManageChild(grid);
    Show();
    EXPECT_EQ(LmListItemPos(list, nullptr), 0);
    XtDestroyWidget(grid);
}

int chosen_position;

void Chosen(Widget, XtPointer, XtPointer call_data) {
    chosen_position = static_cast<LmListCallbackStruct *>(call_data)->item_position;
}

// Nodes, arcs between them by name, a callback that the client registers.
TEST_F(UilFetchTest, AWindowLivesAsItWasWritten) {
    MrmRegisterArg names[] = {{Name("Chosen"), reinterpret_cast<XtPointer>(Chosen)}};
    ASSERT_EQ(MrmRegisterNames(names, 1), Cardinal(MrmSUCCESS));
    Widget panes = Fetch(R"(
        procedure Chosen(any);
        object panes : user_defined procedure XmCreateHorzPanedWindow {
            arguments { XmNwidth = 500; XmNheight = 300; };
            controls { user_defined tasks; user_defined plan; };
        };
        object tasks : user_defined procedure LmCreateList {
            arguments { XmNitems = string_table('first', 'second'); XmNhorzPaneMinimum = 120; };
            callbacks { XmNbrowseSelectionCallback = procedure Chosen(0); };
        };
        object plan : user_defined procedure XmCreateScrolledGraph {
            arguments { XmNautoLayoutMode = XmALWAYS; };
            controls { XmPushButtonGadget first; XmPushButtonGadget second; user_defined arc; };
        };
        object first : XmPushButton gadget { };
        object second : XmPushButton gadget { };
        object arc : user_defined procedure XmCreateArc {
            arguments {
                XmNfrom = XmPushButton first;
                XmNto = XmPushButton second;
                XmNarcDirection = XmDIRECTED;
            };
        };)",
                         "panes");
    ASSERT_NE(panes, nullptr);
    XtManageChild(panes);
    Show();
    Widget graph = XtNameToWidget(panes, "*plan");
    ASSERT_EQ(XmGraphNumNodes(graph), 2);
    ASSERT_EQ(XmGraphNumArcs(graph), 1);
    Widget from = nullptr, to = nullptr;
    XmGraphGetArcNodes(graph, OnlyArc(graph), &from, &to);
    EXPECT_STREQ(XtName(from), "first");
    EXPECT_STREQ(XtName(to), "second");
    EXPECT_LT(Get<Position>(from, XmNx), Get<Position>(to, XmNx));
    Widget list = XtNameToWidget(panes, "tasks");
    EXPECT_GE(Get<Dimension>(list, XmNwidth), 120);
    Click(list, 20, 25);
    EXPECT_EQ(chosen_position, 2);
    XtDestroyWidget(panes);
}

} // namespace
