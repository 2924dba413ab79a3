/* A list of either toolkit, on the screen, and what is done to it. */

#ifndef CORVIDLMW_BENCH_LIST_SESSION_H
#define CORVIDLMW_BENCH_LIST_SESSION_H

#include <bench/support/ClientDesk.h>

#include <Xm/Xm.h>

#include <string_view>
#include <vector>

namespace corvidlmw::bench {

inline constexpr int rows_in_view = 40;

// The calls of one class of lists; those of both take the same.
struct ListCalls {
    std::string_view name;
    Widget (*create)(Widget, char *, ArgList, Cardinal);
    Widget (*create_scrolled)(Widget, char *, ArgList, Cardinal);
    void (*add_item)(Widget, XmString, int);
    void (*add_items)(Widget, XmString *, int, int);
    void (*replace_items)(Widget, XmString *, int, int);
    void (*delete_all)(Widget);
    void (*delete_position)(Widget, int);
    void (*set_position)(Widget, int);
};

// NULL for a name that is not "LmList" or "XmList".
const ListCalls *FindListCalls(std::string_view name);

// All rows fit the width that the list has from the start.
class Session {
public:
    Session(const ClientDesk &desk, const ListCalls &calls, bool scrolled, int count);
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    // Not measured.
    void Empty();
    void Fill();
    // The client's own strings, for the cases that add or replace rows.
    void MakeRows();
    void MakeOtherRows();
    void FreeRows();
    void ReleaseArrow();

    // Measured.
    void SetItems();
    void AddAtOnce();
    void AddEach();
    void ReplaceAll();
    void ReplaceOne();
    void DeleteAll();
    void DeleteFront();
    void Redraw();
    // The arrow at the end of the vertical bar is pressed.
    void PressArrow();
    void SetNextPosition();

    bool scrolled() const { return scrolled_; }

private:
    void KeepSize();
    Widget Bar() const;
    void Dispatch(Widget w, XEvent &event) const;
    void DispatchButton(int type, unsigned state) const;
    const ClientDesk &desk_;
    const ListCalls &calls_;
    bool scrolled_;
    int count_;
    Widget list_;
    std::vector<XmString> rows_;
    int position_ = 1;
};

} // namespace corvidlmw::bench

#endif
