#include <corvidlmw/gadget/SharedGCs.h>

#include <corvidlmw/gadget/SharedParts.h>
#include <corvidlmw/toolkit/Lasting.h>
#include <corvidlmw/toolkit/Toolkit.h>

#include <X11/Xresource.h>

namespace corvidlmw::icon_gadget {

namespace {

struct HashOfLook {
    std::size_t operator()(const GCLook &look) const {
        return Hash()
            .Add(reinterpret_cast<uintptr_t>(look.screen))
            .Add(static_cast<uint64_t>(look.depth))
            .Add(look.foreground)
            .Add(look.background)
            .Add(look.font)
            .Add(look.halftone)
            .Add(look.halftone_foreground)
            .Add(look.halftone_background)
            .Value();
    }
};

struct Entry {
    GC gc = nullptr;
    Pixmap tile = XmUNSPECIFIED_PIXMAP;
    long references = 0;
};

using EntryOfLook = UnorderedMap<GCLook, Entry, HashOfLook>;

struct Store {
    EntryOfLook entries;
    UnorderedMap<GC, EntryOfLook::value_type *> by_gc;
};

// A store is found through the connection itself: when that is closed, its GCs are gone, and a later one
// may come to lie at the same address.
Store &StoreOf(Display *display) {
    static const XContext context = XUniqueContext();
    static const Lasting<UnorderedMap<Display *, Store>> stores;
    XPointer found = nullptr;
    if (XFindContext(display, None, context, &found) != 0) {
        Store &fresh = (*stores)[display] = Store();
        found = reinterpret_cast<XPointer>(&fresh);
        XSaveContext(display, None, context, found);
    }
    return *reinterpret_cast<Store *>(found);
}

// A GC serves drawables of one depth, and the root window may have another.
GC CreateGC(const GCLook &look, unsigned long mask, XGCValues &values) {
    Display *display = DisplayOfScreen(look.screen);
    Window root = RootWindowOfScreen(look.screen);
    if (look.depth == DefaultDepthOfScreen(look.screen)) {
        return XCreateGC(display, root, mask, &values);
    }
    Pixmap model = XCreatePixmap(display, root, 1, 1, static_cast<unsigned>(look.depth));
    GC gc = XCreateGC(display, model, mask, &values);
    XFreePixmap(display, model);
    return gc;
}

void Create(const GCLook &look, Entry &entry) {
    XGCValues values{};
    values.foreground = look.foreground;
    values.background = look.background;
    values.font = look.font;
    values.graphics_exposures = False;
    unsigned long mask = GCForeground | GCBackground | GCGraphicsExposures;
    mask |= look.font != None ? GCFont : 0;
    if (look.halftone) {
        entry.tile =
            XmGetPixmapByDepth(look.screen, Name("50_foreground"), look.halftone_foreground,
                               look.halftone_background, look.depth);
    }
    if (entry.tile != XmUNSPECIFIED_PIXMAP) {
        values.tile = entry.tile;
        values.fill_style = FillTiled;
        mask |= GCTile | GCFillStyle;
    }
    entry.gc = CreateGC(look, mask, values);
}

} // namespace

GC AcquireGC(const GCLook &look) {
    Store &store = StoreOf(DisplayOfScreen(look.screen));
    auto &pair = *store.entries.try_emplace(look).first;
    Entry &entry = pair.second;
    if (entry.references++ == 0) {
        Create(look, entry);
        store.by_gc[entry.gc] = &pair;
    }
    return entry.gc;
}

void ReleaseGC(Display *display, GC gc) {
    Store &store = StoreOf(display);
    const auto found = store.by_gc.find(gc);
    if (found == store.by_gc.end() || --found->second->second.references > 0) {
        return;
    }
    const auto [look, entry] = *found->second;
    XFreeGC(display, gc);
    if (entry.tile != XmUNSPECIFIED_PIXMAP) {
        XmDestroyPixmap(look.screen, entry.tile);
    }
    store.by_gc.erase(found);
    store.entries.erase(look);
}

} // namespace corvidlmw::icon_gadget
