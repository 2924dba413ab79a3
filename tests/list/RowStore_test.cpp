// The set of rows, the array with room at its ends, the entries in blocks and the bag of strings, against the
// plainest ones there are.
#include <corvidlmw/list/BlockPool.h>
#include <corvidlmw/list/RowSet.h>
#include <corvidlmw/list/SlackArray.h>
#include <corvidlmw/list/StringBag.h>
#include <corvidlmw/list/Tally.h>

#include <tests/support/Random.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <vector>

namespace corvidlmw::list {
namespace {

using test::Random;

void ExpectSame(const RowSet &set, const std::vector<bool> &model) {
    EXPECT_EQ(set.size(), std::count(model.begin(), model.end(), true));
    std::vector<bool> found(model.size()), found_backwards(model.size());
    for (int row = set.Next(-5); row >= 0; row = set.Next(row + 1))
        found.at(static_cast<std::size_t>(row)) = true;
    for (int row = set.LastBefore(1 << 30); row >= 0; row = set.LastBefore(row))
        found_backwards.at(static_cast<std::size_t>(row)) = true;
    EXPECT_EQ(found, model);
    EXPECT_EQ(found_backwards, model);
}

TEST(RowSet, MovesAlongWithTheRows) {
    Random random;
    for (int life = 0; life < 60; life++) {
        RowSet set;
        std::vector<bool> model(static_cast<std::size_t>(random.Between(0, 300)));
        for (int step = 0; step < 60; step++) {
            const int size = static_cast<int>(model.size());
            const int row = random.Between(0, size), count = random.Between(0, 140);
            const int choice = random.Between(0, 9);
            if (choice == 0) {
                set.InsertRows(row, count);
                model.insert(model.begin() + row, static_cast<std::size_t>(count), false);
            } else if (choice == 1) {
                const int erased = std::min(count, size - row);
                set.EraseRows(row, erased);
                model.erase(model.begin() + row, model.begin() + row + erased);
            } else if (row < size) {
                const bool member = random.Chance(0.7);
                set.Put(row, member);
                model[static_cast<std::size_t>(row)] = member;
                EXPECT_EQ(set.Contains(row), member);
            }
        }
        ExpectSame(set, model);
        EXPECT_FALSE(set.Contains(-1) || set.Contains(1 << 29));
    }
}

TEST(SlackArray, IsAnArray) {
    Random random;
    for (int life = 0; life < 40; life++) {
        SlackArray<int> array;
        std::vector<int> model;
        for (int step = 0; step < 300; step++) {
            const int size = static_cast<int>(model.size());
            const int end = random.Chance(0.5) ? 0 : size;
            const int at = random.Chance(0.6) ? end : random.Between(0, size);
            const int count = random.Chance(0.8) ? 1 : random.Between(0, 40);
            if (random.Chance(life % 2 ? 0.6 : 0.45)) {
                array.Open(at, count);
                std::fill_n(array.data() + at, count, step);
                model.insert(model.begin() + at, static_cast<std::size_t>(count), step);
            } else {
                const int closed = std::min(count, size - at);
                array.Close(at, closed);
                model.erase(model.begin() + at, model.begin() + at + closed);
            }
            ASSERT_EQ(array.size(), static_cast<int>(model.size()));
            ASSERT_TRUE(std::equal(model.begin(), model.end(), array.data()));
        }
        array.Close(0, array.size());
        EXPECT_EQ(array.data(), nullptr);
    }
}

TEST(BlockPool, HandsOutEachPlaceOnce) {
    Random random;
    for (int life = 0; life < 20; life++) {
        BlockPool<std::array<int, 5>, 16> pool;
        std::map<std::array<int, 5> *, int> model;
        const double adding = random.Chance(0.5) ? 0.6 : 0.4;
        for (int step = 0; step < 600; step++) {
            if (random.Chance(0.02))
                pool.Expect(random.Between(0, 40));
            if (random.Chance(adding) || model.empty()) {
                auto *entry = pool.Take();
                entry->fill(step);
                ASSERT_TRUE(model.emplace(entry, step).second);
            } else {
                const auto one =
                    std::next(model.begin(), random.Between(0, static_cast<int>(model.size()) - 1));
                pool.Give(one->first);
                model.erase(one);
            }
            ASSERT_EQ(pool.size(), static_cast<int>(model.size()));
        }
        for (const auto &[entry, step] : model)
            ASSERT_EQ(std::count(entry->begin(), entry->end(), step), 5);
    }
}

TEST(Tally, KnowsTheHighestWhileNumbersComeAndGo) {
    Random random;
    Tally tally;
    std::multiset<int> model;
    for (int step = 0; step < 2000; step++) {
        const int number = random.Between(-20, 20);
        if (random.Chance(0.55)) {
            tally.Add(number);
            model.insert(number);
        } else if (const auto found = model.find(number); found != model.end()) {
            tally.Remove(number);
            model.erase(found);
        } else if (!model.empty()) {
            tally.Remove(*model.rbegin());
            model.erase(std::prev(model.end()));
        }
        ASSERT_EQ(tally.HighestOr(-99), model.empty() ? -99 : *model.rbegin());
    }
}

// Few texts, in all the ways that compound strings come about.
XmString AnyString(Random &random, int depth = 0) {
    std::string text;
    for (int left = random.Between(0, 3); left > 0; left--)
        text += "ab\n\t"[random.Between(0, 3)];
    char *const tag = const_cast<char *>(random.Chance(0.5) ? XmFONTLIST_DEFAULT_TAG : "bold");
    switch (random.Between(0, depth < 3 ? 6 : 3)) {
    case 0: return XmStringCreateLocalized(text.data());
    case 1: return XmStringCreate(text.data(), tag);
    case 2: return XmStringCreateLtoR(text.data(), tag);
    case 3: return XmStringGenerate(text.data(), tag, XmCHARSET_TEXT, nullptr);
    case 4: return XmStringConcatAndFree(AnyString(random, depth + 1), XmStringSeparatorCreate());
    case 5:
        return XmStringConcatAndFree(XmStringDirectionCreate(XmSTRING_DIRECTION_L_TO_R),
                                     AnyString(random, depth + 1));
    default:
        return XmStringConcatAndFree(AnyString(random, depth + 1), AnyString(random, depth + 1));
    }
}

TEST(StringBag, FindsWhatTheToolkitFindsEqual) {
    Random random;
    std::vector<XmString> strings(400);
    std::generate(strings.begin() + 1, strings.end(), [&random] { return AnyString(random); });
    StringBag bag;
    for (std::size_t i = 0; i < strings.size(); i += 4)
        bag.Add(strings[i]);
    std::vector<bool> taken(strings.size());
    for (std::size_t i = 0; i < strings.size(); i++) {
        bool found = false;
        for (std::size_t j = 0; j < strings.size() && !found; j += 4)
            if (!taken[j] && XmStringCompare(strings[j], strings[i]))
                found = taken[j] = true;
        EXPECT_EQ(bag.Contains(strings[i]), found) << i;
        EXPECT_EQ(bag.Take(strings[i]), found) << i;
    }
    EXPECT_EQ(bag.size(), std::count(taken.begin(), taken.end(), false) - 300);
    std::for_each(strings.begin(), strings.end(), XmStringFree);
}

} // namespace
} // namespace corvidlmw::list
