#include <tests/storm/Acts.h>

#include <tests/storm/Deferred.h>
#include <tests/storm/Invariants.h>
#include <tests/storm/Scenes.h>
#include <tests/storm/Storm.h>
#include <tests/storm/Workbench.h>
#include <tests/support/DisplayTest.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/managers/GridP.h>

#include <Xm/Display.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <thread>

namespace corvidlmw::storm {

namespace {

using test::Name;

// What an act is told: words are counted from the verb.
struct Told {
    Storm &storm;
    const Step &step;
    Values values{storm.world()};

    World &world() const { return storm.world(); }
    std::size_t size() const { return step.words.size(); }
    const std::string &Word(std::size_t i) const { return step.words[i]; }
    int Number(std::size_t i) const { return i < size() ? std::atoi(Word(i).c_str()) : 0; }
    Widget Object(std::size_t i) const { return world().Find(Number(i)); }
};

// ---- Life ----------------------------------------------------------------------------------------

// The settings from a word on.
bool TakeSettings(Told &told, std::size_t word, std::vector<Arg> &args) {
    for (; word + 1 < told.size(); word += 2)
        args.push_back({Name(told.Word(word).c_str()), told.values.Of(told.Word(word + 1))});
    return told.values.Good();
}

// A cell that there is not: the grid ends the program.
bool IsFatal(Widget parent, Widget child, const std::vector<Arg> &args) {
    if (!XmIsGrid(parent))
        return false;
    int row = XmGRID_UNSET, column = XmGRID_UNSET;
    if (child)
        XtVaGetValues(child, XmNrow, &row, XmNcolumn, &column, nullptr);
    for (const Arg &arg : args)
        if (std::string(arg.name) == XmNrow)
            row = static_cast<int>(arg.value);
        else if (std::string(arg.name) == XmNcolumn)
            column = static_cast<int>(arg.value);
    const auto &grid = reinterpret_cast<XmGridWidget>(parent)->grid;
    const bool named = row >= 0 && column >= 0 && row != XmGRID_UNSET && column != XmGRID_UNSET;
    return named && (row >= grid.num_rows || column >= grid.num_columns);
}

// In other units than pixels a number can be less than one, which the toolkit hands to the server as 0.
bool IsTooSmall(Widget w, const std::vector<Arg> &args) {
    unsigned char units = XmPIXELS;
    XtVaGetValues(w, XmNunitType, &units, nullptr);
    for (const Arg &arg : args)
        if (std::string(arg.name) == XmNunitType)
            units = static_cast<unsigned char>(arg.value);
    return units != XmPIXELS && std::any_of(args.begin(), args.end(), [&](const Arg &arg) {
               const bool is_size =
                   std::string(arg.name) == XmNwidth || std::string(arg.name) == XmNheight;
               return is_size && XmConvertUnits(w, XmHORIZONTAL, units, static_cast<int>(arg.value),
                                                XmPIXELS) < 1;
           });
}

// The toolkit's own for its tips is among a shell's children, and stays.
bool IsEmpty(Widget shell) {
    const auto &composite = reinterpret_cast<CompositeWidget>(shell)->composite;
    return std::all_of(composite.children, composite.children + composite.num_children,
                       [](Widget child) { return XtIsShell(child); });
}

bool IsPlaceFor(WidgetClass child, Widget parent) {
    if (child == xmArcWidgetClass)
        return XmIsGraph(parent);
    return XtIsShell(parent) ? IsEmpty(parent) : XmIsManager(parent);
}

// One that is alive is left alone.
bool Make(Told &told) {
    Widget parent = told.size() > 3 ? told.Object(3) : nullptr;
    const Creator create = parent ? CreatorOf(told.Word(2)) : nullptr;
    std::vector<Arg> args;
    if (!create || told.Object(1) || !IsPlaceFor(ClassOf(told.Word(2)), parent) ||
        !TakeSettings(told, 4, args) || IsFatal(parent, nullptr, args) || IsTooSmall(parent, args))
        return false;
    const std::string name = "w" + told.Word(1);
    Widget w = create(parent, Name(name.c_str()), args.data(), static_cast<Cardinal>(args.size()));
    told.world().Bind(told.Number(1), w);
    return true;
}

Widget ChildAt(Widget parent, int index) {
    int count = 0;
    if (XmIsGraph(parent)) {
        WidgetList nodes = XmGraphGetNodes(parent, &count);
        return index >= 0 && index < count ? nodes[index] : nullptr;
    }
    const auto &composite = reinterpret_cast<CompositeWidget>(parent)->composite;
    const bool there =
        XtIsComposite(parent) && index >= 0 && index < static_cast<int>(composite.num_children);
    return there ? composite.children[index] : nullptr;
}

// A number for a widget that the storm did not make: a child of that place, or what a resource names.
bool Adopt(Told &told) {
    Widget holder = told.Object(2), found = nullptr;
    if (!holder || told.size() < 4)
        return false;
    if (std::isdigit(static_cast<unsigned char>(told.Word(3).front())))
        found = ChildAt(holder, told.Number(3));
    else
        XtVaGetValues(holder, told.Word(3).c_str(), &found, nullptr);
    if (!found || found->core.being_destroyed)
        return false;
    told.world().Bind(told.Number(1), found);
    return true;
}

bool AdoptNamed(Told &told) {
    Widget found = told.world().shell && told.size() > 2
                       ? XtNameToWidget(told.world().shell, told.Word(2).c_str())
                       : nullptr;
    if (found)
        told.world().Bind(told.Number(1), found);
    return found;
}

bool AdoptArc(Told &told) {
    Widget graph = told.Object(2);
    if (!graph || !XmIsGraph(graph))
        return false;
    int count = 0;
    const WidgetList arcs = XmGraphGetArcs(graph, &count);
    if (told.Number(3) < 0 || told.Number(3) >= count)
        return false;
    told.world().Bind(told.Number(1), arcs[told.Number(3)]);
    return true;
}

// ---- Acts on one widget ----------------------------------------------------------------------------

bool IsRealizedWidget(Widget w) {
    return XtIsWidget(w) && XtIsRealized(w);
}

bool Set(Told &told, Widget w) {
    std::vector<Arg> args;
    if (!TakeSettings(told, 2, args) || (XtParent(w) && IsFatal(XtParent(w), w, args)) ||
        IsTooSmall(w, args))
        return false;
    XtSetValues(w, args.data(), static_cast<Cardinal>(args.size()));
    return true;
}

bool SetText(Told &told, Widget w) {
    if (told.size() < 4)
        return false;
    const std::string text = Unquote(told.Word(3));
    XtVaSetValues(w, XtVaTypedArg, told.Word(2).c_str(), XtRString, text.c_str(),
                  static_cast<int>(text.size()) + 1, nullptr);
    return true;
}

bool IsOurs(WidgetClass widget_class) {
    const auto &scenes = Scenes();
    return widget_class == xmArcWidgetClass ||
           std::any_of(scenes.begin(), scenes.end(), [&](const Scene &scene) {
               return scene.subject && *scene.subject == widget_class;
           });
}

// Everything that the class has; compound strings are copies. What else the toolkit's classes copy, who knows.
bool GetAll(Told &, Widget w) {
    if (!IsOurs(XtClass(w)))
        return false;
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtGetResourceList(XtClass(w), &list, &count);
    for (Cardinal i = 0; i < count; i++) {
        XtArgVal value[8] = {};
        Arg arg = {list[i].resource_name, reinterpret_cast<XtArgVal>(value)};
        XtGetValues(w, &arg, 1);
        if (std::string(list[i].resource_type) == XmRXmString)
            XmStringFree(reinterpret_cast<XmString>(value[0]));
    }
    XtFree(reinterpret_cast<char *>(list));
    return true;
}

bool Uncover(Told &told, Widget w) {
    if (!IsRealizedWidget(w))
        return false;
    XClearArea(told.world().display, XtWindow(w), told.Number(2), told.Number(3),
               static_cast<unsigned>(told.Number(4)), static_cast<unsigned>(told.Number(5)), True);
    return true;
}

bool Configure(Told &told, Widget w) {
    const auto width = static_cast<Dimension>(told.Number(4));
    const auto height = static_cast<Dimension>(told.Number(5));
    XtConfigureWidget(w, static_cast<Position>(told.Number(2)),
                      static_cast<Position>(told.Number(3)), width ? width : 1, height ? height : 1,
                      w->core.border_width);
    return true;
}

bool Ask(Told &told, Widget w) {
    XtWidgetGeometry wish{}, answer{};
    wish.request_mode =
        static_cast<XtGeometryMask>(told.Number(2) & (CWX | CWY | CWWidth | CWHeight));
    wish.width = static_cast<Dimension>(told.Number(3));
    wish.height = static_cast<Dimension>(told.Number(4));
    XtQueryGeometry(w, &wish, &answer);
    return true;
}

bool Map(Widget w, void (*act)(Widget)) {
    if (!IsRealizedWidget(w))
        return false;
    act(w);
    return true;
}

bool On(Told &told, Widget w) {
    return told.size() > 4 &&
           told.storm.DoOnCallback(w, told.Word(2), told.Number(3), told.step.From(4));
}

bool HoldsScrolledWindow(Widget w) {
    if (!XtIsComposite(w))
        return false;
    const auto &composite = reinterpret_cast<CompositeWidget>(w)->composite;
    return XmIsScrolledWindow(w) ||
           std::any_of(composite.children, composite.children + composite.num_children,
                       HoldsScrolledWindow);
}

bool IsScrolled(Widget w) {
    return w && (XmIsScrolledWindow(w) || IsScrolled(XtParent(w)));
}

// The toolkit's own functions go on with their widget after a callback, and its scrolled window with what it
// holds. While an event is handled, as mostly in a client, what is ended there stays until afterwards.
bool Kill(Told &told, Widget w) {
    const Storm &storm = told.storm;
    if (storm.IsInCallback() && !IsDispatching() &&
        (storm.IsInToolkit() || IsScrolled(w) || HoldsScrolledWindow(w)))
        return false;
    XtDestroyWidget(w);
    return true;
}

bool Manage(Told &, Widget w) {
    XtManageChild(w);
    return true;
}

bool Unmanage(Told &, Widget w) {
    XtUnmanageChild(w);
    return true;
}

bool SetSensitive(Told &told, Widget w) {
    XtSetSensitive(w, told.Number(2) != 0);
    return true;
}

bool Traverse(Told &told, Widget w) {
    return XmProcessTraversal(w, static_cast<XmTraversalDirection>(told.Number(2)));
}

// As the toolkit's own windows come and go with a pane, a notebook's page, another screen.
bool Unrealize(Told &, Widget w) {
    if (!IsRealizedWidget(w))
        return false;
    XtUnrealizeWidget(w);
    return true;
}

bool Realize(Told &, Widget w) {
    if (!XtIsWidget(w) || XtIsRealized(w) || !XtParent(w) || !XtIsRealized(XtParent(w)))
        return false;
    XtRealizeWidget(w);
    XtManageChild(w);
    return true;
}

bool Colour(Told &told, Widget w) {
    XmChangeColor(w, static_cast<Pixel>(told.Number(2)));
    return true;
}

bool PointAt(Told &told, Widget w) {
    told.world().PointAt(w, told.Number(2), told.Number(3));
    return true;
}

using ObjectAct = bool (*)(Told &told, Widget w);

const std::map<std::string, ObjectAct> object_acts = {
    {"set", Set},
    {"text", SetText},
    {"get", GetAll},
    {"expose", Uncover},
    {"configure", Configure},
    {"ask", Ask},
    {"map", [](Told &, Widget w) { return Map(w, [](Widget any) { XtMapWidget(any); }); }},
    {"unmap", [](Told &, Widget w) { return Map(w, [](Widget any) { XtUnmapWidget(any); }); }},
    {"on", On},
    {"kill", Kill},
    {"manage", Manage},
    {"unmanage", Unmanage},
    {"sensitive", SetSensitive},
    {"traverse", Traverse},
    {"unrealize", Unrealize},
    {"realize", Realize},
    {"colour", Colour},
    {"pointat", PointAt},
};

// ---- Other acts --------------------------------------------------------------------------------------

// Children of one parent that are alive.
bool ManageMany(Told &told) {
    std::vector<Widget> children;
    for (std::size_t i = 2; i < told.size(); i++)
        if (Widget w = told.Object(i);
            w && (children.empty() || XtParent(w) == XtParent(children[0])))
            children.push_back(w);
    if (children.empty())
        return false;
    (told.Number(1) ? XtManageChildren
                    : XtUnmanageChildren)(children.data(), static_cast<Cardinal>(children.size()));
    return true;
}

bool ResizeShell(Told &told) {
    Widget shell = told.world().shell;
    if (!shell)
        return false;
    XtVaSetValues(shell, XmNwidth, static_cast<Dimension>(std::max(told.Number(1), 1)), XmNheight,
                  static_cast<Dimension>(std::max(told.Number(2), 1)), nullptr);
    return true;
}

bool Type(Told &told) {
    if (told.size() < 2)
        return false;
    if (told.step.verb() != "up")
        told.world().Key(told.Word(1), true);
    if (told.step.verb() != "down")
        told.world().Key(told.Word(1), false);
    return true;
}

bool PressOrRelease(Told &told) {
    const int button = told.Number(1);
    if (button < 1 || button > 5)
        return false;
    told.world().Button(static_cast<unsigned>(button), told.step.verb() == "press");
    return true;
}

bool Pump(Told &told) {
    told.world().Pump();
    return true;
}

// For the timers of a held button.
bool Wait(Told &told) {
    constexpr auto longer_than_a_timer = std::chrono::milliseconds(6);
    told.world().Pump();
    std::this_thread::sleep_for(longer_than_a_timer);
    told.world().Pump();
    return true;
}

// What all widgets of the display look up, such as which buttons drag.
bool SetOfDisplay(Told &told) {
    if (told.size() < 3)
        return false;
    XtVaSetValues(XmGetXmDisplay(told.world().display), told.Word(1).c_str(), told.Number(2),
                  nullptr);
    return true;
}

bool Point(Told &told) {
    told.world().Point(told.Number(1), told.Number(2));
    return true;
}

bool Rest(Told &told) {
    CheckRest(told.world());
    return true;
}

bool Frame(Told &told) {
    return told.world().ChangeFrame();
}

bool Later(Told &told) {
    if (told.size() < 3)
        return false;
    told.storm.DoLater(static_cast<unsigned long>(told.Number(1)), told.step.From(2));
    return true;
}

bool Inside(Told &told) {
    return told.size() > 1 && told.storm.DoInside(told.step.From(1));
}

bool OpenWorkbench(Told &told) {
    if (!told.world().shell || told.world().workbench)
        return false;
    told.world().workbench = std::make_unique<Workbench>(told.world());
    return true;
}

bool UseWorkbench(Told &told) {
    return told.world().workbench && told.world().shell && told.world().workbench->Do(told.step);
}

using OtherAct = bool (*)(Told &told);

const std::map<std::string, OtherAct> other_acts = {
    {"make", Make},
    {"adopt", Adopt},
    {"adoptarc", AdoptArc},
    {"adoptnamed", AdoptNamed},
    {"managemany", ManageMany},
    {"size", ResizeShell},
    {"key", Type},
    {"down", Type},
    {"up", Type},
    {"press", PressOrRelease},
    {"release", PressOrRelease},
    {"point", Point},
    {"pump", Pump},
    {"wait", Wait},
    {"display", SetOfDisplay},
    {"rest", Rest},
    {"frame", Frame},
    {"later", Later},
    {"inside", Inside},
    {"call", [](Told &told) { return CallFunction(told.world(), told.step); }},
    {"event", [](Told &told) { return MakeEvent(told.world(), told.step); }},
    {"send", [](Told &told) { return MakeEvent(told.world(), told.step); }},
    {"action", [](Told &told) { return MakeEvent(told.world(), told.step); }},
    {"workbench", OpenWorkbench},
    {"bench", UseWorkbench},
};

} // namespace

bool Act(Storm &storm, const Step &step) {
    Told told{storm, step};
    if (const auto act = other_acts.find(step.verb()); act != other_acts.end())
        return act->second(told);
    const auto act = object_acts.find(step.verb());
    Widget w = act == object_acts.end() || step.words.size() < 2 ? nullptr : told.Object(1);
    return w && act->second(told, w);
}

} // namespace corvidlmw::storm
