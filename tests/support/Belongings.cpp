#include <tests/support/Belongings.h>

#include <tests/support/Interpose.h>

#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include <map>
#include <sstream>

namespace corvidlmw::test {

namespace {

// Identifiers of the server are of one kind each; the toolkit counts how often it gave one away.
enum class Kind { gc, pixmap, cursor, tile, shared_gc };

struct Holding {
    int count = 0;
    const char *made_by = nullptr;
    const void *caller = nullptr;
};

using Holdings = std::map<std::pair<Kind, unsigned long>, Holding>;

Holdings &AllHoldings() {
    static auto &holdings = *new Holdings;
    return holdings;
}

unsigned long IdOf(XID id) {
    return id;
}
unsigned long IdOf(GC gc) {
    return reinterpret_cast<unsigned long>(gc);
}

template <class Thing>
Thing Take(Kind kind, Thing thing, const char *made_by, const void *caller) {
    if (!thing || !interpose::IsLibrary(caller))
        return thing;
    Holding &holding = AllHoldings()[{kind, IdOf(thing)}];
    holding.count++;
    holding.made_by = made_by;
    holding.caller = caller;
    return thing;
}

// The server's end by anybody's hand: some are the client's from then on.
template <class Thing>
void GiveBack(Kind kind, Thing thing, const void *caller) {
    const bool is_counted = kind == Kind::shared_gc || kind == Kind::tile;
    if (is_counted && !interpose::IsLibrary(caller))
        return;
    const auto found = AllHoldings().find({kind, IdOf(thing)});
    if (found != AllHoldings().end() && (--found->second.count == 0 || !is_counted))
        AllHoldings().erase(found);
}

std::string PlaceOf(const void *caller) {
    Dl_info info{};
    dladdr(caller, &info);
    std::ostringstream place;
    place << (info.dli_sname ? info.dli_sname : "the library") << ", at 0x" << std::hex
          << static_cast<const char *>(caller) - static_cast<const char *>(info.dli_fbase);
    return place.str();
}

} // namespace

std::vector<std::string> Belongings() {
    std::vector<std::string> lines;
    for (const auto &[id, holding] : AllHoldings()) {
        std::ostringstream line;
        line << holding.made_by << " in " << PlaceOf(holding.caller) << ": 0x" << std::hex
             << id.second << std::dec << ", " << holding.count << " times";
        lines.push_back(line.str());
    }
    return lines;
}

} // namespace corvidlmw::test

#pragma GCC visibility push(default)
extern "C" {

using namespace corvidlmw::test;

#define CALLER __builtin_return_address(0)
#define NEXT(function) static auto *const next = interpose::Next(&function, #function)
#define NOTE(function, ...)                                                                        \
    if (interpose::Wanted())                                                                       \
    interpose::Note(#function, CALLER, __VA_ARGS__)

// ---- GCs, pixmaps and cursors of the server -----------------------------------------------------------

GC XCreateGC(Display *d, Drawable w, unsigned long mask, XGCValues *values) {
    NEXT(XCreateGC);
    NOTE(XCreateGC, d, w, nullptr, {static_cast<long>(mask)});
    return Take(Kind::gc, next(d, w, mask, values), "XCreateGC", CALLER);
}

int XFreeGC(Display *d, GC gc) {
    NEXT(XFreeGC);
    interpose::SetClip(gc, std::nullopt);
    NOTE(XFreeGC, d, None, nullptr, {});
    GiveBack(Kind::gc, gc, CALLER);
    return next(d, gc);
}

Pixmap XCreatePixmap(Display *d, Drawable w, unsigned width, unsigned height, unsigned depth) {
    NEXT(XCreatePixmap);
    NOTE(XCreatePixmap, d, w, nullptr, {width, height, depth});
    return Take(Kind::pixmap, next(d, w, width, height, depth), "XCreatePixmap", CALLER);
}

Pixmap XCreateBitmapFromData(Display *d, Drawable w, const char *data, unsigned width,
                             unsigned height) {
    NEXT(XCreateBitmapFromData);
    return Take(Kind::pixmap, next(d, w, data, width, height), "XCreateBitmapFromData", CALLER);
}

int XFreePixmap(Display *d, Pixmap pixmap) {
    NEXT(XFreePixmap);
    NOTE(XFreePixmap, d, pixmap, nullptr, {});
    GiveBack(Kind::pixmap, pixmap, CALLER);
    return next(d, pixmap);
}

Cursor XCreateFontCursor(Display *d, unsigned shape) {
    NEXT(XCreateFontCursor);
    NOTE(XCreateFontCursor, d, None, nullptr, {shape});
    return Take(Kind::cursor, next(d, shape), "XCreateFontCursor", CALLER);
}

Cursor XCreatePixmapCursor(Display *d, Pixmap image, Pixmap mask, XColor *foreground,
                           XColor *background, unsigned x, unsigned y) {
    NEXT(XCreatePixmapCursor);
    return Take(Kind::cursor, next(d, image, mask, foreground, background, x, y),
                "XCreatePixmapCursor", CALLER);
}

int XFreeCursor(Display *d, Cursor cursor) {
    NEXT(XFreeCursor);
    NOTE(XFreeCursor, d, None, nullptr, {static_cast<long>(cursor)});
    GiveBack(Kind::cursor, cursor, CALLER);
    return next(d, cursor);
}

// ---- What the toolkit shares ----------------------------------------------------------------------------

Pixmap XmGetPixmapByDepth(Screen *screen, char *name, Pixel foreground, Pixel background,
                          int depth) {
    NEXT(XmGetPixmapByDepth);
    const Pixmap tile = next(screen, name, foreground, background, depth);
    return tile == XmUNSPECIFIED_PIXMAP ? tile
                                        : Take(Kind::tile, tile, "XmGetPixmapByDepth", CALLER);
}

Boolean XmDestroyPixmap(Screen *screen, Pixmap tile) {
    NEXT(XmDestroyPixmap);
    GiveBack(Kind::tile, tile, CALLER);
    return next(screen, tile);
}

GC XtGetGC(Widget w, XtGCMask mask, XGCValues *values) {
    NEXT(XtGetGC);
    return Take(Kind::shared_gc, next(w, mask, values), "XtGetGC", CALLER);
}

void XtReleaseGC(Widget w, GC gc) {
    NEXT(XtReleaseGC);
    GiveBack(Kind::shared_gc, gc, CALLER);
    next(w, gc);
}

} // extern "C"
#pragma GCC visibility pop
