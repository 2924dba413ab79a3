// Where a storm takes place: a connection, a shell, and the widgets of the storm by their numbers.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/MotifPrivate.h>

#include <Xm/Xm.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace corvidlmw::storm {

class Workbench;

class World {
public:
    static constexpr int shell_id = 0;

    World();
    ~World();
    World(const World &) = delete;
    World &operator=(const World &) = delete;

    // NULL where there is none any more.
    Widget Find(int id) const;
    // Also one that is being destroyed, and can be named until the toolkit has come to it.
    Widget FindLastingOrNot(int id) const;
    // From then on the widget has this number; what had it is forgotten.
    void Bind(int id, Widget w);
    const std::map<int, Widget> &widgets() const { return widgets_; }

    // Made once for all, of several kinds each.
    Pixmap PixmapAt(int index);
    XmFontList FontsAt(int index);
    Cursor CursorAt(int index);
    Atom AtomAt(int index);

    // ---- Input, which the server has worked off after the next pump
    void Point(int x, int y);
    void PointAt(Widget w, int x, int y);
    void Button(unsigned button, bool down);
    void Key(const std::string &name, bool down);
    void LetGoOfAll();
    // As window managers come and go: the shell's window gets a frame around it, or loses it.
    bool ChangeFrame();

    // ---- Events. Each ends after as many of them as a storm of honest clients never has.
    void Pump();
    // Until nothing is left to do, timers of the widgets under test included; false if that is never.
    bool ComeToRest();

    // What another client could not grab: "pointer", "keyboard", or "".
    const char *Grab();

    std::string directory; // where files may be written
    std::unique_ptr<Workbench> workbench;

    XtAppContext app = nullptr;
    Display *display = nullptr;
    Widget shell = nullptr;

private:
    static void Forget(Widget w, XtPointer world, XtPointer);
    static void BeforeWaiting(XtPointer world);

    void MakeShell();
    void EndInnerLoops();
    bool RunUntilIdle(int most);

    std::map<int, Widget> widgets_;
    std::vector<Pixmap> pixmaps_;
    std::vector<XmFontList> fonts_;
    XtBlockHookId hook_ = 0;
    bool idle_ = false;
    int waits_ = 0;
    Window frame_ = None;
};

} // namespace corvidlmw::storm
