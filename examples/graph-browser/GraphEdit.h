#pragma once

#include <optional>
#include <string>

#include "DotGraph.h"

// Changes of a graph that was read from a file. Indices are those of Graph::nodes and Graph::edges,
// of what was not removed.
namespace graph_browser {

// A node that joins the others; its name is made up.
int AddNode(Graph &graph, const std::optional<Place> &place);

// Lets a node show this text, or its name if the text is empty. A node that AddNode made and that
// has no edge yet takes it for its name too, if it can be one and no other node has it.
void LabelNode(Graph &graph, int node, const std::string &text);

// Lets an edge show this text, or none if it is empty.
void LabelEdge(Graph &graph, int edge, const std::string &text);

// None if the graph is strict and has such an edge.
std::optional<int> AddEdge(Graph &graph, int from, int to);

// Gives an edge other ends. Returns false, and changes nothing, if the graph is strict and has such
// an edge.
bool MoveEdge(Graph &graph, int edge, int from, int to);

// With a node go its edges.
void RemoveNode(Graph &graph, int node);
void RemoveEdge(Graph &graph, int edge);

// The user has put nodes somewhere, or has left their places to the layout.
void SetPlaced(Graph &graph, bool placed);

} // namespace graph_browser
