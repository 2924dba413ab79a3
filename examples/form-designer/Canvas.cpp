#include "Canvas.h"

#include <algorithm>
#include <utility>

#include <Xm/Frame.h>
#include <X11/IntrinsicP.h>

#include <corvidlmw/managers/Grid.h>

#include "Widgets.h"

namespace form_designer {
namespace {

constexpr int corner = 10;
constexpr EventMask input_events = ButtonPressMask | ButtonReleaseMask | ButtonMotionMask;

bool Contains(const XRectangle &area, XPoint at) {
    return at.x >= area.x && at.y >= area.y && at.x < area.x + area.width &&
           at.y < area.y + area.height;
}

} // namespace

// ---- Building --------------------------------------------------------------

Canvas::Canvas(Widget parent, Listener to)
    : frame(XtVaCreateManagedWidget("canvas", xmFrameWidgetClass, parent, XmNshadowType,
                                    XmSHADOW_IN, nullptr)),
      listener(std::move(to)) {}

Canvas::~Canvas() {
    Clear();
}

void Canvas::Show(Form another) {
    form = std::move(another);
    selected.clear();
    armed = nullptr;
    Build();
    listener.selected();
}

Widget Canvas::WidgetOf(const std::string &name) const {
    const auto found = widgets.find(name);
    return found == widgets.end() ? nullptr : found->second;
}

void Canvas::Build() {
    Clear();
    grid = CreateGrid(frame, form);
    // What holds others comes first.
    for (const bool in_form : {true, false})
        for (const Item &item : form.items)
            if (item.container.empty() == in_form)
                BuildItem(item);
    XtAddCallback(grid, XmNdestroyCallback, GridGone, this);
    XtAddEventHandler(grid, input_events, False, Happened, this);
    XtAddEventHandler(grid, StructureNotifyMask, False, Realized, this);
    XtManageChild(grid);
    Settle();
    CoverWithInput();
}

// The window may take the grid down first.
void Canvas::GridGone(Widget, XtPointer client_data, XtPointer) {
    static_cast<Canvas *>(client_data)->Forget();
}

void Canvas::Forget() {
    gesture = Gesture::Rest;
    selection.reset();
    target.reset();
    if (input != None)
        XtUnregisterDrawable(XtDisplay(grid), input);
    input = None;
    grid = nullptr;
    widgets.clear();
}

void Canvas::Clear() {
    if (!grid)
        return;
    Widget old = grid;
    XtRemoveCallback(old, XmNdestroyCallback, GridGone, this);
    XtRemoveEventHandler(old, input_events, False, Happened, this);
    XtRemoveEventHandler(old, StructureNotifyMask, False, Realized, this);
    Forget();
    XtDestroyWidget(old);
}

void Canvas::BuildItem(const Item &item) {
    Widget parent = item.container.empty() ? grid : WidgetOf(item.container);
    Widget widget = CreateWidget(parent, form, item);
    widgets[item.name] = widget;
    XtManageChild(widget);
}

// It comes up with the grid's window, and again above each new one.
void Canvas::CoverWithInput() {
    if (!XtIsRealized(grid))
        return;
    Display *display = XtDisplay(grid);
    if (input == None) {
        XSetWindowAttributes attributes{};
        attributes.event_mask = static_cast<long>(input_events);
        input = XCreateWindow(display, XtWindow(grid), 0, 0, 32767, 32767, 0, 0, InputOnly,
                              CopyFromParent, CWEventMask, &attributes);
        XtRegisterDrawable(display, input, grid);
        selection = std::make_unique<Outline>(grid, "#d05010");
        target = std::make_unique<Outline>(grid, "#2060c0");
        XMapWindow(display, input);
    }
    XRaiseWindow(display, input);
    ShowSelection();
}

// The toolkit keeps the size of a cell as what its widget prefers when that was moved. Managing one
// again asks all for their own sizes; those that the user set come on top.
void Canvas::Settle() {
    if (form.items.empty() || !XtIsRealized(grid))
        return;
    Widget any = WidgetOf(form.items.front().name);
    XtUnmanageChild(any);
    XtManageChild(any);
    for (const Item &item : form.items) {
        const auto width = item.values.find("width");
        const auto height = item.values.find("height");
        Widget widget = WidgetOf(item.name);
        const XRectangle place = PlaceOf(widget);
        if (width == item.values.end() && height == item.values.end())
            continue;
        const auto number = [&](auto found, int otherwise) {
            return found == item.values.end() ? otherwise
                                              : NumberOf(found->second).value_or(otherwise);
        };
        XtVaSetValues(widget, XmNbuilderAction, True, XmNwidth, number(width, place.width),
                      XmNheight, number(height, place.height), nullptr);
    }
}

// The grid decides who stands where: a widget that comes to a taken cell may send another one away.
void Canvas::ReadCells() {
    for (Item &item : form.items) {
        if (!item.container.empty())
            continue;
        int row = 0, column = 0;
        XtVaGetValues(WidgetOf(item.name), XmNrow, &row, XmNcolumn, &column, nullptr);
        item.values["row"] = std::to_string(row);
        item.values["column"] = std::to_string(column);
    }
}

// After the user changed something.
void Canvas::Finish() {
    ReadCells();
    Settle();
    CoverWithInput();
    listener.changed();
    listener.selected();
}

// ---- What is where ---------------------------------------------------------

XRectangle Canvas::AreaOf(const Item &item) const {
    XRectangle area = PlaceOf(WidgetOf(item.name));
    if (!item.container.empty()) {
        const XRectangle outer = PlaceOf(WidgetOf(item.container));
        area.x = static_cast<short>(area.x + outer.x);
        area.y = static_cast<short>(area.y + outer.y);
    }
    return area;
}

// The innermost one.
const Item *Canvas::ItemAt(XPoint at) const {
    const Item *found = nullptr;
    for (const Item &item : form.items)
        if (Contains(AreaOf(item), at) && (!found || found->container.empty()))
            found = &item;
    return found;
}

std::optional<XRectangle> Canvas::CellAt(XPoint at) const {
    const int row = XmGridPositionToRow(grid, at.x, at.y);
    const int column = XmGridPositionToColumn(grid, at.x, at.y);
    if (row < 0 || column < 0)
        return std::nullopt;
    int left = at.x, right = at.x, top = at.y, bottom = at.y;
    while (XmGridPositionToColumn(grid, static_cast<Position>(left - 1), 0) == column)
        --left;
    while (XmGridPositionToColumn(grid, static_cast<Position>(right + 1), 0) == column)
        ++right;
    while (XmGridPositionToRow(grid, 0, static_cast<Position>(top - 1)) == row)
        --top;
    while (XmGridPositionToRow(grid, 0, static_cast<Position>(bottom + 1)) == row)
        ++bottom;
    return XRectangle{static_cast<short>(left), static_cast<short>(top),
                      static_cast<unsigned short>(right - left + 1),
                      static_cast<unsigned short>(bottom - top + 1)};
}

bool Canvas::IsFull() const {
    const auto in_form = std::ranges::count(form.items, std::string{}, &Item::container);
    return in_form >= form.Rows() * form.Columns();
}

bool Canvas::IsAtCorner(const Item &item, XPoint at) const {
    const XRectangle area = AreaOf(item);
    return item.container.empty() && at.x >= area.x + area.width - corner &&
           at.y >= area.y + area.height - corner;
}

void Canvas::ShowSelection() {
    if (!selection)
        return;
    if (const Item *item = form.Find(selected))
        selection->Show(AreaOf(*item));
    else
        selection->Hide();
}

} // namespace form_designer
