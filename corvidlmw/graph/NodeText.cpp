#include <corvidlmw/graph/NodeText.h>

#include <Xm/PrimitiveP.h>
#include <Xm/RowColumn.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace corvidlmw::graph {

namespace {

constexpr int usual_font_size = 12;

// Whether a query by this name can give nothing but a pointer to what one of these types stands for. That
// of another resource would write over the variable or give what is no such pointer. A resource that is
// not listed may be a hidden part's, as that of a text widget's font is, or missing: then nothing is given.
bool CanAsk(WidgetClass node_class, const char *name, std::initializer_list<const char *> types) {
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtGetResourceList(node_class, &list, &count);
    const OwnedXtBlock<XtResource> owner(list);
    const auto is_one = [&](const XtResource &resource) {
        return resource.resource_size == sizeof(XtPointer) &&
               std::any_of(types.begin(), types.end(), [&](const char *type) {
                   return std::strcmp(resource.resource_type, type) == 0;
               });
    };
    return std::all_of(list, list + count, [&](const XtResource &resource) {
        return std::strcmp(resource.resource_name, name) != 0 || is_one(resource);
    });
}

bool DescendsFrom(WidgetClass c, WidgetClass ancestor) {
    while (c && c != ancestor) {
        c = c->core_class.superclass;
    }
    return c != nullptr;
}

// The toolkit's classes give copies of compound strings, by a procedure for reading the resource. Of a
// class without one the string remains the widget's own.
bool GivesCopies(WidgetClass node_class) {
    const XmSyntheticResource *resources = nullptr;
    int count = 0;
    auto take = [&](const auto &part) {
        resources = part.syn_resources;
        count = part.num_syn_resources;
    };
    if (DescendsFrom(node_class, xmGadgetClass)) {
        take(reinterpret_cast<XmGadgetClass>(node_class)->gadget_class);
    } else if (DescendsFrom(node_class, xmPrimitiveWidgetClass)) {
        take(reinterpret_cast<XmPrimitiveWidgetClass>(node_class)->primitive_class);
    } else if (DescendsFrom(node_class, xmManagerWidgetClass)) {
        take(reinterpret_cast<XmManagerWidgetClass>(node_class)->manager_class);
    }
    // The toolkit has put quarks in the place of the names.
    const XrmQuark name = XrmStringToQuark(XmNlabelString);
    return std::any_of(resources, resources + count, [&](const XmSyntheticResource &resource) {
        return reinterpret_cast<std::intptr_t>(resource.resource_name) == name &&
               resource.export_proc;
    });
}

// The label of an option menu. In other row columns it is never shown, and the toolkit keeps whatever pointer it was
// given at creation, without a copy.
bool LabelIsNobodys(Widget node) {
    return XmIsRowColumn(node) &&
           ResourceOf<unsigned char>(node, XmNrowColumnType, XmWORK_AREA) != XmMENU_OPTION;
}

// The text of each segment of a compound string.
Vector<Text> TextsOf(XmString label) {
    Vector<Text> texts;
    XmStringContext context = nullptr;
    if (!label || !XmStringInitContext(&context, label)) {
        return texts;
    }
    char *text = nullptr;
    XmStringCharSet tag = nullptr;
    XmStringDirection direction = XmSTRING_DIRECTION_DEFAULT;
    Boolean separator = False;
    while (XmStringGetNextSegment(context, &text, &tag, &direction, &separator)) {
        texts.emplace_back(text ? text : "");
        XtFree(text);
        XtFree(tag);
    }
    XmStringFreeContext(context);
    return texts;
}

} // namespace

// A table of antialiased fonts has none that the toolkit's own search finds.
int FontSizeOf(Widget node) {
    XmFontList fonts = nullptr;
    if (CanAsk(XtClass(node), XmNfontList, {XmRFontList, XmRRenderTable})) {
        XtVaGetValues(node, XmNfontList, &fonts, nullptr);
    }
    if (!fonts) {
        return usual_font_size;
    }
    short index = 0;
    XFontStruct *font = nullptr;
    if (_XmFontListSearch(fonts, Name(XmFONTLIST_DEFAULT_TAG), &index, &font) && font) {
        return font->ascent + font->descent;
    }
    int height = 0;
    int ascent = 0;
    int descent = 0;
    XmRenderTableGetDefaultFontExtents(fonts, &height, &ascent, &descent);
    return ascent + descent > 0 ? ascent + descent : usual_font_size;
}

Labels::Source Labels::SourceFor(WidgetClass node_class) {
    auto found = sources_.find(node_class);
    if (found == sources_.end()) {
        const Source source = {CanAsk(node_class, XmNlabelString, {XmRXmString}),
                               GivesCopies(node_class)};
        found = sources_.emplace(node_class, source).first;
    }
    return found->second;
}

Vector<Text> Labels::Of(Widget node) {
    const Source source = SourceFor(XtClass(node));
    if (!source.can_ask || LabelIsNobodys(node)) {
        return {};
    }
    XmString label = ResourceOf<XmString>(node, XmNlabelString, nullptr);
    const OwnedXmString owner(source.copied ? label : nullptr);
    return TextsOf(label);
}

} // namespace corvidlmw::graph
