/* Resources, the shared part, sizes, baselines and the converter. */

#include <tests/gadget/GadgetTest.h>

#include <Xm/DrawingA.h>
#include <Xm/LabelG.h>
#include <Xm/PushBG.h>

#include <map>

namespace corvidlmw::test {
namespace {

class IconGadgetTest : public GadgetTest {};

// ---- Resources ----------------------------------------------------------------------------------

TEST_F(IconGadgetTest, HasItsDefaults) {
    Widget gadget = XtVaCreateWidget("plain", xmvIconGadgetClass, board, nullptr);
    EXPECT_TRUE(XmvIsIconGadget(gadget));
    EXPECT_TRUE(XmIsLabelGadget(gadget));
    for (const auto &[name, value] : std::map<const char *, int>{{XmNshadowThickness, 2},
                                                                 {XmNhighlightThickness, 1},
                                                                 {XmNmarginWidth, 2},
                                                                 {XmNmarginHeight, 2},
                                                                 {XmNmarginLeft, 0},
                                                                 {XmNmarginRight, 0},
                                                                 {XmNmarginTop, 0},
                                                                 {XmNmarginBottom, 0},
                                                                 {XmNmarginMiddle, 4}})
        EXPECT_EQ(Get<Dimension>(gadget, name), value) << name;
    for (const auto &[name, value] :
         std::map<const char *, int>{{XmNshadowType, XmSHADOW_ETCHED_IN},
                                     {XmNalignment, XmALIGNMENT_CENTER},
                                     {XmNtraversalOn, False},
                                     {XmNrecomputeSize, True},
                                     {XmNshowArrow, False},
                                     {XmNstringDirection, XmSTRING_DIRECTION_L_TO_R}})
        EXPECT_EQ(Get<unsigned char>(gadget, name), value) << name;
    EXPECT_EQ(Get(gadget, XmNiconPlacement), XmICON_RIGHT);
    for (const char *name : std::vector<const char *>{XmNlabelPixmap, XmNlabelInsensitivePixmap,
                                                      XmNlabelBitmap, XmNlabelInsensitiveBitmap})
        EXPECT_EQ(Get<Pixmap>(gadget, name), XmUNSPECIFIED_PIXMAP) << name;
    EXPECT_EQ(TextOf(gadget), "plain");
    EXPECT_EQ(reinterpret_cast<XmvIconGadget>(gadget)->gadget.event_mask, 2191u);
}

TEST_F(IconGadgetTest, DerivesItsColoursFromItsBackgroundAsTheToolkitDoes) {
    for (const Pixel background : {0xc0c0c0u, 0x203040u, 0xf0e0a0u, 0x203040u}) {
        Widget ours =
            XtVaCreateWidget("ours", xmvIconGadgetClass, board, XmNbackground, background, nullptr);
        Widget theirs = XtVaCreateWidget("theirs", xmPushButtonGadgetClass, board, XmNbackground,
                                         background, nullptr);
        EXPECT_EQ(PartOf(ours).cache->background, background);
        const auto &colors = *reinterpret_cast<XmLabelGadgetRec *>(theirs)->label.cache;
        EXPECT_EQ(PartOf(ours).cache->foreground, colors.foreground);
        EXPECT_EQ(PartOf(ours).cache->top_shadow_color, colors.top_shadow_color);
        EXPECT_EQ(PartOf(ours).cache->bottom_shadow_color, colors.bottom_shadow_color);
    }
}

TEST_F(IconGadgetTest, GivesEveryResourceBack) {
    const Pixmap picture = MakePicture(8, 8);
    const Settings settings = {
        {XmNshadowThickness, 3}, {XmNhighlightThickness, 4}, {XmNmarginWidth, 5},
        {XmNmarginHeight, 6},    {XmNmarginLeft, 7},         {XmNmarginRight, 8},
        {XmNmarginTop, 9},       {XmNmarginBottom, 10},      {XmNmarginMiddle, 11}};
    const Settings bytes = {
        {XmNshadowType, XmSHADOW_DROP}, {XmNalignment, XmALIGNMENT_END},
        {XmNtraversalOn, True},         {XmNrecomputeSize, False},
        {XmNshowArrow, True},           {XmNstringDirection, XmSTRING_DIRECTION_R_TO_L}};
    const Settings pixmaps = {{XmNlabelPixmap, picture},
                              {XmNlabelInsensitivePixmap, picture},
                              {XmNlabelBitmap, picture},
                              {XmNlabelInsensitiveBitmap, picture}};
    for (const bool later : {false, true}) {
        Settings all = settings;
        all.insert(all.end(), bytes.begin(), bytes.end());
        all.insert(all.end(), pixmaps.begin(), pixmaps.end());
        all.insert(all.end(),
                   {{XmNiconPlacement, XmICON_TOP}, {XmNforeground, red}, {XmNbackground, green}});
        Widget gadget = Make(later ? Settings{} : all);
        Set(gadget, later ? all : Settings{});
        for (const auto &[name, value] : settings)
            EXPECT_EQ(Get<Dimension>(gadget, name), value) << name;
        for (const auto &[name, value] : bytes)
            EXPECT_EQ(Get<unsigned char>(gadget, name), value) << name;
        for (const auto &[name, value] : pixmaps)
            EXPECT_EQ(Get<Pixmap>(gadget, name), value) << name;
        EXPECT_EQ(Get(gadget, XmNiconPlacement), XmICON_TOP);
        EXPECT_EQ(Get<Pixel>(gadget, XmNforeground), red);
        EXPECT_EQ(Get<Pixel>(gadget, XmNbackground), green);
        XtDestroyWidget(gadget);
    }
    XFreePixmap(display, picture);
}

TEST_F(IconGadgetTest, ReadsResourcesFromTheDatabase) {
    SetResource("*icon.iconPlacement: XmICON_Bottom");
    SetResource("*icon.labelString: from the database");
    SetResource("*icon.shadowType: shadow_out");
    SetResource("*icon.marginLeft: 17");
    SetResource("*icon.showArrow: true");
    Widget gadget = Make();
    EXPECT_EQ(Get(gadget, XmNiconPlacement), XmICON_BOTTOM);
    EXPECT_EQ(TextOf(gadget), "from the database");
    EXPECT_EQ(Get<unsigned char>(gadget, XmNshadowType), XmSHADOW_OUT);
    EXPECT_EQ(Get<Dimension>(gadget, XmNmarginLeft), 17);
    EXPECT_EQ(PartOf(gadget).arrow_width, 2 * 13 / 3 + 2 * 3);
}

TEST_F(IconGadgetTest, ConvertsUnitsOnce) {
    Widget gadget = Make({{XmNunitType, Xm100TH_FONT_UNITS}});
    XtDestroyWidget(gadget);
    Widget other =
        XtVaCreateWidget("other", xmLabelGadgetClass, board, XmNunitType, Xm1000TH_INCHES,
                         XmNmarginLeft, 500, XmNmarginTop, 300, nullptr);
    gadget = XtVaCreateWidget("icon", xmvIconGadgetClass, board, XmNunitType, Xm1000TH_INCHES,
                              XmNmarginLeft, 500, XmNmarginTop, 300, nullptr);
    const auto pixels = [](Widget w) { return MirrorOf(w).margin_left; }; // both have it there
    EXPECT_GT(pixels(gadget), 0);
    EXPECT_EQ(pixels(gadget), pixels(other));
    EXPECT_EQ(PartOf(gadget).cache->margin_top, MirrorOf(other).margin_top);
    Arg args[] = {{Name(XmNmarginLeft), 250}};
    XtSetValues(gadget, args, 1);
    XtSetValues(other, args, 1);
    EXPECT_EQ(args[0].value, 250);
    EXPECT_EQ(pixels(gadget), pixels(other));
    EXPECT_EQ(PartOf(gadget).cache->margin_left, pixels(other));
    EXPECT_EQ(Get<Dimension>(gadget, XmNmarginLeft), Get<Dimension>(other, XmNmarginLeft));
}

TEST_F(IconGadgetTest, PutsBadValuesRight) {
    Widget gadget = Make({{XmNalignment, 77}, {XmNstringDirection, 2}});
    EXPECT_EQ(warnings().size(), 2u);
    ExpectWarning("");
    ExpectWarning("");
    EXPECT_EQ(Get<unsigned char>(gadget, XmNalignment), XmALIGNMENT_CENTER);
    EXPECT_EQ(Get<unsigned char>(gadget, XmNstringDirection), XmSTRING_DIRECTION_L_TO_R);
    Set(gadget, {{XmNalignment, XmALIGNMENT_END}});
    Set(gadget, {{XmNalignment, 78}, {XmNstringDirection, 2}});
    EXPECT_EQ(warnings().size(), 2u);
    ExpectWarning("");
    ExpectWarning("");
    EXPECT_EQ(Get<unsigned char>(gadget, XmNalignment), XmALIGNMENT_END);
    EXPECT_EQ(Get<unsigned char>(gadget, XmNstringDirection), XmSTRING_DIRECTION_L_TO_R);
}

TEST_F(IconGadgetTest, KeepsACopyOfItsLabelAndFallsBackOnItsName) {
    Widget gadget = nullptr;
    {
        const Label label("first");
        gadget = Make({{XmNlabelString, label}});
    }
    EXPECT_EQ(TextOf(gadget), "first");
    Set(gadget, {{XmNlabelString, Label("second")}});
    EXPECT_EQ(TextOf(gadget), "second");
    EXPECT_EQ(PartOf(gadget).text_width, 6 * 7);
    Set(gadget, {{XmNlabelString, 0}});
    EXPECT_EQ(TextOf(gadget), "icon");
    Set(gadget, {{XmNlabelString, Label("")}});
    EXPECT_EQ(PartOf(gadget).text_width, 0);
    EXPECT_EQ(PartOf(gadget).text_height, 0);
}

TEST_F(IconGadgetTest, ConvertsPlacements) {
    const auto convert = [](const char *text) {
        XrmValue from = {static_cast<unsigned>(std::string(text).size() + 1),
                         const_cast<char *>(text)};
        XrmValue to = {};
        Cardinal none = 0;
        _XmCvtStringToIconPlacement(nullptr, &none, &from, &to);
        EXPECT_EQ(to.size, to.addr ? 4u : 0u);
        return to.addr ? *reinterpret_cast<int *>(to.addr) : -1;
    };
    EXPECT_EQ(convert("icon_left"), XmICON_LEFT);
    EXPECT_EQ(convert("XmICON_RIGHT"), XmICON_RIGHT);
    EXPECT_EQ(convert("xMicon_Top"), XmICON_TOP);
    EXPECT_EQ(convert("XMIcOn_BoTtOm"), XmICON_BOTTOM);
    for (const char *wrong :
         {"", "X", "xm", "XmXmicon_left", "icon_left ", " icon_left", "icon_lef", "left"}) {
        EXPECT_EQ(convert(wrong), -1) << wrong;
        EXPECT_FALSE(warnings().empty());
        while (!warnings().empty()) // the toolkit withholds the words from root
            ExpectWarning("");
    }
}

// ---- The shared part ----------------------------------------------------------------------------

TEST_F(IconGadgetTest, SharesItsPartWithEqualGadgets) {
    Widget one = Make();
    Widget two = Make();
    Widget other = Make({{XmNmarginMiddle, 5}});
    EXPECT_EQ(PartOf(one).cache, PartOf(two).cache);
    EXPECT_NE(PartOf(one).cache, PartOf(other).cache);
    EXPECT_EQ(&MirrorOf(one), &MirrorOf(two));
    Set(other, {{XmNmarginMiddle, 4}});
    EXPECT_EQ(PartOf(one).cache, PartOf(other).cache);
    Set(two, {{XmNmarginLeft, 9}});
    EXPECT_EQ(PartOf(one).cache->margin_left, 0);
    EXPECT_EQ(PartOf(two).cache->margin_left, 9);
    XtDestroyWidget(two);
    EXPECT_EQ(Get<Dimension>(one, XmNmarginLeft), 0);
    // The colours of the shadow are not compared.
    Widget shadowed = Make({{XmNbottomShadowColor, red}});
    EXPECT_EQ(PartOf(one).cache, PartOf(shadowed).cache);
    EXPECT_EQ(Get<Pixel>(one, XmNbottomShadowColor), Get<Pixel>(shadowed, XmNbottomShadowColor));
}

TEST_F(IconGadgetTest, ComparesAllButTheShadowsColours) {
    const XmvIconGCacheObjPart part{};
    XmvIconGCacheObjPart other = part;
    const auto differ = [&](auto XmvIconGCacheObjPart::*field) {
        other = part;
        other.*field = static_cast<std::remove_reference_t<decltype(other.*field)>>(1);
        return _XmvIconCacheCompare(const_cast<XmvIconGCacheObjPart *>(&part), &other) == 0;
    };
    using P = XmvIconGCacheObjPart;
    EXPECT_EQ(_XmvIconCacheCompare(&other, &other), 1);
    EXPECT_TRUE(differ(&P::alignment) && differ(&P::string_direction) &&
                differ(&P::margin_height) && differ(&P::margin_width) && differ(&P::margin_left) &&
                differ(&P::margin_right) && differ(&P::margin_top) && differ(&P::margin_bottom) &&
                differ(&P::margin_middle));
    EXPECT_TRUE(differ(&P::recompute_size) && differ(&P::skip_callback) &&
                differ(&P::icon_placement) && differ(&P::show_arrow) && differ(&P::foreground) &&
                differ(&P::background) && differ(&P::menu_type));
    EXPECT_FALSE(differ(&P::top_shadow_color) || differ(&P::bottom_shadow_color));
}

TEST_F(IconGadgetTest, AssignsMarginsInACopy) {
    Widget one = Make();
    Widget two = Make();
    _XmReCacheIconG(one); // nothing is open
    EXPECT_EQ(_XmAssignIconG_MarginHeight(one, 1), 1);
    EXPECT_EQ(_XmAssignIconG_MarginWidth(one, 2), 2);
    EXPECT_EQ(_XmAssignIconG_MarginLeft(one, 3), 3);
    EXPECT_EQ(_XmAssignIconG_MarginRight(one, 4), 4);
    EXPECT_EQ(_XmAssignIconG_MarginTop(one, 5), 5);
    EXPECT_EQ(_XmAssignIconG_MarginBottom(one, 6), 6);
    EXPECT_EQ(PartOf(one).cache, PartOf(two).cache);
    _XmReCacheIconG(one);
    const auto &part = *PartOf(one).cache;
    EXPECT_EQ((std::vector<int>{part.margin_height, part.margin_width, part.margin_left,
                                part.margin_right, part.margin_top, part.margin_bottom}),
              (std::vector<int>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(PartOf(two).cache->margin_left, 0);
    EXPECT_EQ(MirrorOf(one).margin_right, 4);
    EXPECT_EQ(MirrorOf(two).margin_right, 0);
    EXPECT_EQ(_XmAssignIconG_MarginLeft(board, 3), 3);
    _XmReCacheIconG(board);
    xmvIconGadgetClassRec.icon_class.setOverrideCallback(two);
    EXPECT_TRUE(PartOf(two).cache->skip_callback);
    EXPECT_FALSE(PartOf(one).cache->skip_callback);
}

TEST_F(IconGadgetTest, ASubclassInheritsAllOfIt) {
    static XmvIconGadgetClassRec record{};
    auto &rect = record.rect_class;
    rect.superclass = xmvIconGadgetClass;
    rect.class_name = Name("Subclass");
    rect.widget_size = sizeof(XmvIconGadgetRec);
    rect.resize = XtInheritResize;
    rect.expose = XtInheritExpose;
    rect.set_values_almost = XtInheritSetValuesAlmost;
    rect.version = XtVersion;
    rect.query_geometry = XtInheritQueryGeometry;
    record.gadget_class.border_highlight = XmInheritBorderHighlight;
    record.gadget_class.border_unhighlight = XmInheritBorderUnhighlight;
    record.gadget_class.input_dispatch = XmInheritInputDispatch;
    record.gadget_class.visual_change = XmInheritVisualChange;
    record.gadget_class.cache_part = XmInheritCachePart;
    record.icon_class.setOverrideCallback = XmvInheritSetOverrideCallback;
    Widget one = XtVaCreateManagedWidget("icon", reinterpret_cast<WidgetClass>(&record), board,
                                         XmNbackground, grey, XmNforeground, ink, nullptr);
    EXPECT_TRUE(XmIsLabelGadget(one));
    EXPECT_EQ(one->core.width, 4 * 7 + 10 + 4);
    EXPECT_EQ(PartOf(one).cache, PartOf(Make()).cache);
    Set(one, {{XmNmarginLeft, 5}});
    EXPECT_EQ(one->core.width, 4 * 7 + 10 + 4 + 5);
    record.icon_class.setOverrideCallback(one);
    EXPECT_TRUE(PartOf(one).cache->skip_callback);
    Show();
    EXPECT_GT(Picture::Of(one).Count(ink), 20);
}

// ---- Sizes ----------------------------------------------------------------------------------------

TEST_F(IconGadgetTest, IsWiderThanItSaysWhereItHasNoPicture) {
    Widget gadget = Make();
    EXPECT_EQ(gadget->core.width, 4 * 7 + 2 * 5 + 4);
    EXPECT_EQ(gadget->core.height, 13 + 2 * 5);
    XtWidgetGeometry wanted{};
    EXPECT_EQ(XtQueryGeometry(gadget, nullptr, &wanted), XtGeometryAlmost);
    EXPECT_EQ(wanted.width, 4 * 7 + 2 * 5);
    EXPECT_EQ(wanted.height, 13 + 2 * 5);
    XtWidgetGeometry proposed = wanted;
    proposed.request_mode = CWWidth | CWHeight;
    EXPECT_EQ(XtQueryGeometry(gadget, &proposed, &wanted), XtGeometryYes);
    proposed.request_mode = CWWidth;
    EXPECT_EQ(XtQueryGeometry(gadget, &proposed, &wanted), XtGeometryAlmost);
    proposed.request_mode = CWWidth | CWX;
    EXPECT_EQ(XtQueryGeometry(gadget, &proposed, &wanted), XtGeometryNo);
    Set(gadget, {{XmNrecomputeSize, False}});
    EXPECT_EQ(XtQueryGeometry(gadget, nullptr, &wanted), XtGeometryNo);
    EXPECT_EQ(wanted.width, gadget->core.width);
}

TEST_F(IconGadgetTest, FollowsItsContents) {
    const Pixmap picture = MakePicture(20, 30);
    Widget gadget = Make({{XmNlabelPixmap, picture}, {XmNshowArrow, True}});
    const int arrow = 2 * 13 / 3 + 2 * 3;
    EXPECT_EQ(PartOf(gadget).arrow_width, arrow);
    EXPECT_EQ(gadget->core.width, 4 * 7 + 10 + 20 + 4 + arrow + 4);
    EXPECT_EQ(gadget->core.height, 30);
    Set(gadget, {{XmNlabelString, Label("longer text")}});
    EXPECT_EQ(gadget->core.width, 11 * 7 + 10 + 20 + 4 + arrow + 4);
    Set(gadget, {{XmNlabelPixmap, XmUNSPECIFIED_PIXMAP}, {XmNshowArrow, False}});
    EXPECT_EQ(gadget->core.width, 11 * 7 + 10 + 4);
    EXPECT_EQ(gadget->core.height, 23);
    Set(gadget, {{XmNlabelPixmap, None}});
    EXPECT_EQ(gadget->core.width, 11 * 7 + 10);
    Set(gadget, {{XmNmarginLeft, 6}, {XmNhighlightThickness, 0}});
    EXPECT_EQ(gadget->core.width, 11 * 7 + 8 + 6);
    Set(gadget, {{XmNwidth, 200}, {XmNmarginTop, 3}});
    EXPECT_EQ(gadget->core.width, 200);
    EXPECT_EQ(gadget->core.height, 21 + 3);
    Set(gadget, {{XmNrecomputeSize, False}, {XmNmarginTop, 0}});
    EXPECT_EQ(gadget->core.height, 24);
    XFreePixmap(display, picture);
}

// By the way, a change of alignment alone moves nothing before the next resize.
TEST_F(IconGadgetTest, MovesItsTextWhenItIsResized) {
    Widget gadget = Make({{XmNwidth, 200}});
    const int centered = PartOf(gadget).text_x;
    Set(gadget, {{XmNalignment, XmALIGNMENT_BEGINNING}});
    EXPECT_EQ(PartOf(gadget).text_x, centered);
    XtResizeWidget(gadget, 201, 23, 0);
    EXPECT_EQ(PartOf(gadget).text_x, 5);
    Set(gadget, {{XmNiconPlacement, XmICON_TOP}});
    EXPECT_EQ(gadget->core.height, 23);
}

TEST_F(IconGadgetTest, AsksNothingOfAPixmapThatIsNone) {
    RequestCounter counter(display);
    Widget gadget = Make({{XmNlabelPixmap, None}});
    EXPECT_EQ(PartOf(gadget).pixmap_width, 0);
    const Pixmap gone = MakePicture(9, 9);
    XFreePixmap(display, gone);
    Widget stale = Make({{XmNlabelPixmap, gone}});
    EXPECT_EQ(PartOf(stale).pixmap_width, 0);
    ExpectXError(BadDrawable);
    Show();
}

TEST_F(IconGadgetTest, AnAnswerOfItsParentMovesItsText) {
    Widget area = XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, board, XmNwidth, 60,
                                          XmNheight, 40, XmNresizePolicy, XmRESIZE_NONE, nullptr);
    Widget gadget = Make({}, area);
    Set(gadget, {{XmNlabelString, Label("much longer than the area is wide")}});
    const auto &part = PartOf(gadget);
    const int band = gadget->core.width - 10 - 4;
    EXPECT_EQ(part.text_x, (band - part.text_width) / 2 + 5);
}

// ---- Baselines --------------------------------------------------------------------------------------

TEST_F(IconGadgetTest, TellsWhereItsLinesStand) {
    Widget gadget = Make({{XmNlabelString, Label("one\ntwo\nthree")}, {XmNy, 40}});
    Dimension *baselines = nullptr;
    int count = 0;
    ASSERT_TRUE(XmvIconGadgetGetBaselines(gadget, &baselines, &count));
    ASSERT_EQ(count, 3);
    const int first = 40 + 5 + 11; // 11 is the font's ascent
    EXPECT_EQ((std::vector<int>(baselines, baselines + 3)),
              (std::vector<int>{first, first + 13, first + 26}));
    XtFree(reinterpret_cast<char *>(baselines));

    XRectangle rectangle{};
    ASSERT_TRUE(XmvIconGadgetGetDisplayRect(gadget, &rectangle));
    EXPECT_EQ(rectangle, (XRectangle{15, 45, 35, 39}));
    EXPECT_FALSE(XmvIconGadgetGetDisplayRect(board, &rectangle));
    EXPECT_FALSE(XmvIconGadgetGetBaselines(board, &baselines, &count));

    Set(gadget, {{XmNlabelString, Label("")}});
    if (XmvIconGadgetGetBaselines(gadget, &baselines, &count))
        XtFree(reinterpret_cast<char *>(baselines));
    Set(gadget, {{XmNlabelString, Label("a\n\nb")}});
    ASSERT_TRUE(XmvIconGadgetGetBaselines(gadget, &baselines, &count));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(baselines[0], gadget->core.y + PartOf(gadget).text_y + 11);
    XtFree(reinterpret_cast<char *>(baselines));
}

} // namespace
} // namespace corvidlmw::test
