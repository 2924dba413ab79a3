// Pointer input: what an action finds under the pointer, the read-only graph, and the tables of actions and
// translations. A read-only graph hands button events to its gadgets and arcs, as any manager of the toolkit
// does; windows get theirs from the server. What an editable graph does stands in SelectGestures.cpp and
// EditGestures.cpp.

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/graph/Gestures.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Picking -------------------------------------------------------------------------------------

Widget ObjectAt(Widget graph, int x, int y) {
    Widget gadget = GadgetAt(graph, CutToPosition(x), CutToPosition(y));
    return gadget ? gadget : XmGraphInputOverArc(graph, x, y);
}

// ---- Read-only mode ------------------------------------------------------------------------------------

void DispatchToArc(Widget arc, XEvent *event, Mask mask) {
    if (XtIsSensitive(arc) && XtIsManaged(arc)) {
        reinterpret_cast<XmArcClassRec *>(XtClass(arc))->arc_class.input_dispatch(arc, event, mask);
    }
}

void SetSelectedGadget(Widget graph, Widget object) {
    ManagerOf(graph).selected_gadget = reinterpret_cast<XmGadget>(object);
}

Widget SelectedGadget(Widget graph) {
    return reinterpret_cast<Widget>(ManagerOf(graph).selected_gadget);
}

// The client runs in a gadget's action and may destroy it: what is kept is stored first.
void HandleButtonPress(Widget w, XEvent *event, String *, Cardinal *) {
    if (GraphOf(w).editable) {
        return;
    }
    Widget object = ObjectAt(w, event->xbutton.x, event->xbutton.y);
    if (!object) {
        return;
    }
    SetSelectedGadget(w, object);
    if (XmIsArc(object)) {
        DispatchToArc(object, event, XmARM_EVENT);
    } else {
        _XmDispatchGadgetInput(object, event, XmARM_EVENT);
    }
}

void HandleButtonRelease(Widget w, XEvent *event, String *, Cardinal *) {
    auto &graph = GraphOf(w);
    Widget object = SelectedGadget(w);
    if (graph.editable || !object) {
        return;
    }
    SetSelectedGadget(w, nullptr);
    if (XmIsArc(object)) {
        graph.armed_gadget = nullptr;
        DispatchToArc(object, event, XmACTIVATE_EVENT);
    } else {
        _XmDispatchGadgetInput(object, event, XmACTIVATE_EVENT);
    }
}

// Only arcs enter and leave here; gadgets do by the manager's own way.
void HandleButtonMotion(Widget w, XEvent *event, String *, Cardinal *) {
    auto &graph = GraphOf(w);
    Widget selected = SelectedGadget(w);
    if (graph.editable || event->xmotion.subwindow != None || !selected) {
        return;
    }
    Widget over = XmGraphInputOverArc(w, event->xmotion.x, event->xmotion.y);
    if ((over && over != selected) || over == graph.armed_gadget) {
        return;
    }
    if (Widget left = graph.armed_gadget) {
        graph.armed_gadget = nullptr;
        DispatchToArc(left, event, XmLEAVE_EVENT);
    }
    if (over) {
        graph.armed_gadget = over;
        DispatchToArc(over, event, XmENTER_EVENT);
    }
}

void Button3Down(Widget w, XEvent *event, String *, Cardinal *) {
    const XButtonEvent &button = event->xbutton;
    const Window own = XtWindow(w);
    XmGraphCallbackStruct call_data{};
    call_data.event = event;
    if (Widget gadget = GadgetAt(w, CutToPosition(button.x), CutToPosition(button.y))) {
        call_data.reason = XmCR_BUTTON_OVER_GADGET;
        call_data.widget = gadget;
    } else if (button.window == own && (button.subwindow == None || button.subwindow == own)) {
        call_data.reason = XmCR_BUTTON_OVER_GRAPH;
        call_data.widget = w;
    } else {
        call_data.reason = XmCR_BUTTON_OVER_OTHER;
        call_data.widget = XtWindowToWidget(XtDisplay(w), button.window);
    }
    XtCallCallbacks(w, XmNuserButtonCallback, &call_data);
}

} // namespace

namespace corvidlmw::graph {

// Later children lie over earlier ones.
Widget GadgetAt(Widget w, Position x, Position y) {
    Widget top = nullptr;
    for (Widget child : Touching(NodeIndexOf(w), Children(w), {x, y, 1, 1})) {
        top = XmIsGadget(child) && XtIsManaged(child) ? child : top;
    }
    return top;
}

// A window that is no living child's is nothing.
Widget PickObject(Widget w, XEvent *event, bool with_arcs) {
    Widget object = _XmGraphPickChild(w, event, with_arcs ? True : False);
    if (!object || XmIsArc(object)) {
        return object;
    }
    NodePtr node = XtParent(object) == w && XtIsRectObj(object) ? NodeOf(object) : nullptr;
    return node && node->widget ? object : nullptr;
}

// ---- Tables --------------------------------------------------------------------------------------

XtActionsRec graph_actions[] = {
    {Name("Enter"), _XmManagerEnter},
    {Name("FocusIn"), _XmManagerFocusIn},
    {Name("FocusOut"), _XmManagerFocusOut},
    {Name("Arm"), HandleButtonPress},
    {Name("Activate"), HandleButtonRelease},
    {Name("ManagerHelp"), _XmManagerHelp},
    {Name("EnterLeaveMotion"), HandleButtonMotion},
    {Name("Indicate"), Indicate},
    {Name("AddIndicate"), AddIndicate},
    {Name("IndicateSubtree"), IndicateSubtree},
    {Name("SelectForMotion"), SelectForMotion},
    {Name("StartAddNode"), StartAddNode},
    {Name("HandleMotion"), HandleMotion},
    {Name("Button3Down"), Button3Down},
    {Name("EndButtonAction"), EndButtonAction},
    {Name("FastButtonAction"), FastButtonAction},
};

const char graph_translations[] = "<EnterWindow>: Enter()\n"
                                  "<FocusIn>: FocusIn()\n"
                                  "<FocusOut>: FocusOut()\n"
                                  "<Key>osfHelp: ManagerHelp()\n"
                                  "~Ctrl ~Meta ~Shift <Btn1Down>: Indicate() Arm()\n"
                                  "Ctrl<Btn1Down>: AddIndicate()\n"
                                  "Shift<Btn1Down>: IndicateSubtree()\n"
                                  "Meta<Btn1Down>: FastButtonAction()\n"
                                  "Shift<Btn2Down>: StartAddNode()\n"
                                  "~Ctrl ~Meta ~Shift <Btn2Down>: SelectForMotion()\n"
                                  "<Btn1Motion>: HandleMotion() EnterLeaveMotion()\n"
                                  "<Btn2Motion>: HandleMotion()\n"
                                  "~Ctrl ~Meta ~Shift <Btn1Up>: EndButtonAction() Activate()\n"
                                  "Shift<Btn1Up>: EndButtonAction()\n"
                                  "Ctrl<Btn1Up>: EndButtonAction()\n"
                                  "~Ctrl ~Meta ~Shift <Btn2Up>: EndButtonAction()\n"
                                  "Shift<Btn2Up>: EndButtonAction()\n"
                                  "<Btn3Down>: Button3Down()\n"
                                  "Ctrl<Btn2Up>: EndButtonAction()\n";

} // namespace corvidlmw::graph

extern "C" Widget _XmGraphPickChild(Widget w, XEvent *event, Boolean with_arcs) {
    const XButtonEvent &button = event->xbutton;
    if (button.subwindow != None) {
        return XtWindowToWidget(XtDisplay(w), button.subwindow);
    }
    Widget gadget = GadgetAt(w, CutToPosition(button.x), CutToPosition(button.y));
    return gadget || !with_arcs ? gadget : XmGraphInputOverArc(w, button.x, button.y);
}
