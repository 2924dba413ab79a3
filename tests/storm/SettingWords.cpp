// Values for resources, by their types.
#include <tests/storm/Words.h>

#include <tests/storm/Scenes.h>

#include <corvidlmw/gadget/IconGP.h>
#include <corvidlmw/graph/Arc.h>

#include <algorithm>
#include <map>
#include <set>

namespace corvidlmw::storm {

namespace {

// ---- Which resources ---------------------------------------------------------------------------------

// What is left out of the classes' own resources, because the toolkit does not stand it of its own either.
const std::set<std::string> left_out = {
    // A procedure that Xt calls unasked, also where it is NULL.
    XmNinsertPosition,
};

bool IsLeftOut(const XtResource &resource) {
    const std::string name = resource.resource_name;
    return name.starts_with('.') || left_out.contains(name) ||
           std::string(resource.resource_type) == XmRCallback;
}

using Settings = std::vector<Setting>;

void Append(Settings &settings, XtResourceList list, Cardinal count) {
    for (Cardinal i = 0; i < count; i++)
        if (!IsLeftOut(list[i]))
            settings.push_back(
                {list[i].resource_name, list[i].resource_type, list[i].resource_size});
    XtFree(reinterpret_cast<char *>(list));
}

struct Declared {
    Settings resources, constraints;
};

// Before a class is initialized its lists hold what it declares itself; the toolkit joins to them what is
// inherited then.
Declared ReadDeclared(WidgetClass widget_class) {
    Declared declared;
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtGetResourceList(widget_class, &list, &count);
    Append(declared.resources, list, count);
    if (widget_class == xmvIconGadgetClass) {
        XtGetResourceList(reinterpret_cast<WidgetClass>(&xmvIconGCacheObjClassRec), &list, &count);
        Append(declared.resources, list, count);
    }
    list = nullptr;
    XtGetConstraintResourceList(widget_class, &list, &count);
    if (list)
        Append(declared.constraints, list, count);
    return declared;
}

const Declared &DeclaredBy(WidgetClass widget_class) {
    static const auto all = [] {
        std::map<WidgetClass, Declared> found = {
            {xmArcWidgetClass, ReadDeclared(xmArcWidgetClass)}};
        for (const Scene &scene : Scenes())
            if (scene.subject)
                found[*scene.subject] = ReadDeclared(*scene.subject);
        return found;
    }();
    static const Declared nothing;
    const auto found = all.find(widget_class);
    return found == all.end() ? nothing : found->second;
}

std::string ListOfLabels(Chance &chance) {
    std::vector<std::string> labels;
    for (int left = chance.Between(0, 12); left > 0; left--)
        labels.push_back(AnyLabel(chance));
    return ToList(labels);
}

std::string AnyWidgetOrNone(Chance &chance, const Cast &cast) {
    return chance.OneIn(5) ? "nil" : WidgetWord(cast.Any(chance));
}

// ---- Values ------------------------------------------------------------------------------------------

using Value = std::string (*)(Chance &chance, const Cast &cast);

template <int low, int high>
std::string From(Chance &chance, const Cast &) {
    return SmallNumber(chance, low, high);
}

// What the toolkit's classes have too gets values that these stand.
const std::map<std::string, Value> inherited = {
    {XmNx, [](Chance &chance, const Cast &) { return AnyPlace(chance); }},
    {XmNy, [](Chance &chance, const Cast &) { return AnyPlace(chance); }},
    {XmNwidth, [](Chance &chance, const Cast &) { return AnyExtent(chance); }},
    {XmNheight, [](Chance &chance, const Cast &) { return AnyExtent(chance); }},
    {XmNborderWidth, From<0, 9>},
    {XmNbackground, From<0, 0xffffff>},
    {XmNforeground, From<0, 0xffffff>},
    {XmNtopShadowColor, From<0, 0xffffff>},
    {XmNbottomShadowColor, From<0, 0xffffff>},
    {XmNhighlightColor, From<0, 0xffffff>},
    {XmNshadowThickness, From<0, 12>},
    {XmNhighlightThickness, From<0, 12>},
    {XmNtraversalOn, From<0, 1>},
    {XmNnavigationType, From<0, 3>},
    {XmNunitType, From<XmPIXELS, Xm100TH_FONT_UNITS>},
    {XmNlayoutDirection,
     [](Chance &chance, const Cast &) {
         return WordFor(chance.OneIn(2) ? XmLEFT_TO_RIGHT : XmRIGHT_TO_LEFT);
     }},
    {XmNuserData, [](Chance &chance, const Cast &) { return AnyNumber(chance); }},
    {XmNresizePolicy, From<0, 2>},
    {XmNallowOverlap, From<0, 1>},
    {XmNlabelString, [](Chance &chance, const Cast &) { return AnyLabel(chance); }},
    {XmNfontList,
     [](Chance &chance, const Cast &) { return "fonts:" + SmallNumber(chance, 0, 4); }},
};

const std::map<std::string, Value> values_by_name = {
    {"layoutProc",
     [](Chance &chance, const Cast &) { return "layout:" + SmallNumber(chance, 0, 2); }},
    {"defaultNodeClass",
     [](Chance &chance, const Cast &) {
         return chance.Of(
             {"nil", "class:XmPushButton", "class:XmvIconGadget", "class:XmLabelGadget"});
     }},
    // A table of millions of cells stands the storm, and takes all of its time.
    {"numRows", From<-3, 24>},
    {"numColumns", From<-3, 24>},
    {"to", AnyWidgetOrNone},
    {"from", AnyWidgetOrNone},
    {XmNhorizontalScrollBar, AnyWidgetOrNone},
    {XmNverticalScrollBar, AnyWidgetOrNone},
    {XmNinitialFocus, AnyWidgetOrNone},
};

const std::map<std::string, Value> values_by_type = {
    {XmRPixel, [](Chance &chance, const Cast &) { return SmallNumber(chance, -1, 0xffffff); }},
    {XmRFontList,
     [](Chance &chance, const Cast &) {
         return chance.OneIn(6) ? std::string("nil") : "fonts:" + SmallNumber(chance, 0, 4);
     }},
    {XmRRenderTable,
     [](Chance &chance, const Cast &) {
         return chance.OneIn(6) ? std::string("nil") : "fonts:" + SmallNumber(chance, 0, 4);
     }},
    {XmRButtonRenderTable,
     [](Chance &chance, const Cast &) { return "fonts:" + SmallNumber(chance, 0, 4); }},
    {XmRXmString,
     [](Chance &chance, const Cast &) {
         return chance.OneIn(6) ? std::string("nil") : AnyLabel(chance);
     }},
    {XmRCursor,
     [](Chance &chance, const Cast &) {
         return chance.OneIn(4) ? std::string("0") : "cursor:" + SmallNumber(chance, 0, 2);
     }},
    {XmRAtom,
     [](Chance &chance, const Cast &) {
         return chance.OneIn(3) ? std::string("0") : "atom:" + SmallNumber(chance, 0, 1);
     }},
};

// Pixmaps of the wrong depth are the X server's error in the toolkit's classes too; a gadget's pictures are
// copied, and may have any.
std::string AnyPixmap(Chance &chance, bool of_any_depth) {
    return chance.OneIn(3) ? chance.Of({"0", "2"})
                           : "pixmap:" + (of_any_depth ? SmallNumber(chance, 0, 5)
                                                       : chance.Of({"0", "1", "2", "5"}));
}

} // namespace

namespace {

// The toolkit's push button gadget draws with a GC that it gave back, once its direction has changed.
bool IsTooMuch(const std::string &name, WidgetClass widget_class) {
    return name == XmNlayoutDirection && DeclaredBy(widget_class).resources.empty();
}

} // namespace

void ReadResources() {
    DeclaredBy(nullptr);
}

const std::vector<Setting> &SettingsOf(WidgetClass widget_class, WidgetClass parent_class) {
    static std::map<std::pair<WidgetClass, WidgetClass>, Settings> known;
    const auto [entry, is_new] = known.try_emplace({widget_class, parent_class});
    Settings &settings = entry->second;
    if (!is_new)
        return settings;
    settings = DeclaredBy(widget_class).resources;
    const auto &constraints = DeclaredBy(parent_class).constraints;
    settings.insert(settings.end(), constraints.begin(), constraints.end());
    // Ours come up twice as often.
    const Settings own = settings;
    settings.insert(settings.end(), own.begin(), own.end());
    for (const auto &[name, value] : inherited)
        if (!IsTooMuch(name, widget_class) &&
            std::none_of(own.begin(), own.end(),
                         [&](const Setting &one) { return one.name == name; }))
            settings.push_back({name, "", 0});
    return settings;
}

std::vector<std::string> CallbacksOf(WidgetClass widget_class) {
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtInitializeWidgetClass(widget_class);
    XtGetResourceList(widget_class, &list, &count);
    std::vector<std::string> names;
    for (Cardinal i = 0; i < count; i++)
        if (std::string(list[i].resource_type) == XmRCallback)
            names.emplace_back(list[i].resource_name);
    XtFree(reinterpret_cast<char *>(list));
    return names;
}

std::vector<std::string> WordsToSet(Chance &chance, const Cast &cast, const Setting &setting) {
    // An array and how long it is belong together.
    if (setting.name == XmNitems || setting.name == XmNitemCount)
        return {XmNitems, ListOfLabels(chance), XmNitemCount,
                chance.OneIn(5) ? SmallNumber(chance, -2, 0) : "all"};
    if (setting.name == XmNselectedItems || setting.name == XmNselectedItemCount)
        return {XmNselectedItems, ListOfLabels(chance), XmNselectedItemCount,
                chance.OneIn(5) ? SmallNumber(chance, -2, 0) : "all"};
    if (setting.size == 0)
        return {setting.name, inherited.at(setting.name)(chance, cast)};
    if (const auto value = values_by_name.find(setting.name); value != values_by_name.end())
        return {setting.name, value->second(chance, cast)};
    if (const auto value = values_by_type.find(setting.type); value != values_by_type.end())
        return {setting.name, value->second(chance, cast)};
    if (setting.type.ends_with("Pixmap") || setting.type == XmRBitmap)
        return {setting.name, AnyPixmap(chance, setting.type == XmRGadgetPixmap)};
    if (setting.name == XmNuserData || setting.size <= sizeof(int))
        return {setting.name, AnyNumber(chance)};
    return {};
}

} // namespace corvidlmw::storm
