// What the tests of the room share: gadgets on a bulletin board, and what their records hold.
#pragma once

#include <corvidlmw/gadget/IconGP.h>
#include <tests/support/Harness.h>

#include <Xm/BulletinB.h>

#include <string>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using Settings = std::vector<std::pair<const char *, XtArgVal>>;

inline XmvIconGadgetPart &PartOf(Widget gadget) {
    return reinterpret_cast<XmvIconGadget>(gadget)->icon;
}

inline XmLabelGCacheObjPart &MirrorOf(Widget gadget) {
    return *reinterpret_cast<XmvIconGadget>(gadget)->label.cache;
}

inline std::vector<Arg> ArgsOf(const Settings &settings) {
    std::vector<Arg> args;
    for (const auto &[name, value] : settings)
        args.push_back({Name(name), value});
    return args;
}

inline void Set(Widget w, const Settings &settings) {
    auto args = ArgsOf(settings);
    XtSetValues(w, args.data(), static_cast<Cardinal>(args.size()));
}

template <class T = int>
T Get(Widget w, const char *resource) {
    T value{};
    XtVaGetValues(w, resource, &value, nullptr);
    return value;
}

struct Label {
    explicit Label(const char *text) : string(XmStringCreateLocalized(Name(text))) {}
    ~Label() { XmStringFree(string); }
    Label(const Label &) = delete;
    Label &operator=(const Label &) = delete;
    operator XtArgVal() const { return reinterpret_cast<XtArgVal>(string); }
    XmString string;
};

inline std::string TextOf(Widget gadget) {
    XmString string = Get<XmString>(gadget, XmNlabelString);
    auto *text = static_cast<char *>(
        XmStringUnparse(string, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    XmStringFree(string);
    std::string result = text ? text : "";
    XtFree(text);
    return result;
}

class GadgetTest : public DisplayTest {
protected:
    GadgetTest() : DisplayTest(640, 480) {}

    void SetUp() override {
        DisplayTest::SetUp();
        SetResource("*fontList: 7x13");
        board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, XmNmarginWidth,
                                        0, XmNmarginHeight, 0, XmNbackground, grey, XmNforeground,
                                        0, nullptr);
    }

    // "icon" in 7 by 13 pixels a letter, at 10, 10, on the board's grey, unless told otherwise.
    Widget Make(Settings settings = {}, Widget parent = nullptr, const char *name = "icon") {
        settings.insert(settings.begin(),
                        {{XmNx, 10}, {XmNy, 10}, {XmNbackground, grey}, {XmNforeground, ink}});
        auto args = ArgsOf(settings);
        Widget gadget = XmvCreateIconGadget(parent ? parent : board, Name(name), args.data(),
                                            static_cast<Cardinal>(args.size()));
        XtManageChild(gadget);
        return gadget;
    }

    // Red on the right, green on the left; the test's to free.
    Pixmap MakePicture(unsigned width, unsigned height) {
        Pixmap pixmap =
            XCreatePixmap(display, RootWindowOfScreen(XtScreen(shell)), width, height, 24);
        XGCValues values{};
        values.foreground = green;
        GC gc = XCreateGC(display, pixmap, GCForeground, &values);
        XFillRectangle(display, pixmap, gc, 0, 0, width, height);
        XSetForeground(display, gc, red);
        XFillRectangle(display, pixmap, gc, static_cast<int>(width / 2), 0, width - width / 2,
                       height);
        XFreeGC(display, gc);
        return pixmap;
    }

    static constexpr Pixel grey = 0xc0c0c0;
    static constexpr Pixel ink = 0x000080;
    static constexpr Pixel red = 0xff0000;
    static constexpr Pixel green = 0x00ff00;
    Widget board = nullptr;
};

} // namespace corvidlmw::test
