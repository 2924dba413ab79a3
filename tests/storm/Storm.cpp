#include <tests/storm/Storm.h>

#include <tests/storm/Acts.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <set>

namespace corvidlmw::storm {

namespace {

constexpr const char *message_name = "STORM_STEP";

// A copy of the item is the client's to free in these, in the last of them that it listens to.
bool GivesItem(Widget w, const std::string &list) {
    return XtClass(w) == lmListWidgetClass &&
           (list == XmNarmCallback || list == XmNactivateCallback || list == XmNdisarmCallback);
}

// Called in the midst of the toolkit's own work on a graph and its scrolled window, and of XtSetValues on a bar,
// which goes on with them afterwards: a client that ends them there does so within a dispatch, or later.
bool IsInTheMidst(const std::string &list) {
    return list == XmNgraphChangedCallback || list == XmNgraphTooBigCallback ||
           list == XmNtroughPixmapCallback;
}

void FreeItem(Widget w, XtPointer, XtPointer data) {
    const auto *call = static_cast<LmListCallbackStruct *>(data);
    const bool is_last =
        call->reason != LmCR_ITEM_ICON_ACTIVATE && call->reason != LmCR_ITEM_BLANK_ACTIVATE;
    if (is_last || XtHasCallbacks(w, XmNdisarmCallback) != XtCallbackHasSome)
        XmStringFree(call->item);
}

// Whether a step is a function of the toolkit's, not of the library's.
bool IsToolkits(const Step &step) {
    static const std::set<std::string> verbs = {"call", "kill", "later", "inside",
                                                "pump", "wait", "rest"};
    return !verbs.contains(step.verb());
}

bool IsToolkits(WidgetClass widget_class) {
    static const std::set<WidgetClass> classes = {xmGraphWidgetClass, lmListWidgetClass,
                                                  svScrollBarWidgetClass, xmvIconGadgetClass};
    return !classes.contains(widget_class);
}

} // namespace

bool Storm::Do(const Step &step) {
    if (step.words.empty())
        return false;
    if (depth_ == 0)
        inner_steps_ = 0;
    const bool toolkits = IsToolkits(step);
    depth_++;
    toolkit_ += toolkits;
    const bool done = Act(*this, step);
    toolkit_ -= toolkits;
    depth_--;
    return done;
}

bool Storm::DoInner(const Step &step) {
    if (depth_ >= deepest || ++inner_steps_ > most_inner_steps)
        return false;
    return Do(step);
}

// ---- Callbacks -------------------------------------------------------------------------------------

bool Storm::DoOnCallback(Widget w, const std::string &list, int times, Step step) {
    const auto others = XtHasCallbacks(w, list.c_str());
    if (others == XtCallbackNoList)
        return false;
    if (others == XtCallbackHasNone && GivesItem(w, list))
        XtAddCallback(w, list.c_str(), FreeItem, nullptr);
    if (step.verb() == "kill" && IsInTheMidst(list))
        step.words.insert(step.words.begin(), {"later", "0"});
    waiting_.push_back(
        std::make_unique<Waiting>(Waiting{this, std::move(step), times, XtClass(w)}));
    XtAddCallback(w, list.c_str(), OnCallback, waiting_.back().get());
    return true;
}

// "refuse" is no step of its own: it answers the call.
void Storm::OnCallback(Widget, XtPointer closure, XtPointer call_data) {
    auto *waiting = static_cast<Waiting *>(closure);
    if (waiting->times-- <= 0)
        return;
    Storm &storm = *waiting->storm;
    if (waiting->step.verb() != "refuse") {
        const bool toolkits = IsToolkits(waiting->of);
        storm.callbacks_++;
        storm.toolkit_ += toolkits;
        storm.DoInner(waiting->step);
        storm.toolkit_ -= toolkits;
        storm.callbacks_--;
    } else if (waiting->of == xmGraphWidgetClass && call_data)
        static_cast<XmGraphCallbackStruct *>(call_data)->doit = False;
}

// ---- Timers and messages ----------------------------------------------------------------------------

void Storm::DoLater(unsigned long milliseconds, Step step) {
    waiting_.push_back(std::make_unique<Waiting>(Waiting{this, std::move(step), 1}));
    XtAppAddTimeOut(world_.app, milliseconds, OnTimer, waiting_.back().get());
}

void Storm::OnTimer(XtPointer closure, XtIntervalId *) {
    auto *waiting = static_cast<Waiting *>(closure);
    waiting->storm->DoInner(waiting->step);
}

bool Storm::DoInside(const Step &step) {
    Widget shell = world_.shell;
    if (!shell || inside_)
        return false;
    inside_ = &step;
    XtAddEventHandler(shell, NoEventMask, True, OnMessage, this);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.display = world_.display;
    event.xclient.window = XtWindow(shell);
    event.xclient.message_type = XInternAtom(world_.display, message_name, False);
    event.xclient.format = 32;
    XtDispatchEvent(&event);
    inside_ = nullptr;
    if (world_.shell)
        XtRemoveEventHandler(shell, NoEventMask, True, OnMessage, this);
    return true;
}

void Storm::OnMessage(Widget, XtPointer closure, XEvent *event, Boolean *) {
    auto *storm = static_cast<Storm *>(closure);
    if (event->type == ClientMessage && storm->inside_)
        storm->DoInner(*storm->inside_);
}

} // namespace corvidlmw::storm
