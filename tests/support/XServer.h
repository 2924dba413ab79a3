/* A private X server for the running test program.
 *
 * It is started at the first use, on a display of its own choice, and ends with the program, also
 * when that crashes. Beside the clients under test the harness keeps one connection of its own, the
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

    static XServer &Instance();

    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;
    ~XServer();

    const std::string &name() const { return name_; }
    Display *robot() const { return robot_; }

    // A forked child may not share its parent's connection; it makes one of its own.
    void ReopenRobot();

private:
    XServer();

    std::string name_;
    Display *robot_ = nullptr;
    pid_t process_ = 0;
    pid_t owner_ = 0;
};

} // namespace corvidlmw::test

#endif
