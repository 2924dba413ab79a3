// The shared part of the gadget. While resources are read or set, the gadget has one of its own, in an
// object of the toolkit's that the hooks make and take away again.

#include <corvidlmw/gadget/IconGI.h>

#include <corvidlmw/gadget/SharedParts.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace corvidlmw::icon_gadget {

namespace {

// The copy that is written margin by margin, of one gadget at a time.
struct LocalCache {
    XmvIconGCacheObjPart part;
    bool open = false;
};
LocalCache local_cache;

constexpr Dimension XmvIconGCacheObjPart::*margins[] = {
    &XmvIconGCacheObjPart::margin_height, &XmvIconGCacheObjPart::margin_width,
    &XmvIconGCacheObjPart::margin_left,   &XmvIconGCacheObjPart::margin_right,
    &XmvIconGCacheObjPart::margin_top,    &XmvIconGCacheObjPart::margin_bottom,
    &XmvIconGCacheObjPart::margin_middle,
};

// ---- Sharing --------------------------------------------------------------------------------------

// Of what is compared, and no more.
uint64_t HashOf(const XmvIconGCacheObjPart &part) {
    Hash hash;
    hash.Add(part.alignment | uint64_t{part.string_direction} << 8 |
             uint64_t{static_cast<unsigned char>(part.recompute_size)} << 16 |
             uint64_t{static_cast<unsigned char>(part.skip_callback)} << 24 |
             uint64_t{part.menu_type} << 32 |
             uint64_t{static_cast<unsigned char>(part.show_arrow)} << 40);
    for (const auto margin : margins) {
        hash.Add(part.*margin);
    }
    return hash.Add(static_cast<uint64_t>(part.icon_placement))
        .Add(part.foreground)
        .Add(part.background)
        .Value();
}

// A subclass may bring a cache of its own.
XmvIconGCacheObjPart *Share(Widget w, XmvIconGCacheObjPart *part) {
    static SharedParts parts;
    auto *list = reinterpret_cast<XmGadgetClass>(XtClass(w))->gadget_class.cache_part;
    if (list != &IconClassCachePart) {
        return static_cast<XmvIconGCacheObjPart *>(_XmCachePart(list, part, sizeof *part));
    }
    return parts.Share(part, HashOf(*part), _XmvIconCacheCompare);
}

bool Equal(XmvIconGCacheObjPart &a, XmvIconGCacheObjPart &b) {
    return _XmvIconCacheCompare(&a, &b) != 0;
}

// ---- The secondary object -------------------------------------------------------------------------

XmvIconGCacheObjRec *NewObject() {
    void *block = _XmExtObjAlloc(sizeof(XmvIconGCacheObjRec));
    return static_cast<XmvIconGCacheObjRec *>(std::memset(block, 0, sizeof(XmvIconGCacheObjRec)));
}

XmvIconGCacheObjRec *NewObjectOf(Widget w) {
    XmvIconGCacheObjRec *object = NewObject();
    object->object.self = reinterpret_cast<Widget>(object);
    object->object.widget_class = reinterpret_cast<WidgetClass>(&xmvIconGCacheObjClassRec);
    object->object.parent = XtParent(w);
    object->object.xrm_name = w->core.xrm_name;
    object->ext.logicalParent = w;
    object->ext.extensionType = XmCACHE_EXTENSION;
    object->icon_cache = CacheOf(w);
    return object;
}

void Push(Widget w, XmvIconGCacheObjRec *object, XmvIconGCacheObjRec *request_object) {
    auto *data = XtNew(XmWidgetExtDataRec);
    data->widget = reinterpret_cast<Widget>(object);
    data->reqWidget = reinterpret_cast<Widget>(request_object);
    data->oldWidget = nullptr;
    _XmPushWidgetExtData(w, data, XmCACHE_EXTENSION);
}

void Pop(Widget w) {
    XmWidgetExtData data = nullptr;
    _XmPopWidgetExtData(w, &data, XmCACHE_EXTENSION);
    if (!data) {
        return;
    }
    _XmExtObjFree(data->widget);
    if (data->reqWidget) {
        _XmExtObjFree(data->reqWidget);
    }
    FreeXtBlock(data);
}

// Resources are being read or set, also by somebody farther up the stack.
bool HasObject(Widget w) {
    return _XmGetWidgetExtData(w, XmCACHE_EXTENSION) != nullptr;
}

XtPointer GetIconClassResBase(Widget w, XtPointer) {
    constexpr auto size = static_cast<Cardinal>(sizeof(XmvIconGCacheObjPart));
    return std::memcpy(XtMalloc(size + 1), IconOf(w).cache, size);
}

// ---- The local copy ---------------------------------------------------------------------------------

XmvIconGCacheObjPart &OpenLocalCache(Widget w) {
    if (!local_cache.open) {
        auto *list = reinterpret_cast<XmGadgetClass>(XtClass(w))->gadget_class.cache_part;
        list->cache_copy(IconOf(w).cache, &local_cache.part, sizeof local_cache.part);
        local_cache.open = true;
    }
    return local_cache.part;
}

Dimension Assign(Widget w, Dimension XmvIconGCacheObjPart::*margin, Dimension value) {
    if (IsIconGadget(w)) {
        OpenLocalCache(w).*margin = value;
    }
    return value;
}

} // namespace

// ---- Hooks ----------------------------------------------------------------------------------------

XmCacheClassPart IconClassCachePart = {
    .cache_head = {nullptr, nullptr, 0},
    .cache_copy = _XmCacheCopy,
    .cache_delete = _XmCacheDelete,
    .cache_compare = _XmvIconCacheCompare,
};

// The gadget points into the object before the resources are read: a default procedure may ask the
// half-made gadget for its colours.
void SecondaryObjectCreate(Widget request, Widget new_w, ArgList args, Cardinal *num_args) {
    XmvIconGCacheObjRec *object = NewObject();
    XmvIconGCacheObjRec *request_object = NewObject();
    IconOf(new_w).cache = &object->icon_cache;
    IconOf(request).cache = &request_object->icon_cache;
    XtGetSubresources(new_w, object, nullptr, nullptr, cache_resources, num_cache_resources, args,
                      *num_args);
    object->ext.logicalParent = new_w;
    object->ext.extensionType = XmCACHE_EXTENSION;
    Push(new_w, object, request_object);
    *request_object = *object;
}

void InitializePosthook(Widget, Widget new_w, ArgList, Cardinal *) {
    IconOf(new_w).cache = Share(new_w, IconOf(new_w).cache);
    Pop(new_w);
}

Boolean SetValuesPrehook(Widget, Widget request, Widget new_w, ArgList args, Cardinal *num_args) {
    XmvIconGCacheObjRec *object = NewObjectOf(new_w);
    XmvIconGCacheObjRec *request_object = NewObject();
    Push(new_w, object, request_object);
    XtSetSubvalues(object, cache_resources, num_cache_resources, args, *num_args);
    _XmExtImportArgs(reinterpret_cast<Widget>(object), args, num_args);
    *request_object = *object;
    IconOf(new_w).cache = &object->icon_cache;
    IconOf(request).cache = &request_object->icon_cache;
    HoldMirror(new_w);
    return False;
}

// Within another change of the same gadget, as a callback may make one, the old part is the outer
// change's own: it takes the new values over.
Boolean SetValuesPosthook(Widget old_w, Widget, Widget new_w, ArgList, Cardinal *) {
    XmvIconGCacheObjPart changed = CacheOf(new_w);
    Pop(new_w);
    IconOf(new_w).cache = IconOf(old_w).cache;
    if (HasObject(new_w)) {
        CacheOf(new_w) = changed;
    } else if (!Equal(changed, CacheOf(old_w))) {
        IconOf(new_w).cache = Share(new_w, &changed);
        _XmCacheDelete(IconOf(old_w).cache);
    }
    ReleaseMirror(old_w);
    return False;
}

void GetValuesPrehook(Widget w, ArgList args, Cardinal *num_args) {
    XmvIconGCacheObjRec *object = NewObjectOf(w);
    Push(w, object, nullptr);
    XtGetSubvalues(object, cache_resources, num_cache_resources, args, *num_args);
    _XmExtGetValuesHook(reinterpret_cast<Widget>(object), args, num_args);
}

void GetValuesPosthook(Widget w, ArgList, Cardinal *) {
    Pop(w);
}

Cardinal GetIconBGClassSecResData(WidgetClass widget_class, XmSecondaryResourceData **data) {
    XmBaseClassExt *extension = _XmGetBaseClassExtPtr(widget_class, XmQmotif);
    return _XmSecondaryResourceData(*extension, data, nullptr, nullptr, nullptr,
                                    GetIconClassResBase);
}

void SetOverrideCallback(Widget w) {
    OpenLocalCache(w).skip_callback = True;
    _XmReCacheIconG(w);
}

} // namespace corvidlmw::icon_gadget

// ---- Exported ---------------------------------------------------------------------------------------

using namespace corvidlmw::icon_gadget;

extern "C" {

int _XmvIconCacheCompare(XtPointer a, XtPointer b) {
    const auto &one = *static_cast<const XmvIconGCacheObjPart *>(a);
    const auto &other = *static_cast<const XmvIconGCacheObjPart *>(b);
    return one.alignment == other.alignment && one.string_direction == other.string_direction &&
           std::all_of(std::begin(margins), std::end(margins),
                       [&](auto margin) { return one.*margin == other.*margin; }) &&
           one.recompute_size == other.recompute_size && one.skip_callback == other.skip_callback &&
           one.icon_placement == other.icon_placement && one.show_arrow == other.show_arrow &&
           one.foreground == other.foreground && one.background == other.background &&
           one.menu_type == other.menu_type;
}

Dimension _XmAssignIconG_MarginHeight(Widget w, Dimension value) {
    return Assign(w, &XmvIconGCacheObjPart::margin_height, value);
}

Dimension _XmAssignIconG_MarginWidth(Widget w, Dimension value) {
    return Assign(w, &XmvIconGCacheObjPart::margin_width, value);
}

Dimension _XmAssignIconG_MarginLeft(Widget w, Dimension value) {
    return Assign(w, &XmvIconGCacheObjPart::margin_left, value);
}

Dimension _XmAssignIconG_MarginRight(Widget w, Dimension value) {
    return Assign(w, &XmvIconGCacheObjPart::margin_right, value);
}

Dimension _XmAssignIconG_MarginTop(Widget w, Dimension value) {
    return Assign(w, &XmvIconGCacheObjPart::margin_top, value);
}

Dimension _XmAssignIconG_MarginBottom(Widget w, Dimension value) {
    return Assign(w, &XmvIconGCacheObjPart::margin_bottom, value);
}

// While the part is the gadget's own it is written directly: it is in no cache.
void _XmReCacheIconG(Widget w) {
    if (!local_cache.open || !IsIconGadget(w)) {
        return;
    }
    local_cache.open = false;
    auto &cache = IconOf(w).cache;
    const XmvIconGCacheObjPart before = *cache;
    if (HasObject(w)) {
        *cache = local_cache.part;
    } else if (!Equal(local_cache.part, *cache)) {
        _XmCacheDelete(cache);
        cache = Share(w, &local_cache.part);
    }
    UpdateMirror(before, w);
}

} // extern "C"
