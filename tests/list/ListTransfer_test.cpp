// What the list gives to other programs: the clipboard, and drags by real pointer motion.

#include <tests/list/ListTest.h>

#include <Xm/AtomMgr.h>
#include <Xm/CutPaste.h>
#include <Xm/DisplayP.h>
#include <Xm/DragDrop.h>
#include <Xm/Text.h>

#include <map>

using namespace corvidlmw::test;

namespace {

class ListTransferTest : public ListTest {
protected:
    static constexpr int row_pitch = 17;
    static XPoint InRow(int row) { return {30, static_cast<short>(12 + row * row_pitch)}; }

    void TearDown() override {
        SetBtn1Transfer(XmOFF);
        ListTest::TearDown();
    }

    void SetBtn1Transfer(int value) {
        auto *toolkit = reinterpret_cast<XmDisplay>(XmGetXmDisplay(display));
        toolkit->display.enable_btn1_transfer = static_cast<XtEnum>(value);
    }

    void Call(Widget w, const char *action) {
        XEvent event{};
        event.xkey = {.type = KeyPress, .display = display, .window = XtWindow(w), .time = 0};
        event.xkey.time = XtLastTimestampProcessed(display);
        XtCallActionProc(w, action, &event, nullptr, 0);
    }

    // As another client of the same server.
    std::string ReadClipboard() {
        static Client other;
        static const Window reader = XCreateSimpleWindow(
            other.display, DefaultRootWindow(other.display), 0, 0, 1, 1, 0, 0, 0);
        std::string text(1024, '\0');
        unsigned long size = 0;
        long id = 0;
        int status = XmClipboardLocked;
        for (int i = 0; i < 5 && status == XmClipboardLocked; i++) {
            status = XmClipboardRetrieve(other.display, reader, Name("COMPOUND_TEXT"), text.data(),
                                         text.size(), &size, &id);
            Pump();
        }
        EXPECT_EQ(status, XmClipboardSuccess);
        text.resize(size);
        return text;
    }

    Widget MakeText() {
        Widget text =
            XtVaCreateManagedWidget("text", xmTextWidgetClass, board, XmNx, 300, XmNeditMode,
                                    XmMULTI_LINE_EDIT, XmNrows, 10, XmNcolumns, 30, nullptr);
        return text;
    }

    Widget MakeSite(XtCallbackProc on_drop) {
        Widget site = XtVaCreateManagedWidget("site", xmBulletinBoardWidgetClass, board, XmNx, 300,
                                              XmNwidth, 100, XmNheight, 100, nullptr);
        Atom wanted = XInternAtom(display, "COMPOUND_TEXT", False);
        Arg args[] = {{Name(XmNimportTargets), reinterpret_cast<XtArgVal>(&wanted)},
                      {Name(XmNnumImportTargets), 1},
                      {Name(XmNdropProc), reinterpret_cast<XtArgVal>(on_drop)}};
        XmDropSiteRegister(site, args, 3);
        return site;
    }

    std::string In(Widget text) {
        char *value = XmTextGetString(text);
        std::string copy = value;
        XtFree(value);
        return copy;
    }

    std::string DropOn(Widget text, Widget list, int row, unsigned button = Button2) {
        XmTextSetString(text, Name(""));
        DragAndDrop(list, InRow(row), text, {40, 40}, button, [&] { return In(text) != ""; });
        return In(text);
    }
};

const Settings many_selected = {
    {XmNselectionPolicy, XmMULTIPLE_SELECT}, {XmNdoubleClickInterval, 0}, {XmNvisibleItemCount, 6}};
const Texts fruits = {"apple", "pear", "pl\xc3\xbcm", "apple"};

} // namespace

TEST_F(ListTransferTest, CopiesWhatIsSelectedToTheClipboardAsLines) {
    Widget list = Make(fruits, many_selected);
    Strings chosen({"pl\xc3\xbcm", "apple"});
    Set(list, chosen.Selected());
    Show();
    Call(list, "ListCopyToClipboard");
    const std::string copied = ReadClipboard();
    EXPECT_EQ(copied, std::string("pl\xfcm\napple\n\0", 12));

    Set(list, {{XmNselectedItemCount, 0}});
    Call(list, "ListCopyToClipboard");
    EXPECT_EQ(ReadClipboard(), copied) << "nothing was selected";
}

TEST_F(ListTransferTest, DropsTheRowUnderThePointerOrAllSelectedOnes) {
    Widget list = Make(fruits, many_selected);
    Widget text = MakeText();
    Show();
    EXPECT_EQ(DropOn(text, list, 1), "pear\n");
    EXPECT_TRUE(SelectedRows(list).empty());

    Strings chosen({"apple"});
    Set(list, chosen.Selected());
    EXPECT_EQ(DropOn(text, list, 3), "apple\napple\n");
    EXPECT_EQ(SelectedRows(list), (std::vector{0, 3}));
}

TEST_F(ListTransferTest, DragsWithTheFirstButtonWhatIsSelectedWhereTheDisplaySaysSo) {
    SetBtn1Transfer(XmBUTTON2_ADJUST);
    Widget list = Make(fruits, many_selected);
    Strings chosen({"apple"});
    Set(list, chosen.Selected());
    Widget text = MakeText();
    Show();
    EXPECT_EQ(DropOn(text, list, 0, Button1), "apple\napple\n");

    // A short press selects, as soon as it is clear that it is one.
    Click(list, InRow(0).x, InRow(0).y);
    EXPECT_EQ(SelectedRows(list), (std::vector{3}));
    Click(list, InRow(1).x, InRow(1).y);
    EXPECT_EQ(SelectedRows(list), (std::vector{1, 3}));
    MoveTo(list, InRow(1).x, InRow(1).y);
    Press();
    EXPECT_EQ(SelectedRows(list), (std::vector{1, 3}));
    XtDestroyWidget(list);
}

namespace {

// What a drop site was given, by target.
std::map<Atom, std::vector<Atom>> transferred;

void Take(Widget, XtPointer target, Atom *, Atom *, XtPointer value, unsigned long *length, int *) {
    const auto *atoms = static_cast<Atom *>(value);
    transferred[reinterpret_cast<Atom>(target)] =
        atoms ? std::vector<Atom>(atoms, atoms + *length) : std::vector<Atom>();
    XtFree(static_cast<char *>(value));
}

void AskForTargetsAndTimestamp(Widget w, XtPointer, XtPointer call_data) {
    Atom names[] = {XInternAtom(XtDisplay(w), "TARGETS", False),
                    XInternAtom(XtDisplay(w), "TIMESTAMP", False)};
    XmDropTransferEntryRec entries[] = {{reinterpret_cast<XtPointer>(names[0]), names[0]},
                                        {reinterpret_cast<XtPointer>(names[1]), names[1]}};
    Arg args[] = {{Name(XmNdropTransfers), reinterpret_cast<XtArgVal>(entries)},
                  {Name(XmNnumDropTransfers), 2},
                  {Name(XmNtransferProc), reinterpret_cast<XtArgVal>(Take)}};
    XmDropTransferStart(static_cast<XmDropProcCallback>(call_data)->dragContext, args, 3);
}

} // namespace

TEST_F(ListTransferTest, OffersADropSiteThreeTargetsAndRefusesTheTimestamp) {
    Widget list = Make(fruits, many_selected);
    Widget site = MakeSite(AskForTargetsAndTimestamp);
    const auto atom = [this](const char *name) { return XInternAtom(display, name, False); };
    Show();
    transferred.clear();
    DragAndDrop(list, InRow(1), site, {40, 40}, Button2, [] { return transferred.size() == 2; });
    EXPECT_EQ(transferred[atom("TARGETS")],
              (std::vector{atom("TARGETS"), atom("TIMESTAMP"), atom("COMPOUND_TEXT")}));
    EXPECT_TRUE(transferred[atom("TIMESTAMP")].empty());
}

// A move, as some clients do it. Another widget has the keyboard: the toolkit gives it back after a drag
// without a look whether who had it is still there.
TEST_F(ListTransferTest, CanDieInTheDropOfItsRows) {
    static Widget list;
    list = Make(fruits, many_selected);
    Widget text = MakeText();
    Widget site = MakeSite([](Widget, XtPointer, XtPointer) {
        XtDestroyWidget(list);
        list = nullptr;
    });
    XtVaSetValues(site, XmNy, 250, nullptr);
    Show();
    XmProcessTraversal(text, XmTRAVERSE_CURRENT);
    DragAndDrop(list, InRow(1), site, {40, 40}, Button2, [] { return !list; });
}
