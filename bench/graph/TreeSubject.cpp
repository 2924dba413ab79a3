#include <bench/graph/Subject.h>

#include <Xm/PushB.h>
#include <Xm/Tree.h>
#include <Xm/Xm.h>

namespace corvidlmw::bench {

namespace {

// It takes widgets only, and lays out whenever the set of managed nodes changes.
class TreeSubject final : public Subject {
public:
    void Build(Widget shell, const Shape &shape) override {
        work_ = XtVaCreateWidget("work", xmTreeWidgetClass, MakeScrolledWindow(shell),
                                 XmNorientation, shape.downward ? XmVERTICAL : XmHORIZONTAL,
                                 XmNverticalNodeSpace, NextSpacing(), nullptr);
        for (int i = 0; const int parent : shape.Parents()) {
            nodes_.push_back(CreateNode(NameOf(i++).c_str(), parent));
        }
        XtManageChildren(nodes_.data(), static_cast<Cardinal>(nodes_.size()));
        XtManageChild(work_);
    }

    void Layout() override { XtVaSetValues(work_, XmNverticalNodeSpace, NextSpacing(), nullptr); }

    void AddNode(int parent) override {
        added_ = {CreateNode("added", parent)};
        XtManageChild(added_.back());
    }

private:
    Widget CreateNode(const char *name, int parent) {
        Arg args[1];
        Widget above = parent < 0 ? nullptr : nodes_[static_cast<std::size_t>(parent)];
        XtSetArg(args[0], const_cast<char *>(XmNparentNode), above);
        return XtCreateWidget(name, xmPushButtonWidgetClass, work_, args, 1);
    }
};

} // namespace

std::unique_ptr<Subject> MakeTreeSubject() {
    return std::make_unique<TreeSubject>();
}

} // namespace corvidlmw::bench
