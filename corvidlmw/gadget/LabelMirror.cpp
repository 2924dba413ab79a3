// The mirror: XmRowColumn, option menus and drags read and write the fields of a label gadget in any
// gadget that passes for one. They find them at their own places, true, and with a shared part that
// they may exchange for another: a row or column that evens out the margins of its entries does.

#include <corvidlmw/gadget/IconGI.h>

#include <corvidlmw/gadget/SharedParts.h>

#include <Xm/CacheP.h>

#include <cstring>
#include <iterator>

namespace corvidlmw::icon_gadget {

namespace {

using LabelCache = XmLabelGCacheObjPart;

struct MarginPair {
    Dimension XmvIconGCacheObjPart::*ours;
    Dimension LabelCache::*mirrored;
};
constexpr MarginPair margin_pairs[] = {
    {&XmvIconGCacheObjPart::margin_height, &LabelCache::margin_height},
    {&XmvIconGCacheObjPart::margin_width, &LabelCache::margin_width},
    {&XmvIconGCacheObjPart::margin_left, &LabelCache::margin_left},
    {&XmvIconGCacheObjPart::margin_right, &LabelCache::margin_right},
    {&XmvIconGCacheObjPart::margin_top, &LabelCache::margin_top},
    {&XmvIconGCacheObjPart::margin_bottom, &LabelCache::margin_bottom},
};

// Byte by byte: what is shared was cleared before it was filled.
int CompareMirrors(XtPointer a, XtPointer b) {
    return std::memcmp(a, b, sizeof(LabelCache)) == 0;
}

uint64_t HashOf(const LabelCache &cache) {
    uint64_t words[sizeof(LabelCache) / sizeof(uint64_t)];
    static_assert(sizeof words == sizeof cache);
    std::memcpy(words, &cache, sizeof words);
    Hash hash;
    for (const uint64_t word : words) {
        hash.Add(word);
    }
    return hash.Value();
}

LabelCache *Share(LabelCache &cache) {
    static SharedParts mirrors;
    return mirrors.Share(&cache, HashOf(cache), CompareMirrors);
}

void CopyAllButMargins(const XmvIconGCacheObjPart &part, LabelCache &cache) {
    cache.label_type = XmSTRING;
    cache.alignment = part.alignment;
    cache.string_direction = part.string_direction;
    cache.recompute_size = part.recompute_size;
    cache.skipCallback = part.skip_callback;
    cache.menu_type = part.menu_type;
    cache.foreground = part.foreground;
    cache.background = part.background;
    cache.top_shadow_color = part.top_shadow_color;
    cache.bottom_shadow_color = part.bottom_shadow_color;
    cache.top_shadow_pixmap = cache.bottom_shadow_pixmap = XmUNSPECIFIED_PIXMAP;
    cache.highlight_pixmap = XmUNSPECIFIED_PIXMAP;
}

void MirrorFields(Widget w) {
    const auto &icon = IconOf(w);
    auto &label = RecordOf(w).label;
    label._label = icon.label_string;
    label.font = icon.font_list;
    label.pixmap = icon.label_pixmap;
    label.pixmap_insen = icon.label_insensitive_pixmap;
    label.normal_GC = icon.normal_gc;
    label.insensitive_GC = icon.insensitive_gc;
}

// Fills in what the mirror becomes when our part was `before` and is now the gadget's: a margin that
// stays keeps what a row or column added to it.
void Adjust(const XmvIconGCacheObjPart &before, Widget w, LabelCache &cache) {
    const auto &now = CacheOf(w);
    std::memcpy(&cache, RecordOf(w).label.cache, sizeof cache);
    CopyAllButMargins(now, cache);
    for (const auto &[ours, mirrored] : margin_pairs) {
        if (now.*ours != before.*ours) {
            cache.*mirrored = now.*ours;
        }
    }
}

} // namespace

void CreateMirror(Widget w) {
    auto &label = RecordOf(w).label;
    label = {};
    MirrorFields(w);
    LabelCache cache;
    std::memset(&cache, 0, sizeof cache);
    CopyAllButMargins(CacheOf(w), cache);
    for (const auto &[ours, mirrored] : margin_pairs) {
        cache.*mirrored = CacheOf(w).*ours;
    }
    label.cache = Share(cache);
}

// From the start of a change the old record and the new one have a share each: the parent's constraints
// still look at the old one after SetValues, and a further change within this one may exchange the new.
void HoldMirror(Widget w) {
    auto *shared = DataToGadgetCache(RecordOf(w).label.cache);
    ++reinterpret_cast<XmGadgetCachePtr>(shared)->ref_count;
}

void UpdateMirror(const XmvIconGCacheObjPart &before, Widget w) {
    MirrorFields(w);
    LabelCache cache;
    Adjust(before, w, cache);
    ReleaseMirror(w);
    RecordOf(w).label.cache = Share(cache);
}

void ReleaseMirror(Widget w) {
    _XmCacheDelete(RecordOf(w).label.cache);
}

Margins MarginsOf(Widget w) {
    const LabelCache &cache = *RecordOf(w).label.cache;
    return {cache.margin_width, cache.margin_height, cache.margin_left,
            cache.margin_right, cache.margin_top,    cache.margin_bottom};
}

} // namespace corvidlmw::icon_gadget
