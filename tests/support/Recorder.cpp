#include <tests/support/Recorder.h>

#include <tests/support/Interpose.h>
#include <tests/support/XServer.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <dlfcn.h>
#include <map>

namespace corvidlmw::test {

namespace {

int unseen_depth = 0;

std::vector<Recorder *> &Recorders() {
    static std::vector<Recorder *> recorders;
    return recorders;
}

// Xlib keeps no clip that could be asked for, so it is followed here, up to the last GC that the server's
// end frees.
std::map<GC, XRectangle> &Clips() {
    static auto *const clips = new std::map<GC, XRectangle>;
    return *clips;
}

std::string CallerOf(const void *address) {
    Dl_info info{};
    if (!dladdr(address, &info) || !info.dli_fname)
        return {};
    const char *slash = std::strrchr(info.dli_fname, '/');
    return slash ? slash + 1 : info.dli_fname;
}

void FillFromGC(Display *display, GC gc, Call &call) {
    XGCValues values{};
    XGetGCValues(display, gc, GCForeground | GCBackground | GCLineWidth | GCLineStyle | GCFunction,
                 &values);
    call.foreground = values.foreground;
    call.background = values.background;
    call.line_width = values.line_width;
    call.line_style = values.line_style;
    call.raster_function = values.function;
    if (const auto clip = Clips().find(gc); clip != Clips().end())
        call.clip_box = clip->second;
}

bool Paints(std::string_view function) {
    constexpr std::array<std::string_view, 9> kinds{"XDraw",   "XFill",     "XmbDraw",
                                                    "XwcDraw", "Xutf8Draw", "XftDraw",
                                                    "XClear",  "XCopy",     "XPutImage"};
    return function != "XCopyGC" && std::any_of(kinds.begin(), kinds.end(), [&](auto kind) {
               return function.starts_with(kind);
           });
}

template <class Predicate>
std::vector<Call> Select(const std::vector<Call> &calls, Predicate predicate) {
    std::vector<Call> selected;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(selected), predicate);
    return selected;
}

} // namespace

// ---- What the interposed functions call ----------------------------------------------

void NoteCall(const Call &call) {
    for (Recorder *recorder : Recorders())
        if (recorder->running_)
            recorder->calls_.push_back(call);
}

bool interpose::Wanted() {
    return unseen_depth == 0 && !Recorders().empty();
}

void interpose::Note(const char *function, const void *caller, Display *display, Drawable drawable,
                     GC gc, std::vector<long> numbers, std::string text, unsigned long foreground) {
    if (display == XServer::Instance().robot())
        return;
    Call call{.function = function,
              .drawable = drawable,
              .gc = gc,
              .numbers = std::move(numbers),
              .text = std::move(text),
              .foreground = foreground};
    if (gc)
        FillFromGC(display, gc, call);
    call.caller = CallerOf(caller);
    NoteCall(call);
}

void interpose::SetClip(GC gc, std::optional<XRectangle> box) {
    if (box)
        Clips()[gc] = *box;
    else
        Clips().erase(gc);
}

std::vector<long> interpose::FlatPoints(const XPoint *points, int count, int mode) {
    auto numbers = Flat(points, count);
    if (mode == CoordModePrevious)
        for (size_t i = 2; i < numbers.size(); ++i)
            numbers[i] += numbers[i - 2];
    return numbers;
}

// ---- Recorder ------------------------------------------------------------------------

Recorder::Recorder() {
    Recorders().push_back(this);
}

Recorder::~Recorder() {
    std::erase(Recorders(), this);
}

std::vector<Call> Recorder::Calls(std::string_view function) const {
    return Select(calls_, [&](const Call &call) { return call.function == function; });
}

std::vector<Call> Recorder::Calls(std::string_view function, Drawable drawable) const {
    return Select(calls_, [&](const Call &call) {
        return call.function == function && call.drawable == drawable;
    });
}

std::vector<Call> Recorder::On(Drawable drawable) const {
    return Select(calls_, [&](const Call &call) { return call.drawable == drawable; });
}

std::vector<Call> Recorder::Drawing(Drawable drawable) const {
    return Select(calls_, [&](const Call &call) {
        return call.drawable == drawable && Paints(call.function);
    });
}

std::ostream &operator<<(std::ostream &out, const Call &call) {
    out << call.function << '(';
    for (size_t i = 0; i < call.numbers.size(); ++i)
        out << (i ? ", " : "") << call.numbers[i];
    out << ')';
    if (!call.text.empty())
        out << " \"" << call.text << '"';
    return out << " on 0x" << std::hex << call.drawable << " colour 0x" << call.foreground
               << std::dec << " by " << call.caller;
}

Unseen::Unseen() {
    ++unseen_depth;
}

Unseen::~Unseen() {
    --unseen_depth;
}

bool Unseen::Active() {
    return unseen_depth > 0;
}

} // namespace corvidlmw::test
