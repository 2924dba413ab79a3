// What the tests of XmHorzPanedWindow share.
#pragma once

#include <tests/managers/ManagerTest.h>

#include <corvidlmw/managers/HPanedWP.h>

#include <Xm/SashP.h>

namespace corvidlmw::test {

inline XmHorzPanedWindowPart &PanedOf(Widget w) {
    return reinterpret_cast<XmHorzPanedWindowWidget>(w)->horz_paned_window;
}

inline XmHorzPanedWindowConstraintPart &PaneOf(Widget pane) {
    return static_cast<XmHorzPanedWindowConstraintPtr>(pane->core.constraints)->horz_paned_window;
}

inline Widget SashOf(Widget pane) {
    return PaneOf(pane).sash;
}

class HorzPanedWindowTest : public ManagerTest {
protected:
    template <class... Args>
    void MakePaned(Args... args) {
        Make(xmHorzPanedWindowWidgetClass, args...);
    }

    // Panes of 100, 50 and 80 by 60: with margins of 3 and gaps of 8 they need 252 by 66.
    template <class... Args>
    void MakeThree(Args... args) {
        MakePaned(args...);
        panes = {Child(100, 60), Child(50, 60), Child(80, 60)};
        Show();
    }

    std::vector<int> Widths() const { return WidthsOf(panes); }
    static std::vector<int> WidthsOf(const Widgets &widgets) {
        std::vector<int> widths;
        for (Widget w : widgets)
            widths.push_back(BoxOf(w).width);
        return widths;
    }

    Widgets panes;
};

using Numbers = std::vector<int>;

} // namespace corvidlmw::test
