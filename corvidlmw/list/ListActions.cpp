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
    {Name("ListKbdBeginSelect"), PassOver},
    {Name("ListKbdEndSelect"), PassOver},
    {Name("ListKbdShiftSelect"), PassOver},
    {Name("ListKbdBeginExtend"), PassOver},
    {Name("ListKbdShiftUnSelect"), PassOver},
    {Name("ListKbdEndExtend"), PassOver},
    {Name("ListKbdCtrlSelect"), PassOver},
    {Name("ListKbdBeginToggle"), PassOver},
    {Name("ListKbdCtrlUnSelect"), PassOver},
    {Name("ListKbdEndToggle"), PassOver},
    {Name("ListKbdSelectAll"), PassOver},
    {Name("ListKbdDeSelectAll"), PassOver},
    {Name("ListKbdActivate"), PassOver},
    {Name("ListKbdCancel"), PassOver},
    {Name("ListAddMode"), PassOver},
    {Name("ListPrevItem"), PassOver},
    {Name("ListNextItem"), PassOver},
    {Name("ListCtrlPrevItem"), PassOver},
    {Name("ListAddPrevItem"), PassOver},
    {Name("ListCtrlNextItem"), PassOver},
    {Name("ListAddNextItem"), PassOver},
    {Name("ListShiftPrevItem"), PassOver},
    {Name("ListExtendPrevItem"), PassOver},
    {Name("ListShiftNextItem"), PassOver},
    {Name("ListExtendNextItem"), PassOver},
    {Name("List_ShiftCtrlPrevItem"), PassOver},
    {Name("ListExtendAddPrevItem"), PassOver},
    {Name("List_ShiftCtrlNextItem"), PassOver},
    {Name("ListExtendAddNextItem"), PassOver},
    {Name("ListPrevPage"), PassOver},
    {Name("ListNextPage"), PassOver},
    {Name("ListLeftChar"), PassOver},
    {Name("ListLeftPage"), PassOver},
    {Name("ListRightChar"), PassOver},
    {Name("ListRightPage"), PassOver},
    {Name("ListBeginLine"), PassOver},
    {Name("ListEndLine"), PassOver},
    {Name("ListBeginData"), PassOver},
    {Name("ListEndData"), PassOver},
    {Name("ListBeginDataExtend"), PassOver},
    {Name("ListEndDataExtend"), PassOver},
    {Name("ListFocusIn"), ListFocusIn},
    {Name("ListFocusOut"), ListFocusOut},
    {Name("ListEnter"), ListEnter},
    {Name("ListLeave"), ListLeave},
    {Name("ListScrollCursorVisible"), PassOver},
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
