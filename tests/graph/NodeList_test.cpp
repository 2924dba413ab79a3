#include <corvidlmw/graph/GraphP.h>
#include <tests/support/GoogleTest.h>

#include <algorithm>
#include <vector>

namespace {

// Entries are only compared, never followed.
struct NodeListTest : ::testing::Test {
    XmGraphNodeList list{};
    int places[16] = {};

    ~NodeListTest() override { _XmGraphNodeListFree(&list); }

    void Insert(int i) { _XmGraphNodeListInsert(nullptr, &list, &places[i]); }
};

TEST_F(NodeListTest, GrowsByAQuarterAndTwoWithZeroesBehindTheEntries) {
    const std::vector<int> expected_sizes = {2, 2, 4, 4, 7, 7, 7, 10, 10, 10, 14};
    for (size_t i = 0; i < expected_sizes.size(); i++) {
        Insert(static_cast<int>(i));
        EXPECT_EQ(list.count, static_cast<int>(i) + 1);
        ASSERT_EQ(list.size, expected_sizes[i]);
        EXPECT_EQ(std::count(list.items + list.count, list.items + list.size, nullptr),
                  list.size - list.count);
    }
}

TEST_F(NodeListTest, RemovesTheFirstOccurrenceAndInsertsOnceWhereDuplicatesAreUnwanted) {
    for (int i : {0, 1, 2, 1})
        Insert(i);
    _XmGraphNodeListRemove(&list, &places[1]);
    _XmGraphNodeListRemove(&list, &places[9]);
    _XmGraphNodeListInsertNoDuplicates(nullptr, &list, &places[2]);
    EXPECT_EQ(std::vector<void *>(list.items, list.items + list.size),
              (std::vector<void *>{&places[0], &places[2], &places[1], nullptr}));
    EXPECT_EQ(list.count, 3);
    EXPECT_EQ(_XmGraphNodeListMember(&list, nullptr), 0);
}

TEST_F(NodeListTest, AnEmptyListIsReadAndFreedWithoutStorage) {
    _XmGraphNodeListRemove(&list, &places[0]);
    EXPECT_EQ(_XmGraphNodeListMember(&list, &places[0]), 0);
    _XmGraphNodeListFree(&list);
    Insert(0);
    EXPECT_EQ(_XmGraphNodeListMember(&list, &places[0]), 1);
    _XmGraphNodeListFree(&list);
    EXPECT_EQ(list.items, nullptr);
    EXPECT_EQ(list.count + list.size, 0);
}

} // namespace
