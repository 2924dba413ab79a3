// Resource files: the input's lines are put before all widgets of a shell, in which a widget of each class is
// made, managed, resized and destroyed.
#include <tests/fuzz/Client.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <X11/IntrinsicP.h>
#include <Xm/BulletinB.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>

#include <array>

using namespace corvidlmw;
using namespace corvidlmw::fuzz;

namespace {

// ---- The resource file --------------------------------------------------------------------------------

// A shell has a name that no other execution's has, and every line counts below it: a line without a loose
// binding in front names the program, whose place the shell takes.
Bool PutBelowShell(XrmDatabase *, XrmBindingList bindings, XrmQuarkList quarks,
                   XrmRepresentation *type, XrmValue *value, XPointer closure) {
    const std::string &shell = *reinterpret_cast<std::string *>(closure);
    std::vector<XrmBinding> placed_bindings = {XrmBindTightly};
    std::vector<XrmQuark> placed = {XrmStringToQuark(shell.c_str())};
    for (int i = 0; quarks[i] != NULLQUARK; i++) {
        placed_bindings.push_back(i == 0 ? XrmBindLoosely : bindings[i]);
        placed.push_back(quarks[i]);
    }
    placed.push_back(NULLQUARK);
    XrmDatabase database = XtDatabase(Client::Shared().display);
    XrmQPutResource(&database, placed_bindings.data(), placed.data(), *type, value);
    return False;
}

void UseFile(const std::string &text, std::string shell) {
    XrmDatabase file = XrmGetStringDatabase(text.c_str());
    XrmQuark none = NULLQUARK;
    if (file) {
        XrmEnumerateDatabase(file, &none, &none, XrmEnumAllLevels, PutBelowShell,
                             reinterpret_cast<XPointer>(&shell));
        XrmDestroyDatabase(file);
    }
}

// ---- The widgets -----------------------------------------------------------------------------------------

Widget Made(WidgetClass widget_class, const char *name, Widget parent) {
    return XtVaCreateManagedWidget(name, widget_class, parent, nullptr);
}

void FillGraph(Widget graph) {
    std::array nodes = {Made(xmvIconGadgetClass, "node", graph),
                        Made(xmPushButtonGadgetClass, "button", graph),
                        Made(xmPushButtonWidgetClass, "other", graph)};
    for (Widget from : nodes) {
        XmCreateAttachedArc(graph, Name("arc"), from, nodes[0], nullptr, 0);
    }
    XmCreateAttachedArc(graph, Name("arc"), nodes[0], nodes[1], nullptr, 0);
    XmGraphLayout(graph);
}

void FillList(Widget list) {
    std::array<char *, 3> rows = {Name("one\trow"), Name("another"), Name("")};
    LmListSetTable(list, rows.data(), static_cast<int>(rows.size()), 2);
}

// A row or column out of range is fatal, so the program gives them, and the file cannot.
void FillGrid(Widget grid) {
    for (Position place = 0; place < 2; place++) {
        XtVaCreateManagedWidget("cell", xmPushButtonWidgetClass, grid, XmNrow, 0, XmNcolumn, 0,
                                nullptr);
    }
}

void FillManager(Widget manager) {
    Made(xmPushButtonWidgetClass, "first", manager);
    Made(xmvIconGadgetClass, "second", manager);
}

std::vector<Widget> MakeAll(Widget board) {
    std::vector<Widget> all;
    const auto add = [&](WidgetClass widget_class, const char *name, void (*fill)(Widget)) {
        all.push_back(Made(widget_class, name, board));
        if (fill) {
            fill(all.back());
        }
    };
    add(xmGraphWidgetClass, "graph", FillGraph);
    add(lmListWidgetClass, "list", FillList);
    add(svScrollBarWidgetClass, "bar", nullptr);
    add(xmvIconGadgetClass, "icon", nullptr);
    add(xmGridWidgetClass, "grid", FillGrid);
    add(xmHorzPanedWindowWidgetClass, "panes", FillManager);
    add(xmRubberBoardWidgetClass, "rubber", FillManager);
    add(xmSpringBoxWidgetClass, "springs", FillManager);
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static int count = 0;
    const std::string name = "shell" + std::to_string(++count);
    UseFile(std::string(reinterpret_cast<const char *>(data), size), name);
    const Owned shell(test::MakeShell(Client::Shared().display, name.c_str(), 640, 480));
    Widget board =
        XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, XmNwidth, 640,
                                XmNheight, 480, XmNresizePolicy, XmRESIZE_NONE, nullptr);
    const std::vector<Widget> all = MakeAll(board);
    XtRealizeWidget(shell);
    Settle();
    for (const auto &[width, height] : {std::pair{1, 1}, {300, 200}}) {
        for (Widget w : all) {
            XtConfigureWidget(w, 0, 0, static_cast<Dimension>(width),
                              static_cast<Dimension>(height), 0);
        }
        Settle();
    }
    return 0;
}
