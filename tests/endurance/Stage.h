// Where widgets live through what a client does with them: a shell with a bulletin board, open to the
// functions that tell such lives.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/MotifPrivate.h>

#include <tests/support/Harness.h>

#include <Xm/BulletinB.h>

#include <cstring>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using Settings = std::vector<std::pair<const char *, XtArgVal>>;
using Texts = std::vector<std::pair<const char *, const char *>>;

class Stage : public DisplayTest {
public:
    Stage() : DisplayTest(800, 600) {}

    using DisplayTest::app;
    using DisplayTest::display;
    using DisplayTest::shell;

    using DisplayTest::Click;
    using DisplayTest::Drag;
    using DisplayTest::DragAndDrop;
    using DisplayTest::Key;
    using DisplayTest::MoveTo;
    using DisplayTest::Press;
    using DisplayTest::PressModifiers;
    using DisplayTest::Pump;
    using DisplayTest::PumpUntil;
    using DisplayTest::Release;
    using DisplayTest::ReleaseModifiers;
    using DisplayTest::RunWorkProcs;
    using DisplayTest::SetResource;

    // Shows the board, and what is on it already.
    void MakeBoard() {
        SetResource("*fontList: fixed");
        SetResource("*background: gray80");
        SetResource("*foreground: black");
        // There is no window manager for dialogs to wait for.
        SetResource("*waitForWm: False");
        SetResource("*overrideRedirect: True");
        board =
            XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, XmNresizePolicy,
                                    XmRESIZE_NONE, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
        icon = XCreatePixmap(display, DefaultRootWindow(display), 16, 16,
                             static_cast<unsigned>(DefaultDepthOfScreen(XtScreen(shell))));
        Show();
    }
    void FreeIcon() { XFreePixmap(display, icon); }

    Widget board = nullptr;
    Pixmap icon = None;
    // Where a display has been closed the toolkit still asks it: in a row column, and to convert text.
    bool display_was_closed = false;
};

// Compound strings for as long as this lives.
class Strings {
public:
    explicit Strings(const std::vector<const char *> &texts) {
        for (const char *text : texts)
            strings_.push_back(XmStringCreateLocalized(Name(text)));
    }
    ~Strings() {
        for (XmString string : strings_)
            XmStringFree(string);
    }
    Strings(const Strings &) = delete;
    Strings &operator=(const Strings &) = delete;

    XmString *data() { return strings_.data(); }
    int count() const { return static_cast<int>(strings_.size()); }
    XmString operator[](std::size_t i) const { return strings_[i]; }
    XtArgVal Value(std::size_t i = 0) const { return reinterpret_cast<XtArgVal>(strings_[i]); }

private:
    std::vector<XmString> strings_;
};

inline void Set(Widget w, const Settings &settings) {
    std::vector<Arg> args;
    for (const auto &[name, value] : settings)
        args.push_back({Name(name), value});
    XtSetValues(w, args.data(), static_cast<Cardinal>(args.size()));
}

// Through the resource converters.
inline void SetByText(Widget w, const Texts &texts) {
    for (const auto &[name, text] : texts)
        XtVaSetValues(w, XtVaTypedArg, name, XmRString, text, std::strlen(text) + 1, nullptr);
}

inline XPoint Middle(Widget w) {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(w, XmNwidth, &width, XmNheight, &height, nullptr);
    return {static_cast<short>(width / 2), static_cast<short>(height / 2)};
}

} // namespace corvidlmw::test
