/* Records the Xlib calls that draw, configure or select input, whoever makes them.
 *
 *     Recorder recorder;
 *     XmGraphLayout(graph);
 *     EXPECT_EQ(recorder.Calls("XClearWindow", XtWindow(graph)).size(), 1u);
 *
 * The test program defines these functions itself and passes each call on, so calls of the library
 * and of the toolkit are seen alike; those that the harness makes are left out. */

#ifndef CORVIDLMW_TESTS_SUPPORT_RECORDER_H
#define CORVIDLMW_TESTS_SUPPORT_RECORDER_H

#include <X11/Xlib.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::test {

// The numbers are the call's own, in the order of its arguments, without those that have a field
// here. Arrays are flattened: x, y of each point; x, y, width, height of each rectangle.
struct Call {
    std::string function;
    Drawable drawable = None;
    GC gc = nullptr;
    std::vector<long> numbers;
    std::string text;

    // The GC as it was at the call. The box is that of its clip; nothing if it does not clip.
    unsigned long foreground = 0;
    unsigned long background = 0;
    int line_width = 0;
    int line_style = LineSolid;
    int raster_function = GXcopy;
    std::optional<XRectangle> clip_box;

    // File name of the object that made the call: "libXm.so.4", the library's, the test program's.
    // In an optimised build a call in tail position bears the name of the caller's caller.
    std::string caller;
    bool FromToolkit() const { return caller.starts_with("libX"); }
};

std::ostream &operator<<(std::ostream &, const Call &);

class Recorder {
public:
    Recorder();
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    void Stop() { running_ = false; }
    void Start() { running_ = true; }
    void Clear() { calls_.clear(); }

    const std::vector<Call> &calls() const { return calls_; }
    std::vector<Call> Calls(std::string_view function) const;
    std::vector<Call> Calls(std::string_view function, Drawable drawable) const;
    // Everything on one window or pixmap, in order.
    std::vector<Call> On(Drawable drawable) const;
    // Only what paints pixels: lines, arcs, polygons, rectangles, text, clears, copies.
    std::vector<Call> Drawing(Drawable drawable) const;

private:
    friend void NoteCall(const Call &call);

    std::vector<Call> calls_;
    bool running_ = true;
};

// While one is in scope nothing is recorded or counted: for the harness's own calls.
class Unseen {
public:
    Unseen();
    ~Unseen();
    Unseen(const Unseen &) = delete;
    Unseen &operator=(const Unseen &) = delete;

    static bool Active();
};

} // namespace corvidlmw::test

#endif
