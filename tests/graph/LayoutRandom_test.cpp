// Random graphs, changed and laid out several times in a row, against a second computation; and one
// of very many nodes.
#include <tests/graph/GraphTest.h>
#include <tests/graph/LayoutModel.h>

#include <algorithm>
#include <utility>

namespace corvidlmw::test {
namespace {

using namespace layout_model;

// ---- Graph and model, changed alike ----------------------------------------------------------------

class LayoutRandomTest : public GraphTest {
protected:
    Random random;
    std::vector<Widget> nodes; // by the model's numbers; node 0 is NULL
    std::vector<Widget> arcs;
    Model model;

    size_t Any(size_t first, size_t end) {
        return static_cast<size_t>(
            random.Between(static_cast<int>(first), static_cast<int>(end) - 1));
    }
    size_t Any() { return Any(1, nodes.size()); }
    void Start() {
        nodes = {nullptr};
        arcs.clear();
        model = {};
        model.horizontal = random.Chance(0.5);
        model.butterfly = random.Chance(0.25);
        model.child_spacing = random.Between(0, 50);
        model.sibling_spacing = random.Between(0, 50);
        MakeGraph(XmNorientation, model.horizontal ? XmHORIZONTAL : XmVERTICAL, XmNlayoutStyle,
                  model.butterfly ? XmBUTTERFLY : XmGRAPH, XmNchildSpacing, model.child_spacing,
                  XmNsiblingSpacing, model.sibling_spacing);
        for (int count = random.Between(1, 20); count > 0; --count)
            AddNode();
        for (int count = random.Between(0, 30); count > 0; --count)
            AddArc();
    }
    void AddNode() {
        const Extent size{random.Between(1, 90), random.Between(1, 70),
                          std::max(0, random.Between(-3, 4))};
        const bool shown = random.Chance(0.9);
        model.nodes.push_back({.size = size, .shown = shown});
        nodes.push_back(Node(size, {}, shown));
    }
    void AddArc() {
        const size_t from = Any();
        const size_t to = random.Chance(0.05) ? from : Any();
        arcs.push_back(UnmanagedArc(nodes[from], nodes[to]));
        model.AddArc(from, to);
    }
    void RemoveArc() {
        if (arcs.empty())
            return;
        const size_t index = Any(0, arcs.size());
        XtDestroyWidget(arcs[index]);
        arcs.erase(arcs.begin() + static_cast<long>(index));
        model.RemoveArc(index);
    }
    void ChangeRoots() {
        const size_t root = Any();
        const bool named = Has(model.user_roots, root);
        (named ? XmGraphRemoveRoots : XmGraphInsertRoots)(graph, &nodes[root], 1);
        if (named)
            std::erase(model.user_roots, root);
        else
            model.user_roots.push_back(root);
    }
    void Change() {
        switch (random.Between(0, 8)) {
        case 0: return AddNode();
        case 1: return ChangeRoots();
        case 2: return XmGraphSetButterflyRoot(graph, nodes[model.butterfly_root = Any()]);
        default: return random.Chance(0.5) ? AddArc() : RemoveArc();
        }
    }
    void LayOut() {
        if (random.Chance(0.3)) {
            const size_t top = Any();
            XmGraphRelaySubgraph(graph, nodes[top]);
            model.Relay(top);
        } else {
            XmGraphLayout(graph);
            model.Layout();
        }
    }

    size_t NumberOf(void *record) const {
        if (!record)
            return nobody;
        const auto found = std::ranges::find(nodes, static_cast<NodePtr>(record)->widget);
        return found == nodes.end() ? 0 : static_cast<size_t>(found - nodes.begin());
    }
    void Compare() {
        for (size_t i = 1; i < nodes.size(); ++i) {
            NodePtr record = NodeRecOf(nodes[i]);
            const Model::Node &expected = model.nodes[i];
            List tree_children;
            for (int k = 0; k < record->tree_children.count; ++k)
                tree_children.push_back(NumberOf(record->tree_children.items[k]));
            EXPECT_EQ(PlaceOf(nodes[i]), expected.place) << "node " << i;
            EXPECT_EQ(NumberOf(record->tree_parent), expected.tree_parent) << "node " << i;
            EXPECT_EQ(record->depth, expected.depth) << "node " << i;
            EXPECT_EQ(tree_children, expected.tree_children) << "node " << i;
        }
    }
};

TEST_F(LayoutRandomTest, AgreesWithTheModelLayoutAfterLayout) {
    for (int run = 0; run < 500 && !HasFailure(); ++run) {
        Start();
        for (int round = 0; round < 6 && !HasFailure(); ++round) {
            SCOPED_TRACE(::testing::Message() << "graph " << run << ", layout " << round);
            for (int change = random.Between(0, 5); change > 0; --change)
                Change();
            LayOut();
            Compare();
        }
        XtDestroyWidget(graph);
    }
}

TEST_F(LayoutRandomTest, AChainMayBeAsLongAsMemoryAllows) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int length = 20000;
#else
    constexpr int length = 100000;
#endif
    MakeGraph(XmNchildSpacing, 5);
    for (int i = 0; i < length; ++i) {
        nodes.push_back(XtVaCreateWidget("node", rectObjClass, graph, XtNwidth, 10, XtNheight, 11,
                                         XtNborderWidth, 0, nullptr));
        if (i > 0)
            UnmanagedArc(nodes[nodes.size() - 2], nodes.back());
    }
    XtManageChildren(nodes.data(), length);
    XmGraphLayout(graph);
    for (int i = 0; i < length; ++i) {
        const int x = std::max<int>(static_cast<int16_t>(40 + 15 * i), 0);
        ASSERT_EQ(PlaceOf(nodes[static_cast<size_t>(i)]), (Place{x, 40})) << i;
    }
    EXPECT_EQ(NodeRecOf(nodes.back())->depth, length);
    XmGraphRelaySubgraph(graph, nodes.front());
    EXPECT_EQ(NodeRecOf(nodes.back())->depth, length - 1);
    EXPECT_EQ(PlaceOf(nodes[1]), (Place{55, 40}));
}

} // namespace
} // namespace corvidlmw::test
