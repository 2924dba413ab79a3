/* Asks a running client about its widgets as the editres program does: over the Editres protocol, from
 * the harness's own connection. */

#ifndef CORVIDLMW_TESTS_SUPPORT_EDITRES_H
#define CORVIDLMW_TESTS_SUPPORT_EDITRES_H

#include <X11/Intrinsic.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::test {

enum class EditresCommand : uint8_t {
    WidgetTree,
    SetValues,
    Resources,
    Geometry,
    FindChild,
    Values
};

// The bytes of a question or an answer: numbers with the high byte first, strings and lists with a count
// of 16 bits. Reading beyond the end gives zeros and makes the stream bad.
class EditresStream {
public:
    EditresStream() = default;
    explicit EditresStream(std::vector<uint8_t> bytes) : bytes_(std::move(bytes)) {}

    EditresStream &Put(uint32_t number, int bytes);
    EditresStream &PutString(std::string_view text);
    // A widget is told by the addresses of its parents and its own.
    EditresStream &PutWidget(Widget w);
    EditresStream &PutWidgets(const std::vector<Widget> &widgets);

    uint32_t Get(int bytes);
    int GetSigned16() { return static_cast<int16_t>(Get(2)); }
    std::string GetString();
    std::vector<uint32_t> GetWidget();

    const std::vector<uint8_t> &bytes() const { return bytes_; }
    bool bad() const { return bad_; }

private:
    std::vector<uint8_t> bytes_;
    size_t read_ = 0;
    bool bad_ = false;
};

// The addresses are cut to 32 bits by the protocol.
uint32_t EditresId(Widget w);

// Sends a command to the client of `shell` and gives what it answers, without the header; an answer that
// does not come or says that something went wrong is a failure of the test. `pump` lets the client work.
EditresStream AskEditres(Widget shell, EditresCommand command, const EditresStream &question,
                         const std::function<void()> &pump);

// The same for a client of another process, by the window of its shell. `time` is one that is not later than
// the last event with a time that the client has seen, and becomes the time of that event; `pump` returns
// when something has come for the harness.
EditresStream AskEditres(Window shell, Time &time, EditresCommand command,
                         const EditresStream &question, const std::function<void()> &pump);

} // namespace corvidlmw::test

#endif
