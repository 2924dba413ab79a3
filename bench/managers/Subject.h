/* What is measured: a manager with a number of children, each built in its best way. */

#ifndef CORVIDLMW_BENCH_MANAGERS_SUBJECT_H
#define CORVIDLMW_BENCH_MANAGERS_SUBJECT_H

#include <X11/Intrinsic.h>

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace corvidlmw::bench {

class Subject {
public:
    virtual ~Subject() = default;

    // Creates the manager, unmanaged, and so many children in it, unmanaged as well.
    virtual void Create(Widget parent, int count) = 0;
    // Makes the child in the middle ask for another size, to and fro.
    virtual void AskForOtherSize() = 0;
    // What a user drags, as the pointer would: to and fro. False if there is nothing to drag.
    virtual bool Drag() { return false; }

    Widget manager() const { return manager_; }
    std::span<Widget> children() { return children_; }

protected:
    // Another label for a label, widget or gadget, a short or a long one in turn.
    void SetOtherLabel(Widget label);

    Widget manager_ = nullptr;
    std::vector<Widget> children_;

private:
    bool long_ = false;
};

// The families of subjects; NULL for a name that is not theirs.
// "grid", "form-by-position", "row-column": a square table of label gadgets.
std::unique_ptr<Subject> MakeTableSubject(std::string_view name);
// "horz-paned-window", "paned-window": empty panes side by side.
std::unique_ptr<Subject> MakePaneSubject(std::string_view name);
// "spring-box", "form-in-a-row": label gadgets that share a row. "rubber-board", "form-as-a-stair":
// label gadgets along the diagonal.
std::unique_ptr<Subject> MakeBoardSubject(std::string_view name);

std::unique_ptr<Subject> MakeSubject(std::string_view name);

} // namespace corvidlmw::bench

#endif
