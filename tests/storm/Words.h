// Words of steps drawn by chance: hostile numbers, texts, and values that fit a resource or an argument.
#pragma once

#include <tests/storm/Cast.h>
#include <tests/storm/Step.h>

#include <optional>
#include <string>
#include <vector>

namespace corvidlmw::storm {

std::string WordFor(int number);
std::string WidgetWord(int id);
std::string DyingWord(int id);

// Numbers at which arithmetic goes wrong, and small ones.
std::string AnyNumber(Chance &chance);
std::string SmallNumber(Chance &chance, int low, int high);
std::string AnyPlace(Chance &chance);  // of 16 bits, mostly on the screen
std::string AnyExtent(Chance &chance); // from 1 to 32767, mostly small
std::string AnyLabel(Chance &chance);  // a compound string
// Texts for the string converters.
std::string AnyResourceText(Chance &chance, const std::string &type);

// To be called before any class is initialized: which resources the classes declare themselves.
void ReadResources();

// What can be set: the resources of the class, and of children of the parent's.
struct Setting {
    std::string name, type;
    Cardinal size; // 0 for a resource that the class has from the toolkit
};
const std::vector<Setting> &SettingsOf(WidgetClass widget_class, WidgetClass parent_class);
std::vector<std::string> CallbacksOf(WidgetClass widget_class);

// The words that set this resource: its name and a value, and more where several belong together. Nothing for
// what no client may set.
std::vector<std::string> WordsToSet(Chance &chance, const Cast &cast, const Setting &setting);

// A call of the class's public interface; nothing for a class without one.
std::optional<Step> AnyCall(Chance &chance, const Cast &cast, WidgetClass widget_class,
                            int &next_id);

} // namespace corvidlmw::storm
