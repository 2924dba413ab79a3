#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Property.h"

namespace form_designer {

// What was set, by the property's name.
using Values = std::map<std::string, std::string>;

struct Item {
    std::string name;
    const Kind *kind = nullptr;
    std::string container; // empty: the form itself
    Values values;
    bool operator==(const Item &) const = default;
};

// What the user designs: a grid of widgets, some of which hold further ones. Items stand in the order
// of their creation, and all names differ.
struct Form {
    Values values;
    std::vector<Item> items;
    bool operator==(const Form &) const = default;

    const Item *Find(const std::string &name) const;
    Item *Find(const std::string &name);
    // The kind of what holds the item.
    const Kind &ContainerKind(const Item &item) const;
    // All that can be set of an item, and of the form itself.
    std::vector<const Property *> PropertiesOf(const Item &item) const;
    std::vector<const Property *> Properties() const;
    // A name that is not in use, made from the class's.
    std::string NewName(const Kind &kind) const;
    // With all that it holds.
    void Remove(const std::string &name);
    int Rows() const;
    int Columns() const;
};

// As set, or preset; empty if the widget decides.
std::string ValueOf(const Values &values, const Property &property);

// Words of a resource name can hold no other characters.
bool IsName(const std::string &name);

// Two widgets in one cell, or one outside of the grid: what is wrong, and with which item.
struct Conflict {
    std::string item;
    std::string problem;
};
std::optional<Conflict> FindConflict(const Form &form);

} // namespace form_designer
