// What all rooms share: owners for the toolkit's temporaries, warnings, and small conversions
// between the toolkit's C types and ours.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>
#include <corvidlmw/toolkit/Memory.h>
#include <corvidlmw/toolkit/MotifPrivate.h>

#include <X11/Xutil.h>

#include <memory>
#include <span>

namespace corvidlmw {

// ---- Owners -----------------------------------------------------------------------------------

template <auto Free>
struct FreeWith {
    template <typename T>
    void operator()(T *value) const {
        Free(value);
    }
};

inline void FreeXtBlock(void *block) {
    XtFree(static_cast<char *>(block));
}

using OwnedRegion = std::unique_ptr<std::remove_pointer_t<Region>, FreeWith<XDestroyRegion>>;
using OwnedXmString = std::unique_ptr<std::remove_pointer_t<XmString>, FreeWith<XmStringFree>>;
template <typename T>
using OwnedXtBlock = std::unique_ptr<T, FreeWith<FreeXtBlock>>;

inline void DestroyImage(XImage *image) {
    XDestroyImage(image);
}
using OwnedImage = std::unique_ptr<XImage, FreeWith<DestroyImage>>;

// A private GC for the length of one drawing.
class TemporaryGC {
public:
    TemporaryGC(Display *display, Drawable drawable, unsigned long mask, XGCValues &values)
        : display_(display), gc_(XCreateGC(display, drawable, mask, &values)) {}
    ~TemporaryGC() { XFreeGC(display_, gc_); }
    TemporaryGC(const TemporaryGC &) = delete;
    TemporaryGC &operator=(const TemporaryGC &) = delete;
    operator GC() const { return gc_; }

private:
    Display *display_;
    GC gc_;
};

// ---- Strings and arguments ------------------------------------------------------------------------

// The toolkit takes names as `char *` and never writes to them.
inline char *Name(const char *name) {
    return const_cast<char *>(name);
}

inline std::span<Arg> Span(ArgList args, const Cardinal *num_args) {
    return args && num_args ? std::span<Arg>(args, *num_args) : std::span<Arg>();
}

// ---- Warnings -------------------------------------------------------------------------------------

inline void Warn(Widget w, const char *text) {
    XtAppWarning(XtWidgetToApplicationContext(w), text);
}

// ---- Widgets --------------------------------------------------------------------------------------

inline Rectangle RectangleOf(Widget w) {
    return {w->core.x, w->core.y, w->core.width, w->core.height};
}

inline bool IsBeingDestroyed(Widget w) {
    return w->core.being_destroyed != False;
}

inline bool HasWindow(Widget w) {
    return XtIsWidget(w) && w->core.window != None;
}

inline WidgetList ChildrenOf(Widget composite) {
    return reinterpret_cast<CompositeWidget>(composite)->composite.children;
}

inline Cardinal NumChildrenOf(Widget composite) {
    return reinterpret_cast<CompositeWidget>(composite)->composite.num_children;
}

// A resource of another widget, or `preset` where it has none of that name.
template <typename T>
T ResourceOf(Widget w, const char *name, T preset) {
    XtVaGetValues(w, name, &preset, nullptr);
    return preset;
}

// Lets a class pass for one of the toolkit's in the tests XmIs...(): call it in
// class_part_initialize, since the bits are zeroed just before.
inline void SetFastSubclass(WidgetClass widget_class, unsigned bit) {
    _XmFastSubclassInit(widget_class, bit);
}

} // namespace corvidlmw
