#include <tests/manual/Classes.h>

#include <corvidlmw/gadget/IconGP.h>
#include <corvidlmw/graph/ArcP.h>
#include <corvidlmw/graph/GraphP.h>
#include <corvidlmw/list/LmListP.h>
#include <corvidlmw/managers/GridP.h>
#include <corvidlmw/managers/HPanedWP.h>
#include <corvidlmw/managers/RubberBoardP.h>
#include <corvidlmw/managers/SpringBoxP.h>
#include <corvidlmw/scrollbar/SvScrollBarP.h>

#include <tests/support/DisplayTest.h>

#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/TransltnsP.h>

#include <map>
#include <ostream>

namespace corvidlmw::test {
namespace {

// ---- Widgets ---------------------------------------------------------------------------------------

Widget MakeArc(Widget parent, ArgList args, Cardinal count) {
    Widget graph = XmCreateGraph(parent, Name("graph"), nullptr, 0);
    XmCreatePushButtonGadget(graph, Name("node"), nullptr, 0);
    XmCreatePushButtonGadget(graph, Name("node"), nullptr, 0);
    return XmCreateArc(graph, Name("arc"), args, count);
}

// With cells beyond the first.
Widget MakeGridParent(Widget parent) {
    return XtVaCreateWidget("grid", xmGridWidgetClass, parent, XmNnumRows, 3, XmNnumColumns, 3,
                            NULL);
}

// With panes before the child.
Widget MakePanesParent(Widget parent) {
    Widget panes = XmCreateHorzPanedWindow(parent, Name("panes"), nullptr, 0);
    XmCreatePushButton(panes, Name("pane"), nullptr, 0);
    XmCreatePushButton(panes, Name("pane"), nullptr, 0);
    return panes;
}

// ---- Declarations ----------------------------------------------------------------------------------

std::vector<XtResource> Taken(XtResourceList list, Cardinal count) {
    std::vector<XtResource> taken(list, list + count);
    XtFree(reinterpret_cast<char *>(list));
    return taken;
}

std::vector<XtResource> ConstraintResourcesOf(WidgetClass widget_class) {
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtGetConstraintResourceList(widget_class, &list, &count);
    return list ? Taken(list, count) : std::vector<XtResource>();
}

// The list finds its translations when the class is initialized: the toolkit's own.
std::string TranslationsOf(WidgetClass widget_class) {
    if (widget_class == lmListWidgetClass) {
        return std::string(_XmList_ListXlations1) + _XmList_ListXlations2;
    }
    const char *table = widget_class->core_class.tm_table;
    return table && table != XtInheritTranslations ? table : "";
}

// Before a class is initialized its lists hold what it declares itself, and nothing inherited; the
// toolkit joins them then.
Declared ReadDeclared(WidgetClass widget_class) {
    EXPECT_FALSE(widget_class->core_class.class_inited & 1);
    Declared declared{ResourcesOf(widget_class), ConstraintResourcesOf(widget_class),
                      TranslationsOf(widget_class)};
    // What gadgets share is declared by a class of its own.
    if (widget_class == xmvIconGadgetClass) {
        const auto shared = ResourcesOf(reinterpret_cast<WidgetClass>(&xmvIconGCacheObjClassRec));
        declared.resources.insert(declared.resources.end(), shared.begin(), shared.end());
    }
    return declared;
}

} // namespace

void PrintTo(const Class &each, std::ostream *out) {
    *out << each.name;
}

const std::vector<Class> &Classes() {
    static const std::vector<Class> classes = {
        {"XmGraph", &xmGraphWidgetClass},
        {"XmArc", &xmArcWidgetClass, MakeArc},
        {"LmList", &lmListWidgetClass},
        {"SvScrollBar", &svScrollBarWidgetClass},
        {"XmGrid", &xmGridWidgetClass, nullptr, MakeGridParent},
        {"XmHorzPanedWindow", &xmHorzPanedWindowWidgetClass, nullptr, MakePanesParent},
        {"XmRubberBoard", &xmRubberBoardWidgetClass},
        {"XmSpringBox", &xmSpringBoxWidgetClass},
        {"XmvIconGadget", &xmvIconGadgetClass},
    };
    return classes;
}

const Declared &DeclaredBy(const Class &one) {
    static const auto all = [] {
        std::map<std::string, Declared> found;
        for (const Class &each : Classes()) {
            found[each.name] = ReadDeclared(*each.pointer);
        }
        return found;
    }();
    return all.at(one.name);
}

std::vector<XtResource> ResourcesOf(WidgetClass widget_class) {
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtGetResourceList(widget_class, &list, &count);
    return Taken(list, count);
}

} // namespace corvidlmw::test
