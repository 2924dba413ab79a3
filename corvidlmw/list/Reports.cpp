// What an event hits, and how clients hear of selections and default actions.
//
// A client's callback may do anything to the list: take rows away, replace them, destroy it. So the data
// holds copies, and whoever reports must look at rows anew afterwards.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <algorithm>

namespace corvidlmw::list {

// ---- Events -----------------------------------------------------------------------------------------

std::optional<Point> PointOf(const XEvent *event) {
    switch (event ? event->type : 0) {
    case KeyPress:
    case KeyRelease: return Point{event->xkey.x, event->xkey.y};
    case ButtonPress:
    case ButtonRelease: return Point{event->xbutton.x, event->xbutton.y};
    case MotionNotify: return Point{event->xmotion.x, event->xmotion.y};
    case EnterNotify:
    case LeaveNotify: return Point{event->xcrossing.x, event->xcrossing.y};
    default: return std::nullopt;
    }
}

int RowFromY(Widget w, int y) {
    const auto &list = ListOf(w);
    if (list.traversing && list.keyboard_selection) {
        return list.current_keyboard_item;
    }
    if (list.element_count == 0) {
        return 1;
    }
    return RowAt({.base_y = list.base_y,
                  .height = w->core.height,
                  .count = list.element_count,
                  .top = list.top_item_position,
                  .visible = list.visible_item_count,
                  .max_item_height = list.max_item_height,
                  .pitch = PitchOf(list)},
                 CutToPosition(y));
}

int FieldFromX(Widget w, int x, int indent) {
    const auto &list = ListOf(w);
    return FieldAt(FieldsOf(list), list.base_x - list.x_origin + list.icon_column_width + indent,
                   x);
}

void StopScrolling(LmListPart &list) {
    if (list.drag_timer) {
        XtRemoveTimeOut(list.drag_timer);
        list.drag_timer = 0;
    }
}

void EndGesture(LmListPart &list) {
    list.event_flags = 0;
    list.append_in_progress = False;
    StopScrolling(list);
}

// ---- Client code --------------------------------------------------------------------------------------

namespace {

// By its serial number.
unsigned long LastEventOf(Widget w) {
    const XEvent *event = XtLastEventProcessed(XtDisplay(w));
    return event ? event->xany.serial : 0;
}

// The client handled events of its own, for a modal dialog say: a release among them went to nobody.
void EndGestureIfLetGo(Widget w) {
    auto &list = ListOf(w);
    if ((list.event_flags & EVENT_BUTTON_DOWN) && HeldButtons(w) == 0) {
        EndGesture(list);
        BuildSelectedList(list, true);
    }
}

} // namespace

bool CallClient(Widget w, const std::function<void()> &call) {
    const LifeWatch life(w);
    const unsigned long before = LastEventOf(w);
    call();
    if (life.Ended()) {
        return false;
    }
    if (LastEventOf(w) != before) {
        EndGestureIfLetGo(w);
    }
    return true;
}

// ---- Call data ----------------------------------------------------------------------------------------

namespace {

// Clients get copies of the selected items for the length of a call.
class CallData {
public:
    CallData(Widget w, int reason, XEvent *event) : widget_(w) {
        data_.reason = reason;
        data_.event = event;
        data_.field = -1;
    }
    ~CallData() {
        XmStringFree(data_.item);
        for (XmString string : strings_) {
            XmStringFree(string);
        }
    }
    CallData(const CallData &) = delete;
    CallData &operator=(const CallData &) = delete;

    LmListCallbackStruct *operator->() { return &data_; }

    void SetItem(int row) {
        const auto &list = ListOf(widget_);
        data_.item = XmStringCopy(list.items[row]);
        data_.item_length = ElementOf(list, row).length;
        data_.item_position = row + 1;
    }

    void SetSelection() {
        const auto &list = ListOf(widget_);
        const auto count = static_cast<std::size_t>(list.selected_item_count);
        if (!list.selected_items || !list.selected_positions) {
            return;
        }
        strings_.resize(count);
        std::transform(list.selected_items, list.selected_items + count, strings_.begin(),
                       XmStringCopy);
        positions_.assign(list.selected_positions, list.selected_positions + count);
        data_.selected_items = strings_.data();
        data_.selected_item_positions = positions_.data();
        data_.selected_item_count = list.selected_item_count;
    }

    // False if the list died of it.
    bool Send(XtCallbackList callbacks) {
        const auto call = [&] { XtCallCallbackList(widget_, callbacks, &data_); };
        return CallClient(widget_, std::ref(call));
    }

private:
    Widget widget_;
    LmListCallbackStruct data_{};
    Vector<XmString> strings_;
    Vector<int> positions_;
};

struct Kind {
    int reason;
    XtCallbackList callbacks;
};

Kind KindOf(const LmListPart &list) {
    switch (list.selection_policy) {
    case XmSINGLE_SELECT: return {XmCR_SINGLE_SELECT, list.single_selection_callback};
    case XmMULTIPLE_SELECT: return {XmCR_MULTIPLE_SELECT, list.multiple_selection_callback};
    case XmEXTENDED_SELECT: return {XmCR_EXTENDED_SELECT, list.extended_selection_callback};
    default: return {XmCR_BROWSE_SELECT, list.browse_selection_callback};
    }
}

// The row that a report is about. Rows can have gone since the gesture was there.
int RowToReport(const LmListPart &list) {
    return std::clamp(list.last_highlighted, 0, list.element_count - 1);
}

// The list is told of the column that was hit, and shows it, one row too low: the position counts from 1.
int TakeField(Widget w, const XEvent *event, int position) {
    auto &list = ListOf(w);
    const auto point = PointOf(event);
    list.current_field = point && list.field_count > 0 ? FieldFromX(w, point->x, 0) : -1;
    DrawItem(w, position);
    return list.current_field;
}

} // namespace

// ---- Reports ------------------------------------------------------------------------------------------

bool ClickElement(Widget w, XEvent *event) {
    auto &list = ListOf(w);
    list.did_selection = True;
    StopScrolling(list);
    if (list.element_count == 0) {
        return true;
    }
    const auto [reason, callbacks] = KindOf(list);
    CallData data(w, reason, event);
    data.SetItem(RowToReport(list));
    BuildSelectedList(list, !list.automatic_selection);
    if (event) {
        data->field = TakeField(w, event, data->item_position);
    }
    if (list.selection_policy == XmMULTIPLE_SELECT || list.selection_policy == XmEXTENDED_SELECT) {
        data.SetSelection();
    }
    if (list.selection_policy == XmEXTENDED_SELECT) {
        data->selection_type = static_cast<char>(list.selection_type);
    }
    return data.Send(callbacks);
}

bool DefaultAction(Widget w, XEvent *event) {
    auto &list = ListOf(w);
    list.did_selection = True;
    StopScrolling(list);
    if (list.element_count == 0) {
        list.down_count = 0;
        return true;
    }
    CallData data(w, XmCR_DEFAULT_ACTION, event);
    data.SetItem(RowToReport(list));
    BuildSelectedList(list, true);
    data.SetSelection();
    if (!data.Send(list.default_action_callback)) {
        return false;
    }
    list.down_count = 0;
    return true;
}

} // namespace corvidlmw::list
