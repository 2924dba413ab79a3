#include "MarkedText.h"

#include <algorithm>

#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>

#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <TroughMarks.h>

namespace marked_scrollbar {
namespace {

std::wstring ContentOf(Widget text) {
    wchar_t *copy = XmTextGetStringWcs(text);
    std::wstring content = copy ? copy : L"";
    XtFree(reinterpret_cast<char *>(copy));
    return content;
}

std::vector<int> LinesOf(const Lines &lines, const std::vector<std::size_t> &positions) {
    std::vector<int> found;
    for (std::size_t position : positions) {
        const int line = lines.LineAt(position);
        if (found.empty() || found.back() != line)
            found.push_back(line);
    }
    return found;
}

} // namespace

// ---- Life ------------------------------------------------------------------------------------------

// The scrolled window takes the scroll bar as it would take the toolkit's. The text makes its own
// horizontal one.
MarkedText::MarkedText(Widget parent, Pixel color)
    : window(XtVaCreateManagedWidget("window", xmScrolledWindowWidgetClass, parent,
                                     XmNscrollingPolicy, XmAPPLICATION_DEFINED, XmNvisualPolicy,
                                     XmVARIABLE, nullptr)),
      text(XtVaCreateManagedWidget("text", xmTextWidgetClass, window, XmNeditMode,
                                   XmMULTI_LINE_EDIT, XmNscrollVertical, False, nullptr)),
      bar(SvCreateScrollBar(window, const_cast<char *>("marks"), nullptr, 0)), mark_color(color) {
    XtAddCallback(bar, XmNvalueChangedCallback, Scrolled, this);
    XtAddCallback(bar, XmNdragCallback, Scrolled, this);
    XtAddCallback(bar, XmNtroughPixmapCallback, DrawMarks, this);
    XtAddCallback(text, XmNvalueChangedCallback, TextChanged, this);
    XtAddCallback(text, XmNmotionVerifyCallback, CursorMoved, this);
    XtAddEventHandler(text, StructureNotifyMask, False, Resized, this);
    XtManageChild(bar);
}

MarkedText::~MarkedText() {
    if (waiting)
        XtRemoveWorkProc(*waiting);
}

// ---- Text and word ---------------------------------------------------------------------------------

void MarkedText::SetText(const std::wstring &new_text) {
    std::wstring copy = new_text;
    XmTextSetStringWcs(text, copy.data());
    stale = true;
    CatchUp(this);
}

void MarkedText::SetWord(const std::wstring &new_word) {
    word = new_word;
    Search();
    ShowMarks();
    Highlight();
}

void MarkedText::Search() {
    occurrences = Occurrences(content, word);
    marked_lines = LinesOf(lines, occurrences);
    if (searched)
        searched();
}

void MarkedText::GoToNext() {
    if (occurrences.empty())
        return;
    const auto cursor = static_cast<std::size_t>(XmTextGetInsertionPosition(text));
    const auto next = std::upper_bound(occurrences.begin(), occurrences.end(), cursor);
    XmTextSetInsertionPosition(
        text, static_cast<XmTextPosition>(next != occurrences.end() ? *next : occurrences.front()));
}

// ---- Scrolling -------------------------------------------------------------------------------------

int MarkedText::TopLine() const {
    return lines.LineAt(static_cast<std::size_t>(XmTextGetTopCharacter(text)));
}

int MarkedText::Rows() const {
    short rows = 1;
    XtVaGetValues(text, XmNrows, &rows, nullptr);
    return std::max<int>(rows, 1);
}

// One unit of the bar is one line.
void MarkedText::FitBar() {
    const int rows = Rows();
    const int count = std::max({lines.Count(), TopLine() + rows, 1});
    const int size = std::min(rows, count);
    XtVaSetValues(bar, XmNmaximum, count, XmNsliderSize, size, XmNvalue,
                  std::min(TopLine(), count - size), XmNpageIncrement, std::max(rows - 1, 1),
                  nullptr);
    ShowMarks();
    Highlight();
}

void MarkedText::Scrolled(Widget, XtPointer marked, XtPointer call_data) {
    auto &self = *static_cast<MarkedText *>(marked);
    const int line = static_cast<XmScrollBarCallbackStruct *>(call_data)->value;
    XmTextScroll(self.text, line - self.TopLine());
    self.Highlight();
}

// Only what is in view: a long text may have many occurrences.
void MarkedText::Highlight() {
    XmTextSetHighlight(text, 0, XmTextGetLastPosition(text), XmHIGHLIGHT_NORMAL);
    const std::size_t end = lines.StartOf(TopLine() + Rows());
    auto at = std::lower_bound(occurrences.begin(), occurrences.end(), lines.StartOf(TopLine()));
    for (; at != occurrences.end() && *at < end; ++at)
        XmTextSetHighlight(text, static_cast<XmTextPosition>(*at),
                           static_cast<XmTextPosition>(*at + word.size()), XmHIGHLIGHT_SELECTED);
}

// ---- Changes ---------------------------------------------------------------------------------------

// The text scrolls itself after these callbacks, so the bar follows when all is done.
void MarkedText::CatchUpLater(bool text_changed) {
    stale = stale || text_changed;
    if (!waiting)
        waiting = XtAppAddWorkProc(XtWidgetToApplicationContext(text), CatchUp, this);
}

Boolean MarkedText::CatchUp(XtPointer marked) {
    auto &self = *static_cast<MarkedText *>(marked);
    self.waiting.reset();
    if (self.stale) {
        self.stale = false;
        self.content = ContentOf(self.text);
        self.lines = Lines(self.content);
        self.Search();
    }
    self.FitBar();
    return True;
}

void MarkedText::TextChanged(Widget, XtPointer marked, XtPointer) {
    static_cast<MarkedText *>(marked)->CatchUpLater(true);
}

void MarkedText::CursorMoved(Widget, XtPointer marked, XtPointer) {
    static_cast<MarkedText *>(marked)->CatchUpLater(false);
}

void MarkedText::Resized(Widget, XtPointer marked, XEvent *event, Boolean *) {
    if (event->type == ConfigureNotify)
        static_cast<MarkedText *>(marked)->CatchUpLater(false);
}

// ---- Marks -----------------------------------------------------------------------------------------

// The bar asks for its picture when its size changes. Whether the marks lie elsewhere, we know.
void MarkedText::ShowMarks() {
    int maximum = 0;
    XtVaGetValues(bar, XmNmaximum, &maximum, nullptr);
    if (marked_lines != shown_lines || (maximum != shown_maximum && !marked_lines.empty()))
        SvScrollBarRedisplay(bar);
}

void MarkedText::DrawMarks(Widget bar, XtPointer marked, XtPointer call_data) {
    auto &self = *static_cast<MarkedText *>(marked);
    const auto &picture = *static_cast<SvTroughPixmapCallbackStruct *>(call_data);
    self.shown_lines = self.marked_lines;
    self.shown_maximum = picture.maximum;
    example::DrawTroughMarks(bar, picture, self.marked_lines, self.mark_color);
}

} // namespace marked_scrollbar
