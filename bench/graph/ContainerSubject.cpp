#include <bench/graph/Subject.h>

#include <Xm/Container.h>
#include <Xm/IconG.h>
#include <Xm/Xm.h>

namespace corvidlmw::bench {

namespace {

class ContainerSubject final : public Subject {
public:
    void Build(Widget shell, const Shape &shape) override {
        work_ = XtVaCreateWidget("work", xmContainerWidgetClass, MakeScrolledWindow(shell),
                                 XmNlayoutType, XmOUTLINE, XmNentryViewType, XmSMALL_ICON,
                                 XmNoutlineIndentation, NextSpacing(), nullptr);
        for (int i = 0; const int parent : shape.Parents()) {
            nodes_.push_back(CreateNode(NameOf(i++).c_str(), parent));
        }
        XtManageChildren(nodes_.data(), static_cast<Cardinal>(nodes_.size()));
        XtManageChild(work_);
    }

    void Layout() override { XtVaSetValues(work_, XmNoutlineIndentation, NextSpacing(), nullptr); }

    void AddNode(int parent) override {
        added_ = {CreateNode("added", parent)};
        XtManageChild(added_.back());
    }

private:
    Widget CreateNode(const char *name, int parent) {
        Arg args[2];
        Widget above = parent < 0 ? nullptr : nodes_[static_cast<std::size_t>(parent)];
        XtSetArg(args[0], const_cast<char *>(XmNentryParent), above);
        XtSetArg(args[1], const_cast<char *>(XmNoutlineState), XmEXPANDED);
        return XtCreateWidget(name, xmIconGadgetClass, work_, args, 2);
    }
};

} // namespace

std::unique_ptr<Subject> MakeContainerSubject() {
    return std::make_unique<ContainerSubject>();
}

} // namespace corvidlmw::bench
