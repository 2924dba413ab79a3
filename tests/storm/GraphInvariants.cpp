#include <tests/storm/Invariants.h>

#include <tests/graph/GraphTest.h>

#include <algorithm>

namespace corvidlmw::storm {

namespace {

bool IsChildOf(Widget graph, Widget w) {
    const auto &composite = test::CompositeOf(graph);
    return std::find(composite.children, composite.children + composite.num_children, w) !=
           composite.children + composite.num_children;
}

bool IsArcOf(const XmGraphPart &part, Widget w) {
    return std::find(part.arcs, part.arcs + part.num_arcs, w) != part.arcs + part.num_arcs;
}

void ExpectNamed(const XmGraphPart &part, Widget graph, Widget w, const char *field) {
    EXPECT_TRUE(!w || IsChildOf(graph, w) || IsArcOf(part, w)) << field << " is dead";
}

bool Contains(const XmGraphNodeList &list, const void *entry) {
    return std::find(list.items, list.items + list.count, entry) != list.items + list.count;
}

// Who has a child is a parent of it.
void ExpectBothWays(NodePtr node) {
    for (NodePtr child : test::EntriesOf<NodePtr>(node->children))
        EXPECT_TRUE(Contains(child->parents, node)) << "children without their parent";
    for (NodePtr parent : test::EntriesOf<NodePtr>(node->parents))
        EXPECT_TRUE(Contains(parent->children, node)) << "parents without their child";
}

void ExpectSelectionKnown(Widget graph, const XmGraphPart &part) {
    for (Widget node : test::NodesOf(graph)) {
        NodePtr record = test::NodeRecOf(node);
        EXPECT_EQ(record && XmGraphIsSelectedNode(graph, node),
                  record && Contains(part.selected_nodes, record));
    }
    for (int i = 0; i < part.num_arcs; i++)
        EXPECT_EQ(XmGraphIsSelectedArc(graph, part.arcs[i]) != False,
                  Contains(part.selected_arcs, part.arcs[i]));
}

} // namespace

void CheckGraph(Widget graph) {
    test::ExpectConsistentLists(graph);
    const auto &part = test::GraphPartOf(graph);
    EXPECT_EQ(XmGraphNumArcs(graph), part.num_arcs);
    EXPECT_EQ(XmGraphNumSelectedNodes(graph), part.selected_nodes.count);
    EXPECT_EQ(XmGraphNumSelectedArcs(graph), part.selected_arcs.count);
    EXPECT_GE(part.cover_count, 0);
    ExpectNamed(part, graph, part.current_arc, "current_arc");
    ExpectNamed(part, graph, part.armed_gadget, "armed_gadget");
    ExpectNamed(part, graph, part.indicated, "indicated");
    ExpectSelectionKnown(graph, part);
    const auto nodes = test::NodesOf(graph);
    for (Widget node : nodes)
        if (NodePtr record = test::NodeRecOf(node))
            ExpectBothWays(record);
    EXPECT_TRUE(!part.current_node || std::any_of(nodes.begin(), nodes.end(), [&](Widget node) {
        return test::NodeRecOf(node) == part.current_node;
    })) << "current_node is dead";
}

} // namespace corvidlmw::storm
