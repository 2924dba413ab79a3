// What the pointer and the side pane change in the form.

#include "Canvas.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <corvidlmw/managers/Grid.h>

#include "Widgets.h"

namespace form_designer {
namespace {

constexpr int least_drag = 4;

bool IsRubberBoard(const Kind &kind) {
    return kind.class_name == std::string_view("XmRubberBoard");
}

XPoint PointOf(int x, int y) {
    return {static_cast<short>(x), static_cast<short>(y)};
}

} // namespace

// ---- Changes ---------------------------------------------------------------

void Canvas::Arm(const Kind *kind) {
    armed = kind;
    listener.say(kind ? "Click the cell, or the box, that shall hold the new " +
                            std::string(kind->title) + "."
                      : "");
}

void Canvas::Select(const std::string &name) {
    selected = name;
    ShowSelection();
    listener.selected();
}

void Canvas::RemoveSelected() {
    Widget widget = WidgetOf(selected);
    if (!widget)
        return;
    std::erase_if(widgets, [&](const auto &entry) {
        const Item *item = form.Find(entry.first);
        return item && (item->name == selected || item->container == selected);
    });
    XtDestroyWidget(widget);
    form.Remove(selected);
    selected.clear();
    Finish();
}

void Canvas::Place(const Kind &kind, XPoint at) {
    Item item{form.NewName(kind), &kind, {}, {}};
    if (kind.has_label)
        item.values[LabelProperty().name] = kind.title;
    const Item *under = ItemAt(at);
    const Item *container =
        under && !under->container.empty() ? form.Find(under->container) : under;
    if (container && container->kind->IsContainer() && !kind.IsContainer()) {
        item.container = container->name;
        PlaceInContainer(std::move(item), at);
    } else {
        PlaceInGrid(std::move(item), at);
    }
}

// On a taken cell the widget there makes way, to the first empty cell.
void Canvas::PlaceInGrid(Item item, XPoint at) {
    if (!CellAt(at))
        return listener.say("This is between the cells: click into one.");
    if (IsFull())
        return listener.say("There is no empty cell: add a row or a column first.");
    if (IsRubberBoard(*item.kind))
        item.values = {{"initialParentWidth", "160"},
                       {"initialParentHeight", "80"},
                       {"finalParentWidth", "320"},
                       {"finalParentHeight", "160"}};
    Arg cursor[3];
    XtSetArg(cursor[0], const_cast<char *>(XmNmoveOnly), True);
    XtSetArg(cursor[1], const_cast<char *>(XmNcursorX), at.x);
    XtSetArg(cursor[2], const_cast<char *>(XmNcursorY), at.y);
    Widget widget = CreateWidget(grid, form, item, cursor, XtNumber(cursor));
    Keep(std::move(item), widget);
}

// On a rubber board the point and twice its distance are the two places.
void Canvas::PlaceInContainer(Item item, XPoint at) {
    if (IsRubberBoard(form.ContainerKind(item))) {
        const XRectangle outer = AreaOf(*form.Find(item.container));
        const int x = std::clamp(at.x - outer.x, 0, 120), y = std::clamp(at.y - outer.y, 0, 60);
        item.values.insert({{"initialX", std::to_string(x)},
                            {"initialY", std::to_string(y)},
                            {"initialWidth", "60"},
                            {"initialHeight", "24"},
                            {"finalX", std::to_string(2 * x)},
                            {"finalY", std::to_string(2 * y)},
                            {"finalWidth", "120"},
                            {"finalHeight", "48"}});
    }
    Widget widget = CreateWidget(WidgetOf(item.container), form, item);
    Keep(std::move(item), widget);
}

void Canvas::Keep(Item item, Widget widget) {
    selected = item.name;
    widgets[item.name] = widget;
    form.items.push_back(std::move(item));
    XtManageChild(widget);
    armed = nullptr;
    listener.say("");
    Finish();
}

// The grid takes the cell from the pointer when x or y changes.
void Canvas::MoveTo(XPoint at) {
    Widget widget = WidgetOf(selected);
    if (!CellAt(at))
        return listener.say("This is between the cells: it stays where it was.");
    XtVaSetValues(widget, XmNmoveOnly, True, XmNcursorX, at.x, XmNcursorY, at.y, XmNx,
                  PlaceOf(widget).x + 1, nullptr);
    Finish();
}

void Canvas::ResizeTo(XPoint at) {
    Item &item = *form.Find(selected);
    const XRectangle area = AreaOf(item);
    item.values["resizeHorizontal"] = item.values["resizeVertical"] = "False";
    item.values["width"] = std::to_string(std::clamp(at.x - area.x, 1, 5000));
    item.values["height"] = std::to_string(std::clamp(at.y - area.y, 1, 5000));
    XtVaSetValues(WidgetOf(selected), XmNresizeHorizontal, False, XmNresizeVertical, False,
                  XmNrecomputeSize, False, nullptr);
    Finish();
}

std::optional<std::string> Canvas::Set(const std::string &name, const Property &property,
                                       const std::string &value) {
    const bool takes_back = value.empty() && property.optional;
    if (const auto problem = takes_back ? std::nullopt : ProblemWith(property, value))
        return property.name + (" " + *problem);
    return name.empty() ? SetOfForm(property, value) : SetOfItem(*form.Find(name), property, value);
}

// A size that is taken back is the widget's own again, and a rubber board looks at its children's
// places when it is resized: then all is built anew.
std::optional<std::string> Canvas::SetOfItem(Item &item, const Property &property,
                                             const std::string &value) {
    Values changed = item.values;
    changed[property.name] = value;
    const auto number = [&](const char *which) { return NumberOf(changed[which]).value_or(0); };
    if (item.container.empty() &&
        (number("row") >= form.Rows() || number("column") >= form.Columns()))
        return property.name + std::string(" is outside of the form");
    item.values[property.name] = value;
    if (value.empty() && property.optional)
        item.values.erase(property.name);
    if (property.optional || IsRubberBoard(form.ContainerKind(item)))
        Build();
    else
        SetResource(WidgetOf(item.name), property, value);
    Finish();
    return std::nullopt;
}

// All is built anew: a grid that changes its number of cells lets some of its children fall.
std::optional<std::string> Canvas::SetOfForm(const Property &property, const std::string &value) {
    Form changed = form;
    changed.values[property.name] = value;
    if (const auto conflict = FindConflict(changed))
        return conflict->item + ": " + conflict->problem;
    form = std::move(changed);
    Build();
    Finish();
    return std::nullopt;
}

// ---- The pointer -----------------------------------------------------------

void Canvas::Happened(Widget, XtPointer client_data, XEvent *event, Boolean *) {
    auto &canvas = *static_cast<Canvas *>(client_data);
    switch (event->type) {
    case ButtonPress:
        if (event->xbutton.button == Button1)
            canvas.Press(PointOf(event->xbutton.x, event->xbutton.y));
        else
            canvas.Cancel();
        break;
    case MotionNotify: canvas.Drag(PointOf(event->xmotion.x, event->xmotion.y)); break;
    case ButtonRelease:
        if (event->xbutton.button == Button1)
            canvas.Release(PointOf(event->xbutton.x, event->xbutton.y));
        break;
    default: break;
    }
}

void Canvas::Realized(Widget, XtPointer client_data, XEvent *event, Boolean *) {
    auto &canvas = *static_cast<Canvas *>(client_data);
    if (event->type == MapNotify) {
        canvas.Settle();
        canvas.CoverWithInput();
    } else if (event->type == ConfigureNotify) {
        canvas.ShowSelection();
    }
}

void Canvas::Press(XPoint at) {
    if (const Kind *kind = armed)
        return Place(*kind, at);
    const Item *item = ItemAt(at);
    const bool at_corner = item && item->name == selected && IsAtCorner(*item, at);
    gesture = !item || !item->container.empty() ? Gesture::Rest
              : at_corner                       ? Gesture::Resize
                                                : Gesture::Move;
    pressed_at = at;
    dragged = false;
    Select(item ? item->name : "");
}

void Canvas::Drag(XPoint to) {
    const Item *item = form.Find(selected);
    dragged = dragged || std::abs(to.x - pressed_at.x) >= least_drag ||
              std::abs(to.y - pressed_at.y) >= least_drag;
    if (gesture == Gesture::Rest || !dragged || !item)
        return;
    const XRectangle area = AreaOf(*item);
    if (gesture == Gesture::Resize)
        target->Show({area.x, area.y, static_cast<unsigned short>(std::max(to.x - area.x, 1)),
                      static_cast<unsigned short>(std::max(to.y - area.y, 1))});
    else if (const auto cell = CellAt(to))
        target->Show(*cell);
    else
        target->Hide();
    XRaiseWindow(XtDisplay(grid), input);
}

void Canvas::Release(XPoint at) {
    const Gesture ended = std::exchange(gesture, Gesture::Rest);
    if (ended == Gesture::Rest || !dragged || !form.Find(selected))
        return;
    target->Hide();
    if (ended == Gesture::Move)
        MoveTo(at);
    else
        ResizeTo(at);
}

void Canvas::Cancel() {
    gesture = Gesture::Rest;
    if (target)
        target->Hide();
    Arm(nullptr);
}

} // namespace form_designer
