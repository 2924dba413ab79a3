#include "Mrm.h"

#include <algorithm>
#include <iterator>

#include <Mrm/MrmPublic.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

namespace {

using Creator = Widget (*)(Widget, char *, ArgList, Cardinal);

// The class is asked for only at the call: its pointer is a variable of another library.
struct Creation {
    const char *name;
    Creator create;
    WidgetClass *widget_class;
};

// clang-format off
const Creation creations[] = {
    {"XmCreateGraph",             XmCreateGraph,             &xmGraphWidgetClass},
    {"XmCreateManagedGraph",      XmCreateManagedGraph,      &xmGraphWidgetClass},
    {"XmCreateScrolledGraph",     XmCreateScrolledGraph,     &xmGraphWidgetClass},
    {"XmCreateArc",               XmCreateArc,               &xmArcWidgetClass},
    {"LmCreateList",              LmCreateList,              &lmListWidgetClass},
    {"LmCreateScrolledList",      LmCreateScrolledList,      &lmListWidgetClass},
    {"XmCreateGrid",              XmCreateGrid,              &xmGridWidgetClass},
    {"XmCreateGridDialog",        XmCreateGridDialog,        &xmGridWidgetClass},
    {"XmCreateHorzPanedWindow",   XmCreateHorzPanedWindow,   &xmHorzPanedWindowWidgetClass},
    {"XmCreateRubberBoard",       XmCreateRubberBoard,       &xmRubberBoardWidgetClass},
    {"XmCreateRubberBoardDialog", XmCreateRubberBoardDialog, &xmRubberBoardWidgetClass},
    {"XmCreateSpringBox",         XmCreateSpringBox,         &xmSpringBoxWidgetClass},
    {"XmCreateSpringBoxDialog",   XmCreateSpringBoxDialog,   &xmSpringBoxWidgetClass},
    {"SvCreateScrollBar",         SvCreateScrollBar,         &svScrollBarWidgetClass},
    {"XmvCreateIconGadget",       XmvCreateIconGadget,       &xmvIconGadgetClass},
};
// clang-format on

bool Register(const Creation &creation) {
    char *name = const_cast<char *>(creation.name);
    // The resource manager's type says nothing of the parameters, but it calls with these. The compiler
    // warns of a cast that drops them, save by way of this type.
    auto create = reinterpret_cast<Widget (*)()>(reinterpret_cast<void (*)()>(creation.create));
    return MrmRegisterClass(0, name, name, create, *creation.widget_class) == MrmSUCCESS;
}

} // namespace

// The resource manager appends without looking for the same name, and never forgets.
Cardinal CorvidlmwMrmRegisterClasses() {
    static bool registered = false;
    registered = registered || std::all_of(std::begin(creations), std::end(creations), Register);
    return registered ? MrmSUCCESS : MrmFAILURE;
}
