// Scrolling while the pointer is held outside of the window, one row or one step sideways at a time.
//
// At most one timer runs, in drag_timer; none runs where there is nothing to scroll. Outside is measured
// from the list's own place in its parent on the left and above, on purpose.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <algorithm>
#include <cstdint>

namespace corvidlmw::list {

namespace {

bool CanScrollUp(const LmListPart &list) {
    return (list.leave_direction & LEAVE_TOP) && list.vertical_scroll_bar &&
           list.top_item_position >= 1;
}

bool CanScrollDown(const LmListPart &list) {
    return (list.leave_direction & LEAVE_BOTTOM) && list.vertical_scroll_bar &&
           list.top_item_position + list.visible_item_count < list.element_count;
}

bool CanScrollLeft(const LmListPart &list) {
    return (list.leave_direction & LEAVE_LEFT) && list.horizontal_scroll_bar &&
           list.horizontal_origin > 0;
}

bool CanScrollRight(const LmListPart &list) {
    return (list.leave_direction & LEAVE_RIGHT) && list.horizontal_scroll_bar &&
           list.horizontal_origin < LastOrigin(list);
}

bool CanScroll(const LmListPart &list) {
    return CanScrollUp(list) || CanScrollDown(list) || CanScrollLeft(list) || CanScrollRight(list);
}

void BrowseScroll(XtPointer closure, XtIntervalId *);

struct Delay {
    const char *resource; // of the vertical bar
    int preset;           // milliseconds, without one
};
const Delay initial_delay{XmNinitialDelay, 200};
const Delay repeat_delay{XmNrepeatDelay, 100};

unsigned long MillisecondsOf(const LmListPart &list, const Delay &delay) {
    Widget bar = list.vertical_scroll_bar;
    const int given = bar ? ResourceOf<int>(bar, delay.resource, delay.preset) : delay.preset;
    return static_cast<unsigned long>(std::max(given, 1));
}

void StartScrolling(Widget w, const Delay &delay) {
    auto &list = ListOf(w);
    StopScrolling(list);
    if (CanScroll(list)) {
        list.drag_timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w),
                                          MillisecondsOf(list, delay), BrowseScroll, w);
    }
}

// ---- Steps ------------------------------------------------------------------------------------------

// The row that came into view; the one the gesture is at if none did.
int ScrollVertically(Widget w) {
    auto &list = ListOf(w);
    int row = list.last_highlighted;
    if (CanScrollUp(list)) {
        EraseCursor(w);
        row = --list.top_item_position;
    }
    if (CanScrollDown(list)) {
        EraseCursor(w);
        row = list.top_item_position++ + list.visible_item_count;
    }
    return row;
}

void MoveSideways(Widget w, int step) {
    auto &list = ListOf(w);
    EraseCursor(w);
    list.horizontal_origin = static_cast<int>(std::clamp<std::int64_t>(
        std::int64_t{list.horizontal_origin} + step, 0, std::max(LastOrigin(list), 0)));
    list.x_origin = CutToPosition(list.horizontal_origin);
}

void ScrollSideways(Widget w) {
    const auto &list = ListOf(w);
    const int step = ResourceOf<int>(list.horizontal_scroll_bar, XmNincrement, 1);
    if (CanScrollLeft(list)) {
        MoveSideways(w, -step);
    }
    if (CanScrollRight(list)) {
        MoveSideways(w, step);
    }
}

bool ScrollOneStep(Widget w) {
    auto &list = ListOf(w);
    const bool vertically = CanScrollUp(list) || CanScrollDown(list);
    const bool sideways = CanScrollLeft(list) || CanScrollRight(list);
    int row = list.last_highlighted;
    if (vertically) {
        row = ScrollVertically(w);
        SetVerticalScrollbar(w);
    }
    if (sideways) {
        ScrollSideways(w);
        SetHorizontalScrollbar(w);
    }
    DrawList(w);
    list.down_count = 0;
    return HandleNewItem(w, row);
}

// Another action ended the gesture while the button was down.
void ReportLateRelease(Widget w) {
    auto &list = ListOf(w);
    if (list.down_count > 1 ? DefaultAction(w, nullptr) : ClickElement(w, nullptr)) {
        PlaceCursor(w, list.last_highlighted);
    }
}

// What is drawn waits for the server, so that scrolling is never ahead of it.
void BrowseScroll(XtPointer closure, XtIntervalId *) {
    const auto w = static_cast<Widget>(closure);
    auto &list = ListOf(w);
    list.drag_timer = 0;
    if (!(list.event_flags & EVENT_BUTTON_DOWN)) {
        ReportLateRelease(w);
        return;
    }
    if (!XtIsSensitive(w)) {
        list.event_flags = 0; // the release will not come
        return;
    }
    if (!CanScroll(list) || !ScrollOneStep(w)) {
        return;
    }
    XSync(XtDisplay(w), False);
    if (list.event_flags & EVENT_BUTTON_DOWN) {
        StartScrolling(w, repeat_delay);
    }
}

} // namespace

// ---- Directions -------------------------------------------------------------------------------------

unsigned char LeaveDirectionOf(Widget w, Point at) {
    const auto &core = w->core;
    int direction = 0;
    direction |= at.y >= core.height ? LEAVE_BOTTOM : 0;
    direction |= at.y <= core.y ? LEAVE_TOP : 0;
    direction |= at.x <= core.x ? LEAVE_LEFT : 0;
    direction |= at.x >= core.width ? LEAVE_RIGHT : 0;
    return static_cast<unsigned char>(direction);
}

bool IsOppositeOf(unsigned char direction, unsigned char other) {
    const auto crosses = [=](int one, int opposite) {
        return (direction & one) && (other & opposite);
    };
    return crosses(LEAVE_BOTTOM, LEAVE_TOP) || crosses(LEAVE_TOP, LEAVE_BOTTOM) ||
           crosses(LEAVE_LEFT, LEAVE_RIGHT) || crosses(LEAVE_RIGHT, LEAVE_LEFT);
}

// ---- The pointer held outside -----------------------------------------------------------------------

void KeepScrolling(Widget w, unsigned char direction) {
    auto &list = ListOf(w);
    const bool turned = direction != list.leave_direction;
    list.leave_direction = direction;
    if (direction != 0 && (turned || !list.drag_timer)) {
        StartScrolling(w, repeat_delay);
    }
}

bool LeaveHolding(Widget w, const XEvent *event) {
    auto &list = ListOf(w);
    const auto at = PointOf(event);
    if (!at || !SelectsRanges(list) || !(list.event_flags & EVENT_BUTTON_DOWN)) {
        return true;
    }
    list.leave_direction = LeaveDirectionOf(w, *at);
    StartScrolling(w, initial_delay);
    return list.leave_direction != 0;
}

} // namespace corvidlmw::list
