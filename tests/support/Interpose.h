/* How the harness stands between a program and Xlib: the program defines Xlib's functions, notes
 * each call and passes it on to the next definition. Not for tests. */

#ifndef CORVIDLMW_TESTS_SUPPORT_INTERPOSE_H
#define CORVIDLMW_TESTS_SUPPORT_INTERPOSE_H

#include <X11/Xlib.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <dlfcn.h>

namespace corvidlmw::test::interpose {

// Whether anybody records at all.
bool Wanted();
void Note(const char *function, const void *caller, Display *display, Drawable drawable, GC gc,
          std::vector<long> numbers, std::string text = {}, unsigned long foreground = 0);

// Follows the clip of a GC: its box, or nothing where it does not clip.
void SetClip(GC gc, std::optional<XRectangle> box);

// One request of the harness's own on a client's connection, kept out of all records and counts.
void SendUnseen(Display *display, int (*request)(Display *));
// XSync, unseen.
void SyncUnseen(Display *display);

struct Counts {
    long ignored_requests = 0;
    long replies = 0;
    long round_trips = 0;
    // Of the harness's own.
    long ignored_round_trips = 0;
};
Counts CountsOf(Display *display);

// Whether a call comes from the shared library under test.
inline bool IsLibrary(const void *caller) {
    Dl_info info{};
    return dladdr(caller, &info) && info.dli_fname &&
           std::strstr(info.dli_fname, "libcorvidlmw.so");
}

template <class Function>
Function *Next(Function *, const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

// Overloads of one name, so that a table row need not tell points from rectangles.
inline void Append(std::vector<long> &numbers, const XPoint &p) {
    numbers.insert(numbers.end(), {p.x, p.y});
}
inline void Append(std::vector<long> &numbers, const XRectangle &r) {
    numbers.insert(numbers.end(), {r.x, r.y, r.width, r.height});
}
inline void Append(std::vector<long> &numbers, const XSegment &s) {
    numbers.insert(numbers.end(), {s.x1, s.y1, s.x2, s.y2});
}
inline void Append(std::vector<long> &numbers, const XArc &a) {
    numbers.insert(numbers.end(), {a.x, a.y, a.width, a.height, a.angle1, a.angle2});
}

template <class Item>
std::vector<long> Flat(const Item *items, int count) {
    std::vector<long> numbers;
    for (int i = 0; i < count; ++i)
        Append(numbers, items[i]);
    return numbers;
}

// Points told relative to one another come out absolute.
std::vector<long> FlatPoints(const XPoint *points, int count, int mode);

} // namespace corvidlmw::test::interpose

// One row defines one function: its result, name, parameters and arguments, and what is noted of a
// call: display, drawable, GC, numbers, text.
#define CORVIDLMW_INTERPOSE(result, function, parameters, arguments, ...)                          \
    result function parameters {                                                                   \
        namespace interpose = corvidlmw::test::interpose;                                          \
        static auto *const next = interpose::Next(&function, #function);                           \
        if (interpose::Wanted())                                                                   \
            interpose::Note(#function, __builtin_return_address(0), __VA_ARGS__);                  \
        return next arguments;                                                                     \
    }

#endif
