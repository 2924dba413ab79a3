// A random life of a graph beside a plain model of what its lists must hold.

#include <tests/graph/GraphTest.h>

#include <Xm/PushB.h>

#include <algorithm>
#include <map>

namespace {

using namespace corvidlmw::test;

struct ModelArc {
    Widget from, to;
};

struct ModelNode {
    Widgets from_arcs, to_arcs, parents, children;
};

void AddOnce(Widgets &list, Widget entry) {
    if (std::find(list.begin(), list.end(), entry) == list.end())
        list.push_back(entry);
}

struct Model {
    std::map<Widget, ModelNode> nodes;
    std::map<Widget, ModelArc> arcs; // detached with both ends null
    std::map<std::pair<Widget, Widget>, Widgets> twins;

    Widgets &TwinsOf(Widget arc) { return twins[std::minmax(arcs[arc].from, arcs[arc].to)]; }

    // Nodes part with any arc between them, also where another stays.
    void Part(Widget from, Widget to) {
        std::erase(nodes[from].children, to);
        std::erase(nodes[to].parents, from);
    }

    void Join(Widget arc, Widget from, Widget to) {
        arcs[arc] = {from, to};
        AddOnce(nodes[from].from_arcs, arc);
        AddOnce(nodes[to].to_arcs, arc);
        AddOnce(nodes[from].children, to);
        AddOnce(nodes[to].parents, from);
        TwinsOf(arc).push_back(arc);
    }

    void Detach(Widget arc) {
        const auto [from, to] = arcs[arc];
        if (!from)
            return;
        std::erase(TwinsOf(arc), arc);
        Part(from, to);
        std::erase(nodes[from].from_arcs, arc);
        std::erase(nodes[to].to_arcs, arc);
        arcs[arc] = {};
    }

    void Move(Widget arc, Widget from, Widget to) {
        const ModelArc old = arcs[arc];
        if (!old.from || (old.from == from && old.to == to))
            return;
        std::erase(TwinsOf(arc), arc);
        if (old.from != from) {
            Part(old.from, old.to);
            std::erase(nodes[old.from].from_arcs, arc);
        }
        if (old.to != to) {
            Part(from, old.to);
            std::erase(nodes[old.to].to_arcs, arc);
        }
        Join(arc, from, to);
    }

    void Kill(Widget node) {
        for (const Widgets &list : {nodes[node].from_arcs, nodes[node].to_arcs})
            for (Widget arc : list) {
                Detach(arc);
                arcs.erase(arc);
            }
        nodes.erase(node);
    }
};

class RandomLifeTest : public GraphTest {
protected:
    Model model;

    static Widget AnyOf(Random &random, const auto &map) {
        auto entry = map.begin();
        std::advance(entry, random.Between(0, static_cast<int>(map.size()) - 1));
        return entry->first;
    }

    void AddNode(Random &random) {
        WidgetClass node_class =
            random.Chance(0.7) ? xmPushButtonGadgetClass : xmPushButtonWidgetClass;
        Widget node =
            XtVaCreateWidget("node", node_class, graph, XmNwidth, random.Between(1, 90), nullptr);
        if (random.Chance(0.8))
            XtManageChild(node);
        model.nodes[node];
    }

    void AddArc(Random &random) {
        Widget from = AnyOf(random, model.nodes);
        Widget to = random.Chance(0.1) ? from : AnyOf(random, model.nodes);
        if (random.Chance(0.15)) {
            model.arcs[XmCreateArc(graph, Name("loose"), nullptr, 0)] = {};
        } else {
            Widget arc = UnmanagedArc(from, to);
            if (random.Chance(0.8))
                XtManageChild(arc);
            model.Join(arc, from, to);
        }
    }

    void ChangeArc(Random &random) {
        Widget arc = AnyOf(random, model.arcs);
        Widget from = AnyOf(random, model.nodes);
        Widget to = random.Chance(0.3) && model.arcs[arc].to ? model.arcs[arc].to
                                                             : AnyOf(random, model.nodes);
        const bool attached = model.arcs[arc].from;
        if (random.Chance(0.5)) {
            XmGraphMoveArc(graph, arc, from, to);
            model.Move(arc, from, to);
        } else {
            XtVaSetValues(arc, XmNfrom, from, XmNto, to, nullptr);
            attached ? model.Move(arc, from, to) : model.Join(arc, from, to);
        }
    }

    void Destroy(Random &random) {
        if (random.Chance(0.5) && !model.arcs.empty()) {
            Widget arc = AnyOf(random, model.arcs);
            XtDestroyWidget(arc);
            model.Detach(arc);
            model.arcs.erase(arc);
        } else if (model.nodes.size() > 2) {
            Widget node = AnyOf(random, model.nodes);
            XtDestroyWidget(node);
            model.Kill(node);
        }
    }

    void LayOut(Random &random) {
        switch (random.Between(0, 3)) {
        case 0: XmGraphLayout(graph); break;
        case 1: XmGraphRelaySubgraph(graph, AnyOf(random, model.nodes)); break;
        case 2: XmGraphSetButterflyRoot(graph, AnyOf(random, model.nodes)); break;
        default:
            XtVaSetValues(graph, XmNlayoutStyle, random.Between(XmGRAPH, XmBUTTERFLY), XmNreorient,
                          True, nullptr);
        }
    }

    void Step(Random &random) {
        if (model.nodes.size() < 2)
            return AddNode(random);
        switch (random.Between(0, 11)) {
        case 0:
        case 1: return AddNode(random);
        case 2:
        case 3:
        case 4: return AddArc(random);
        case 5: return model.arcs.empty() ? AddArc(random) : ChangeArc(random);
        case 6:
        case 7: return Destroy(random);
        case 8: return LayOut(random);
        case 9: {
            Widget root = AnyOf(random, model.nodes);
            return (random.Chance(0.6) ? XmGraphInsertRoots : XmGraphRemoveRoots)(graph, &root, 1);
        }
        case 10: {
            Widget object = random.Chance(0.5) || model.arcs.empty() ? AnyOf(random, model.nodes)
                                                                     : AnyOf(random, model.arcs);
            return (XtIsManaged(object) ? XtUnmanageChild : XtManageChild)(object);
        }
        default: return RunWorkProcs();
        }
    }

    void Compare() {
        ExpectConsistent(graph);
        EXPECT_EQ(NodesOf(graph).size(), model.nodes.size());
        EXPECT_EQ(ArcsOf(graph).size(), model.arcs.size());
        for (const auto &[widget, node] : model.nodes) {
            const NodePtr record = NodeRecOf(widget);
            EXPECT_EQ(ArcsIn(record->from_arcs), node.from_arcs);
            EXPECT_EQ(ArcsIn(record->to_arcs), node.to_arcs);
            EXPECT_EQ(NodesIn(record->parents), node.parents);
            EXPECT_EQ(NodesIn(record->children), node.children);
        }
        for (const auto &[arc, ends] : model.arcs) {
            EXPECT_EQ(ArcPartOf(arc).from, ends.from);
            EXPECT_EQ(ArcPartOf(arc).to, ends.to);
            const Widgets &twins = model.TwinsOf(arc);
            EXPECT_EQ(SiblingsOf(arc), ends.from && twins.size() > 1 ? twins : Widgets{});
        }
    }
};

TEST_F(RandomLifeTest, AllListsAgreeWithAPlainModelAtEachStep) {
    for (uint64_t seed = 1; seed <= 12; seed++) {
        Random random(seed);
        MakeGraph(XmNautoLayoutMode, random.Between(XmNEVER, XmPARTIAL));
        model = {};
        if (seed % 2)
            Show();
        for (int step = 0; step < 250 && !HasFailure(); step++) {
            SCOPED_TRACE("step " + std::to_string(step));
            if (random.Chance(0.2) && XtIsRealized(shell))
                InDispatch([&] { Step(random); });
            else
                Step(random);
            Compare();
        }
        Pump();
        XtDestroyWidget(graph);
        RunWorkProcs();
    }
}

} // namespace
