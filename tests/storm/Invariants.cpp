#include <tests/storm/Invariants.h>

#include <tests/storm/Deferred.h>
#include <tests/support/Belongings.h>
#include <tests/support/Complaints.h>
#include <tests/support/GoogleTest.h>
#include <tests/support/Interpose.h>

#include <corvidlmw/gadget/IconGP.h>
#include <corvidlmw/graph/ArcP.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/GridP.h>
#include <corvidlmw/managers/HPanedWP.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>
#include <corvidlmw/scrollbar/SvScrollBarP.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <string_view>

namespace corvidlmw::storm {

namespace {

// ---- All widgets ----------------------------------------------------------------------------------

std::span<const Widget> ChildrenOf(Widget w) {
    if (!XtIsComposite(w))
        return {};
    const auto &composite = reinterpret_cast<CompositeWidget>(w)->composite;
    return {composite.children, composite.num_children};
}

struct Check {
    WidgetClass *of;
    void (*run)(Widget w);
};
constexpr WidgetClass *managers[] = {&xmGraphWidgetClass, &xmGridWidgetClass,
                                     &xmHorzPanedWindowWidgetClass, &xmRubberBoardWidgetClass,
                                     &xmSpringBoxWidgetClass};
constexpr Check checks[] = {
    {&xmGraphWidgetClass, CheckGraph},           {&lmListWidgetClass, CheckList},
    {&svScrollBarWidgetClass, CheckScrollBar},   {&xmGridWidgetClass, CheckGrid},
    {&xmHorzPanedWindowWidgetClass, CheckPanes},
};

// In such units a client can ask for less than a pixel.
bool HasOtherUnits(Widget w) {
    unsigned char unit_type = XmPIXELS;
    XtVaGetValues(w, XmNunitType, &unit_type, nullptr);
    return unit_type != XmPIXELS;
}

bool IsInOneOfOurs(Widget w) {
    return XtIsWidget(w) && XtIsRealized(w) && XtParent(w) &&
           std::any_of(std::begin(managers), std::end(managers), [w](const WidgetClass *manager) {
               return XtClass(XtParent(w)) == *manager;
           });
}

void CheckOne(Widget w) {
    if (w->core.being_destroyed)
        return;
    for (const Check &check : checks)
        if (XtClass(w) == *check.of)
            check.run(w);
    const bool may_have_none = !IsInOneOfOurs(w) || HasOtherUnits(w);
    EXPECT_TRUE(may_have_none || (w->core.width > 0 && w->core.height > 0))
        << XtName(w) << " has no size";
}

// The shell and all below it, arcs and popups as well.
std::vector<Widget> AllOf(World &world) {
    std::vector<Widget> all;
    if (world.shell)
        all.push_back(world.shell);
    for (std::size_t i = 0; i < all.size(); i++) {
        Widget w = all[i];
        const auto children = ChildrenOf(w);
        all.insert(all.end(), children.begin(), children.end());
        if (XtIsWidget(w))
            all.insert(all.end(), w->core.popup_list, w->core.popup_list + w->core.num_popups);
        if (XtClass(w) == xmGraphWidgetClass) {
            const auto &graph = reinterpret_cast<XmGraphWidget>(w)->graph;
            all.insert(all.end(), graph.arcs, graph.arcs + graph.num_arcs);
        }
    }
    return all;
}

// Who saw a press that never was waits for its release.
void TellRelease(Widget w, unsigned button) {
    XEvent event{};
    event.xbutton.type = ButtonRelease;
    event.xbutton.display = XtDisplay(w);
    event.xbutton.window = XtWindow(w);
    event.xbutton.root = DefaultRootWindow(XtDisplay(w));
    event.xbutton.button = button;
    event.xbutton.state = Button1Mask << (button - 1);
    event.xbutton.same_screen = True;
    XtDispatchEvent(&event);
}

void TellReleases(World &world) {
    std::vector<int> ids;
    for (const auto &[id, w] : world.widgets())
        ids.push_back(id);
    for (const int id : ids)
        for (const unsigned button : {Button1, Button2, Button3})
            if (Widget w = world.Find(id); w && XtIsWidget(w) && XtIsRealized(w))
                TellRelease(w, button);
}

// ---- Warnings ---------------------------------------------------------------------------------------

// What is said to a client that gives nonsense.
constexpr std::string_view known_warnings[] = {
    // The converters. Xt cuts some of its messages short when it is run by root.
    "Type conversion failed",
    "Cannot convert string",
    "Unable to find type of resource",
    "No type converter registered",
    "Color name",
    "Missing charsets",
    "suid-root program",
    // Text that is not UTF-8, handed to other clients.
    "XmbTextListToTextProperty failed",
    "Cannot convert XmString to Compound Text",
    // An action whose parameter names another one.
    "No action proc named",
    // The toolkit's classes.
    "Illegal value (",
    "Cannot change XmN",
    "Attempt to change XmNshadowThickness",
    "RowColumn",
    // Scroll bars.
    "scrollbar",
    "Specified slider size",
    "slider size",
    "processing direction",
    // Graphs and arcs.
    "requires an XmGraph widget",
    "Arc widget should have",
    "You must specify both a to and from",
    "expects a compound string",
    // Grids and panes.
    "Grid has too many rows and columns",
    "Grid must have at least one",
    "More children than cells",
    "Maximum value must be",
    "Minimum value must be",
    // Lists.
    "Item(s) to be deleted are not present",
    "Invalid item",
    "When changed, XmN",
    "XmNitems and XmNitemCount mismatch",
    "Cannot set XmNitems to NULL",
    "XmNselectedItem",
    "must be non-negative",
};

bool IsKnown(const std::string &warning) {
    return std::any_of(
        std::begin(known_warnings), std::end(known_warnings),
        [&](std::string_view known) { return warning.find(known) != std::string::npos; });
}

// The server had no room for a picture of that size.
bool IsKnown(const test::XErrorRecord &error) {
    return error.error_code == BadAlloc;
}

} // namespace

void CheckWidgets(World &world) {
    std::vector<Widget> gadgets;
    for (Widget w : AllOf(world)) {
        CheckOne(w);
        if (XtClass(w) == xmvIconGadgetClass)
            gadgets.push_back(w);
    }
    CheckSharedParts(gadgets);
    for (const auto &stray : Strays())
        ADD_FAILURE() << "astray: " << stray;
}

void CheckComplaints() {
    auto &complaints = test::Complaints::Current();
    for (const auto &warning : complaints.warnings)
        if (!IsKnown(warning))
            ADD_FAILURE() << "unexpected warning: " << warning;
    for (const auto &error : complaints.x_errors)
        if (!IsKnown(error))
            ADD_FAILURE() << "X error: " << error.text << ", request " << error.request_code << "."
                          << error.minor_code << ", resource " << error.resource;
    complaints = {};
}

void CheckRest(World &world) {
    world.LetGoOfAll();
    TellReleases(world);
    for (int menu = 0; menu < 3; menu++) { // posted ones, and a drag
        world.Key("Escape", true);
        world.Key("Escape", false);
    }
    const bool at_rest = world.ComeToRest();
    EXPECT_EQ(WaitingTimers(), 0) << "timers left: " << WaitingNames();
    EXPECT_EQ(WaitingWorkProcs(), 0) << "work procedures left: " << WaitingNames();
    EXPECT_TRUE(at_rest) << "there is no end of events";
    // A menu that was posted by key may be left, which is the toolkit's.
    EXPECT_STREQ(world.workbench ? "" : world.Grab(), "") << "a grab is left";
}

void CheckBelongings() {
    for (const auto &line : test::Belongings())
        ADD_FAILURE() << "never given back: " << line;
}

// ---- Scroll bar -------------------------------------------------------------------------------------

void CheckScrollBar(Widget w) {
    const auto &bar = reinterpret_cast<SvScrollBarWidget>(w)->scroll_bar;
    EXPECT_LT(bar.minimum, bar.maximum);
    EXPECT_GE(bar.slider_size, 1);
    EXPECT_LE(bar.slider_size, static_cast<long>(bar.maximum) - bar.minimum);
    EXPECT_GE(bar.value, bar.minimum);
    EXPECT_LE(static_cast<long>(bar.value) + bar.slider_size, bar.maximum);
    EXPECT_GE(bar.increment, 1);
    EXPECT_GE(bar.page_increment, 1);
}

// ---- Grid -------------------------------------------------------------------------------------------

void CheckGrid(Widget w) {
    const auto &grid = reinterpret_cast<XmGridWidget>(w)->grid;
    ASSERT_GE(grid.num_rows, 1);
    ASSERT_GE(grid.num_columns, 1);
    const auto children = ChildrenOf(w);
    std::set<Widget> seen;
    for (int i = 0; i < grid.num_rows * grid.num_columns; i++) {
        Widget child = grid.cells[i];
        ASSERT_TRUE(!child || std::find(children.begin(), children.end(), child) != children.end())
            << "a cell holds a dead child";
        EXPECT_TRUE(!child || seen.insert(child).second) << "a child in two cells";
    }
}

// ---- Paned window -----------------------------------------------------------------------------------

void CheckPanes(Widget w) {
    const auto &panes = reinterpret_cast<XmHorzPanedWindowWidget>(w)->horz_paned_window;
    const auto children = ChildrenOf(w);
    ASSERT_LE(panes.pane_count, panes.num_managed_children);
    ASSERT_LE(panes.num_managed_children, panes.num_slots);
    for (int i = 0; i < panes.num_managed_children; i++) {
        Widget child = panes.managed_children[i];
        ASSERT_NE(std::find(children.begin(), children.end(), child), children.end())
            << "managed child " << i << " is dead";
        const auto &part =
            static_cast<XmHorzPanedWindowConstraintPtr>(child->core.constraints)->horz_paned_window;
        EXPECT_EQ(part.is_pane != False, i < panes.pane_count) << i;
    }
}

// ---- Gadget -----------------------------------------------------------------------------------------

void CheckSharedParts(const std::vector<Widget> &gadgets) {
    std::map<const XmvIconGCacheObjPart *, int> users;
    for (Widget gadget : gadgets)
        users[reinterpret_cast<XmvIconGadget>(gadget)->icon.cache]++;
    for (const auto &[part, count] : users) {
        const auto *shared = reinterpret_cast<const XmGadgetCacheRef *>(
            reinterpret_cast<const char *>(part) - offsetof(XmGadgetCacheRef, data));
        EXPECT_EQ(shared->cache.ref_count, count) << "uses of a part that gadgets share";
    }
}

} // namespace corvidlmw::storm
