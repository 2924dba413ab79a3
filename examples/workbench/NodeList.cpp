#include "NodeList.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include <Xm/Label.h>

#include <corvidlmw/list/LmList.h>

#include <Colors.h>
#include <Looks.h>
#include <Text.h>
#include <TroughMarks.h>

namespace workbench {

namespace {

using graph_browser::Name;

constexpr int name_width = 250;
constexpr int kind_width = 70;
constexpr int number_width = 36;
constexpr int gap = 8;
constexpr std::size_t longest_name = 60; // characters
constexpr std::size_t rows_at_once = 50;
constexpr std::size_t many_changes = 100; // above which all rows are made anew
constexpr PictureFormat format{19, 4};    // a cell's shadow leaves room for the text then

XmTab MakeTab(int pixels) {
    return XmTabCreate(static_cast<float>(pixels), XmPIXELS, XmABSOLUTE, XmALIGNMENT_BEGINNING,
                       Name("."));
}

XmRenderTable MakeTable(Widget w) {
    XmTab tabs[] = {MakeTab(name_width), MakeTab(name_width + kind_width),
                    MakeTab(name_width + kind_width + number_width)};
    XmTabList list = XmTabListInsertTabs(nullptr, tabs, XtNumber(tabs), 0);
    std::for_each(std::begin(tabs), std::end(tabs), XmTabFree);
    Arg args[] = {{Name(XmNfontType), XmFONT_IS_XFT},
                  {Name(XmNfontName), reinterpret_cast<XtArgVal>("DejaVu Sans")},
                  {Name(XmNfontSize), 9},
                  {Name(XmNtabList), reinterpret_cast<XtArgVal>(list)}};
    XmRendition rendition =
        XmRenditionCreate(w, Name(XmFONTLIST_DEFAULT_TAG), args, XtNumber(args));
    XmTabListFree(list);
    XmRenderTable table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_NEW);
    XmRenditionFree(rendition);
    return table;
}

// Made once for the program: the toolkit does not give all of a table back.
XmRenderTable Table(Widget w) {
    static const XmRenderTable table = MakeTable(w);
    return table;
}

int WidthOf(XmRenderTable table, const std::string &text) {
    XmString string = XmStringCreateLocalized(Name(text.c_str()));
    const int width = XmStringWidth(table, string);
    XmStringFree(string);
    return width;
}

// From the last `count` characters on, or all of it.
std::string EndOf(const std::string &text, std::size_t count) {
    const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; };
    auto at = text.end();
    while (at != text.begin() && count > 0) {
        count -= begins(*--at) ? 1 : 0;
    }
    return {at, text.end()};
}

// In one field; of a long name its end, which tells more than where it lies.
std::string FieldText(XmRenderTable table, std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
    std::string fitted = EndOf(text, longest_name);
    for (std::size_t count = longest_name;
         count > 0 && (fitted.size() < text.size() || WidthOf(table, fitted) > name_width - gap);
         count--) {
        fitted = "\xe2\x80\xa6" + EndOf(text, count);
        if (WidthOf(table, fitted) <= name_width - gap) {
            break;
        }
    }
    return fitted;
}

Widget CreateList(Widget parent) {
    Arg args[] = {{Name(XmNshowIcons), True},
                  {Name(XmNdefaultIconWidth), 24},
                  {Name(XmNvisibleItemCount), 20},
                  {Name(XmNlistSizePolicy), XmCONSTANT},
                  {Name(XmNwidth), name_width + kind_width + 2 * number_width + 40},
                  {Name(XmNselectionPolicy), XmEXTENDED_SELECT}};
    return LmCreateScrolledList(parent, Name("nodes"), args, XtNumber(args));
}

class Rows {
public:
    void Add(const std::string &text) {
        strings_.push_back(XmStringCreateLocalized(Name(text.c_str())));
    }
    Rows() = default;
    ~Rows() { std::for_each(strings_.begin(), strings_.end(), XmStringFree); }
    Rows(const Rows &) = delete;
    Rows &operator=(const Rows &) = delete;

    XmString *Get() { return strings_.data(); }
    int Count() const { return static_cast<int>(strings_.size()); }

private:
    std::vector<XmString> strings_;
};

// While one is in scope, the list draws nothing.
class NoUpdate {
public:
    explicit NoUpdate(Widget list) : list_(list) {
        XtVaSetValues(list_, XmNupdate, False, nullptr);
    }
    ~NoUpdate() { XtVaSetValues(list_, XmNupdate, True, nullptr); }
    NoUpdate(const NoUpdate &) = delete;
    NoUpdate &operator=(const NoUpdate &) = delete;

private:
    Widget list_;
};

} // namespace

// ---- Life -------------------------------------------------------------------------------------------

NodeList::NodeList(Widget parent, const Document &document)
    : document_(document),
      header_(XtVaCreateManagedWidget("header", xmLabelWidgetClass, parent, XmNalignment,
                                      XmALIGNMENT_BEGINNING, XmNrecomputeSize, False, nullptr)),
      list_(CreateList(parent)), pictures_(list_, format), table_(Table(list_)) {
    XtVaSetValues(list_, XmNfontList, table_, nullptr);
    XmString columns = XmStringCreateLocalized(Name("Name\tKind\tIn\tOut"));
    XtVaSetValues(header_, XmNrenderTable, table_, XmNlabelString, columns, nullptr);
    XmStringFree(columns);
    XtAddCallback(list_, XmNextendedSelectionCallback, RowsSelected, this);
    const Widget bar = graph_browser::GetResource<Widget>(list_, XmNverticalScrollBar);
    XtAddCallback(bar, XmNtroughPixmapCallback, DrawMarks, this);
    background_ = graph_browser::GetResource<Pixel>(list_, XmNbackground);
    mark_ = graph_browser::Colors(list_).Find("#d4500c").value_or(0);
    XtManageChild(list_);
}

// ---- Rows -------------------------------------------------------------------------------------------

void NodeList::Show(Worker &worker) {
    worker.Add("list", [this] {
        LmListDeleteAllItems(list_);
        hits_.clear();
        rows_ = graph_browser::NodesOf(document_.graph);
        texts_.assign(rows_.size(), {});
        degrees_ = DegreesOf(document_.graph);
        Number();
        return false;
    });
    const auto from = std::make_shared<std::size_t>(0);
    worker.Add("list", [this, from] {
        const std::size_t to = std::min(*from + rows_at_once, rows_.size());
        AddRows(std::exchange(*from, to), to);
        return to < rows_.size();
    });
}

void NodeList::AddRows(std::size_t from, std::size_t to) {
    Rows rows;
    for (std::size_t i = from; i < to; i++) {
        texts_[i] = RowText(rows_[i]);
        rows.Add(texts_[i]);
    }
    const NoUpdate quiet(list_);
    LmListAddItemsUnselected(list_, rows.Get(), rows.Count(), 0);
    if (from == 0) {
        int widths[] = {name_width, kind_width, number_width, number_width};
        LmListSetFields(list_, widths, XtNumber(widths));
    }
    SetIcons({rows_.begin() + static_cast<std::ptrdiff_t>(from),
              rows_.begin() + static_cast<std::ptrdiff_t>(to)});
}

std::string NodeList::RowText(int node) const {
    const Degree degree = degrees_[static_cast<std::size_t>(node)];
    const Kind kind = ShownKind(document_.ItemAt(node).kind, degree);
    return FieldText(table_, document_.graph.NodeAt(node).label) + "\t" + KindName(kind) + "\t" +
           std::to_string(degree.in) + "\t" + std::to_string(degree.out);
}

Pixmap NodeList::IconOf(int node) {
    const Degree degree = degrees_[static_cast<std::size_t>(node)];
    return pictures_.Of(ShownKind(document_.ItemAt(node).kind, degree), background_, IsHit(node));
}

void NodeList::SetIcons(const std::vector<int> &nodes) {
    std::vector<LmListIconEntry> icons;
    for (const int node : nodes) {
        if (const int position = PositionOf(node)) {
            icons.push_back({position, IconOf(node)});
        }
    }
    LmListSetPositionIcons(list_, icons.data(), static_cast<int>(icons.size()));
}

void NodeList::Number() {
    positions_.assign(document_.graph.nodes.size(), 0);
    for (int position = 1; const int node : rows_) {
        positions_[static_cast<std::size_t>(node)] = position++;
    }
}

int NodeList::PositionOf(int node) const {
    const auto index = static_cast<std::size_t>(node);
    return index < positions_.size() ? positions_[index] : 0;
}

// ---- Edits ------------------------------------------------------------------------------------------

// The numbers of arcs change where an arc comes or goes.
void NodeList::Update(Worker &worker, const Touched &touched) {
    std::set<int> nodes(touched.nodes.begin(), touched.nodes.end());
    if (nodes.size() + touched.edges.size() > many_changes) {
        return Show(worker);
    }
    const auto before = std::exchange(degrees_, DegreesOf(document_.graph));
    for (std::size_t i = 0; i < degrees_.size(); i++) {
        if (i < before.size() &&
            (before[i].in != degrees_[i].in || before[i].out != degrees_[i].out)) {
            nodes.insert(static_cast<int>(i));
        }
    }
    positions_.resize(document_.graph.nodes.size());
    const NoUpdate quiet(list_);
    std::for_each(nodes.begin(), nodes.end(), [this](int node) { UpdateRow(node); });
}

void NodeList::UpdateRow(int node) {
    const bool removed = document_.graph.NodeAt(node).removed;
    const int position = PositionOf(node);
    const auto at = std::lower_bound(rows_.begin(), rows_.end(), node);
    const auto text = texts_.begin() + (at - rows_.begin());
    if (removed && position > 0) {
        LmListDeletePos(list_, position);
        texts_.erase(text);
        rows_.erase(at);
        return Number();
    }
    if (removed) {
        return;
    }
    Rows row;
    row.Add(RowText(node));
    if (position == 0) {
        const int place = at == rows_.end() ? 0 : PositionOf(*at);
        texts_.insert(text, RowText(node));
        rows_.insert(at, node);
        LmListAddItemUnselected(list_, row.Get()[0], place);
        Number();
    } else if (*text != RowText(node)) {
        *text = RowText(node);
        LmListReplaceItemsPosUnselected(list_, row.Get(), 1, position);
    }
    SetIcons({node});
}

// ---- Selection --------------------------------------------------------------------------------------

std::vector<int> NodeList::Selected() const {
    int *positions = nullptr;
    int count = 0;
    std::vector<int> selected;
    if (LmListGetSelectedPos(list_, &positions, &count)) {
        for (int i = 0; i < count; i++) {
            selected.push_back(rows_[static_cast<std::size_t>(positions[i]) - 1]);
        }
        XtFree(reinterpret_cast<char *>(positions));
    }
    return selected;
}

void NodeList::SetPolicy(unsigned char policy) {
    XtVaSetValues(list_, XmNselectionPolicy, policy, nullptr);
}

void NodeList::SelectRow(int node) {
    if (const int position = PositionOf(node)) {
        LmListSelectPos(list_, position, False);
    }
}

// In extended selection LmListSelectPos would select one row and no other.
void NodeList::Select(Worker &worker, const std::vector<int> &nodes) {
    LmListDeselectAllItems(list_);
    if (nodes.empty()) {
        return;
    }
    BringIntoSight(nodes.front());
    SetPolicy(XmMULTIPLE_SELECT);
    if (nodes.size() <= many_changes) {
        std::for_each(nodes.begin(), nodes.end(), [this](int node) { SelectRow(node); });
        return SetPolicy(XmEXTENDED_SELECT);
    }
    worker.AddForEach("selecting", static_cast<int>(nodes.size()),
                      [this, nodes](int i) { SelectRow(nodes[static_cast<std::size_t>(i)]); });
    worker.Add("selecting", [this] {
        SetPolicy(XmEXTENDED_SELECT);
        return false;
    });
}

void NodeList::BringIntoSight(int node) {
    if (const int position = PositionOf(node)) {
        LmListSetKbdItemPos(list_, position);
    }
}

void NodeList::RowsSelected(Widget, XtPointer closure, XtPointer) {
    static_cast<NodeList *>(closure)->selected_();
}

// ---- Hits -------------------------------------------------------------------------------------------

bool NodeList::IsHit(int node) const {
    return std::binary_search(hits_.begin(), hits_.end(), node);
}

void NodeList::Mark(std::vector<int> hits) {
    std::vector<int> other;
    std::set_symmetric_difference(hits.begin(), hits.end(), hits_.begin(), hits_.end(),
                                  std::back_inserter(other));
    hits_ = std::move(hits);
    SetIcons(other);
    SvScrollBarRedisplay(graph_browser::GetResource<Widget>(list_, XmNverticalScrollBar));
    if (!other.empty() && !hits_.empty()) {
        BringIntoSight(hits_.front());
    }
}

// One unit of the bar is one row.
void NodeList::DrawMarks(Widget bar, XtPointer closure, XtPointer call_data) {
    const auto &self = *static_cast<NodeList *>(closure);
    std::vector<int> units;
    for (const int node : self.hits_) {
        if (const int position = self.PositionOf(node)) {
            units.push_back(position - 1);
        }
    }
    example::DrawTroughMarks(bar, *static_cast<SvTroughPixmapCallbackStruct *>(call_data), units,
                             self.mark_);
}

} // namespace workbench
