// Widgets to be fuzzed: one connection for the whole process, and shells that come and go.
#pragma once

#include <tests/fuzz/Input.h>
#include <tests/support/DisplayTest.h>

#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::fuzz {

using test::Client, test::Complaints, test::Name;

// Runs all that is due, and drops what the toolkit complained of.
void Settle();

// The input's lines without their ends. `\v` stands for a line end within one.
std::vector<std::string> LinesOf(const std::uint8_t *data, std::size_t size);

// A realised board in a shell of its own, which stays; what an execution puts on it goes with the execution.
Widget Stage();

// Destroys a widget of the execution together with its end, and all that it left to be done.
class Owned {
public:
    explicit Owned(Widget w) : widget_(w) {}
    ~Owned();
    Owned(const Owned &) = delete;
    Owned &operator=(const Owned &) = delete;
    operator Widget() const { return widget_; }

private:
    Widget widget_;
};

} // namespace corvidlmw::fuzz
