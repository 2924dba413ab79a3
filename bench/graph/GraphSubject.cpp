#include <bench/graph/Subject.h>

#include <Xm/Xm.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

namespace corvidlmw::bench {

namespace {

class GraphSubject final : public Subject {
public:
    explicit GraphSubject(WidgetClass node_class) : node_class_(node_class) {}

    void Build(Widget shell, const Shape &shape) override {
        spacing_name_ = shape.downward ? XmNchildSpacing : XmNsiblingSpacing;
        work_ = XtVaCreateWidget("work", xmGraphWidgetClass, MakeScrolledWindow(shell),
                                 XmNorientation, shape.downward ? XmVERTICAL : XmHORIZONTAL,
                                 spacing_name_, NextSpacing(), nullptr);
        for (int i = 0; i < shape.nodes; ++i) {
            nodes_.push_back(XtCreateWidget(NameOf(i).c_str(), node_class_, work_, nullptr, 0));
        }
        XtManageChildren(nodes_.data(), static_cast<Cardinal>(nodes_.size()));
        std::vector<Widget> arcs;
        for (const Edge &edge : shape.edges) {
            arcs.push_back(CreateArc(Node(edge.from), Node(edge.to)));
        }
        XtManageChildren(arcs.data(), static_cast<Cardinal>(arcs.size()));
        XmGraphLayout(work_);
        XtManageChild(work_);
    }

    void Layout() override { XtVaSetValues(work_, spacing_name_, NextSpacing(), nullptr); }

    // By default the graph leaves the place of a new node to the client: beside its parent, here. The
    // graph then grows, if it has to.
    void AddNode(int parent) override {
        Widget from = Node(parent);
        Position x = 0;
        Position y = 0;
        Dimension width = 0;
        XtVaGetValues(from, XmNx, &x, XmNy, &y, XmNwidth, &width, nullptr);
        CreateAdded(from);
        XmGraphMoveNode(work_, added_.back(), static_cast<Position>(x + width + 40), y);
        XmGraphAdjustSize(work_);
    }

    bool AddNodeInAutomaticLayout(int parent) override {
        XtVaSetValues(work_, XmNautoLayoutMode, XmALWAYS, nullptr);
        CreateAdded(Node(parent));
        XtVaSetValues(work_, XmNautoLayoutMode, XmNEVER, nullptr);
        return true;
    }

private:
    Widget Node(int node) const { return nodes_[static_cast<std::size_t>(node)]; }

    Widget CreateArc(Widget from, Widget to) {
        Arg args[2];
        XtSetArg(args[0], const_cast<char *>(XmNfrom), from);
        XtSetArg(args[1], const_cast<char *>(XmNto), to);
        return XtCreateWidget("arc", xmArcWidgetClass, work_, args, 2);
    }

    void CreateAdded(Widget from) {
        Widget node = XtCreateManagedWidget("added", node_class_, work_, nullptr, 0);
        Widget arc = CreateArc(from, node);
        XtManageChild(arc);
        added_ = {arc, node};
    }

    WidgetClass node_class_;
    const char *spacing_name_ = XmNsiblingSpacing;
};

} // namespace

std::unique_ptr<Subject> MakeGraphSubject(WidgetClass node_class) {
    return std::make_unique<GraphSubject>(node_class);
}

} // namespace corvidlmw::bench
