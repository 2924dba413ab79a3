// The growing pointer array of the graph. Storage grows and never shrinks; slots that were never
// used, or fell free, are zero.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>

using namespace corvidlmw::graph;

namespace {

void Reserve(XmGraphNodeList *list, int size) {
    list->items = reinterpret_cast<void **>(
        XtRealloc(reinterpret_cast<char *>(list->items),
                  static_cast<Cardinal>(static_cast<std::size_t>(size) * sizeof(void *))));
    list->size = size;
}

void **Find(XmGraphNodeList *list, void *entry) {
    void **end = list->items + list->count;
    void **found = std::find(list->items, end, entry);
    return found == end ? nullptr : found;
}

} // namespace

void corvidlmw::graph::AppendArc(XmGraphNodeList &list, Widget arc) {
    if (list.count == list.size) {
        Reserve(&list, list.size / 4 + list.size + 1);
    }
    list.items[list.count++] = arc;
}

void corvidlmw::graph::RemoveOnlyEntry(XmGraphNodeList &list, void *entry) {
    if (list.count > 0 && list.items[list.count - 1] == entry) {
        list.items[--list.count] = nullptr;
    } else {
        _XmGraphNodeListRemove(&list, entry);
    }
}

extern "C" {

void _XmGraphNodeListInsert(Widget, XmGraphNodeList *list, void *entry) {
    if (list->count == list->size) {
        const int old_size = list->size;
        Reserve(list, old_size / 4 + old_size + 2);
        std::fill(list->items + old_size, list->items + list->size, nullptr);
    }
    list->items[list->count++] = entry;
}

void _XmGraphNodeListInsertNoDuplicates(Widget graph, XmGraphNodeList *list, void *entry) {
    if (!_XmGraphNodeListMember(list, entry)) {
        _XmGraphNodeListInsert(graph, list, entry);
    }
}

void _XmGraphNodeListRemove(XmGraphNodeList *list, void *entry) {
    if (list->count < 1) {
        return;
    }
    void **found = Find(list, entry);
    if (!found) {
        return;
    }
    std::copy(found + 1, list->items + list->count, found);
    list->items[--list->count] = nullptr;
}

int _XmGraphNodeListMember(XmGraphNodeList *list, void *entry) {
    return list->count > 0 && Find(list, entry) ? 1 : 0;
}

void _XmGraphNodeListFree(XmGraphNodeList *list) {
    if (list->items && list->size >= 1) {
        XtFree(reinterpret_cast<char *>(list->items));
    }
    *list = {};
}

void _XmGraphInitNode(NodePtr node) {
    node->visited = 0;
    node->tree_parent = nullptr;
    node->depth = XmGRAPH_UNPLACED_DEPTH;
    node->tree_children = {};
    node->from_arcs = {};
    node->to_arcs = {};
    node->parents = {};
    node->children = {};
}

} // extern "C"
