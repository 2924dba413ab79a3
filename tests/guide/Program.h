/* A program of the guide in a process of its own, with a user's hands on it. */

#ifndef CORVIDLMW_TESTS_GUIDE_PROGRAM_H
#define CORVIDLMW_TESTS_GUIDE_PROGRAM_H

#include <X11/Intrinsic.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

#include <tests/support/Picture.h>

namespace corvidlmw::test {

// Coordinates are those of its window, which lies in the upper left corner of the screen.
class Program {
public:
    using Words = std::vector<std::string>;

    // Starts it in `directory`, with further variables NAME=VALUE in its environment, and waits for its
    // window. It believes that it writes to a terminal.
    Program(const std::string &directory, const Words &command, const Words &environment = {});
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    // Whether it can be asked over the Editres protocol. That tells a widget by 32 bits of its address, and
    // the address sanitizer's heap lies higher; and the toolkit never frees a command that it has fetched.
#ifdef __SANITIZE_ADDRESS__
    static constexpr bool answers = false;
#else
    static constexpr bool answers = true;
#endif

    // What the Editres protocol tells.
    struct Object {
        std::string name;
        std::string class_name;
        std::vector<uint32_t> path;
    };
    std::vector<Object> Objects();
    int Count(std::string_view class_name);
    // Where the one of this name is; a failure of the test if there is none, or not only one.
    XRectangle Place(std::string_view name);
    XPoint Middle(std::string_view name);

    // Each returns when the program has worked it off.
    void Click(XPoint at, unsigned button = Button1, unsigned modifiers = 0);
    void Click(std::string_view name) {
        Click(Middle(name));
    }
    void Drag(XPoint from, XPoint to, unsigned button = Button1, unsigned modifiers = 0);
    void Key(KeySym key, unsigned modifiers = 0);
    // Letters, digits and other ASCII; a newline is the Return key.
    void Type(std::string_view text);

    Picture Look();
    // What it wrote to standard output since the last call, waiting for the end of a line if there is none.
    std::string Said();
    // Closes its window as a window manager does; returns the exit status, -1 if it did not end by itself.
    int Close();
    // The same by a key.
    int CloseBy(KeySym key, unsigned modifiers);
    // What it wrote to standard error.
    std::string Complaints();

private:
    void Start(const std::string &directory, const Words &command, const Words &environment);
    void AwaitWindow();
    bool AwaitReply();
    void Settle();
    bool LooksTheSameAgain();
    void Focus();
    int Wait();
    void MovePointer(XPoint to);

    pid_t process_ = 0;
    int terminal_ = -1;
    std::FILE *complaints_ = nullptr;
    Window window_ = 0;
    Time time_ = 0;
    std::function<void()> pump_;
};

} // namespace corvidlmw::test

#endif
