#include <bench/managers/Subject.h>

#include <Xm/Form.h>
#include <Xm/LabelG.h>
#include <Xm/RowColumn.h>

#include <corvidlmw/managers/Grid.h>

#include <cmath>
#include <string>

namespace corvidlmw::bench {

namespace {

class TableSubject : public Subject {
public:
    void Create(Widget parent, int count) override {
        side_ = static_cast<int>(std::lround(std::sqrt(count)));
        CreateManager(parent);
        for (int i = 0; i < side_ * side_; ++i) {
            children_.push_back(CreateLabel(std::to_string(i), i / side_, i % side_));
        }
    }
    void AskForOtherSize() override { SetOtherLabel(children_[children_.size() / 2]); }

protected:
    virtual void CreateManager(Widget parent) = 0;
    virtual Widget CreateLabel(const std::string &name, int row, int column) = 0;

    int side_ = 0;
};

class GridSubject final : public TableSubject {
    void CreateManager(Widget parent) override {
        manager_ = XtVaCreateWidget("grid", xmGridWidgetClass, parent, XmNnumRows, side_,
                                    XmNnumColumns, side_, nullptr);
    }
    Widget CreateLabel(const std::string &name, int row, int column) override {
        return XtVaCreateWidget(name.c_str(), xmLabelGadgetClass, manager_, XmNrow, row, XmNcolumn,
                                column, nullptr);
    }
};

class FormSubject final : public TableSubject {
    void CreateManager(Widget parent) override {
        manager_ =
            XtVaCreateWidget("form", xmFormWidgetClass, parent, XmNfractionBase, side_, nullptr);
    }
    Widget CreateLabel(const std::string &name, int row, int column) override {
        return XtVaCreateWidget(name.c_str(), xmLabelGadgetClass, manager_, XmNtopAttachment,
                                XmATTACH_POSITION, XmNtopPosition, row, XmNbottomAttachment,
                                XmATTACH_POSITION, XmNbottomPosition, row + 1, XmNleftAttachment,
                                XmATTACH_POSITION, XmNleftPosition, column, XmNrightAttachment,
                                XmATTACH_POSITION, XmNrightPosition, column + 1, nullptr);
    }
};

class RowColumnSubject final : public TableSubject {
    void CreateManager(Widget parent) override {
        manager_ = XtVaCreateWidget("row-column", xmRowColumnWidgetClass, parent, XmNpacking,
                                    XmPACK_COLUMN, XmNorientation, XmHORIZONTAL, XmNnumColumns,
                                    side_, nullptr);
    }
    Widget CreateLabel(const std::string &name, int, int) override {
        return XtVaCreateWidget(name.c_str(), xmLabelGadgetClass, manager_, nullptr);
    }
};

} // namespace

void Subject::SetOtherLabel(Widget label) {
    long_ = !long_;
    XmString text = XmStringCreateLocalized(const_cast<char *>(long_ ? "a longer label" : "short"));
    XtVaSetValues(label, XmNlabelString, text, nullptr);
    XmStringFree(text);
}

std::unique_ptr<Subject> MakeTableSubject(std::string_view name) {
    if (name == "grid") {
        return std::make_unique<GridSubject>();
    }
    if (name == "form-by-position") {
        return std::make_unique<FormSubject>();
    }
    return name == "row-column" ? std::make_unique<RowColumnSubject>() : nullptr;
}

std::unique_ptr<Subject> MakeSubject(std::string_view name) {
    for (auto make : {MakeTableSubject, MakePaneSubject, MakeBoardSubject}) {
        if (auto subject = make(name)) {
            return subject;
        }
    }
    return nullptr;
}

} // namespace corvidlmw::bench
