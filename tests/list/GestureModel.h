// The model of a list under a user's hands: what the pointer and keys do to it, told step by step.
#pragma once

#include <tests/list/ItemModel.h>
#include <tests/list/RangeFates.h>

namespace corvidlmw::test {

struct GestureModel : Model {
    enum Modifier { plain = 0, shift = 1, control = 2 };
    int modifiers = plain;
    bool down = false, by_key = false, appends = false;
    bool adds = policy == XmSINGLE_SELECT || policy == XmMULTIPLE_SELECT; // add mode
    int outside = 0;                                                      // -1 above, 1 below

    explicit GestureModel(Model model) : Model(std::move(model)) {}

    // ---- Rows -----------------------------------------------------------------------------------

    bool IsInView(int row) const { return IsRow(row) && row >= top && row < top + visible; }
    // Under the pointer in the middle of the so manieth row of the window.
    int RowUnder(int line) const {
        if (line < 0)
            return top ? -1 : 0;
        if (line >= visible)
            return top + visible >= size() ? size() - 1 : size() + 1;
        return std::min(top + line, size());
    }
    int CursorRow() const { return std::min(cursor, size() - 1); }
    void PlaceCursor(int row) { cursor = IsRow(row) ? row : cursor; }
    void Restore(int one, int other) {
        for (int row = 0; row < size(); row++)
            if (IsBetween(row, one, other))
                Put(row, remembered[static_cast<size_t>(row)]);
    }
    template <typename FateAt>
    void Arrange(FateAt fate_at, int from, int row) {
        start = std::clamp(start, 0, size() - 1);
        const bool value = Has(start);
        for (int r = 0; r < size(); r++) {
            const char fate = fate_at(start, from, row, value, r);
            if (fate == 's' || fate == 'c')
                Put(r, fate == 's' && value);
            else if (fate == 'r' && r != start)
                Put(r, remembered[static_cast<size_t>(r)]);
        }
    }
    void Drag(int row) {
        Arrange(FateAtDrag, end, row);
        last = end = row;
    }
    void Rest() {
        modifiers = plain;
        down = appends = false;
    }

    // ---- The pointer ----------------------------------------------------------------------------

    void SelectPressed(int row) {
        const bool was = Has(row);
        if (!IsMultiple() && !(IsExtended() && appends))
            selected.assign(items.size(), false);
        if (!IsExtended())
            Put(row, !adds || !was);
        else if (modifiers & shift)
            return;
        else if (!(modifiers & control) && adds)
            PutBoth(row, Has(row)), Put(row, !Has(row));
        else
            Put(row, !(modifiers & control) || !Has(row));
    }
    void PressAt(int row) {
        if (!IsInView(row))
            return Rest();
        down = true;
        was_told = false;
        outside = 0;
        SelectPressed(row);
        last = row;
        old_end = end;
        end = row;
        if (IsExtended() && (modifiers & shift))
            Arrange(FateAtPress, old_end, row);
        else
            old_start = start, start = row;
        if (automatic && SelectsRanges())
            TellSelection();
    }
    void RememberAnchors() {
        old_start = start;
        old_end = end;
        for (int row = 0; row < size() && (start || end); row++)
            if (IsBetween(row, start, end))
                remembered[static_cast<size_t>(row)] = Has(row);
    }
    void Press(int line, Modifier with) {
        if (with && !IsExtended())
            return;
        if (with == control)
            RememberAnchors();
        modifiers |= with;
        appends = appends || with;
        PressAt(RowUnder(line));
    }
    // The gesture comes to another row.
    void Arrive(int row) {
        if (last == row || !SelectsRanges())
            return;
        if (automatic && !was_told)
            TellSelection();
        was_told = was_told || automatic;
        if (IsExtended())
            return Drag(row);
        for (int r = 0; r < size(); r++)
            if (r == last || Has(r)) {
                Put(r, false);
                remembered[static_cast<size_t>(r)] =
                    r == cursor && remembered[static_cast<size_t>(r)];
            }
        Put(row, true);
        last = start = end = row;
        if (automatic) {
            TellSelection();
            cursor = row;
        }
    }
    void Move(int line) {
        if (!down || !SelectsRanges())
            return;
        const int direction = line < 0 ? -1 : line >= visible ? 1 : 0;
        const bool crosses = direction * outside < 0;
        outside = direction;
        const int row = RowUnder(line);
        if (crosses || !IsInView(row) || row == last)
            return;
        was_told = false;
        Arrive(row);
    }
    void ReleaseAt(int row) {
        if (!down || items.empty())
            return Rest();
        row = std::min(std::clamp(row, top, std::max(top + visible - 1, top)), size() - 1);
        if (!by_key) {
            old_start = start;
            old_end = end;
        }
        PlaceCursor(SelectsRanges() ? row : last);
        const bool is_known = automatic && (was_told || (SelectsRanges() && !modifiers));
        Rest();
        if (!is_known)
            TellSelection();
        if (automatic)
            Rebuild();
    }
    void Release(int line) { ReleaseAt(RowUnder(line)); }
    void Cancel() {
        if (!down || !SelectsRanges())
            return;
        Restore(start, end);
        Restore(old_start, old_end);
        start = old_start;
        end = old_end;
        const auto first = std::find(selected.begin(), selected.end(), true);
        if (!IsExtended() && first != selected.end())
            last = static_cast<int>(first - selected.begin());
        Rest();
        if (automatic)
            TellSelection();
    }

    // ---- Keys -----------------------------------------------------------------------------------

    void Follow(int row) {
        if (!SelectsRanges())
            return;
        if (automatic && !IsExtended())
            return Arrive(row);
        if (last == row || (adds && !modifiers))
            return;
        if (adds) {
            Drag(row);
        } else if (modifiers) {
            start = std::clamp(selected_items.empty() ? row : start, 0, size() - 1);
            const bool value = Has(start);
            for (int r = 0; r < size(); r++)
                Put(r, IsBetween(r, start, row) && value);
            end = last = row;
        } else {
            start = end = last = row;
            DropAllBut(row);
            PutBoth(row, true);
        }
        TellSelection();
    }
    void Step(int rows, Modifier with) {
        if (with && !IsExtended())
            return;
        modifiers = with;
        appends = false;
        if (const int row = cursor + rows; IsRow(row)) {
            MoveCursor(row);
            Follow(row);
        }
        modifiers = plain;
    }
    void TurnPage(bool forward) {
        const int page = visible - 1, last_top = size() - visible;
        if (items.empty() || (forward ? top >= last_top : top == 0))
            return;
        top = forward ? std::min(top + page, last_top) : std::max(top - page, 0);
        cursor = std::clamp(cursor + (forward ? page : -page), 0, size() - 1);
        Follow(cursor);
    }
    void GoToEnd(bool last_one, Modifier with) {
        if (items.empty() || (with && !IsMultiple() && !IsExtended()))
            return;
        const int row = last_one ? size() - 1 : 0;
        cursor = row;
        top = last_one ? std::max(size() - visible, 0) : 0;
        modifiers = with;
        if (with && IsExtended())
            Follow(row);
        else if (!with && !adds)
            Select(row, true);
        modifiers = plain;
        if (!last_one && !with)
            start = row;
    }
    void Space(Modifier with) {
        if (with && !IsExtended())
            return;
        if (with) {
            old_start = start;
            old_end = end;
        }
        modifiers = with | (IsExtended() && adds ? control : plain);
        appends = modifiers != plain;
        by_key = true;
        PressAt(cursor);
        if (down)
            ReleaseAt(cursor);
        by_key = false;
        Rest();
    }
    void SelectCursorRow() {
        if (!IsMultiple() && !IsExtended())
            DropAllBut(CursorRow());
        last = CursorRow();
        PutBoth(last, true);
    }
    void Activate() {
        if (CursorRow() < 0)
            return;
        SelectCursorRow();
        Tell("default", true, true);
    }
    void SelectAll() {
        if (items.empty())
            return;
        if (!IsMultiple() && !IsExtended()) {
            if (CursorRow() < 0)
                return;
            SelectCursorRow();
        } else {
            for (int row = 0; row < size(); row++)
                if (!Has(row))
                    PutBoth(row, true);
        }
        TellSelection();
    }
    void DeselectAllByKey() {
        if (items.empty() || policy == XmBROWSE_SELECT)
            return;
        DropAllBut(IsExtended() && !adds ? CursorRow() : -1);
        TellSelection();
    }
    void ToggleAddMode() {
        if (!IsExtended())
            return;
        adds = !adds;
        const auto count = std::count(selected.begin(), selected.end(), true);
        if (IsRow(cursor) && (adds ? count == 1 && Has(cursor) : count == 0)) {
            PutBoth(cursor, !adds);
            TellSelection();
        }
    }
};

} // namespace corvidlmw::test
