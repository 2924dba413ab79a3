#include <tests/support/Editres.h>

#include <tests/support/GoogleTest.h>
#include <tests/support/XServer.h>

#include <algorithm>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace corvidlmw::test {

// ---- Streams -------------------------------------------------------------------

EditresStream &EditresStream::Put(uint32_t number, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        bytes_.push_back(static_cast<uint8_t>(number >> shift));
    return *this;
}

EditresStream &EditresStream::PutString(std::string_view text) {
    Put(static_cast<uint32_t>(text.size()), 2);
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    return *this;
}

EditresStream &EditresStream::PutWidget(Widget w) {
    std::vector<Widget> path;
    for (; w; w = XtParent(w))
        path.insert(path.begin(), w);
    Put(static_cast<uint32_t>(path.size()), 2);
    for (Widget each : path)
        Put(EditresId(each), 4);
    return *this;
}

EditresStream &EditresStream::PutWidgets(const std::vector<Widget> &widgets) {
    Put(static_cast<uint32_t>(widgets.size()), 2);
    for (Widget w : widgets)
        PutWidget(w);
    return *this;
}

uint32_t EditresStream::Get(int bytes) {
    uint32_t number = 0;
    for (; bytes > 0; --bytes) {
        bad_ |= read_ >= bytes_.size();
        number = number << 8 | (bad_ ? 0u : bytes_[read_++]);
    }
    return number;
}

std::string EditresStream::GetString() {
    std::string text;
    for (auto left = Get(2); left > 0 && !bad_; --left)
        text += static_cast<char>(Get(1));
    return text;
}

std::vector<uint32_t> EditresStream::GetWidget() {
    std::vector<uint32_t> path;
    for (auto left = Get(2); left > 0 && !bad_; --left)
        path.push_back(Get(4));
    return path;
}

uint32_t EditresId(Widget w) {
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(w));
}

// ---- The conversation ----------------------------------------------------------

namespace {

constexpr int header_size = 6;

// The toolkit never frees a command that it has fetched, and Xt, which allocated it, has no name there that
// the list of suppressions could tell from others.
struct ToolkitLeaksCommand {
#ifdef __SANITIZE_ADDRESS__
    ToolkitLeaksCommand() {
        __lsan_disable();
    }
    ~ToolkitLeaksCommand() {
        __lsan_enable();
    }
#else
    ToolkitLeaksCommand() {}
#endif
    ToolkitLeaksCommand(const ToolkitLeaksCommand &) = delete;
    ToolkitLeaksCommand &operator=(const ToolkitLeaksCommand &) = delete;
};

// Commands and answers go through one selection: the asker owns it while the client fetches the command,
// then the client takes it and offers the answer.
class Asker {
public:
    Asker(Time time, const std::function<void()> &pump)
        : pump_(pump), time_(time),
          window_(XCreateSimpleWindow(robot_, DefaultRootWindow(robot_), 0, 0, 1, 1, 0, 0, 0)) {}
    ~Asker() {
        XDestroyWindow(robot_, window_);
        XSync(robot_, False);
    }
    Asker(const Asker &) = delete;
    Asker &operator=(const Asker &) = delete;

    // Each ask bears a number, so that the client does not take one for another.
    std::vector<uint8_t> Ask(Window shell, EditresCommand command, const EditresStream &question) {
        static uint8_t number = 0;
        EditresStream message;
        message.Put(++number, 1).Put(static_cast<uint8_t>(command), 1);
        message.Put(static_cast<uint32_t>(question.bytes().size()), 4);
        auto bytes = message.bytes();
        bytes.insert(bytes.end(), question.bytes().begin(), question.bytes().end());
        Announce(shell, number);
        return HandOver(bytes) ? Fetch() : std::vector<uint8_t>();
    }

    // When the client took the selection.
    Time time() const { return time_; }

private:
    Atom Intern(const char *name) { return XInternAtom(robot_, name, False); }

    bool Await(int type, XEvent &event) {
        XSync(robot_, False);
        pump_();
        XSync(robot_, False);
        const bool found = XCheckTypedWindowEvent(robot_, window_, type, &event);
        EXPECT_TRUE(found) << "the client does not go on: no event of type " << type;
        return found;
    }

    // Not with the server's present time: the client takes the selection with the time of an earlier event.
    void Announce(Window shell, uint8_t number) {
        EXPECT_NE(time_, Time{CurrentTime}) << "the client has not seen an event with a time";
        XSetSelectionOwner(robot_, channel_, window_, time_);
        XEvent event{};
        event.xclient = {.type = ClientMessage,
                         .window = shell,
                         .message_type = Intern("Editres"),
                         .format = 32};
        constexpr long protocol = 5;
        const long data[] = {static_cast<long>(time_), static_cast<long>(channel_), number,
                             protocol};
        std::copy(std::begin(data), std::end(data), event.xclient.data.l);
        XSendEvent(robot_, shell, False, NoEventMask, &event);
    }

    bool HandOver(const std::vector<uint8_t> &bytes) {
        XEvent event;
        if (!Await(SelectionRequest, event))
            return false;
        const auto &request = event.xselectionrequest;
        EXPECT_EQ(request.target, Intern("EditresCommand"));
        XChangeProperty(robot_, request.requestor, request.property, Intern("EditresProtocol"), 8,
                        PropModeReplace, bytes.data(), static_cast<int>(bytes.size()));
        XEvent notice{};
        notice.xselection = {.type = SelectionNotify,
                             .requestor = request.requestor,
                             .selection = request.selection,
                             .target = request.target,
                             .property = request.property,
                             .time = request.time};
        XSendEvent(robot_, request.requestor, False, NoEventMask, &notice);
        const ToolkitLeaksCommand leak;
        if (!Await(SelectionClear, event))
            return false;
        time_ = event.xselectionclear.time;
        return true;
    }

    std::vector<uint8_t> Fetch() {
        XConvertSelection(robot_, channel_, Intern("EditresClientVal"), channel_, window_, time_);
        XEvent event;
        if (!Await(SelectionNotify, event))
            return {};
        Atom type = None;
        int format = 0;
        unsigned long count = 0, left = 0;
        unsigned char *data = nullptr;
        XGetWindowProperty(robot_, window_, channel_, 0, 1 << 20, True, AnyPropertyType, &type,
                           &format, &count, &left, &data);
        EXPECT_EQ(format, 8) << "no answer";
        const std::vector<uint8_t> bytes(data, data + (format == 8 ? count : 0));
        XFree(data);
        return bytes;
    }

    const std::function<void()> &pump_;
    Time time_;
    Display *robot_ = XServer::Instance().robot();
    Window window_;
    Atom channel_ = Intern("EditresComm");
};

} // namespace

EditresStream AskEditres(Window shell, Time &time, EditresCommand command,
                         const EditresStream &question, const std::function<void()> &pump) {
    Asker asker(time, pump);
    auto bytes = asker.Ask(shell, command, question);
    time = asker.time();
    if (bytes.size() < header_size) {
        ADD_FAILURE() << "an answer of " << bytes.size() << " bytes";
        return {};
    }
    EXPECT_EQ(bytes[1], 0) << "the client could not do it";
    bytes.erase(bytes.begin(), bytes.begin() + header_size);
    return EditresStream(std::move(bytes));
}

EditresStream AskEditres(Widget shell, EditresCommand command, const EditresStream &question,
                         const std::function<void()> &pump) {
    Time time = XtLastTimestampProcessed(XtDisplay(shell));
    return AskEditres(XtWindow(shell), time, command, question, pump);
}

} // namespace corvidlmw::test
