#include <tests/fuzz/Client.h>

#include <Xm/BulletinB.h>

#include <algorithm>

// The server is started before the first execution is timed.
extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    corvidlmw::test::Client::Shared();
    return 0;
}

namespace corvidlmw::fuzz {

void Settle() {
    test::RunAllDue(Client::Shared().context, Client::Shared().display);
    Complaints::Current() = {};
}

std::vector<std::string> LinesOf(const std::uint8_t *data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char *>(data), size);
    std::vector<std::string> lines;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        // What stands behind a NUL is no part of a C string.
        std::string line(rest.substr(0, end).substr(0, rest.substr(0, end).find('\0')));
        std::replace(line.begin(), line.end(), '\v', '\n');
        lines.push_back(std::move(line));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return lines;
}

Widget Stage() {
    static const Widget stage = [] {
        Widget shell = test::MakeShell(Client::Shared().display, "stage", 640, 480);
        Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell,
                                               XmNresizePolicy, XmRESIZE_NONE, nullptr);
        XtRealizeWidget(shell);
        Settle();
        return board;
    }();
    return stage;
}

Owned::~Owned() {
    XtDestroyWidget(widget_);
    Settle();
}

} // namespace corvidlmw::fuzz
