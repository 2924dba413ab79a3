// A field for a text that is looked for while it is typed.
#pragma once

#include <functional>
#include <string>

#include <Xm/Xm.h>

namespace workbench {

class FindLine {
public:
    // A child of `form`, at its upper edge.
    explicit FindLine(Widget form);
    FindLine(const FindLine &) = delete;
    FindLine &operator=(const FindLine &) = delete;

    Widget line() const { return line_; }
    std::string Text() const;
    void SetText(const std::string &text);
    void TakeKeyboard();
    void ShowCount(int hits);

    void WhenTyped(std::function<void()> call) { typed_ = std::move(call); }
    // Return was pressed.
    void WhenNext(std::function<void()> call) { next_ = std::move(call); }

private:
    static void Typed(Widget, XtPointer closure, XtPointer);
    static void Activated(Widget, XtPointer closure, XtPointer);

    Widget line_;
    Widget count_;
    Widget field_;
    std::function<void()> typed_ = [] {};
    std::function<void()> next_ = [] {};
};

} // namespace workbench
