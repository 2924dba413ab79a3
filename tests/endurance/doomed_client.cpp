// doomed_client DISPLAY LIFE HANDLING: lives on a display that dies on the way. Says "ready" before it begins,
// and waits for a word.
//
//   exit     leaves it to the client library, which ends the program
//   save     has a handler of its own, that ends the program
//   go-on    jumps out of all that uses the display, leaves it, and lives the life again on another

#include <tests/endurance/Lives.h>

#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <csetjmp>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>

namespace corvidlmw::test {
namespace {

class Doomed : public Stage {
public:
    explicit Doomed(const Client &client) {
        UseClient(client);
        MakeBoard();
    }
    void TestBody() override {}

    void Live(const Life &life) { life.live(*this, Whose::ours); }
};

// Another client may have died with a button down.
void LetGoOfEverything() {
    Display *robot = XServer::Instance().robot();
    for (unsigned button = Button1; button <= Button3; button++)
        XTestFakeButtonEvent(robot, button, False, CurrentTime);
    for (const KeySym key : {XK_Shift_L, XK_Control_L, XK_Alt_L})
        XTestFakeKeyEvent(robot, XKeysymToKeycode(robot, key), False, CurrentTime);
    XSync(robot, False);
}

// Who dies in the middle of a copy leaves a clipboard on the root window that ends the next client of the toolkit.
void EmptyClipboard() {
    Display *robot = XServer::Instance().robot();
    const Window root = DefaultRootWindow(robot);
    int count = 0;
    Atom *properties = XListProperties(robot, root, &count);
    for (int i = 0; i < count; i++) {
        char *name = XGetAtomName(robot, properties[i]);
        if (std::string_view(name).starts_with("_MOTIF_CLIP_"))
            XDeleteProperty(robot, root, properties[i]);
        XFree(name);
    }
    XFree(properties);
    XSync(robot, False);
}

int EndAfterSaving(Display *) {
    std::puts("saved");
    std::exit(42);
}

std::jmp_buf where_to_go_on;

void Handle(const std::string &handling, Display *display) {
    if (handling == "save")
        XSetIOErrorHandler(EndAfterSaving);
    if (handling != "go-on")
        return;
    XSetIOErrorHandler([](Display *) { return 0; });
    XSetIOErrorExitHandler(
        display, [](Display *, void *) { std::longjmp(where_to_go_on, 1); }, nullptr);
}

void WaitForAWord() {
    std::puts("ready");
    std::fflush(stdout);
    char word;
    if (read(STDIN_FILENO, &word, 1) != 1)
        std::exit(EXIT_FAILURE);
}

int LiveAgain(const Life &life) {
    EmptyClipboard();
    auto *next = new Doomed(Client());
    next->Live(life);
    std::puts("lived again");
    return 43;
}

int Run(const std::string &display_name, const Life &life, const std::string &handling) {
    LetGoOfEverything();
    EmptyClipboard();
    auto *doomed = new Doomed(Client(display_name));
    Handle(handling, doomed->display);
    if (setjmp(where_to_go_on) != 0)
        return LiveAgain(life);
    WaitForAWord();
    doomed->Live(life);
    std::puts("lived");
    return handling == "go-on" ? LiveAgain(life) : EXIT_SUCCESS;
}

} // namespace
} // namespace corvidlmw::test

int main(int count, char **words) {
    using namespace corvidlmw::test;
    if (count != 4)
        return EXIT_FAILURE;
    // Else a write to what is closed would end it before the toolkit hears of it.
    std::signal(SIGPIPE, SIG_IGN);
    const auto life = std::find_if(lives.begin(), lives.end(), [&](const Life &each) {
        return each.name == std::string(words[2]);
    });
    return life == lives.end() ? EXIT_FAILURE : Run(words[1], *life, words[3]);
}
