#include <tests/support/Input.h>

#include <tests/support/XServer.h>

#include <X11/XKBlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <tests/support/GoogleTest.h>

#include <array>
#include <set>

namespace corvidlmw::test::input {

namespace {

struct Pressed {
    std::set<KeyCode> keys;
    std::set<unsigned int> buttons;
};

Pressed pressed;

Display *Robot() {
    return XServer::Instance().robot();
}

void SetKey(KeyCode code, bool down) {
    if (down)
        pressed.keys.insert(code);
    else
        pressed.keys.erase(code);
    XTestFakeKeyEvent(Robot(), code, down, CurrentTime);
}

// Mod1 is the modifier on which the toolkit finds Meta; on this keyboard it is the Alt key.
struct ModifierKey {
    unsigned int mask;
    KeySym keysym;
};
constexpr std::array modifier_keys{
    ModifierKey{ShiftMask, XK_Shift_L},
    ModifierKey{ControlMask, XK_Control_L},
    ModifierKey{Mod1Mask, XK_Alt_L},
};

struct KeyPlace {
    KeyCode code;
    bool shifted;
};

// A keysym that no key bears gets an unused key; clients learn of it by a MappingNotify.
KeyCode BindUnusedKey(KeySym keysym) {
    int lowest = 0;
    int highest = 0;
    XDisplayKeycodes(Robot(), &lowest, &highest);
    for (int code = highest; code >= lowest; --code) {
        const auto key = static_cast<KeyCode>(code);
        if (XkbKeycodeToKeysym(Robot(), key, 0, 0) != NoSymbol ||
            XkbKeycodeToKeysym(Robot(), key, 0, 1) != NoSymbol)
            continue;
        XChangeKeyboardMapping(Robot(), code, 1, &keysym, 1);
        XSync(Robot(), False);
        return key;
    }
    return 0;
}

KeyPlace PlaceOf(KeySym keysym) {
    KeyCode code = XKeysymToKeycode(Robot(), keysym);
    if (code == 0)
        code = BindUnusedKey(keysym);
    EXPECT_NE(code, 0) << "no key for keysym " << keysym;
    return {code, XkbKeycodeToKeysym(Robot(), code, 0, 0) != keysym};
}

} // namespace

void MovePointer(Window window, int x, int y) {
    int root_x = 0;
    int root_y = 0;
    Window child = None;
    XTranslateCoordinates(Robot(), window, DefaultRootWindow(Robot()), x, y, &root_x, &root_y,
                          &child);
    XTestFakeMotionEvent(Robot(), DefaultScreen(Robot()), root_x, root_y, CurrentTime);
    XSync(Robot(), False);
}

void SetButton(unsigned int button, bool down) {
    if (down)
        pressed.buttons.insert(button);
    else
        pressed.buttons.erase(button);
    XTestFakeButtonEvent(Robot(), button, down, CurrentTime);
    XSync(Robot(), False);
}

void SetModifiers(unsigned int modifiers, bool down) {
    for (const auto &key : modifier_keys)
        if (modifiers & key.mask)
            SetKey(XKeysymToKeycode(Robot(), key.keysym), down);
    XSync(Robot(), False);
}

void TypeKey(KeySym keysym, unsigned int modifiers) {
    const KeyPlace key = PlaceOf(keysym);
    const unsigned int needed = modifiers | (key.shifted ? ShiftMask : 0u);
    SetModifiers(needed, true);
    SetKey(key.code, true);
    SetKey(key.code, false);
    SetModifiers(needed, false);
}

void Reset() {
    while (!pressed.buttons.empty())
        SetButton(*pressed.buttons.begin(), false);
    while (!pressed.keys.empty())
        SetKey(*pressed.keys.begin(), false);
    XTestFakeMotionEvent(Robot(), DefaultScreen(Robot()), XServer::width - 1, XServer::height - 1,
                         CurrentTime);
    XSync(Robot(), False);
}

} // namespace corvidlmw::test::input
