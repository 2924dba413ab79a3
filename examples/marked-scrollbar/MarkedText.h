#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <Xm/Xm.h>

#include "Lines.h"

namespace marked_scrollbar {

// A text in a scrolled window whose vertical scroll bar shows in its trough in which lines a word
// occurs. It outlives its widgets.
class MarkedText {
public:
    MarkedText(Widget parent, Pixel mark_color);
    ~MarkedText();
    MarkedText(const MarkedText &) = delete;
    MarkedText &operator=(const MarkedText &) = delete;

    void SetText(const std::wstring &text);
    void SetWord(const std::wstring &word);
    // Called when the numbers below may have changed, also while the user types.
    void WhenSearched(std::function<void()> call) { searched = std::move(call); }
    // Goes to the next occurrence behind the cursor, or to the first one.
    void GoToNext();

    Widget Window() const { return window; }
    Widget Bar() const { return bar; }
    Widget Text() const { return text; }
    int NumOccurrences() const { return static_cast<int>(occurrences.size()); }
    int NumMarkedLines() const { return static_cast<int>(marked_lines.size()); }

private:
    static void TextChanged(Widget, XtPointer marked, XtPointer);
    static void CursorMoved(Widget, XtPointer marked, XtPointer);
    static void Resized(Widget, XtPointer marked, XEvent *event, Boolean *);
    static void Scrolled(Widget, XtPointer marked, XtPointer call_data);
    static void DrawMarks(Widget bar, XtPointer marked, XtPointer call_data);
    static Boolean CatchUp(XtPointer marked);

    void CatchUpLater(bool text_changed);
    void Search();
    void FitBar();
    void ShowMarks();
    void Highlight();
    int TopLine() const;
    int Rows() const;

    Widget window;
    Widget text;
    Widget bar;
    Pixel mark_color;
    std::wstring content;
    std::wstring word;
    Lines lines;
    std::vector<std::size_t> occurrences;
    std::vector<int> marked_lines;
    std::vector<int> shown_lines; // by the trough's picture
    int shown_maximum = 0;
    std::function<void()> searched;
    std::optional<XtWorkProcId> waiting;
    bool stale = false; // the widget's text is newer than ours
};

} // namespace marked_scrollbar
