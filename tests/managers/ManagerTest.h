// What the tests of the managers share: children of a given size, places, and a parent that answers as
// the test says.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/MotifPrivate.h>

#include <tests/support/Harness.h>

#include <Xm/DrawingA.h>
#include <Xm/LabelG.h>

#include <functional>
#include <ostream>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using Widgets = std::vector<Widget>;

struct Box {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Box &) const = default;
};

inline std::ostream &operator<<(std::ostream &out, const Box &box) {
    return out << box.width << 'x' << box.height << '+' << box.x << '+' << box.y;
}

// As the record has it; of a realised widget also as the server does.
inline Box BoxOf(Widget w) {
    const Box record{w->core.x, w->core.y, w->core.width, w->core.height};
    if (XtIsWidget(w) && XtIsRealized(w)) {
        XWindowAttributes server{};
        Unseen unseen;
        XGetWindowAttributes(XtDisplay(w), XtWindow(w), &server);
        EXPECT_EQ(record, (Box{server.x, server.y, server.width, server.height})) << XtName(w);
    }
    return record;
}

inline std::vector<Box> BoxesOf(const Widgets &widgets) {
    std::vector<Box> boxes;
    for (Widget w : widgets)
        boxes.push_back(BoxOf(w));
    return boxes;
}

// ---- A parent that answers as the test says ------------------------------------------------------

struct Judge {
    static inline std::vector<Box> requests;
    // Fills in an offer, and says what is told; without it all is granted.
    static inline std::function<XtGeometryResult(XtWidgetGeometry *offer)> answer;

    static XtGeometryResult Answer(Widget child, XtWidgetGeometry *request,
                                   XtWidgetGeometry *offer) {
        const int width = request->request_mode & CWWidth ? request->width : child->core.width;
        const int height = request->request_mode & CWHeight ? request->height : child->core.height;
        requests.push_back({0, 0, width, height});
        *offer = *request;
        offer->width = static_cast<Dimension>(width);
        offer->height = static_cast<Dimension>(height);
        const XtGeometryResult result = answer ? answer(offer) : XtGeometryYes;
        if (result != XtGeometryYes || request->request_mode & XtCWQueryOnly)
            return result;
        XtResizeWidget(child, static_cast<Dimension>(width), static_cast<Dimension>(height), 0);
        return XtGeometryDone;
    }
};

inline CompositeClassRec judge_class = {
    .core_class = {.superclass = reinterpret_cast<WidgetClass>(&compositeClassRec),
                   .class_name = const_cast<char *>("Judge"),
                   .widget_size = sizeof(CompositeRec),
                   .realize = XtInheritRealize,
                   .set_values_almost = XtInheritSetValuesAlmost,
                   .version = XtVersion},
    .composite_class = {.geometry_manager = Judge::Answer,
                        .change_managed = [](Widget) {},
                        .insert_child = XtInheritInsertChild,
                        .delete_child = XtInheritDeleteChild},
};

// ---- Fixture --------------------------------------------------------------------------------------

class ManagerTest : public DisplayTest {
protected:
    Widget manager = nullptr;
    // The keyboard only gets to children of the toolkit's own managers.
    bool needs_focus = false;

    // A managed one below a parent that grants what is asked, and keeps what it is given.
    template <class... Args>
    void Make(WidgetClass widget_class, Args... args) {
        Judge::requests.clear();
        Judge::answer = nullptr;
        auto *judge = reinterpret_cast<WidgetClass>(&judge_class);
        Widget parent = XtVaCreateManagedWidget(
            "parent", needs_focus ? xmDrawingAreaWidgetClass : judge, shell, XtNwidth, 600,
            XtNheight, 400, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
        manager = XtVaCreateManagedWidget("manager", widget_class, parent, args..., nullptr);
    }

    // A widget without a mind of its own.
    template <class... Args>
    Widget Child(int width, int height, Args... args) {
        return XtVaCreateManagedWidget("child", coreWidgetClass, manager, XtNwidth, width,
                                       XtNheight, height, XtNborderWidth, 0, args..., nullptr);
    }

    void Resize(int width, int height) {
        XtResizeWidget(manager, static_cast<Dimension>(width), static_cast<Dimension>(height), 0);
    }

    // After each resize the manager looks as after a full exposure, and no other shadow stays inside.
    void ExpectShadowToFollow(WidgetClass widget_class) {
        constexpr Pixel shadow = 0x654321;
        Make(widget_class, XmNwidth, 200, XmNheight, 100, XmNshadowThickness, 2, XmNshadowType,
             XmSHADOW_OUT, XmNbottomShadowColor, shadow);
        Show();
        for (auto [width, height] : {std::pair{150, 80}, {220, 60}, {300, 200}}) {
            Resize(width, height);
            Pump();
            const Picture resized = Picture::Of(manager);
            const auto far_edge = resized.Box(shadow);
            ASSERT_TRUE(far_edge);
            EXPECT_EQ(far_edge->x + far_edge->width, width);
            EXPECT_EQ(far_edge->y + far_edge->height, height);
            XClearArea(display, XtWindow(manager), 0, 0, 0, 0, True);
            Pump();
            EXPECT_TRUE(SamePicture(Picture::Of(manager), resized));
        }
    }

    // What the manager answers to a query about `mode`, and what it would rather have.
    XtGeometryResult Query(XtGeometryMask mode, int width, int height, Box &preferred) {
        XtWidgetGeometry intended{};
        intended.request_mode = mode;
        intended.width = static_cast<Dimension>(width);
        intended.height = static_cast<Dimension>(height);
        XtWidgetGeometry reply{};
        const auto result = XtClass(manager)->core_class.query_geometry(manager, &intended, &reply);
        preferred = {0, 0, reply.width, reply.height};
        EXPECT_EQ(reply.request_mode,
                  result == XtGeometryAlmost ? XtGeometryMask{CWWidth | CWHeight} : 0u);
        return result;
    }
};

} // namespace corvidlmw::test
