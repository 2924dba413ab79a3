/* An editable graph on a private server, for pointer input without a pointer: nodes in rows of twenty, so
 * that as many of them are in view at any size, and an arc from each to its right and to its lower
 * neighbour. */

#ifndef CORVIDLMW_BENCH_GRAPH_INTERACTION_DESK_H
#define CORVIDLMW_BENCH_GRAPH_INTERACTION_DESK_H

#include <X11/Intrinsic.h>

#include <vector>

namespace corvidlmw::bench {

class Desk {
public:
    explicit Desk(int nodes);
    ~Desk();
    Desk(const Desk &) = delete;
    Desk &operator=(const Desk &) = delete;

    Display *display() const { return display_; }
    Widget graph() const { return graph_; }
    // In view, with ten arcs.
    Widget hub() const { return nodes_[hub_index]; }
    const std::vector<Widget> &nodes() const { return nodes_; }
    const std::vector<Widget> &arcs() const { return arcs_; }

    void Press(unsigned button, int x, int y);
    void Drag(unsigned button, int x, int y);
    void Release(unsigned button, int x, int y);
    // Dispatches all that the server has for us.
    void Pump();

private:
    static constexpr int columns = 20;
    static constexpr int hub_index = 8 * columns + 9;

    void Dispatch(int type, unsigned button, unsigned state, int x, int y);
    void CreateNodes(int count);
    void CreateArcs();
    void Join(int from, int to);

    Display *display_;
    XtAppContext context_;
    Widget shell_;
    Widget graph_;
    std::vector<Widget> nodes_;
    std::vector<Widget> arcs_;
};

} // namespace corvidlmw::bench

#endif
