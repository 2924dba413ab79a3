#include <tests/storm/Scenes.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <algorithm>

namespace corvidlmw::storm {

namespace {

// Steps of a scene, one a line; made widgets are managed.
class Setting {
public:
    explicit Setting(Chance &chance) : chance_(chance) {}

    void Add(const std::string &line) { steps_.push_back(FromLine(line)); }
    void Make(int id, const std::string &kind, int parent, const std::string &settings = "") {
        Add("make " + std::to_string(id) + " " + kind + " " + std::to_string(parent) + " " +
            settings);
        Add("manage " + std::to_string(id));
    }
    std::string Any(std::initializer_list<const char *> words) { return chance_.Of(words); }
    Chance &chance() { return chance_; }
    Steps Done() {
        Add("pump");
        return steps_;
    }

private:
    Chance &chance_;
    Steps steps_;
};

constexpr const char *place = "x 20 y 20 width 300 height 240";

// The shell's child: a board, or another manager that takes several children.
void MakeStage(Setting &setting) {
    setting.Make(1,
                 setting.chance().Percent(70) ? "XmBulletinBoard"
                                              : setting.Any({"XmForm", "XmDrawingArea"}),
                 0, "marginWidth 0 marginHeight 0 width 640 height 480");
}

// The toolkit's frame is not among them, nor below: in a pane of the toolkit's own, too, that may be no wider than
// its shadows it asks for more without an end. Nor is its text field: it jumps to where no code is when Delete and Page Up
// follow each other with all modifiers held, and its quick copies leak.
void MakeNeighbours(Setting &setting) {
    setting.Make(80, "XmPushButton", 1, "x 340 y 10 labelString \"before");
    setting.Make(81, "XmToggleButton", 1, "x 340 y 60");
    if (setting.chance().OneIn(2))
        setting.Make(82, "XmPushButtonGadget", 1, "x 340 y 120 labelString \"gadget");
}

// ---- Graph ------------------------------------------------------------------------------------------

void MakeNodes(Setting &setting, int graph, int first, int count) {
    for (int id = first; id < first + count; id++)
        setting.Make(id,
                     setting.Any({"XmPushButtonGadget", "XmvIconGadget", "XmPushButtonGadget",
                                  "XmPushButton", "XmLabelGadget", "XmToggleButton"}),
                     graph);
}

void MakeArcs(Setting &setting, int graph, int first, int count, int first_node, int nodes) {
    const auto node = [&] {
        return " @" + std::to_string(setting.chance().Between(first_node, first_node + nodes - 1));
    };
    for (int id = first; id < first + count; id++) {
        setting.Add("call XmCreateAttachedArc " + std::to_string(id) + " @" +
                    std::to_string(graph) + node() + node());
        setting.Add("manage " + std::to_string(id));
    }
}

Steps SetGraph(Chance &chance) {
    Setting setting(chance);
    MakeStage(setting);
    const bool in_window = chance.OneIn(3); // of the client's own, which outlives the graph
    if (in_window)
        setting.Make(8, "XmScrolledWindow", 1, std::string(place) + " scrollingPolicy 0");
    setting.Make(
        2, in_window ? "XmGraph" : setting.Any({"XmGraph", "XmScrolledGraph"}), in_window ? 8 : 1,
        std::string(place) + " editable " + setting.Any({"0", "1", "1"}) + " autoLayoutMode " +
            setting.Any({"0", "1", "2", "3", "4"}) + " layoutStyle " + setting.Any({"0", "1"}));
    const int nodes = chance.Between(1, 8);
    MakeNodes(setting, 2, 10, nodes);
    MakeArcs(setting, 2, 30, chance.Between(0, 10), 10, nodes);
    if (chance.OneIn(2)) {
        setting.Make(3, "XmGraph", 1, "x 20 y 280");
        MakeNodes(setting, 3, 20, 2);
        MakeArcs(setting, 3, 50, 2, 20, 2);
    }
    setting.Add("adoptnamed 6 *VertScrollBar");
    setting.Add("adoptnamed 7 *HorScrollBar");
    if (chance.OneIn(2))
        setting.Add("call XmGraphCreateOverView 5 @2 @1");
    MakeNeighbours(setting);
    return setting.Done();
}

// ---- List -------------------------------------------------------------------------------------------

Steps SetList(Chance &chance) {
    Setting setting(chance);
    MakeStage(setting);
    setting.Add(std::string("display enableBtn1Transfer ") + setting.Any({"0", "0", "1", "2"}));
    const bool scrolled = chance.Percent(70);
    setting.Make(2, scrolled ? "LmScrolledList" : "LmList", 1,
                 std::string(scrolled ? "" : place) + " visibleItemCount " +
                     setting.Any({"1", "5", "10"}) + " selectionPolicy " +
                     setting.Any({"0", "1", "2", "3"}) + " listSizePolicy " +
                     setting.Any({"0", "1", "2"}) + " scrollBarDisplayPolicy " +
                     setting.Any({"0", "1"}) + " automaticSelection " + setting.Any({"0", "1"}) +
                     " showIcons " + setting.Any({"0", "1"}));
    for (int i = 0, rows = chance.Between(0, 30); i < rows; i++)
        setting.Add("call LmListAddItem @2 \"row" + std::to_string(i % 20) + " 0");
    if (scrolled) {
        setting.Add("adopt 5 2 verticalScrollBar");
        setting.Add("adopt 6 2 horizontalScrollBar");
    }
    if (chance.OneIn(2))
        setting.Make(3, "LmList", 1, "x 20 y 280");
    MakeNeighbours(setting);
    return setting.Done();
}

// ---- Scroll bar -------------------------------------------------------------------------------------

Steps SetScrollBar(Chance &chance) {
    Setting setting(chance);
    MakeStage(setting);
    setting.Make(2, "SvScrollBar", 1, "x 20 y 20 width 20 height 200 sliderSize 20");
    setting.Make(3, "SvScrollBar", 1, "x 60 y 20 width 200 height 20 orientation 2 sliderSize 5");
    if (chance.OneIn(2)) {
        setting.Make(4, "XmScrolledWindow", 1, "x 60 y 60 width 150 height 150 scrollingPolicy 1");
        setting.Make(5, "SvScrollBar", 4);
        setting.Make(6, "XmDrawingArea", 4);
    }
    MakeNeighbours(setting);
    return setting.Done();
}

// ---- Managers ---------------------------------------------------------------------------------------

constexpr auto child_kinds = {
    "XmPushButton", "XmPushButtonGadget", "XmLabelGadget", "XmToggleButton", "XmvIconGadget",
    "SvScrollBar",  "XmSeparatorGadget",  "LmList",        "XmBulletinBoard"};

template <const char *const &kind>
Steps SetManager(Chance &chance) {
    Setting setting(chance);
    MakeStage(setting);
    setting.Make(2, kind, 1, place);
    for (int id = 10, end = 10 + chance.Between(0, 8); id < end; id++)
        setting.Make(id, chance.Of(child_kinds), 2);
    if (chance.OneIn(3)) {
        setting.Make(3, kind, 2);
        setting.Make(30, chance.Of(child_kinds), 3);
    }
    MakeNeighbours(setting);
    return setting.Done();
}

constexpr const char *grid = "XmGrid";
constexpr const char *panes = "XmHorzPanedWindow";
constexpr const char *rubber_board = "XmRubberBoard";
constexpr const char *spring_box = "XmSpringBox";

// ---- Gadget -----------------------------------------------------------------------------------------

Steps SetGadgets(Chance &chance) {
    Setting setting(chance);
    MakeStage(setting);
    setting.Make(2, "XmRowColumn", 1, "x 10 y 10");
    setting.Make(3, setting.Any({"XmGraph", "XmGrid", "XmForm", "XmSpringBox"}), 1, "x 10 y 240");
    for (int id = 10, end = 10 + chance.Between(1, 12); id < end; id++)
        setting.Make(id, "XmvIconGadget", chance.Between(1, 3),
                     "labelString \"icon" + setting.Any({"", "\\x0atwo", "one", "x"}) +
                         " labelPixmap pixmap:" + setting.Any({"0", "1", "2", "3"}));
    MakeNeighbours(setting);
    return setting.Done();
}

// ---- All together -----------------------------------------------------------------------------------

Steps SetAll(Chance &chance) {
    Setting setting(chance);
    MakeStage(setting);
    setting.Make(2, "XmHorzPanedWindow", 1, "width 600 height 300");
    setting.Make(3, "LmScrolledList", 2, "visibleItemCount 8");
    for (int i = 0; i < 12; i++)
        setting.Add("call LmListAddItem @3 \"row" + std::to_string(i) + " 0");
    setting.Make(4, "XmScrolledGraph", 2, "editable 1 autoLayoutMode 1");
    MakeNodes(setting, 4, 10, 6);
    MakeArcs(setting, 4, 30, 6, 10, 6);
    setting.Make(5, "XmGrid", 2, "numRows 3 numColumns 2");
    for (int id = 40; id < 45; id++)
        setting.Make(id, chance.Of(child_kinds), 5);
    setting.Make(6, "XmRubberBoard", 1, "x 10 y 310 width 200 height 100");
    setting.Make(7, "XmSpringBox", 1, "x 220 y 310 width 200 height 100");
    for (int id = 50; id < 56; id++)
        setting.Make(id, chance.Of(child_kinds), 6 + id % 2);
    setting.Make(8, "SvScrollBar", 1, "x 450 y 310");
    setting.Add("call XmGraphCreateOverView 9 @4 @1");
    return setting.Done();
}

Steps SetWorkbench(Chance &chance) {
    Setting setting(chance);
    setting.Add("workbench");
    setting.Add("pump");
    int id = 2;
    for (const char *name :
         {"*graph", "*nodes", "*properties", "*panes", "*VScrollBar", "*overview"})
        setting.Add("adoptnamed " + std::to_string(id++) + " " + name);
    return setting.Done();
}

} // namespace

const std::vector<Scene> &Scenes() {
    static const std::vector<Scene> scenes = {
        {"XmGraph", &xmGraphWidgetClass, SetGraph},
        {"LmList", &lmListWidgetClass, SetList},
        {"XmGrid", &xmGridWidgetClass, SetManager<grid>},
        {"XmHorzPanedWindow", &xmHorzPanedWindowWidgetClass, SetManager<panes>},
        {"XmRubberBoard", &xmRubberBoardWidgetClass, SetManager<rubber_board>},
        {"XmSpringBox", &xmSpringBoxWidgetClass, SetManager<spring_box>},
        {"SvScrollBar", &svScrollBarWidgetClass, SetScrollBar},
        {"XmvIconGadget", &xmvIconGadgetClass, SetGadgets},
        {"all", nullptr, SetAll},
        {"workbench", nullptr, SetWorkbench},
    };
    return scenes;
}

const Scene *SceneOf(const std::string &name) {
    const auto &scenes = Scenes();
    const auto found = std::find_if(scenes.begin(), scenes.end(),
                                    [&](const Scene &scene) { return scene.name == name; });
    return found == scenes.end() ? nullptr : &*found;
}

} // namespace corvidlmw::storm
