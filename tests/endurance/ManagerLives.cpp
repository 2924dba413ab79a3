#include <tests/endurance/Lives.h>

#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>

#include <Xm/ArrowB.h>
#include <Xm/SeparatoG.h>
#include <Xm/Form.h>
#include <Xm/PanedW.h>
#include <Xm/SashP.h>

namespace corvidlmw::test {

namespace {

using Creator = Widget (*)(Widget parent, char *name, ArgList args, Cardinal count);

struct Children {
    Widget button;
    Widget gadget;
};

Widget Create(Widget parent, Creator create) {
    Arg args[] = {{Name(XmNx), 10},
                  {Name(XmNy), 10},
                  {Name(XmNwidth), 300},
                  {Name(XmNheight), 200},
                  {Name(XmNresizePolicy), XmRESIZE_NONE}};
    return create(parent, Name("subject"), args, XtNumber(args));
}

// Gadgets without input, since the toolkit lets a timer of its buttons outlive them, and without text, for which the toolkit makes a drawable in each window that it never frees.
// In a grid they stand in two rows; other managers read nothing of that.
Children AddChildren(Widget manager) {
    if (XmIsGrid(manager))
        Set(manager, {{XmNnumRows, 3}, {XmNnumColumns, 2}});
    return {
        .button = XtVaCreateManagedWidget("one", xmArrowButtonWidgetClass, manager, XmNrow, 0,
                                          XmNcolumn, 0, XmNx, 20, XmNy, 20, nullptr),
        .gadget = XtVaCreateManagedWidget("two", xmSeparatorGadgetClass, manager, XmNrow, 1,
                                          XmNcolumn, 0, XmNx, 20, XmNy, 90, nullptr),
    };
}

void ChangeChildren(Stage &stage, Widget manager, Children children) {
    stage.Click(children.button, 5, 5);
    Set(children.button, {{XmNwidth, 90}, {XmNheight, 40}});
    XtUnmanageChild(children.gadget);
    XtManageChild(children.gadget);
    Widget third = XtVaCreateManagedWidget("three", xmArrowButtonWidgetClass, manager, XmNrow, 2,
                                           XmNcolumn, 1, nullptr);
    stage.Pump();
    XtDestroyWidget(children.gadget);
    XtDestroyWidget(third);
}

void Resize(Stage &stage, Widget manager) {
    Set(manager, {{XmNwidth, 400}, {XmNheight, 300}});
    stage.Pump();
    Set(manager, {{XmNwidth, 100}, {XmNheight, 60}});
    stage.Pump();
}

// What is different in each class.
using Special = void (*)(Stage &, Widget manager, Children);

void LiveManager(Stage &stage, Creator create, Special use) {
    Widget manager = Create(stage.board, create);
    const Children children = AddChildren(manager);
    XtManageChild(manager);
    stage.Pump();
    UseCommonResources(manager);
    use(stage, manager, children);
    ChangeChildren(stage, manager, children);
    UseKeyboard(stage, children.button);
    Resize(stage, manager);
    End(stage, manager);
}

void LiveDialog(Stage &stage, Creator create) {
    Widget dialog = create(stage.board, Name("dialog"), nullptr, 0);
    AddChildren(dialog);
    XtManageChild(dialog);
    stage.Pump();
    XtUnmanageChild(dialog);
    stage.Pump();
    End(stage, XtParent(dialog));
}

void LiveInBothWays(Stage &stage, Creator create, Creator create_dialog, Special use) {
    LiveManager(stage, create, use);
    LiveDialog(stage, create_dialog);
}

void UseAttachments(Stage &stage, Widget, Children children) {
    SetByText(children.button, {{XmNleftAttachment, "attach_form"}, {XmNrightOffset, "3"}});
    SetByText(children.gadget, {{XmNtopAttachment, "attach_position"}, {XmNtopPosition, "40"}});
    stage.Pump();
}

void UseCells(Stage &stage, Widget grid, Children children) {
    SetByText(grid, {{XmNshowGrid, "True"}, {XmNdefaultSpacing, "5"}, {XmNnumColumns, "4"}});
    SetByText(children.button, {{XmNgravity, "north"}, {XmNcolumn, "2"}});
    for (int i = 0; i < 2; i++) {
        XmGridSetRowMargin(grid, i, 4);
        XmGridSetColumnMargin(grid, i, 4);
        XmGridSetRowResizability(grid, i, i);
        XmGridSetColumnResizability(grid, i, i);
    }
    XmGridHighlightCell(grid, 1, 1);
    stage.Pump();
}

Widget SashOf(Widget paned) {
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(paned, XmNchildren, &children, XmNnumChildren, &count, nullptr);
    for (Cardinal i = 0; i < count; i++)
        if (XmIsSash(children[i]) && XtIsManaged(children[i]))
            return children[i];
    return nullptr;
}

void UseSash(Stage &stage, Widget paned, Children children) {
    SetByText(paned, {{XmNspacing, "12"}, {XmNseparatorOn, "False"}, {XmNseparatorOn, "True"}});
    SetByText(children.button, {{XmNpaneMinimum, "20"}, {XmNpaneMaximum, "500"}});
    stage.Pump();
    stage.Drag(SashOf(paned), {3, 3}, {33, 3});
    UseKeyboard(stage, SashOf(paned));
}

void UseTwoLayouts(Stage &stage, Widget board, Children children) {
    SetByText(board, {{XmNsetInitial, "True"}});
    Set(board, {{XmNwidth, 350}, {XmNheight, 250}});
    Set(children.button, {{XmNx, 60}, {XmNfinalWidth, 120}});
    SetByText(board, {{XmNsetFinal, "True"}});
    stage.Pump();
}

void UseNothingElse(Stage &stage, Widget board, Children children) {
    Set(board, {{XmNwidth, 350}, {XmNheight, 250}});
    Set(children.button, {{XmNx, 60}, {XmNwidth, 120}});
    stage.Pump();
}

void UseSprings(Stage &stage, Widget box, Children children) {
    SetByText(box, {{XmNminSpacing, "3"}, {XmNorientation, "vertical"}});
    SetByText(children.button, {{XmNleftSpring, "20"}, {XmNverticalSpring, "70"}});
    stage.Pump();
}

Widget HorizontalPanes(Widget parent, char *name, ArgList args, Cardinal count) {
    Widget panes = XmCreatePanedWindow(parent, name, args, count);
    Set(panes, {{XmNorientation, XmHORIZONTAL}});
    return panes;
}

} // namespace

void LiveGrid(Stage &stage, Whose whose) {
    whose == Whose::ours ? LiveInBothWays(stage, XmCreateGrid, XmCreateGridDialog, UseCells)
                         : LiveInBothWays(stage, XmCreateForm, XmCreateFormDialog, UseAttachments);
}

void LiveHorzPanedWindow(Stage &stage, Whose whose) {
    LiveManager(stage, whose == Whose::ours ? XmCreateHorzPanedWindow : HorizontalPanes, UseSash);
}

void LiveRubberBoard(Stage &stage, Whose whose) {
    whose == Whose::ours
        ? LiveInBothWays(stage, XmCreateRubberBoard, XmCreateRubberBoardDialog, UseTwoLayouts)
        : LiveInBothWays(stage, XmCreateBulletinBoard, XmCreateBulletinBoardDialog, UseNothingElse);
}

void LiveSpringBox(Stage &stage, Whose whose) {
    whose == Whose::ours
        ? LiveInBothWays(stage, XmCreateSpringBox, XmCreateSpringBoxDialog, UseSprings)
        : LiveInBothWays(stage, XmCreateForm, XmCreateFormDialog, UseAttachments);
}

} // namespace corvidlmw::test
