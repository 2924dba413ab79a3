#include <tests/storm/Cast.h>

#include <tests/storm/Values.h>

namespace corvidlmw::storm {

namespace {

bool IsSubclass(WidgetClass one, WidgetClass of) {
    for (; one; one = one->core_class.superclass)
        if (one == of)
            return true;
    return false;
}

} // namespace

void Cast::Remove(int id) {
    roles_.erase(id);
    for (auto role = roles_.begin(); role != roles_.end();)
        if (role->second.parent == id) {
            Remove(role->first);
            role = roles_.begin();
        } else {
            ++role;
        }
}

std::string Cast::KindOf(int id) const {
    const auto found = roles_.find(id);
    return found == roles_.end() ? "" : found->second.kind;
}

WidgetClass Cast::ClassOf(int id) const {
    return storm::ClassOf(KindOf(id));
}

int Cast::ParentOf(int id) const {
    const auto found = roles_.find(id);
    return found == roles_.end() ? 0 : found->second.parent;
}

bool Cast::IsA(int id, WidgetClass widget_class) const {
    return IsSubclass(ClassOf(id), widget_class);
}

int Cast::Any(Chance &chance, const std::function<bool(int id)> &holds) const {
    std::vector<int> ids;
    for (const auto &[id, role] : roles_)
        if (holds(id))
            ids.push_back(id);
    return ids.empty() ? 0 : chance.Of(ids);
}

int Cast::Any(Chance &chance) const {
    return roles_.empty() ? 0 : chance.Of(roles_).first;
}

int Cast::AnyOf(Chance &chance, WidgetClass widget_class) const {
    return Any(chance, [&](int id) { return IsA(id, widget_class); });
}

int Cast::AnyChildOf(Chance &chance, int parent) const {
    return Any(chance, [&](int id) { return ParentOf(id) == parent; });
}

} // namespace corvidlmw::storm
