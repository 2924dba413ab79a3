// A second, plain account of the pointer machine of an editable graph and of what its calls change: it is
// told of each event before the graph, and says what must be there and what was told to the client after.
//
// It takes from the graph only what it does not speak of itself: which arc lies at a point, where an arc's
// ends are drawn, which nodes lead to which, and how large things are.
#pragma once

#include <tests/graph/GestureTest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>

namespace corvidlmw::test {

// What a client hears. An object that the model cannot know yet is `fresh`.
struct Heard {
    int reason = 0;
    bool changed = false; // on XmNgraphChangedCallback
    Widget widget = nullptr;
    bool event = false, interactive = false, doit = false;
    Widgets nodes, arcs; // the lists
    Widgets ends;        // old_from, old_to, new_from, new_to
    bool operator==(const Heard &) const = default;
};

inline const Widget fresh = reinterpret_cast<Widget>(1);
constexpr int layout_ran = -1;

inline std::ostream &operator<<(std::ostream &out, const Heard &heard) {
    return out << heard.reason << (heard.changed ? " changed " : " ") << heard.widget << heard.event
               << heard.interactive << heard.doit << ::testing::PrintToString(heard.nodes)
               << ::testing::PrintToString(heard.arcs) << ::testing::PrintToString(heard.ends);
}

class GestureModel {
public:
    explicit GestureModel(Widget modelled) : w(modelled) {}

    Widget w;
    int state = 0;
    Widget indicated = nullptr, moving = nullptr, subtree = nullptr, arc = nullptr;
    Widget armed = nullptr, pressed = nullptr;
    Widgets nodes, arcs, subgraph; // the selection, and what a Shift gesture covers
    std::uint32_t last_click = 0;
    std::map<Widget, Place> places; // of all children
    std::map<Widget, std::pair<Widget, Widget>> ends;
    std::set<Widget> lit; // arcs that show their highlight
    bool editable = true, multiple = true, selectable = true, editable_arcs = true, movable = true,
         may_add = true;
    int mode = XmNEVER, interval = 250;
    bool refuse = false; // what the client answers
    std::vector<Heard> heard;
    bool relaid = false;                      // nodes went where a layout wants them
    bool adds_node = false, adds_arc = false; // one is new after this step
    Place added_at;
    std::pair<Widget, Widget> added_ends;

    // ---- Events ----------------------------------------------------------------------------------

    void Take(const XEvent &event) {
        at = {event.xbutton.x, event.xbutton.y};
        subwindow = event.xbutton.subwindow;
        time = static_cast<std::uint32_t>(event.xbutton.time);
        const unsigned mods = event.xbutton.state;
        const bool ctrl = mods & ControlMask, shift = mods & ShiftMask, meta = mods & Mod1Mask;
        const bool plain = !ctrl && !shift && !meta;
        const unsigned button = event.type == MotionNotify ? 0 : event.xbutton.button;
        if (event.type == MotionNotify) {
            if (mods & (Button1Mask | Button2Mask))
                Move();
            if (mods & Button1Mask)
                EnterOrLeave();
        } else if (event.type == ButtonRelease && button != Button3 && (plain || shift || ctrl)) {
            End();
            if (plain && button == Button1 && !editable) {
                armed = IsArc(pressed) ? nullptr : armed;
                pressed = nullptr;
            }
        } else if (event.type == ButtonPress) {
            Press(button, ctrl, shift, plain);
        }
    }

    // ---- Calls -----------------------------------------------------------------------------------

    void SelectNodeBy(Widget node, bool notify, int reason = XmCR_SELECT_NODE) {
        AddOnce(nodes, node);
        if (notify)
            Tell(reason, node);
    }
    void SelectArcBy(Widget object, bool notify, int reason = XmCR_SELECT_ARC) {
        AddOnce(arcs, object);
        lit.insert(object);
        if (notify)
            Tell(reason, object);
    }
    void Unselect(Widgets objects, bool notify) {
        if (notify)
            Tell(XmCR_DESELECT, objects.front());
        for (Widget object : objects) {
            std::erase(IsArc(object) ? arcs : nodes, object);
            lit.erase(object);
        }
    }
    void SelectSubtreeBy(Widget root, bool notify) {
        Widgets path;
        Reach(root, path);
        SelectCovered(root);
        if (notify)
            Tell({.reason = XmCR_SELECT_SUBGRAPH, .widget = root, .interactive = true});
    }
    void MoveNode(Widget node, int x, int y) {
        places[node] = {static_cast<short>(x), static_cast<short>(y)};
    }
    void AddNodeBy(Place place) { AddNode(place, false); }
    bool IsArc(Widget object) const { return ends.contains(object); }
    bool Knows(Widget object) const { return places.contains(object) || IsArc(object); }

    void Die(Widget object) {
        for (Widget *field : {&indicated, &moving, &subtree, &arc, &armed, &pressed})
            *field = *field == object ? nullptr : *field;
        for (Widgets *list : {&nodes, &arcs, &subgraph})
            std::erase(*list, object);
        lit.erase(object);
        if (IsArc(object)) {
            arc = nullptr; // of whatever arc, and so with nodes
            ends.erase(object);
            return;
        }
        moving = nullptr;
        places.erase(object);
        std::erase_if(ends, [&](const auto &entry) {
            const auto [from, to] = entry.second;
            if (from != object && to != object)
                return false;
            Forget(entry.first);
            return true;
        });
    }

private:
    Place at;
    Window subwindow = None;
    std::uint32_t time = 0;
    Place start, offset;
    std::map<Widget, Place> deltas;

    static void AddOnce(Widgets &list, Widget entry) {
        if (std::find(list.begin(), list.end(), entry) == list.end())
            list.push_back(entry);
    }
    static bool Has(const Widgets &list, Widget entry) {
        return std::find(list.begin(), list.end(), entry) != list.end();
    }
    bool IsSelected(Widget object) const { return Has(nodes, object) || Has(arcs, object); }

    void Forget(Widget dying) { // an arc whose node dies
        arc = nullptr;
        for (Widget *field : {&indicated, &armed, &pressed})
            *field = *field == dying ? nullptr : *field;
        std::erase(arcs, dying);
        lit.erase(dying);
    }

    // ---- Telling ---------------------------------------------------------------------------------

    void Tell(Heard about) {
        about.nodes = nodes;
        about.arcs = arcs;
        about.ends.resize(4);
        heard.push_back(about);
    }
    void Tell(int reason, Widget object) { Tell({.reason = reason, .widget = object}); }
    void TellOfGesture(int reason, Widget object) {
        Tell({.reason = reason, .widget = object, .event = true, .interactive = true});
    }
    void TellChanged(int reason, Widget object, bool interactive = true) {
        heard.push_back({.reason = reason,
                         .changed = true,
                         .widget = object,
                         .interactive = interactive,
                         .ends = Widgets(4)});
    }
    void Managed() { // the class's change_managed
        if (mode == XmALWAYS)
            heard.push_back({.reason = layout_ran});
        TellChanged(XmCR_LAYOUT_CHANGED, nullptr, false);
    }

    // ---- Picking ---------------------------------------------------------------------------------

    Widget GadgetThere() const {
        const auto &composite = CompositeOf(w);
        for (Cardinal i = composite.num_children; i-- > 0;) {
            Widget child = composite.children[i];
            const Place p = places.at(child);
            if (XmIsGadget(child) && XtIsManaged(child) && at.x >= p.x && at.y >= p.y &&
                at.x < p.x + child->core.width && at.y < p.y + child->core.height)
                return child;
        }
        return nullptr;
    }
    Widget Under(bool with_arcs) const {
        Widget gadget = GadgetThere();
        return gadget || !with_arcs ? gadget : XmGraphInputOverArc(w, at.x, at.y);
    }
    Widget Pick(bool with_arcs) const {
        return subwindow ? XtWindowToWidget(XtDisplay(w), subwindow) : Under(with_arcs);
    }

    // ---- Selecting -------------------------------------------------------------------------------

    void Light(Widget object, bool on) {
        if (IsArc(object))
            on ? void(lit.insert(object)) : void(lit.erase(object));
    }
    void DeselectNodes() {
        if (!nodes.empty())
            Tell({.reason = XmCR_DESELECT_NODES, .interactive = true});
        nodes.clear();
    }
    void DeselectArcs() {
        if (!arcs.empty())
            Tell({.reason = XmCR_DESELECT_ARCS, .interactive = true});
        for (Widget a : arcs)
            lit.erase(a);
        arcs.clear();
    }
    void SelectOne(Widget object) {
        IsArc(object) ? SelectArcBy(object, true) : SelectNodeBy(object, true);
    }

    void Press(unsigned button, bool ctrl, bool shift, bool plain) {
        if (button == Button3)
            return ThirdButton();
        if (button == Button2) {
            if (shift)
                StartAdding();
            else if (plain)
                StartMoving();
        } else if (plain) {
            Indicate();
            if (!editable)
                if (Widget object = Under(true))
                    pressed = object;
        } else if (ctrl) {
            AddIndicate();
        } else if (shift) {
            IndicateSubtree();
        }
    }

    void Indicate() {
        if (!editable)
            return;
        Widget object = Pick(true);
        if (!object) {
            state = 0;
            indicated = nullptr;
            DeselectNodes();
            DeselectArcs();
            if (multiple) {
                state = 26;
                start = at;
                offset = {};
            }
        } else if (IsArc(object) && !selectable) {
            return;
        } else if (IsSelected(object)) {
            state = 16;
            indicated = object;
            DeselectNodes();
            DeselectArcs();
            SelectOne(object);
        } else {
            indicated = object;
            state = IsArc(object) ? 5 : 1;
            Light(object, true);
        }
    }

    void AddIndicate() {
        if (!editable || !multiple)
            return;
        Widget object = Pick(true);
        if (!object || (IsArc(object) && !selectable))
            return;
        if (!IsArc(object) && IsSelected(object)) {
            state = 16;
            indicated = nullptr;
            return;
        }
        indicated = object;
        state = IsArc(object) ? 7 : 3;
        Light(object, true);
    }

    void IndicateSubtree() {
        moving = subtree = arc = nullptr;
        subgraph.clear();
        if (!editable || !multiple)
            return;
        Widget object = Pick(false);
        if (!object)
            return;
        indicated = subtree = object;
        state = 17;
        Widgets path;
        Reach(object, path);
    }

    void Reach(Widget node, Widgets &path) {
        if (Has(path, node) || !XtIsManaged(node) ||
            (!XmIsGadget(node) && !node->core.mapped_when_managed))
            return;
        path.push_back(node);
        AddOnce(subgraph, node);
        for (Widget child : NodesIn(NodeRecOf(node)->children))
            Reach(child, path);
        path.pop_back();
    }

    bool BelongsToSubgraph(Widget a) const {
        const auto [from, to] = ends.at(a);
        return from != to && XtIsManaged(from) && XtIsManaged(to) &&
               (XmIsGadget(from) || XmIsGadget(to) ||
                (from->core.mapped_when_managed && to->core.mapped_when_managed));
    }
    void SelectArcsOf(Widget node) {
        for (Widget a : ArcsIn(NodeRecOf(node)->from_arcs))
            if (BelongsToSubgraph(a))
                SelectArcBy(a, true);
    }
    void CancelArcsOf(Widget node) {
        for (Widget a : ArcsIn(NodeRecOf(node)->from_arcs))
            if (BelongsToSubgraph(a) && _sibling_rank(a) == 0)
                Unselect({a}, false);
    }
    void SelectCovered(Widget root) {
        SelectNodeBy(root, false);
        SelectArcsOf(root);
        for (Widget node : subgraph) {
            SelectNodeBy(node, false);
            SelectArcsOf(node);
        }
    }
    void CancelCovered() {
        Unselect({indicated}, false);
        CancelArcsOf(indicated);
        for (Widget node : subgraph) {
            Unselect({node}, false);
            CancelArcsOf(node);
        }
    }

    // ---- Motion ----------------------------------------------------------------------------------

    void Move() {
        switch (state) {
        case 1:
        case 2:
        case 5:
        case 6: return Cancel();
        case 3:
        case 4:
        case 7:
        case 8: return CancelAdd();
        case 9:
        case 10:
        case 11: return Drag();
        case 17:
        case 18: return CancelSubtree();
        case 26: // a drag of an arc that takes a node for its own goes on with this
            if (editable && multiple)
                offset = {at.x - start.x, at.y - start.y};
            return;
        case 25:
            if (editable && !Pick(false))
                state = 24;
            return;
        default: return;
        }
    }

    void Cancel() {
        if (!editable || !indicated)
            return;
        Widget object = Pick(true);
        if (!object && subwindow)
            object = Under(true);
        if (object == indicated) {
            Light(indicated, true);
            state = IsArc(indicated) ? 5 : 1;
        } else if (state == 1 || state == 5) {
            Light(indicated, false);
            state = IsArc(indicated) ? 6 : 2;
        } else if (object) {
            state = IsArc(indicated) ? 6 : 2;
        }
    }

    void CancelAdd() {
        if (!editable || !indicated)
            return;
        const bool over = Pick(true) == indicated;
        const bool shown = state == 3 || state == 7;
        if (over != shown)
            Light(indicated, over);
        state = (IsArc(indicated) ? 7 : 3) + (over ? 0 : 1);
    }

    void CancelSubtree() {
        if (!editable || !indicated)
            return;
        Widget object = Pick(false);
        if (!object) {
            if (state == 17)
                CancelCovered();
        } else if (object == indicated || !subtree) {
            state = 17;
            SelectCovered(indicated);
        } else {
            state = 18;
            CancelCovered();
        }
    }

    void Drag() {
        if (!editable)
            return;
        if (state == 11) {
            DragSelection();
            start = {at.x - offset.x, at.y - offset.y};
        } else if (moving) {
            MoveNode(moving, start.x, start.y);
            start = {at.x - offset.x, at.y - offset.y};
        }
    }
    void DragSelection() {
        for (Widget node : nodes)
            MoveNode(node, at.x - deltas[node].x, at.y - deltas[node].y);
    }

    void EnterOrLeave() {
        if (editable || subwindow || !pressed)
            return;
        Widget over = XmGraphInputOverArc(w, at.x, at.y);
        if ((over && over != pressed) || over == armed)
            return;
        armed = over;
    }

    // ---- Release ---------------------------------------------------------------------------------

    void End() {
        switch (state) {
        case 1:
        case 5:
        case 16: return Select();
        case 3:
        case 7: return AddSelect();
        case 2:
        case 4:
        case 6:
        case 8:
        case 12:
        case 13:
        case 14:
        case 15:
        case 18: state = 0; return;
        case 9:
        case 10:
        case 11: return EndDrag();
        case 17: return SelectSubtree();
        case 23:
        case 24: return EndAdding();
        case 26: return SelectRegion();
        default: return;
        }
    }

    void Select() {
        if (!editable)
            return;
        const int was = std::exchange(state, 0);
        if (last_click != 0 && time - last_click < static_cast<std::uint32_t>(interval)) {
            last_click = 0;
            Widget object = Pick(true);
            indicated = nullptr;
            return TellOfGesture(!object         ? XmCR_DOUBLE_CLICK
                                 : IsArc(object) ? XmCR_ARC_DOUBLE_CLICK
                                                 : XmCR_NODE_DOUBLE_CLICK,
                                 object);
        }
        last_click = time;
        if (!indicated || Pick(true) != indicated || was != (IsArc(indicated) ? 5 : 1))
            return;
        if (IsArc(indicated)) {
            DeselectArcs();
            DeselectNodes();
        } else {
            DeselectNodes();
            DeselectArcs();
        }
        SelectOne(std::exchange(indicated, nullptr));
    }

    void AddSelect() {
        if (!editable || !indicated)
            return;
        Widget object = Pick(true);
        if (!object)
            return;
        if (object == indicated) {
            SelectOne(object);
            state = IsArc(object) ? 15 : 13;
        }
        indicated = nullptr;
    }

    void SelectSubtree() {
        if (!editable)
            return;
        if (Widget root = Pick(false); root && root == indicated) {
            const Widgets covered = subgraph;
            DeselectNodes();
            DeselectArcs();
            SelectNodeBy(root, true);
            SelectArcsOf(root);
            for (Widget node : covered) {
                SelectNodeBy(node, true);
                SelectArcsOf(node);
            }
            TellOfGesture(XmCR_SELECT_SUBGRAPH, root);
        }
        moving = subtree = arc = indicated = nullptr;
        state = 0;
        subgraph.clear();
    }

    void SelectRegion() {
        if (!editable || !multiple)
            return;
        state = 0;
        indicated = nullptr;
        const Place low = {std::min(start.x, at.x), std::min(start.y, at.y)};
        const Place high = {std::max(start.x, at.x), std::max(start.y, at.y)};
        start = low;
        offset = {high.x - low.x, high.y - low.y};
        auto inside = [&](int x, int y) {
            return x >= low.x && x <= high.x && y >= low.y && y <= high.y;
        };
        Widgets swept_arcs, swept_nodes;
        for (Widget a : ArcsOf(w))
            if (selectable && inside(a->core.x, a->core.y) &&
                inside(static_cast<short>(a->core.width), static_cast<short>(a->core.height))) {
                SelectArcBy(a, false);
                swept_arcs.push_back(a);
            }
        const auto &composite = CompositeOf(w);
        for (Cardinal i = 0; i < composite.num_children; i++) {
            Widget child = composite.children[i];
            const Place p = places.at(child);
            if (inside(p.x, p.y) && inside(p.x + child->core.width, p.y + child->core.height)) {
                SelectNodeBy(child, false);
                swept_nodes.push_back(child);
            }
        }
        if (!swept_nodes.empty() && !swept_arcs.empty()) {
            TellOfGesture(XmCR_SELECT_NODES_AND_ARCS, swept_nodes.front());
            TellOfGesture(XmCR_SELECT_NODES_AND_ARCS, swept_arcs.front());
        } else if (!swept_nodes.empty()) {
            TellOfGesture(swept_nodes.size() > 1 ? XmCR_SELECT_NODES : XmCR_SELECT_NODE,
                          swept_nodes.front());
        } else if (swept_arcs.size() == 1) {
            TellOfGesture(XmCR_SELECT_ARC, swept_arcs.front());
        }
    }

    void ThirdButton() {
        Widget gadget = GadgetThere();
        const int reason = gadget      ? XmCR_BUTTON_OVER_GADGET
                           : subwindow ? XmCR_BUTTON_OVER_OTHER
                                       : XmCR_BUTTON_OVER_GRAPH;
        heard.push_back(
            {.reason = reason, .widget = gadget ? gadget : w, .event = true, .ends = Widgets(4)});
    }

    // ---- Moving and adding -----------------------------------------------------------------------

    static Place EndAt(Widget a, bool to) {
        const auto &core = a->core;
        return to ? Place{static_cast<short>(core.width), static_cast<short>(core.height)}
                  : Place{core.x, core.y};
    }
    long Distance(Place p) const {
        return static_cast<long>(at.x - p.x) * (at.x - p.x) +
               static_cast<long>(at.y - p.y) * (at.y - p.y);
    }

    void StartMoving() {
        if (!editable || (subwindow && !movable))
            return;
        Widget object = Pick(true);
        if (!object)
            return;
        if (IsArc(object)) {
            if (!editable_arcs)
                return;
            const bool to_end = Distance(EndAt(object, false)) > Distance(EndAt(object, true));
            start = EndAt(object, !to_end);
            arc = object;
            state = 10;
        } else if (movable && nodes.size() > 1 && Has(nodes, object)) {
            state = 11;
            moving = subtree = arc = nullptr;
            start = at;
            offset = {};
            for (Widget node : nodes)
                deltas[node] = {at.x - places[node].x, at.y - places[node].y};
        } else if (movable) {
            start = places[object];
            offset = {at.x - start.x, at.y - start.y};
            moving = object;
            state = 9;
        }
    }

    // The nodes are pulled to the origin, and the graph asks for what they need.
    void AdjustSize() {
        Place low, high{1, 1};
        const Widget dummy = CompositeOf(w).children[0];
        for (const auto &[node, p] : places)
            if (node != dummy)
                low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        for (auto &[node, p] : places) {
            p = {p.x - low.x, p.y - low.y};
            const int border = 2 * node->core.border_width;
            if (node != dummy)
                high = {std::max(high.x, p.x + node->core.width + border),
                        std::max(high.y, p.y + node->core.height + border)};
        }
        const int width = w->core.width, height = w->core.height;
        const bool fits =
            high.x <= width && high.y <= height && high.x >= width - 50 && high.y >= height - 50;
        if (low != Place{} || !fits)
            TellChanged(XmCR_SIZE_CHANGED, nullptr, false);
    }

    void EndDrag() {
        if (!editable)
            return;
        if (state == 11) {
            DragSelection();
            moving = nullptr;
            Leave(1);
            AdjustSize();
            TellOfGesture(XmCR_NODES_MOVED, nodes.empty() ? nullptr : nodes.front());
            TellChanged(XmCR_NODES_MOVED, nullptr);
        } else if (moving) {
            MoveNode(moving, start.x, start.y);
            AdjustSize();
            Widget node = std::exchange(moving, nullptr);
            Leave(1);
            TellOfGesture(XmCR_NODE_MOVED, node);
            TellChanged(XmCR_NODE_MOVED, node);
        } else if (arc) {
            EndArcDrag();
        }
    }
    void Leave(int standing) {
        state = standing;
        indicated = nullptr;
    }

    void EndArcDrag() {
        Widget object = Pick(false);
        Widget dragged = std::exchange(arc, nullptr);
        if (!object)
            return;
        const auto [from, to] = ends[dragged];
        std::pair now = {from, object};
        if (start == EndAt(dragged, true))
            now = {object, to};
        if (now == ends[dragged])
            return;
        Tell({.reason = XmCR_ARC_MOVED,
              .widget = dragged,
              .event = true,
              .interactive = true,
              .doit = true});
        heard.back().ends = {from, to, now.first, now.second};
        if (refuse)
            return;
        TellChanged(XmCR_ARC_MOVED, dragged);
        MoveArc(dragged, now.first, now.second);
        Leave(5);
    }

public:
    void MoveArc(Widget moved, Widget from, Widget to) {
        if (std::pair(from, to) == ends[moved])
            return;
        ends[moved] = {from, to};
        if (mode == XmALWAYS || mode == XmARCS_ONLY || mode == XmPARTIAL)
            Relay();
    }

private:
    void Relay() {
        relaid = true;
        subgraph.clear();
    }

    void StartAdding() {
        if (!editable || !may_add)
            return;
        if (Widget source = Pick(false)) {
            if (editable_arcs) {
                moving = source;
                state = 25;
            }
        } else {
            state = 23;
        }
    }

    void AddNode(Place place, bool gesture) {
        static constexpr int meanwhile[] = {0, 1, 0, 1, 0};
        const int saved = std::exchange(mode, meanwhile[mode]);
        Tell({.reason = XmCR_NEW_NODE,
              .widget = fresh,
              .event = gesture,
              .interactive = true,
              .doit = true});
        if (refuse) {
            moving = nullptr; // as with the death of any node
        } else {
            if (gesture)
                TellChanged(XmCR_NEW_NODE, fresh);
            Managed();
            if (!gesture)
                TellChanged(XmCR_NEW_NODE, fresh);
            adds_node = true;
            added_at = {static_cast<short>(place.x), static_cast<short>(place.y)};
        }
        mode = saved;
    }

    void EndAdding() {
        if (!editable)
            return;
        if (std::exchange(state, 0) == 23)
            return AddNode(at, true);
        if (!moving)
            return;
        static constexpr int meanwhile[] = {0, 1, 1, 0, 0};
        const int saved = std::exchange(mode, meanwhile[mode]);
        Widget target = Pick(false);
        if (!target)
            return;
        Widget source = std::exchange(moving, nullptr);
        Tell({.reason = XmCR_NEW_ARC,
              .widget = fresh,
              .event = true,
              .interactive = true,
              .doit = true});
        heard.back().ends = {nullptr, nullptr, source, target};
        if (!refuse)
            Managed();
        mode = saved;
        if (refuse)
            return void(arc = nullptr);
        if (mode == XmPARTIAL)
            Relay();
        TellChanged(XmCR_NEW_ARC, fresh);
        adds_arc = true;
        added_ends = {source, target};
    }
};

} // namespace corvidlmw::test
