#include "Widgets.h"

#include <deque>
#include <vector>

#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/ScrollBar.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>

#include <Text.h>

namespace form_designer {
namespace {

using graph_browser::Name;
using graph_browser::Text;

WidgetClass ClassOf(const Kind &kind) {
    static const std::map<std::string_view, WidgetClass> classes = {
        {"XmLabel", xmLabelWidgetClass},
        {"XmPushButton", xmPushButtonWidgetClass},
        {"XmToggleButton", xmToggleButtonWidgetClass},
        {"XmTextField", xmTextFieldWidgetClass},
        {"XmScrollBar", xmScrollBarWidgetClass},
        {"XmSpringBox", xmSpringBoxWidgetClass},
        {"XmRubberBoard", xmRubberBoardWidgetClass},
    };
    return classes.at(kind.class_name);
}

// Resources as the toolkit takes them; they hold what they point at.
class Args {
public:
    void Add(const char *name, XtArgVal value) {
        args.emplace_back();
        XtSetArg(args.back(), Name(name), value);
    }
    // The choices count from 1.
    void Add(const Property &property, const std::string &value) {
        switch (property.type) {
        case Type::Number:
            return Add(property.name, static_cast<XtArgVal>(NumberOf(value).value_or(0)));
        case Type::Flag: return Add(property.name, IsTrue(value));
        case Type::Choice:
            return Add(property.name,
                       static_cast<XtArgVal>(ChoiceOf(property, value).value_or(0)) + 1);
        case Type::Text:
            texts.emplace_back(value);
            return Add(property.name, reinterpret_cast<XtArgVal>(texts.back().Get()));
        }
    }
    void Add(const Values &values, const std::vector<const Property *> &properties) {
        for (const Property *property : properties)
            if (const auto found = values.find(property->name); found != values.end())
                Add(*property, found->second);
    }
    ArgList Get() { return args.data(); }
    Cardinal Count() const { return static_cast<Cardinal>(args.size()); }

private:
    std::vector<Arg> args;
    std::deque<Text> texts;
};

} // namespace

// A widget under design is looked at, not used: the keyboard passes it by. One whose size was set keeps
// it whatever its label is.
Widget CreateWidget(Widget parent, const Form &form, const Item &item, ArgList more,
                    Cardinal more_count) {
    Args args;
    args.Add(item.values, form.PropertiesOf(item));
    args.Add(XmNtraversalOn, False);
    if (item.values.contains("width") || item.values.contains("height"))
        args.Add(XmNrecomputeSize, False);
    if (!item.kind->has_label && !item.kind->IsContainer())
        args.Add(XmNorientation, XmHORIZONTAL);
    for (Cardinal i = 0; i < more_count; ++i)
        args.Add(more[i].name, more[i].value);
    return XtCreateWidget(item.name.c_str(), ClassOf(*item.kind), parent, args.Get(), args.Count());
}

Widget CreateGrid(Widget parent, const Form &form) {
    Args args;
    args.Add(form.values, form.Properties());
    args.Add(XmNshowGrid, True);
    args.Add(XmNbuildMode, True);
    args.Add(XmNshadowThickness, 0);
    return XtCreateWidget("form", xmGridWidgetClass, parent, args.Get(), args.Count());
}

XRectangle PlaceOf(Widget widget) {
    XRectangle place{};
    XtVaGetValues(widget, XmNx, &place.x, XmNy, &place.y, XmNwidth, &place.width, XmNheight,
                  &place.height, nullptr);
    return place;
}

void SetResource(Widget widget, const Property &property, const std::string &value) {
    Args args;
    args.Add(property, value);
    XtSetValues(widget, args.Get(), args.Count());
}

} // namespace form_designer
