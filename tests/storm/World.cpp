#include <tests/storm/World.h>

#include <tests/storm/Deferred.h>
#include <tests/storm/Workbench.h>
#include <tests/support/DisplayTest.h>
#include <tests/support/Interpose.h>
#include <tests/support/XServer.h>

#include <X11/cursorfont.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <Xm/DragDrop.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <thread>
#include <unistd.h>
#include <utility>

namespace corvidlmw::storm {

namespace {

using test::Name;

// More than any of the storms makes on end, fewer than a loop without an end.
constexpr int events_of_a_pump = 20000;
constexpr auto longest_rest = std::chrono::seconds(10);

Display *Robot() {
    return test::XServer::Instance().robot();
}

XmRendition MakeRendition(Widget w, const char *tag, const char *font, XmFontType type) {
    Arg args[] = {{Name(XmNfontName), reinterpret_cast<XtArgVal>(font)},
                  {Name(XmNfontType), static_cast<XtArgVal>(type)}};
    return XmRenditionCreate(w, Name(tag), args, XtNumber(args));
}

XmFontList MakeFonts(const std::vector<XmRendition> &renditions) {
    auto copy = renditions;
    const auto fonts = XmRenderTableAddRenditions(nullptr, copy.data(),
                                                  static_cast<Cardinal>(copy.size()), XmMERGE_NEW);
    for (XmRendition rendition : copy)
        XmRenditionFree(rendition);
    return fonts;
}

void ReleaseAll(Display *through) {
    for (unsigned button = 1; button <= 5; button++)
        XTestFakeButtonEvent(through, button, False, CurrentTime);
    std::array<char, 32> down{};
    XQueryKeymap(through, down.data());
    for (unsigned code = 0; code < 256; code++)
        if (static_cast<unsigned char>(down[code / 8]) >> (code % 8) & 1)
            XTestFakeKeyEvent(through, code, False, CurrentTime);
    XSync(through, False);
}

} // namespace

// ---- Life ----------------------------------------------------------------------------------------

World::World() {
    const auto &client = test::Client::Shared();
    app = client.context;
    display = client.display;
    directory = std::filesystem::temp_directory_path() / ("storm." + std::to_string(getpid()));
    std::filesystem::create_directories(directory);
    std::filesystem::current_path(directory);
    hook_ = XtAppAddBlockHook(app, BeforeWaiting, this);
    WhenNothingIsPending(BeforeWaiting, this);
    FollowLives(display);
    LetGoOfAll();
    MakeShell();
}

World::~World() {
    if (shell)
        XtDestroyWidget(shell);
    Pump();
    workbench.reset();
    XtRemoveBlockHook(hook_);
    WhenNothingIsPending(nullptr, nullptr);
    if (frame_)
        XDestroyWindow(Robot(), frame_);
    for (XmFontList fonts : fonts_)
        XmFontListFree(fonts);
    std::error_code ignored;
    std::filesystem::current_path("/", ignored);
    std::filesystem::remove_all(directory, ignored);
}

void World::MakeShell() {
    XrmDatabase database = XtDatabase(display);
    XrmPutLineResource(&database, "*fontList: fixed");
    shell = test::MakeShell(display, "storm", 640, 480);
    Bind(shell_id, shell);
    XtRealizeWidget(shell);
    XSync(display, False);
    XSetInputFocus(Robot(), XtWindow(shell), RevertToPointerRoot, CurrentTime);
    Pump();
}

// ---- Widgets -------------------------------------------------------------------------------------

Widget World::Find(int id) const {
    Widget w = FindLastingOrNot(id);
    return w && !w->core.being_destroyed ? w : nullptr;
}

Widget World::FindLastingOrNot(int id) const {
    const auto found = widgets_.find(id);
    return found == widgets_.end() ? nullptr : found->second;
}

void World::Bind(int id, Widget w) {
    if (const auto old = widgets_.find(id); old != widgets_.end())
        XtRemoveCallback(old->second, XmNdestroyCallback, Forget, this);
    widgets_[id] = w;
    XtRemoveCallback(w, XmNdestroyCallback, Forget, this);
    XtAddCallback(w, XmNdestroyCallback, Forget, this);
}

void World::Forget(Widget w, XtPointer closure, XtPointer) {
    auto *world = static_cast<World *>(closure);
    std::erase_if(world->widgets_, [w](const auto &entry) { return entry.second == w; });
    if (world->shell == w)
        world->shell = nullptr;
}

// ---- What resources take --------------------------------------------------------------------------

Pixmap World::PixmapAt(int index) {
    struct Kind {
        unsigned width, height;
        bool bitmap;
    };
    static constexpr Kind kinds[] = {{16, 16, false}, {1, 1, false}, {300, 200, false},
                                     {16, 16, true},  {7, 40, true}, {1, 2000, false}};
    const unsigned depth = static_cast<unsigned>(DefaultDepth(display, DefaultScreen(display)));
    while (pixmaps_.size() < std::size(kinds)) {
        const Kind &kind = kinds[pixmaps_.size()];
        pixmaps_.push_back(XCreatePixmap(display, DefaultRootWindow(display), kind.width,
                                         kind.height, kind.bitmap ? 1 : depth));
        const GC gc = XCreateGC(display, pixmaps_.back(), 0, nullptr);
        XFillRectangle(display, pixmaps_.back(), gc, 0, 0, kind.width, kind.height);
        XFreeGC(display, gc);
    }
    return pixmaps_[static_cast<std::size_t>(index) % pixmaps_.size()];
}

XmFontList World::FontsAt(int index) {
    if (fonts_.empty()) {
        const auto make = [this](const char *tag, const char *font, XmFontType type) {
            return MakeRendition(shell, tag, font, type);
        };
        fonts_.push_back(MakeFonts({make(XmFONTLIST_DEFAULT_TAG, "fixed", XmFONT_IS_FONT)}));
        fonts_.push_back(MakeFonts({make(XmFONTLIST_DEFAULT_TAG, "10x20", XmFONT_IS_FONT),
                                    make("bold", "9x15bold", XmFONT_IS_FONT)}));
        fonts_.push_back(MakeFonts({make(XmFONTLIST_DEFAULT_TAG, "Sans-40", XmFONT_IS_XFT)}));
        fonts_.push_back(MakeFonts({make(XmFONTLIST_DEFAULT_TAG, "fixed", XmFONT_IS_FONTSET),
                                    make("bold", "Sans-9", XmFONT_IS_XFT)}));
        fonts_.push_back(MakeFonts({make("other", "fixed", XmFONT_IS_FONT)}));
    }
    return fonts_[static_cast<std::size_t>(index) % fonts_.size()];
}

Cursor World::CursorAt(int index) {
    static constexpr unsigned shapes[] = {XC_arrow, XC_watch, XC_cross};
    static Cursor cursors[std::size(shapes)] = {};
    Cursor &cursor = cursors[static_cast<std::size_t>(index) % std::size(shapes)];
    if (!cursor)
        cursor = XCreateFontCursor(display, shapes[static_cast<std::size_t>(index) % 3]);
    return cursor;
}

Atom World::AtomAt(int index) {
    static Atom atoms[2] = {XInternAtom(display, "storm one", False),
                            XInternAtom(display, "storm two", False)};
    return atoms[index % 2 != 0];
}

// ---- Input ---------------------------------------------------------------------------------------

void World::Point(int x, int y) {
    XTestFakeMotionEvent(Robot(), 0, x, y, CurrentTime);
}

void World::PointAt(Widget w, int x, int y) {
    Position root_x = 0, root_y = 0;
    XtTranslateCoords(w, static_cast<Position>(x), static_cast<Position>(y), &root_x, &root_y);
    Point(root_x, root_y);
}

void World::Button(unsigned button, bool down) {
    XTestFakeButtonEvent(Robot(), button, down, CurrentTime);
}

void World::Key(const std::string &name, bool down) {
    static std::map<std::string, KeyCode> codes;
    const auto [code, is_new] = codes.try_emplace(name);
    if (is_new)
        code->second = XKeysymToKeycode(Robot(), XStringToKeysym(name.c_str()));
    if (code->second)
        XTestFakeKeyEvent(Robot(), code->second, down, CurrentTime);
}

void World::LetGoOfAll() {
    ReleaseAll(Robot());
}

// Who has the focus loses it to nobody when its window is hidden on the way.
bool World::ChangeFrame() {
    if (!shell || !XtIsRealized(shell))
        return false;
    const Window root = DefaultRootWindow(display);
    const bool framed = frame_ != None;
    if (!framed) {
        frame_ = XCreateSimpleWindow(Robot(), root, 9, 23, 700, 520, 0, 0, 0);
        XMapWindow(Robot(), frame_);
        XSync(Robot(), False);
    }
    XReparentWindow(display, XtWindow(shell), framed ? root : frame_, 3, 5);
    XSync(display, False);
    if (framed)
        XDestroyWindow(Robot(), std::exchange(frame_, None));
    XWindowAttributes attributes;
    XGetWindowAttributes(display, XtWindow(shell), &attributes);
    if (attributes.map_state == IsViewable)
        XSetInputFocus(Robot(), XtWindow(shell), RevertToPointerRoot, CurrentTime);
    XSync(Robot(), False);
    return true;
}

// ---- Events --------------------------------------------------------------------------------------

// Before Xt would wait: outside of the toolkit's own loops, as in a drag, there is nothing left to do then.
void World::BeforeWaiting(XtPointer closure) {
    auto *world = static_cast<World *>(closure);
    world->idle_ = true;
    if (++world->waits_ > 2)
        world->EndInnerLoops();
    XEvent event{};
    event.xnoexpose.type = NoExpose;
    event.xnoexpose.display = world->display;
    event.xnoexpose.drawable = DefaultRootWindow(world->display);
    XPutBackEvent(world->display, &event);
}

// They end with the gesture that they serve. A drag may have grabbed the server: nobody else is listened to.
void World::EndInnerLoops() {
    ReleaseAll(display);
    if (waits_ % 8 == 0) {
        const KeyCode escape = XKeysymToKeycode(display, XK_Escape);
        XTestFakeKeyEvent(display, escape, True, CurrentTime);
        XTestFakeKeyEvent(display, escape, False, CurrentTime);
        XSync(display, False);
    }
    // One that begins while its window is not in view has no grab, so that it hears of none of these.
    if (waits_ % 64 == 0 && shell)
        if (Widget drag = XmGetDragContext(shell, XtLastTimestampProcessed(display)))
            XmDragCancel(drag);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

bool World::RunUntilIdle(int most) {
    idle_ = false;
    for (waits_ = 0; !idle_ && most > 0; most--) {
        XtAppProcessEvent(app, XtIMAll);
        waits_ = 0;
    }
    return idle_;
}

// What ends a drag that has grabbed the server may still wait to be sent.
void World::Pump() {
    XFlush(display);
    for (int trip = 0; trip < 2; trip++) {
        XSync(Robot(), False);
        test::interpose::SyncUnseen(display);
        RunUntilIdle(events_of_a_pump);
    }
}

bool World::ComeToRest() {
    const auto end = std::chrono::steady_clock::now() + longest_rest;
    do {
        Pump();
        if (WaitingTimers() + WaitingWorkProcs() == 0 && idle_)
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    } while (std::chrono::steady_clock::now() < end);
    return false;
}

const char *World::Grab() {
    const Window root = DefaultRootWindow(Robot());
    const int pointer = XGrabPointer(Robot(), root, False, 0, GrabModeAsync, GrabModeAsync, None,
                                     None, CurrentTime);
    const int keyboard =
        XGrabKeyboard(Robot(), root, False, GrabModeAsync, GrabModeAsync, CurrentTime);
    XUngrabKeyboard(Robot(), CurrentTime);
    XUngrabPointer(Robot(), CurrentTime);
    return pointer != GrabSuccess ? "pointer" : keyboard != GrabSuccess ? "keyboard" : "";
}

} // namespace corvidlmw::storm
