// The actions of LmList, by the names that the toolkit's list translations and clients use.

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::list {

namespace {

void PassOver(Widget, XEvent *, String *, Cardinal *) {}

} // namespace

// clang-format off
XtActionsRec list_actions[] = {
    {Name("ListButtonMotion"), VerifyMotion},
    {Name("ListBeginSelect"), SelectElement},
    {Name("ListItemSelect"), SelectElement},
    {Name("ListEndSelect"), UnSelectElement},
    {Name("ListItemUnSelect"), UnSelectElement},
    {Name("ListShiftSelect"), ExSelect},
    {Name("ListBeginExtend"), ExSelect},
    {Name("ListShiftCtrlSelect"), ExSelect},
    {Name("ListExtendAddSelect"), ExSelect},
    {Name("ListShiftUnSelect"), ExUnSelect},
    {Name("ListEndExtend"), ExUnSelect},
    {Name("ListShiftCtrlUnSelect"), ExUnSelect},
    {Name("ListExtendAddUnSelect"), ExUnSelect},
    {Name("ListCtrlSelect"), CtrlSelect},
    {Name("ListBeginToggle"), CtrlSelect},
    {Name("ListCtrlUnSelect"), CtrlUnSelect},
    {Name("ListEndToggle"), CtrlUnSelect},
    {Name("ListKbdBeginSelect"), KbdSelectElement},
    {Name("ListKbdEndSelect"), KbdUnSelectElement},
    {Name("ListKbdShiftSelect"), KbdShiftSelect},
    {Name("ListKbdBeginExtend"), KbdShiftSelect},
    {Name("ListKbdShiftUnSelect"), KbdShiftUnSelect},
    {Name("ListKbdEndExtend"), KbdShiftUnSelect},
    {Name("ListKbdCtrlSelect"), KbdCtrlSelect},
    {Name("ListKbdBeginToggle"), KbdCtrlSelect},
    {Name("ListKbdCtrlUnSelect"), KbdCtrlUnSelect},
    {Name("ListKbdEndToggle"), KbdCtrlUnSelect},
    {Name("ListKbdSelectAll"), KbdSelectAll},
    {Name("ListKbdDeSelectAll"), KbdDeSelectAll},
    {Name("ListKbdActivate"), KbdActivate},
    {Name("ListKbdCancel"), KbdCancel},
    {Name("ListAddMode"), KbdToggleAddMode},
    {Name("ListPrevItem"), NormalPrevElement},
    {Name("ListNextItem"), NormalNextElement},
    {Name("ListCtrlPrevItem"), CtrlPrevElement},
    {Name("ListAddPrevItem"), CtrlPrevElement},
    {Name("ListCtrlNextItem"), CtrlNextElement},
    {Name("ListAddNextItem"), CtrlNextElement},
    {Name("ListShiftPrevItem"), ShiftPrevElement},
    {Name("ListExtendPrevItem"), ShiftPrevElement},
    {Name("ListShiftNextItem"), ShiftNextElement},
    {Name("ListExtendNextItem"), ShiftNextElement},
    {Name("List_ShiftCtrlPrevItem"), ExtendAddPrevElement},
    {Name("ListExtendAddPrevItem"), ExtendAddPrevElement},
    {Name("List_ShiftCtrlNextItem"), ExtendAddNextElement},
    {Name("ListExtendAddNextItem"), ExtendAddNextElement},
    {Name("ListPrevPage"), KbdPrevPage},
    {Name("ListNextPage"), KbdNextPage},
    {Name("ListLeftChar"), KbdLeftChar},
    {Name("ListLeftPage"), KbdLeftPage},
    {Name("ListRightChar"), KbdRightChar},
    {Name("ListRightPage"), KbdRightPage},
    {Name("ListBeginLine"), BeginLine},
    {Name("ListEndLine"), EndLine},
    {Name("ListBeginData"), TopItem},
    {Name("ListEndData"), EndItem},
    {Name("ListBeginDataExtend"), ExtendTopItem},
    {Name("ListEndDataExtend"), ExtendEndItem},
    {Name("ListFocusIn"), ListFocusIn},
    {Name("ListFocusOut"), ListFocusOut},
    {Name("ListEnter"), ListEnter},
    {Name("ListLeave"), ListLeave},
    {Name("ListScrollCursorVisible"), ListItemVisible},
    {Name("ListCopyToClipboard"), ListCopyToClipboard},
    {Name("ListProcessDrag"), ListProcessDrag},
    // What the translations of toolkit 2.3 name beyond these.
    {Name("ListProcessBtn1"), ListProcessBtn1},
    {Name("ListProcessBtn2"), ListProcessBtn2},
    {Name("ListScrollUp"), ListScrollUp},
    {Name("ListScrollDown"), ListScrollDown},
    {Name("ListQuickNavigate"), PassOver},
};
// clang-format on

const Cardinal num_list_actions = XtNumber(list_actions);

} // namespace corvidlmw::list
