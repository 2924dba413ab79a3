#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include <Xm/Xm.h>

#include "Form.h"
#include "Outline.h"

namespace form_designer {

// Shows a form as the widgets that it describes, and lets the pointer design it: place a new widget
// where it is clicked, move one to another cell, drag a lower right corner to another size.
//
// The widgets stand below a window that takes all input, so that a button under design is not pressed.
class Canvas {
public:
    struct Listener {
        std::function<void()> selected; // another widget, or none
        std::function<void()> changed;  // the form
        std::function<void(const std::string &)> say;
    };

    Canvas(Widget parent, Listener to);
    ~Canvas();
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    void Show(Form another);
    const Form &Shown() const { return form; }
    Widget Grid() const { return grid; }
    Widget WidgetOf(const std::string &name) const;

    // The next click places a widget of that kind; null for none.
    void Arm(const Kind *kind);
    const std::string &Selected() const { return selected; }
    void Select(const std::string &name);
    void RemoveSelected();

    // Sets a property of a widget, or of the form if `name` is empty; an empty value takes it back.
    // Returns what is wrong, and changes nothing then.
    std::optional<std::string> Set(const std::string &name, const Property &property,
                                   const std::string &value);

private:
    enum class Gesture { Rest, Move, Resize };

    static void Happened(Widget, XtPointer canvas, XEvent *event, Boolean *);
    static void Realized(Widget, XtPointer canvas, XEvent *event, Boolean *);
    static void GridGone(Widget, XtPointer canvas, XtPointer);
    void Press(XPoint at);
    void Drag(XPoint to);
    void Release(XPoint at);
    void Cancel();

    void Build();
    void Clear();
    void Forget();
    void BuildItem(const Item &item);
    void CoverWithInput();
    void Settle();
    void ReadCells();
    void Finish();

    void Place(const Kind &kind, XPoint at);
    void PlaceInGrid(Item item, XPoint at);
    void PlaceInContainer(Item item, XPoint at);
    void Keep(Item item, Widget widget);
    void MoveTo(XPoint at);
    void ResizeTo(XPoint at);
    std::optional<std::string> SetOfItem(Item &item, const Property &property,
                                         const std::string &value);
    std::optional<std::string> SetOfForm(const Property &property, const std::string &value);

    // What is at a point of the grid.
    const Item *ItemAt(XPoint at) const;
    XRectangle AreaOf(const Item &item) const;
    std::optional<XRectangle> CellAt(XPoint at) const;
    bool IsFull() const;
    bool IsAtCorner(const Item &item, XPoint at) const;
    void ShowSelection();

    Widget frame;
    Listener listener;
    Widget grid = nullptr;
    Window input = None;
    Form form;
    std::map<std::string, Widget> widgets;
    std::string selected;
    const Kind *armed = nullptr;
    Gesture gesture = Gesture::Rest;
    XPoint pressed_at{};
    bool dragged = false;
    std::unique_ptr<Outline> selection;
    std::unique_ptr<Outline> target;
};

} // namespace form_designer
