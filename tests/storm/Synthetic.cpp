// Events that never happened: dispatched here, sent by way of the server, or handed to an action.
#include <tests/storm/Acts.h>

#include <tests/support/DisplayTest.h>

#include <algorithm>
#include <cstdlib>

namespace corvidlmw::storm {

namespace {

using test::Name;

// event|send|action WIDGET TYPE X Y STATE DETAIL TIME [CHILD [ACTION PARAMETER...]]
enum Word { widget = 1, type, x, y, state, detail, when, child, action, parameters };

constexpr unsigned least_key = 8; // of all servers

struct Lie {
    const Step &step;
    Widget w;
    Window window;
    Window subwindow;

    int Number(std::size_t word) const {
        return word < step.words.size() ? std::atoi(step.words[word].c_str()) : 0;
    }
};

// Keys, buttons and motions are laid out alike, and crossings nearly so.
void FillInput(XEvent &event, const Lie &lie, Display *display) {
    auto &button = event.xbutton;
    button.root = DefaultRootWindow(display);
    button.subwindow = lie.subwindow;
    button.time = static_cast<Time>(lie.Number(when));
    button.x = lie.Number(x);
    button.y = lie.Number(y);
    button.x_root = lie.Number(x) + 7;
    button.y_root = lie.Number(y) - 7;
    if (event.type == EnterNotify || event.type == LeaveNotify) {
        event.xcrossing.mode = lie.Number(detail) % 3;
        event.xcrossing.detail = lie.Number(detail) % 5;
        event.xcrossing.focus = lie.Number(detail) & 1;
        event.xcrossing.state = static_cast<unsigned>(lie.Number(state));
        return;
    }
    button.state = static_cast<unsigned>(lie.Number(state));
    if (event.type == MotionNotify)
        event.xmotion.is_hint = static_cast<char>(lie.Number(detail) & 1);
    else
        button.button = static_cast<unsigned>(lie.Number(detail)) & 0xff;
    // The toolkit reads outside its table for a lesser one.
    if (event.type == KeyPress || event.type == KeyRelease)
        event.xkey.keycode = std::max(event.xkey.keycode, least_key);
    button.same_screen = True;
}

void FillArea(XEvent &event, const Lie &lie) {
    if (event.type == ConfigureNotify) {
        event.xconfigure.window = lie.window;
        event.xconfigure.x = lie.Number(x);
        event.xconfigure.y = lie.Number(y);
        event.xconfigure.width = lie.Number(state) + 1;
        event.xconfigure.height = lie.Number(detail) + 1;
        return;
    }
    // The last of its series: Xt waits for the others, which never come.
    event.xexpose.count = 0;
    event.xexpose.x = lie.Number(x);
    event.xexpose.y = lie.Number(y);
    event.xexpose.width = lie.Number(state);
    event.xexpose.height = lie.Number(detail);
}

XEvent EventOf(const Lie &lie, Display *display) {
    XEvent event{};
    event.type = lie.Number(type);
    event.xany.display = display;
    event.xany.window = lie.window;
    event.xany.send_event = True;
    switch (event.type) {
    case Expose:
    case GraphicsExpose:
    case ConfigureNotify: FillArea(event, lie); break;
    case FocusIn:
    case FocusOut:
        event.xfocus.mode = lie.Number(state) % 4;
        event.xfocus.detail = lie.Number(detail) % 8;
        break;
    case VisibilityNotify: event.xvisibility.state = lie.Number(detail) % 3; break;
    case MapNotify:
    case UnmapNotify: event.xmap.window = lie.window; break;
    default: FillInput(event, lie, display);
    }
    return event;
}

// One that begins with an event that never was hears of no end to its gesture.
void CancelDrag(Widget display_object, Display *display) {
    if (Widget drag = XmGetDragContext(display_object, XtLastTimestampProcessed(display)))
        XmDragCancel(drag);
}

bool CallAction(const Lie &lie, XEvent &event) {
    Display *display = XtDisplayOfObject(lie.w);
    if (lie.step.words.size() <= action)
        return false;
    std::vector<std::string> texts;
    for (std::size_t i = parameters; i < lie.step.words.size(); i++)
        texts.push_back(Unquote(lie.step.words[i]));
    std::vector<String> params;
    for (auto &text : texts)
        params.push_back(text.data());
    XtCallActionProc(lie.w, lie.step.words[action].c_str(), &event, params.data(),
                     static_cast<Cardinal>(params.size()));
    CancelDrag(XmGetXmDisplay(display), display);
    return true;
}

bool IsKindThatLies(int event_type) {
    switch (event_type) {
    case DestroyNotify: // of a window that is not gone
        return false;
    default:
        return event_type >= KeyPress && event_type <= ConfigureNotify &&
               event_type != KeymapNotify;
    }
}

Window SubwindowOf(World &world, const Step &step) {
    Widget other =
        step.words.size() > child ? world.Find(std::atoi(step.words[child].c_str())) : nullptr;
    return other ? XtWindowOfObject(other) : None;
}

} // namespace

bool MakeEvent(World &world, const Step &step) {
    Widget w =
        step.words.size() > when ? world.Find(std::atoi(step.words[widget].c_str())) : nullptr;
    const Window window = w ? XtWindowOfObject(w) : None;
    if (!window || !IsKindThatLies(std::atoi(step.words[type].c_str())))
        return false;
    const Lie lie{step, w, window, SubwindowOf(world, step)};
    XEvent event = EventOf(lie, world.display);
    if (step.verb() == "action")
        return CallAction(lie, event);
    if (step.verb() == "event")
        return XtDispatchEvent(&event);
    return XSendEvent(world.display, window, False, NoEventMask, &event);
}

} // namespace corvidlmw::storm
