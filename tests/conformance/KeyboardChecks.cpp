// Help, and the keyboard's way through the widgets.

#include <tests/conformance/Bed.h>

#include <corvidlmw/managers/Grid.h>

#include <X11/keysym.h>
#include <Xm/PushBG.h>

namespace corvidlmw::test {

// ---- Help ----------------------------------------------------------------------

void Bed::NoteHelp(const std::vector<Widget> &helpers) {
    XmProcessTraversal(subject, XmTRAVERSE_CURRENT);
    Pump();
    Note("focus", Focus());
    CallbackLog<> log;
    for (Widget helper : helpers)
        if (helper != subject || SharedResources().contains(XmNhelpCallback))
            log.Add(helper, XmNhelpCallback);
    Key(XK_F1);
    Note("helps", static_cast<long>(log.size()));
    if (log.empty())
        return;
    Note("helper", NameOf(log.back().widget));
    Note("reason", log.back().reason);
}

void Bed::Help() {
    ShowTraversable();
    NoteHelp({subject, board});
}

void Bed::HelpOfTheParent() {
    ShowTraversable();
    NoteHelp({board});
}

// ---- Traversal -----------------------------------------------------------------

namespace {

struct Step {
    const char *name;
    KeySym key;
    unsigned int modifiers;
};

constexpr Step steps[] = {{"1 tab", XK_Tab, 0},         {"2 tab", XK_Tab, 0},
                          {"3 tab", XK_Tab, 0},         {"4 back", XK_Tab, ShiftMask},
                          {"5 down", XK_Down, 0},       {"6 right", XK_Right, 0},
                          {"7 up", XK_Up, 0},           {"8 left", XK_Left, 0},
                          {"9 back", XK_Tab, ShiftMask}};

} // namespace

void Bed::NoteSteps() {
    for (const Step &step : steps) {
        Key(step.key, step.modifiers);
        Note(step.name, Focus());
    }
}

void Bed::TraversalByKeys() {
    ShowTraversable();
    NoteSteps();
}

void Bed::TraversalByFunction() {
    Make();
    Show();
    Note("navigation type", Get<XmNavigationType>(subject, XmNnavigationType));
    Note("traversable", XmIsTraversable(subject));
    Note("visibility", XmGetVisibility(subject));
    Note("tab group", NameOf(XmGetTabGroup(subject)));
    const std::pair<const char *, XmTraversalDirection> ways[] = {
        {"1 current", XmTRAVERSE_CURRENT},
        {"2 next", XmTRAVERSE_NEXT},
        {"3 previous", XmTRAVERSE_PREV},
        {"4 home", XmTRAVERSE_HOME},
        {"5 down", XmTRAVERSE_DOWN},
        {"6 next group", XmTRAVERSE_NEXT_TAB_GROUP},
        {"7 previous group", XmTRAVERSE_PREV_TAB_GROUP}};
    for (const auto &[name, way] : ways) {
        const bool done = XmProcessTraversal(subject, way);
        Pump();
        Note(name, (done ? "to " : "refused at ") + Focus());
    }
}

void Bed::NoteClick() {
    XmProcessTraversal(before, XmTRAVERSE_CURRENT);
    if (pair->is_line)
        return;
    Click(subject, 30, 10);
    Note("after a click", Focus());
}

void Bed::NoTraversal() {
    ShowTraversable();
    Set(subject, {{XmNtraversalOn, False}});
    Note("traversable", XmIsTraversable(subject));
    Note("current", XmProcessTraversal(subject, XmTRAVERSE_CURRENT));
    NoteSteps();
    NoteClick();
}

void Bed::Insensitive() {
    ShowTraversable();
    const Picture sensitive = Look();
    XtSetSensitive(subject, False);
    Pump();
    Note("looks different", !(Look() == sensitive));
    Note("traversable", XmIsTraversable(subject));
    NoteSteps();
    NoteClick();
    XtSetSensitive(subject, True);
    MoveTo(before, 2, 2);
    Note("looks as before", Look() == sensitive);
}

// ---- Children ------------------------------------------------------------------

void Bed::FirstFocus() {
    ShowTraversable();
    Note("manager", XmIsManager(subject));
    if (!XmIsManager(subject))
        return;
    Set(subject, {{XmNinitialFocus, reinterpret_cast<XtArgVal>(XtNameToWidget(subject, "two"))}});
    Note("initial focus", NameOf(Get<Widget>(subject, XmNinitialFocus)));
    XmProcessTraversal(subject, XmTRAVERSE_CURRENT);
    Pump();
    Note("by function", Focus());
    XmProcessTraversal(before, XmTRAVERSE_CURRENT);
    NoteSteps();
}

// A manager gives its gadgets their events.
void Bed::NoteGadget(Widget gadget) {
    CallbackLog<> log;
    for (const char *list :
         {XmNarmCallback, XmNactivateCallback, XmNdisarmCallback, XmNhelpCallback})
        log.Add(gadget, list);
    const auto note = [&](const char *when) {
        std::string reasons;
        for (int reason : log.reasons())
            reasons += " " + std::to_string(reason);
        Note(when, Focus() + reasons);
        log.Clear();
    };
    Click(gadget, 8, 8);
    note("1 clicked");
    XmProcessTraversal(before, XmTRAVERSE_CURRENT);
    XmProcessTraversal(gadget, XmTRAVERSE_CURRENT);
    Pump();
    note("2 traversed to");
    Key(XK_space);
    note("3 space");
    Key(XK_F1);
    note("4 help");
    XtSetSensitive(gadget, False);
    Pump();
    note("5 insensitive");
    Click(gadget, 8, 8);
    note("6 clicked");
}

void Bed::GadgetInside() {
    ShowTraversable();
    Note("manager", XmIsManager(subject));
    if (!XmIsManager(subject))
        return;
    if (XmIsGrid(subject))
        Set(subject, {{XmNnumRows, 3}});
    NoteGadget(XtVaCreateManagedWidget("gadget", xmPushButtonGadgetClass, subject, XmNx, 20, XmNy,
                                       110, XmNrow, 2, XmNcolumn, 0, nullptr));
}

// ---- The focus -----------------------------------------------------------------

void Bed::FocusLooks() {
    const Pixel colour = Colour("magenta");
    ShowTraversable({{XmNhighlightColor, colour}});
    const auto note = [&](const char *when) {
        Pump();
        Note(when, Look().Count(colour) > 0);
    };
    const Picture without = Look();
    note("1 elsewhere");
    XmProcessTraversal(subject, XmTRAVERSE_CURRENT);
    note("2 here");
    XClearArea(display, WindowOf(Canvas()), 0, 0, 0, 0, True);
    note("3 here, exposed");
    Note("looks different", !(Look() == without));
    XmProcessTraversal(after, XmTRAVERSE_CURRENT);
    note("4 gone");
}

void Bed::FocusCallbacks() {
    ShowTraversable();
    CallbackLog<> log;
    for (const char *list : {"focusCallback", "losingFocusCallback", "mapCallback"})
        if (SharedResources().contains(list))
            log.Add(subject, list);
    const auto note = [&](const char *when) {
        Pump();
        std::string reasons = Focus();
        for (int reason : log.reasons())
            reasons += " " + std::to_string(reason);
        Note(when, reasons);
        log.Clear();
    };
    XmProcessTraversal(subject, XmTRAVERSE_CURRENT);
    note("1 here");
    XmProcessTraversal(after, XmTRAVERSE_CURRENT);
    note("2 gone");
    Key(XK_Tab, ShiftMask);
    note("3 by key");
}

} // namespace corvidlmw::test
