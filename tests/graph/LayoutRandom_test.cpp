// Random graphs, changed and laid out several times in a row, against a second computation; and one
// of very many nodes.
#include <tests/graph/GraphTest.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace corvidlmw::test {
namespace {

using List = std::vector<size_t>;
constexpr size_t nobody = ~size_t{0};
constexpr int unplaced = 987654321;

bool Has(const List &list, size_t entry) {
    return std::ranges::find(list, entry) != list.end();
}
void Add(List &list, size_t entry) {
    if (!Has(list, entry))
        list.push_back(entry);
}

// ---- The model ----------------------------------------------------------------------------------

// Recursive, over plain numbers, without a thought of cost. Node 0 is the hidden root. The forest's
// `tree_children` outlive a layout, as the graph's do.
struct Model {
    struct Node {
        Extent size;
        bool shown = true;
        Place place;
        List parents, children, tree_children;
        size_t tree_parent = nobody;
        int depth = unplaced;
        bool visited = false;
    };

    bool horizontal = true, butterfly = false;
    int child_spacing = 40, sibling_spacing = 30;
    size_t butterfly_root = nobody;
    List user_roots;
    std::vector<Node> nodes{1};
    std::vector<std::pair<size_t, size_t>> arcs;

    void AddArc(size_t from, size_t to) {
        arcs.emplace_back(from, to);
        Add(nodes[from].children, to);
        Add(nodes[from].tree_children, to);
        Add(nodes[to].parents, from);
    }
    // Parallel arcs lose the neighbourhood too.
    void RemoveArc(size_t index) {
        auto [from, to] = arcs[index];
        arcs.erase(arcs.begin() + static_cast<long>(index));
        std::erase(nodes[from].children, to);
        if (nodes[to].tree_parent == from) {
            std::erase(nodes[from].tree_children, to);
            nodes[to].tree_parent = nobody;
        }
        std::erase(nodes[to].parents, from);
    }

    void Layout() {
        for (Node &node : nodes) {
            node.visited = false;
            node.tree_parent = nobody;
            node.depth = unplaced;
        }
        nodes[0] = {};
        const List roots = Roots();
        for (size_t root : roots)
            nodes[root].parents.push_back(0);
        nodes[0].children = nodes[0].tree_children = roots;
        Convert(0, nobody, 0);
        PlaceFrom(0, horizontal ? 40 - child_spacing - 60 : 40 - sibling_spacing - 30, 40);
        for (size_t root : roots) {
            std::erase(nodes[root].parents, 0);
            nodes[root].tree_parent = nobody;
        }
    }

    void Relay(size_t top) {
        const Place old = nodes[top].place;
        List listed;
        ListSubgraph(top, listed);
        for (size_t node : listed) {
            nodes[node].depth = unplaced;
            nodes[node].tree_children = nodes[node].children;
        }
        Convert(top, nobody, 0);
        PlaceFrom(top, horizontal ? old.x : old.y, horizontal ? old.y : old.x);
        const int dx = horizontal ? 0 : nodes[top].place.x - old.x;
        const int dy = horizontal ? nodes[top].place.y - old.y : 0;
        for (size_t node : listed)
            nodes[node].place = {nodes[node].place.x - dx, nodes[node].place.y - dy};
        PullToOrigin();
    }

private:
    List Roots() {
        List roots = user_roots;
        for (size_t root : roots)
            Mark(root);
        for (bool true_roots : {true, false})
            for (size_t node = 1; node < nodes.size(); ++node)
                if (true_roots ? nodes[node].parents.empty() : !nodes[node].visited) {
                    Add(roots, node);
                    Mark(node);
                }
        return roots;
    }
    void Mark(size_t node) {
        if (!std::exchange(nodes[node].visited, true))
            for (size_t child : nodes[node].children)
                Mark(child);
    }
    void Convert(size_t node, size_t parent, int depth) {
        nodes[node].tree_parent = parent;
        nodes[node].depth = depth;
        for (size_t child : nodes[node].children)
            if (nodes[child].depth < unplaced)
                std::erase(nodes[node].tree_children, child);
            else
                Convert(child, node, depth + 1);
    }
    void ListSubgraph(size_t node, List &listed) {
        if (!nodes[node].shown || Has(listed, node))
            return;
        listed.push_back(node);
        for (size_t child : nodes[node].children)
            ListSubgraph(child, listed);
    }

    // Levels follow one another along one axis; a level runs across it.
    int Along(const Node &node) const { return horizontal ? node.size.width : node.size.height; }
    int Across(const Node &node) const { return horizontal ? node.size.height : node.size.width; }
    void Put(size_t node, int along, int across) {
        along = std::max<int>(static_cast<int16_t>(along), 0);
        across = std::max<int>(static_cast<int16_t>(across), 0);
        nodes[node].place = horizontal ? Place{along, across} : Place{across, along};
    }
    void PlaceFrom(size_t node, int along, int across) {
        if (!butterfly)
            PlaceTree(node, along, across);
        else if (butterfly_root != nobody)
            PlaceButterfly(butterfly_root);
    }
    int PlaceTree(size_t index, int along, int across) {
        const Node &node = nodes[index];
        const int borders = 2 * node.size.border;
        int reached = across, next = across;
        for (size_t child : node.tree_children)
            if (nodes[child].tree_parent == index) {
                reached = PlaceTree(child, along + Along(node) + borders + child_spacing, next);
                next = reached + sibling_spacing;
            }
        const int extent = std::max(across + Across(node) + borders, reached);
        Put(index, along, (extent + across) / 2 - Across(node) / 2);
        return extent;
    }
    int Sum(const List &list) const {
        int sum = -sibling_spacing;
        for (size_t node : list)
            sum += Across(nodes[node]) + sibling_spacing;
        return sum;
    }
    void PutRow(const List &list, int along, int across) {
        for (size_t node : list) {
            Put(node, along, across);
            across += Across(nodes[node]) + sibling_spacing;
        }
    }
    void PlaceButterfly(size_t middle) {
        const Node &node = nodes[middle];
        const int left = Sum(node.parents), right = Sum(node.tree_children);
        const int wider = std::max(left, right);
        int widest = 0;
        for (size_t parent : node.parents)
            widest = std::max(widest, nodes[parent].size.width);
        const int along = widest + 2 * child_spacing;
        PutRow(node.parents, child_spacing, (wider - left) / 2 + sibling_spacing);
        PutRow(node.tree_children, Along(node) + child_spacing + along,
               (wider - right) / 2 + sibling_spacing);
        Put(middle, along, (wider + (horizontal ? child_spacing : 0)) / 2);
    }
    void PullToOrigin() {
        Place least;
        for (size_t i = 1; i < nodes.size(); ++i)
            least = {std::min(least.x, nodes[i].place.x), std::min(least.y, nodes[i].place.y)};
        for (Node &node : nodes)
            node.place = {node.place.x - least.x, node.place.y - least.y};
    }
};

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
