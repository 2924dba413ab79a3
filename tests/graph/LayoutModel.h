// The layout of a graph once more.
#pragma once

#include <tests/graph/GraphTest.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace corvidlmw::test::layout_model {

using List = std::vector<size_t>;
inline constexpr size_t nobody = ~size_t{0};
inline constexpr int unplaced = 987654321;

inline bool Has(const List &list, size_t entry) {
    return std::ranges::find(list, entry) != list.end();
}
inline void Add(List &list, size_t entry) {
    if (!Has(list, entry))
        list.push_back(entry);
}

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

} // namespace corvidlmw::test::layout_model
