// A graph under the user's hands: scripts of input, and what they lead to, both as short text.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>
#include <tests/graph/GraphTest.h>

#include <Xm/BulletinB.h>
#include <Xm/GadgetP.h>
#include <Xm/PrimitiveP.h>
#include <Xm/PushB.h>

#include <map>
#include <optional>
#include <sstream>

namespace corvidlmw::test {

using Lines = std::vector<std::string>;

// Nodes of three kinds and the arcs between them, in an editable graph that just holds them:
// gadgets `a`, `b`, `c`, `d`; the window `w`; the board `box` with the button `in` on it; the gadget
// `end` in the far corner. Arcs `p` from `a` to `b`, `q` from `a` to `w`, `r` from `w` to `box`.
class EditTest : public DrawnGraph {
protected:
    void SetUp() override {
        GraphTest::SetUp();
        SetResource("*background: white");
        SetResource("*foreground: black");
        SetResource("*traversalOn: False"); // the focus would highlight a node of its own
        MakeGraph();
        Build();
    }

    void Build() {
        XtVaSetValues(graph, XmNeditable, True, XmNdoubleClickInterval, 0, XmNhighlightColor,
                      Colour("red"), nullptr);
        AddNodes();
        named = {{"p", Attach("p", a, b)}, {"q", Attach("q", a, w)}, {"r", Attach("r", w, box)}};
        for (Widget node : NodesOf(graph))
            named[XtName(node)] = node;
        places = {{"a", {50, 50}},  {"a2", {60, 60}},  {"b", {250, 50}},    {"c", {450, 50}},
                  {"d", {510, 50}}, {"w", {50, 170}},  {"box", {245, 165}}, {"in", {270, 190}},
                  {"p", {120, 60}}, {"p2", {220, 60}}, {"q", {70, 120}},    {"-", {450, 350}},
                  {"m", {400, 300}}};
    }

    void AddNodes() {
        a = Node({40, 40, 60, 40}, xmPushButtonGadgetClass, "a");
        b = Node({240, 40, 60, 40}, xmPushButtonGadgetClass, "b");
        w = Node({40, 160, 60, 40}, xmPushButtonWidgetClass, "w");
        box = Node({240, 160, 120, 80}, xmBulletinBoardWidgetClass, "box");
        XtVaSetValues(box, XmNresizePolicy, XmRESIZE_NONE, nullptr);
        in = XtVaCreateManagedWidget("in", xmPushButtonWidgetClass, box, XmNx, 20, XmNy, 20,
                                     XmNwidth, 50, XmNheight, 30, nullptr);
        c = Node({440, 40, 40, 30}, xmPushButtonGadgetClass, "c");
        d = Node({500, 40, 40, 30}, xmPushButtonGadgetClass, "d");
        Node({600, 440, 40, 40}, xmPushButtonGadgetClass, "end");
    }

    Widget Attach(const char *name, Widget from, Widget to) {
        Widget arc = XmCreateAttachedArc(graph, Name(name), from, to, nullptr, 0);
        XtManageChild(arc);
        return arc;
    }

    // ---- Input ----------------------------------------------------------------------------------

    // Words of a script: a place moves there; a digit presses that button and a dot releases it; ^C, ^S, ^M
    // hold a modifier and _ lets go of all. Returns one word for each event while a button is down and for
    // its release: the state, in parentheses what is highlighted, and the cursor if it was set.
    std::string Run(const std::string &script) {
        std::istringstream words(script);
        std::string trace;
        std::optional<Recorder> recorder(std::in_place);
        for (std::string word; words >> word;) {
            const bool was_down = button != 0;
            recorder->Clear();
            Do(word);
            if (was_down || button != 0)
                trace += (trace.empty() ? "" : " ") + StateAfter(*recorder);
        }
        return trace;
    }

    std::vector<Widget> Highlighted() {
        Widgets found;
        for (Widget node : NodesOf(graph))
            if (XmIsGadget(node)
                    ? reinterpret_cast<XmGadget>(node)->gadget.highlighted
                    : XmIsPrimitive(node) &&
                          reinterpret_cast<XmPrimitiveWidget>(node)->primitive.highlighted)
                found.push_back(node);
        for (Widget arc : ArcsOf(graph))
            if (ArcPartOf(arc).highlight)
                found.push_back(arc);
        return found;
    }

    // ---- Hearing --------------------------------------------------------------------------------

    void Listen(std::initializer_list<const char *> lists = {
                    XmNgraphChangedCallback, XmNnewArcCallback, XmNnewNodeCallback,
                    XmNnodeMovedCallback, XmNarcMovedCallback, XmNdefaultActionCallback,
                    XmNselectNodeCallback, XmNdeselectCallback, XmNselectArcCallback,
                    XmNselectSubgraphCallback}) {
        for (const char *list : lists)
            log.Add(graph, list);
    }

    // What was told since the last time: list, reason, object, [selected nodes|arcs], (highlighted) if
    // wanted, old>ends new>ends, then i for interactive and e for an event.
    Lines Heard() {
        Lines lines;
        for (const auto &entry : log.entries())
            lines.push_back(entry.list.substr(0, entry.list.find("Callback")) + ' ' + entry.data);
        log.Clear();
        return lines;
    }

    std::string NameOf(Widget object) const {
        return !object ? "-" : object == subject ? "x" : XtName(object);
    }

    std::string NamesOf(const Widgets &objects) const {
        std::string names;
        for (Widget object : objects)
            names += (names.empty() ? "" : " ") + NameOf(object);
        return names;
    }

    // ---- Selecting ------------------------------------------------------------------------------

    std::string Selection() const {
        int nodes = 0, arcs = 0;
        WidgetList arc_list = XmGraphGetSelectedArcs(graph, &arcs);
        WidgetList node_list = XmGraphGetSelectedNodes(graph, &nodes);
        return '[' + NamesOf({node_list, node_list + nodes}) + '|' +
               NamesOf({arc_list, arc_list + arcs}) + ']';
    }

    // Only these, with nothing told.
    void Preselect(const std::string &names) {
        for (const auto &[name, object] : named)
            XmIsArc(object) ? XmGraphUnselectArc(graph, object, False)
                            : XmGraphUnselectNode(graph, object, False);
        std::istringstream words(names);
        for (std::string word; words >> word;) {
            Widget object = word == "x" ? subject : named.at(word);
            XmIsArc(object) ? XmGraphSelectArc(graph, object, False)
                            : XmGraphSelectNode(graph, object, False);
        }
        Pump();
        log.Clear();
    }

    Widget a = nullptr, b = nullptr, c = nullptr, d = nullptr, w = nullptr, box = nullptr;
    Widget in = nullptr;
    std::map<std::string, Widget> named;
    std::map<std::string, XPoint> places;
    Widget subject = nullptr; // is called x
    bool tell_highlights = false;
    std::function<void(XmGraphCallbackStruct &)> answer;
    CallbackLog<std::string> log{
        [this](XtPointer data) { return Tell(*static_cast<XmGraphCallbackStruct *>(data)); }};

private:
    void Do(const std::string &word) {
        if (word.size() == 1 && std::isdigit(word[0])) {
            button = static_cast<unsigned>(word[0] - '0');
            Press(button);
        } else if (word == ".") {
            Release(std::exchange(button, 0));
        } else if (word[0] == '^' || word == "_") {
            const unsigned held = word == "^C"   ? ControlMask
                                  : word == "^S" ? ShiftMask
                                  : word == "^M" ? Mod1Mask
                                                 : 0u;
            held ? PressModifiers(modifiers = held) : ReleaseModifiers(std::exchange(modifiers, 0));
        } else {
            const XPoint at = places.at(word);
            MoveTo(graph, at.x, at.y);
        }
    }

    std::string StateAfter(const Recorder &recorder) {
        const auto &part = GraphPartOf(graph);
        std::string state = std::to_string(part.gesture_state);
        if (const Widgets shown = Highlighted(); !shown.empty())
            state += '(' + NamesOf(shown) + ')';
        const auto calls = recorder.Calls("XDefineCursor", XtWindow(graph));
        if (calls.empty())
            return state;
        const std::pair<Cursor, const char *> cursors[] = {
            {part.ptr_cursor, "ptr"},
            {part.motion_cursor, "motion"},
            {part.indicate_cursor, "indicate"},
            {part.indicate_child_cursor, "child"},
            {part.indicate_parent_cursor, "parent"},
            {part.top_left_cursor, "topleft"},
            {part.top_right_cursor, "topright"},
            {part.bottom_left_cursor, "bottomleft"},
            {part.bottom_right_cursor, "bottomright"}};
        for (const auto &[cursor, name] : cursors)
            if (static_cast<long>(cursor) == calls.back().numbers[0])
                return state + name;
        return state + "strange";
    }

    std::string EndsOf(Widget from, Widget to) const {
        return from || to ? ' ' + NameOf(from) + '>' + NameOf(to) : "";
    }

    std::string Tell(XmGraphCallbackStruct &data) {
        std::string text = std::to_string(data.reason) + ' ' + NameOf(data.widget);
        if (data.selected_widgets || data.selected_arcs)
            text += " [" +
                    NamesOf({data.selected_widgets,
                             data.selected_widgets + data.num_selected_widgets}) +
                    '|' +
                    NamesOf({data.selected_arcs, data.selected_arcs + data.num_selected_arcs}) +
                    ']';
        if (tell_highlights)
            text += " (" + NamesOf(Highlighted()) + ')';
        text += EndsOf(data.old_from, data.old_to) + EndsOf(data.new_from, data.new_to);
        text += std::string(data.interactive ? " i" : "") + (data.event ? " e" : "");
        if (answer)
            answer(data);
        return text;
    }

    unsigned button = 0;
    unsigned modifiers = 0;
};

} // namespace corvidlmw::test
