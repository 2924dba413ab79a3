#include "Dialogs.h"

#include <memory>
#include <utility>

#include <Xm/MessageB.h>
#include <Xm/PushBG.h>
#include <Xm/SelectioB.h>
#include <Xm/Text.h>

#include <OneLine.h>

#include "Text.h"

namespace graph_browser {
namespace {

// Every dialog is made for one question, and dies with its answer or when its window is closed.
constexpr Cardinal dialog_argument_count = 3;

constexpr short text_columns = 36;

struct DialogArguments {
    Arg list[dialog_argument_count];
    DialogArguments() {
        XtSetArg(list[0], XmNdialogStyle, XmDIALOG_FULL_APPLICATION_MODAL);
        XtSetArg(list[1], XmNdeleteResponse, XmDESTROY);
        XtSetArg(list[2], XmNautoUnmanage, False);
    }
};

void DestroyDialog(Widget, XtPointer dialog, XtPointer) {
    XtDestroyWidget(static_cast<Widget>(dialog));
}

template <typename Owned>
void DeleteWithDialog(Widget, XtPointer owned, XtPointer) {
    delete static_cast<Owned *>(owned);
}

void SetString(Widget widget, const char *resource, const std::string &value) {
    const Text text{value};
    XtVaSetValues(widget, Name(resource), text.Get(), nullptr);
}

void HideChild(Widget dialog, const char *name) {
    XtUnmanageChild(XtNameToWidget(dialog, name));
}

// ---- Questions -------------------------------------------------------------

struct Question {
    struct Button {
        Question *question;
        std::function<void()> act;
    };
    Widget dialog;
    std::vector<std::unique_ptr<Button>> buttons;
};

// The answer may open the next dialog, or end the program.
void Answered(Widget, XtPointer client_data, XtPointer) {
    auto &button = *static_cast<Question::Button *>(client_data);
    const auto act = std::move(button.act);
    XtDestroyWidget(button.question->dialog);
    if (act)
        act();
}

void AddAnswer(Question &question, Answer answer) {
    const Widget dialog = question.dialog;
    const bool first = question.buttons.empty();
    question.buttons.push_back(
        std::make_unique<Question::Button>(Question::Button{&question, std::move(answer.act)}));
    if (first)
        SetString(dialog, XmNokLabelString, answer.label);
    const Widget button =
        first ? nullptr
              : XtCreateManagedWidget(answer.label, xmPushButtonGadgetClass, dialog, nullptr, 0);
    XtAddCallback(first ? dialog : button, first ? XmNokCallback : XmNactivateCallback, Answered,
                  question.buttons.back().get());
}

// ---- Texts -----------------------------------------------------------------

using TakeText = std::function<void(const std::string &)>;

void TextEntered(Widget dialog, XtPointer client_data, XtPointer) {
    const auto take = std::move(*static_cast<TakeText *>(client_data));
    char *entered = XmTextGetString(XmSelectionBoxGetChild(dialog, XmDIALOG_TEXT));
    const std::string text = example::FromOneLine(entered ? entered : "");
    XtFree(entered);
    XtDestroyWidget(dialog);
    take(text);
}

} // namespace

// ---- Public functions ------------------------------------------------------

void Ask(Widget shell, const std::string &question, std::vector<Answer> answers) {
    if (const Widget open = XtNameToWidget(shell, "*question"))
        XtDestroyWidget(open);
    DialogArguments arguments;
    const Widget dialog =
        XmCreateQuestionDialog(shell, Name("question"), arguments.list, dialog_argument_count);
    auto *asked = new Question{dialog, {}};
    XtAddCallback(dialog, XmNdestroyCallback, DeleteWithDialog<Question>, asked);
    XtAddCallback(dialog, XmNcancelCallback, DestroyDialog, dialog);
    SetString(dialog, XmNmessageString, question);
    for (Answer &answer : answers)
        AddAnswer(*asked, std::move(answer));
    HideChild(dialog, "Help");
    XtManageChild(dialog);
}

void AskText(Widget shell, const std::string &question, const std::string &text, TakeText take) {
    DialogArguments arguments;
    const Widget dialog =
        XmCreatePromptDialog(shell, Name("textPrompt"), arguments.list, dialog_argument_count);
    auto *waiting = new TakeText{std::move(take)};
    XtAddCallback(dialog, XmNdestroyCallback, DeleteWithDialog<TakeText>, waiting);
    XtAddCallback(dialog, XmNokCallback, TextEntered, waiting);
    XtAddCallback(dialog, XmNcancelCallback, DestroyDialog, dialog);
    SetString(dialog, XmNselectionLabelString, question);
    XtVaSetValues(dialog, XmNtextColumns, text_columns, nullptr);
    HideChild(dialog, "Help");
    XtManageChild(dialog);
    const Widget field = XmSelectionBoxGetChild(dialog, XmDIALOG_TEXT);
    // What is typed first replaces the old text.
    XmTextSetString(field, Name(example::OneLine(text).c_str()));
    XmTextSetSelection(field, 0, XmTextGetLastPosition(field),
                       XtLastTimestampProcessed(XtDisplay(field)));
}

void ShowError(Widget shell, const std::string &message) {
    Widget dialog = XtNameToWidget(shell, "*errorDialog");
    if (!dialog) {
        dialog = XmCreateErrorDialog(shell, Name("errorDialog"), nullptr, 0);
        HideChild(dialog, "Cancel");
        HideChild(dialog, "Help");
    }
    SetString(dialog, XmNmessageString, message);
    XtManageChild(dialog);
}

} // namespace graph_browser
