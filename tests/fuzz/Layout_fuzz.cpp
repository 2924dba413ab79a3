// Graphs that are changed and laid out in turns, against a second computation.
#include <tests/fuzz/Client.h>
#include <tests/graph/LayoutModel.h>

using namespace corvidlmw::fuzz;
using namespace corvidlmw::test;
using namespace corvidlmw::test::layout_model;

namespace {

// A graph and its model, changed alike. Node 0 is the hidden root.
class Subject {
public:
    explicit Subject(Input &input) : graph_(Make(input)) {}

    void Step(Input &input) {
        const int action = input.Between(0, 7);
        const size_t node = Any(input);
        switch (action) {
        case 0: AddNode(input); break;
        case 1:
        case 2: AddArc(node, Any(input)); break;
        case 3: RemoveArc(input); break;
        case 4: ChangeRoot(node); break;
        case 5: XmGraphSetButterflyRoot(graph_, nodes_[model_.butterfly_root = node]); break;
        case 6:
            XmGraphRelaySubgraph(graph_, nodes_[node]);
            model_.Relay(node);
            Compare();
            break;
        default:
            XmGraphLayout(graph_);
            model_.Layout();
            Compare();
        }
    }

private:
    Widget Make(Input &input) {
        model_.horizontal = input.Flag();
        model_.butterfly = input.Flag();
        model_.child_spacing = input.Between(0, 2000);
        model_.sibling_spacing = input.Between(0, 2000);
        return XtVaCreateWidget("graph", xmGraphWidgetClass, Stage(), XmNorientation,
                                model_.horizontal ? XmHORIZONTAL : XmVERTICAL, XmNlayoutStyle,
                                model_.butterfly ? XmBUTTERFLY : XmGRAPH, XmNchildSpacing,
                                model_.child_spacing, XmNsiblingSpacing, model_.sibling_spacing,
                                nullptr);
    }

    // The first one is there before there can be a choice.
    size_t Any(Input &input) {
        if (nodes_.size() == 1)
            AddNode(input);
        return static_cast<size_t>(input.Between(1, static_cast<int>(nodes_.size()) - 1));
    }

    void AddNode(Input &input) {
        constexpr size_t most = 30;
        if (nodes_.size() > most)
            return;
        const Extent size = {input.Between(1, 2000), input.Between(1, 2000), input.Between(0, 9)};
        const bool shown = input.Between(0, 9) != 9;
        model_.nodes.push_back({.size = size, .shown = shown});
        nodes_.push_back(XtVaCreateWidget(
            "node", size.border ? coreWidgetClass : xmSeparatorGadgetClass, graph_, XtNwidth,
            size.width, XtNheight, size.height, XtNborderWidth, size.border, nullptr));
        if (shown)
            XtManageChild(nodes_.back());
    }

    void AddArc(size_t from, size_t to) {
        constexpr size_t most = 60;
        if (arcs_.size() == most)
            return;
        arcs_.push_back(
            XmCreateAttachedArc(graph_, Name("arc"), nodes_[from], nodes_[to], nullptr, 0));
        model_.AddArc(from, to);
    }

    void RemoveArc(Input &input) {
        if (arcs_.empty())
            return;
        const int index = input.Between(0, static_cast<int>(arcs_.size()) - 1);
        XtDestroyWidget(arcs_[static_cast<size_t>(index)]);
        arcs_.erase(arcs_.begin() + index);
        model_.RemoveArc(static_cast<size_t>(index));
    }

    void ChangeRoot(size_t node) {
        const bool named = Has(model_.user_roots, node);
        (named ? XmGraphRemoveRoots : XmGraphInsertRoots)(graph_, &nodes_[node], 1);
        if (named)
            std::erase(model_.user_roots, node);
        else
            model_.user_roots.push_back(node);
    }

    size_t NumberOf(void *record) const {
        if (!record)
            return nobody;
        const auto found = std::ranges::find(nodes_, static_cast<NodePtr>(record)->widget);
        return found == nodes_.end() ? 0 : static_cast<size_t>(found - nodes_.begin());
    }

    void Compare() const {
        for (size_t i = 1; i < nodes_.size(); ++i) {
            const NodePtr record = NodeRecOf(nodes_[i]);
            const Model::Node &expected = model_.nodes[i];
            Require(PlaceOf(nodes_[i]) == expected.place);
            Require(NumberOf(record->tree_parent) == expected.tree_parent);
            Require(record->depth == expected.depth);
            const auto children = EntriesOf<NodePtr>(record->tree_children);
            Require(std::ranges::equal(children, expected.tree_children, {},
                                       [this](NodePtr child) { return NumberOf(child); }));
        }
    }

    Model model_;
    Owned graph_;
    std::vector<Widget> nodes_ = {nullptr};
    std::vector<Widget> arcs_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    Subject subject(input);
    for (int steps = 0; steps < 100 && !input.AtEnd(); steps++) {
        subject.Step(input);
    }
    return 0;
}
