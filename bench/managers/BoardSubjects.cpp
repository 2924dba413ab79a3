#include <bench/managers/Subject.h>

#include <Xm/Form.h>
#include <Xm/LabelG.h>

#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>

#include <string>

namespace corvidlmw::bench {

namespace {

// A row of labels that share all room evenly, or a stair of them that grows with its manager: as the
// manager itself can say it, and as XmForm says it by positions.
class BoardSubject : public Subject {
public:
    void Create(Widget parent, int count) override {
        count_ = count;
        CreateManager(parent);
        for (int i = 0; i < count; ++i) {
            children_.push_back(CreateLabel(std::to_string(i), i));
        }
    }
    void AskForOtherSize() override { SetOtherLabel(children_[children_.size() / 2]); }

protected:
    virtual void CreateManager(Widget parent) = 0;
    virtual Widget CreateLabel(const std::string &name, int index) = 0;

    int count_ = 0;
};

class SpringBoxSubject final : public BoardSubject {
    void CreateManager(Widget parent) override {
        manager_ =
            XtVaCreateWidget("box", xmSpringBoxWidgetClass, parent, XmNminSpacing, 0, nullptr);
    }
    Widget CreateLabel(const std::string &name, int) override {
        return XtVaCreateWidget(name.c_str(), xmLabelGadgetClass, manager_, XmNleftSpring, 0,
                                XmNrightSpring, 0, XmNhorizontalSpring, 1, XmNtopSpring, 0,
                                XmNbottomSpring, 0, XmNverticalSpring, 1, nullptr);
    }
};

class RubberBoardSubject final : public BoardSubject {
    // At 1000 by 1000 each child has its share; all lines go through the origin, or nearly.
    static constexpr int full = 1000;

    void CreateManager(Widget parent) override {
        manager_ = XtVaCreateWidget("board", xmRubberBoardWidgetClass, parent,
                                    XmNinitialParentWidth, full / 2, XmNinitialParentHeight,
                                    full / 2, XmNfinalParentWidth, full, XmNfinalParentHeight, full,
                                    XmNwidth, full / 2, XmNheight, full / 2, nullptr);
    }
    Widget CreateLabel(const std::string &name, int index) override {
        const int place = full * index / count_;
        const int extent = full / count_;
        return XtVaCreateWidget(name.c_str(), xmLabelGadgetClass, manager_, XmNinitialX, place / 2,
                                XmNinitialY, place / 2, XmNinitialWidth, extent / 2,
                                XmNinitialHeight, extent / 2, XmNfinalX, place, XmNfinalY, place,
                                XmNfinalWidth, extent, XmNfinalHeight, extent, nullptr);
    }
};

class FormSubject final : public BoardSubject {
public:
    explicit FormSubject(bool is_stair) : is_stair_(is_stair) {}

private:
    void CreateManager(Widget parent) override {
        manager_ =
            XtVaCreateWidget("form", xmFormWidgetClass, parent, XmNfractionBase, count_, nullptr);
    }
    Widget CreateLabel(const std::string &name, int index) override {
        return XtVaCreateWidget(name.c_str(), xmLabelGadgetClass, manager_, XmNleftAttachment,
                                XmATTACH_POSITION, XmNleftPosition, index, XmNrightAttachment,
                                XmATTACH_POSITION, XmNrightPosition, index + 1, XmNtopAttachment,
                                XmATTACH_POSITION, XmNtopPosition, is_stair_ ? index : 0,
                                XmNbottomAttachment, XmATTACH_POSITION, XmNbottomPosition,
                                is_stair_ ? index + 1 : count_, nullptr);
    }

    bool is_stair_;
};

} // namespace

std::unique_ptr<Subject> MakeBoardSubject(std::string_view name) {
    if (name == "spring-box") {
        return std::make_unique<SpringBoxSubject>();
    }
    if (name == "rubber-board") {
        return std::make_unique<RubberBoardSubject>();
    }
    if (name == "form-in-a-row") {
        return std::make_unique<FormSubject>(false);
    }
    return name == "form-as-a-stair" ? std::make_unique<FormSubject>(true) : nullptr;
}

} // namespace corvidlmw::bench
