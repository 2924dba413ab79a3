#include <tests/graph/GraphTest.h>

#include <algorithm>
#include <set>

namespace corvidlmw::test {

namespace {

// A stale pointer is looked up, never followed.
struct Living {
    std::set<NodePtr> nodes;
    std::set<Widget> arcs;

    explicit Living(Widget graph) {
        for (Widget child : NodesOf(graph))
            if (NodePtr node = NodeRecOf(child))
                nodes.insert(node);
            else if (XmIsArc(child)) // of a subclass
                arcs.insert(child);
        for (Widget arc : ArcsOf(graph))
            EXPECT_TRUE(arcs.insert(arc).second) << "an arc twice in the graph";
    }

    void ExpectNodes(const XmGraphNodeList &list, const char *name) const {
        ExpectNodes(EntriesOf<NodePtr>(list), name);
    }
    void ExpectNodes(const std::vector<NodePtr> &entries, const char *name) const {
        std::set<NodePtr> seen;
        for (NodePtr entry : entries) {
            EXPECT_TRUE(nodes.contains(entry)) << name << " names a dead node";
            EXPECT_TRUE(seen.insert(entry).second) << name << " names a node twice";
        }
    }

    void ExpectArcs(const XmGraphNodeList &list, Widget node, Widget XmArcPart::*end) const {
        for (Widget arc : ArcsIn(list)) {
            ASSERT_TRUE(arcs.contains(arc)) << "a dead arc at " << XtName(node);
            EXPECT_EQ(ArcPartOf(arc).*end, node);
        }
    }
};

// A sweep selects the hidden node as any other.
std::vector<NodePtr> WithoutEntry(const XmGraphNodeList &list, NodePtr entry) {
    auto entries = EntriesOf<NodePtr>(list);
    std::erase(entries, entry);
    return entries;
}

long CountOf(const Widgets &widgets, Widget widget) {
    return std::count(widgets.begin(), widgets.end(), widget);
}

void ExpectArc(const Living &living, Widget arc) {
    const auto &part = ArcPartOf(arc);
    if (!part.from || !part.to) {
        EXPECT_TRUE(!part.from && !part.to && !part.siblings) << "half an arc";
        return;
    }
    EXPECT_EQ(CountOf(ArcsIn(NodeRecOf(part.from)->from_arcs), arc), 1);
    EXPECT_EQ(CountOf(ArcsIn(NodeRecOf(part.to)->to_arcs), arc), 1);
    if (!part.siblings)
        return;
    EXPECT_GE(part.siblings->count, 2);
    EXPECT_EQ(CountOf(SiblingsOf(arc), arc), 1);
    for (Widget sibling : SiblingsOf(arc)) {
        ASSERT_TRUE(living.arcs.contains(sibling)) << "a dead sibling";
        EXPECT_EQ(ArcPartOf(sibling).siblings, part.siblings);
        EXPECT_EQ(std::minmax(ArcPartOf(sibling).from, ArcPartOf(sibling).to),
                  std::minmax(part.from, part.to));
    }
}

} // namespace

void ExpectConsistentLists(Widget graph) {
    const Living living(graph);
    for (NodePtr node : living.nodes) {
        living.ExpectArcs(node->from_arcs, node->widget, &XmArcPart::from);
        living.ExpectArcs(node->to_arcs, node->widget, &XmArcPart::to);
        living.ExpectNodes(node->parents, "parents");
        living.ExpectNodes(node->children, "children");
        living.ExpectNodes(node->tree_children, "tree_children");
        EXPECT_TRUE(!node->tree_parent || living.nodes.contains(node->tree_parent));
    }
    for (Widget arc : living.arcs)
        ExpectArc(living, arc);
    const auto &part = GraphPartOf(graph);
    living.ExpectNodes(part.user_roots, "user_roots");
    living.ExpectNodes(WithoutEntry(part.selected_nodes, part.root), "selected_nodes");
    for (Widget arc : ArcsIn(part.selected_arcs))
        EXPECT_TRUE(living.arcs.contains(arc)) << "selected_arcs names a dead arc";
    EXPECT_EQ(part.root, NodeRecOf(CompositeOf(graph).children[0]));
    EXPECT_EQ(part.root->children.count + part.root->tree_children.count, 0);
}

void ExpectConsistent(Widget graph) {
    ExpectConsistentLists(graph);
    const auto &part = GraphPartOf(graph);
    EXPECT_EQ(part.current_arc, nullptr);
    EXPECT_EQ(part.current_node, nullptr);
}

} // namespace corvidlmw::test
