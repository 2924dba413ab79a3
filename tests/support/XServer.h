/* A private X server for the running test program.
 *
 * It is started at the first use, on a display of its own choice, and ends with the program, also
 * when that crashes. A program that a test starts shares the test's server: CORVIDLMW_TEST_SERVER in
 * its environment names it. Beside the clients under test the harness keeps one connection of its own, the
 * robot: input, pictures and resource counts go through it, so that they appear in no count of a
 * client's requests. */

#ifndef CORVIDLMW_TESTS_SUPPORT_XSERVER_H
#define CORVIDLMW_TESTS_SUPPORT_XSERVER_H

#include <X11/Xlib.h>

#include <string>
#include <sys/types.h>

namespace corvidlmw::test {

class XServer {
public:
    static constexpr int width = 1280;
    static constexpr int height = 1024;

    // The one that input, pictures and counts are of: the program's first, unless another has its turn.
    static XServer &Instance();

    // A further server; `screen` is its width, height and depth as Xvfb takes them.
    explicit XServer(const std::string &screen, int dots_per_inch);

    // Another server's turn, for as long as this lives.
    class Turn {
    public:
        explicit Turn(XServer &server) : before_(turn_) { turn_ = &server; }
        ~Turn() { turn_ = before_; }
        Turn(const Turn &) = delete;
        Turn &operator=(const Turn &) = delete;

    private:
        XServer *before_;
    };

    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;
    ~XServer();

    const std::string &name() const { return name_; }
    Display *robot() const { return robot_; }

    // A forked child may not share its parent's connection; it makes one of its own.
    void ReopenRobot();

private:
    XServer();
    void Start(const std::string &screen, int dots_per_inch);

    static inline XServer *turn_ = nullptr;
    std::string name_;
    Display *robot_ = nullptr;
    pid_t process_ = 0;
    pid_t owner_ = 0;
};

} // namespace corvidlmw::test

#endif
