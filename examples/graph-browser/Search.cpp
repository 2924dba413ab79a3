#include "Search.h"

#include <algorithm>
#include <utility>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/TextF.h>

#include <corvidlmw/graph/Graph.h>

#include "Looks.h"

namespace graph_browser {
namespace {

constexpr Pixel no_mark = static_cast<Pixel>(-1);
constexpr const char *mark_color = "#d4500c";

// In a row of the form: to the right of `left`, or first without one.
Widget Attached(const char *name, WidgetClass kind, Widget form, Widget left) {
    return XtVaCreateManagedWidget(
        name, kind, form, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM,
        XmNleftAttachment, left ? XmATTACH_WIDGET : XmATTACH_FORM, XmNleftWidget, left, nullptr);
}

} // namespace

// ---- The line --------------------------------------------------------------

Search::Search(Widget parent, GraphView &of_view, std::function<void()> on_keyboard)
    : view(of_view), keyboard_changed(std::move(on_keyboard)),
      line(XtVaCreateManagedWidget("searchLine", xmFormWidgetClass, parent, nullptr)) {
    const Text prompt{"Find:"};
    const Text nothing{" "};
    const Widget label = Attached("findLabel", xmLabelWidgetClass, line, nullptr);
    XtVaSetValues(label, XmNlabelString, prompt.Get(), nullptr);
    field = Attached("find", xmTextFieldWidgetClass, line, label);
    count = Attached("hits", xmLabelWidgetClass, line, field);
    // Another text does not ask for another size.
    XtVaSetValues(count, XmNlabelString, nothing.Get(), XmNrightAttachment, XmATTACH_FORM,
                  XmNalignment, XmALIGNMENT_BEGINNING, XmNrecomputeSize, False, nullptr);
    XtVaSetValues(field, XmNtraversalOn, False, nullptr);
    XtAddEventHandler(field, ButtonPressMask, False, FieldPressed, this);
    XtAddEventHandler(view.GraphWidget(), ButtonPressMask, False, GraphPressed, this);
    XtAddCallback(field, XmNvalueChangedCallback, TextChanged, this);
    XtAddCallback(field, XmNactivateCallback, Activated, this);
    if (const auto found = Colors{view.GraphWidget()}.Find(mark_color))
        color = *found;
}

// ---- Keyboard --------------------------------------------------------------

bool Search::HasKeyboard() const {
    return GetResource<Boolean>(field, XmNtraversalOn) != False;
}

void Search::SetTraversal(bool on) {
    if (on == HasKeyboard())
        return;
    XtVaSetValues(field, XmNtraversalOn, on ? True : False, nullptr);
    if (on)
        XmProcessTraversal(field, XmTRAVERSE_CURRENT);
    keyboard_changed();
}

void Search::TakeKeyboard() {
    SetTraversal(true);
    XmTextFieldSetSelection(field, 0, XmTextFieldGetLastPosition(field),
                            XtLastTimestampProcessed(XtDisplay(field)));
}

void Search::DeleteCharacter() {
    XtCallActionProc(field, "delete-next-character", XtLastEventProcessed(XtDisplay(field)),
                     nullptr, 0);
}

void Search::FieldPressed(Widget, XtPointer search, XEvent *, Boolean *) {
    static_cast<Search *>(search)->SetTraversal(true);
}

void Search::GraphPressed(Widget, XtPointer search, XEvent *, Boolean *) {
    static_cast<Search *>(search)->SetTraversal(false);
}

// ---- The text --------------------------------------------------------------

void Search::SetText(const std::string &text) {
    XmTextFieldSetString(field, Name(text.c_str()));
}

std::string Search::Wanted() const {
    char *text = XmTextFieldGetString(field);
    std::string copy = text ? text : "";
    XtFree(text);
    return copy;
}

void Search::TextChanged(Widget, XtPointer search, XtPointer) {
    static_cast<Search *>(search)->at.reset();
    static_cast<Search *>(search)->Refresh();
}

void Search::Activated(Widget, XtPointer search, XtPointer) {
    static_cast<Search *>(search)->GoToNext();
}

void Search::ShowCount() {
    std::string text = " ";
    if (!Wanted().empty())
        text = hits.empty()       ? "not found"
               : hits.size() == 1 ? "1 node"
                                  : std::to_string(hits.size()) + " nodes";
    const Text label{text};
    XtVaSetValues(count, XmNlabelString, label.Get(), nullptr);
}

// ---- Hits ------------------------------------------------------------------

// A node that is not in the widget now has none to be marked.
void Search::Mark(int node, Pixel mark) {
    if (static_cast<std::size_t>(node) >= view.Shown().nodes.size())
        return;
    const Widget gadget = view.WidgetOfNode(node);
    if (gadget && GetResource<Pixel>(gadget, XmNmarkColor) != mark)
        XtVaSetValues(gadget, XmNmarkColor, mark, nullptr);
}

void Search::Refresh() {
    if (view.AboutToChange())
        return;
    hits = FindNodes(view.Shown(), Wanted());
    for (const int node : marked)
        if (!std::binary_search(hits.begin(), hits.end(), node))
            Mark(node, no_mark);
    for (const int node : hits)
        Mark(node, color);
    marked = hits;
    ShowCount();
}

// Past the last hit comes the first again. In the butterfly style the node moves to the middle of the
// graph, which is then built anew around it.
void Search::GoToNext() {
    if (hits.empty() || view.AboutToChange())
        return;
    auto next = at ? std::upper_bound(hits.begin(), hits.end(), *at) : hits.begin();
    if (next == hits.end())
        next = hits.begin();
    at = *next;
    if (!view.Editing())
        view.Select(at);
    if (view.AboutToChange())
        return;
    if (const Widget gadget = view.WidgetOfNode(*at))
        XmGraphCenterAroundWidget(view.GraphWidget(), gadget);
}

} // namespace graph_browser
