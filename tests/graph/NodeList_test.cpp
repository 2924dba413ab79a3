#include <corvidlmw/graph/GraphP.h>
#include <tests/support/GoogleTest.h>

#include <vector>

namespace {

// Entries are only compared, never followed.
struct NodeListTest : ::testing::Test {
    XmGraphNodeList list{};
    int places[16] = {};

    ~NodeListTest() override { _XmGraphNodeListFree(&list); }

    void Insert(int i) { _XmGraphNodeListInsert(nullptr, &list, &places[i]); }
    std::vector<void *> Slots() const {
        return std::vector<void *>(list.items, list.items + list.size);
    }
};

TEST_F(NodeListTest, GrowsByAQuarterAndTwoWithZeroesBehindTheEntries) {
    const std::vector<int> expected_sizes = {2, 2, 4, 4, 7, 7, 7, 10, 10, 10, 14};
    for (size_t i = 0; i < expected_sizes.size(); i++) {
        Insert(static_cast<int>(i));
        EXPECT_EQ(list.count, static_cast<int>(i) + 1);
        ASSERT_EQ(list.size, expected_sizes[i]);
        for (int slot = list.count; slot < list.size; slot++)
            EXPECT_EQ(list.items[slot], nullptr) << slot << " of " << list.size;
    }
}

TEST_F(NodeListTest, RemovesTheFirstOccurrenceAndClosesTheGap) {
    for (int i : {0, 1, 2, 1})
        Insert(i);

    _XmGraphNodeListRemove(&list, &places[1]);
    EXPECT_EQ(Slots(), (std::vector<void *>{&places[0], &places[2], &places[1], nullptr}));
    EXPECT_EQ(list.count, 3);

    _XmGraphNodeListRemove(&list, &places[9]);
    EXPECT_EQ(list.count, 3);
}

TEST_F(NodeListTest, InsertsAnEntryOnceWhereDuplicatesAreUnwanted) {
    for (int i : {0, 1, 0, 1, 2})
        _XmGraphNodeListInsertNoDuplicates(nullptr, &list, &places[i]);
    EXPECT_EQ(list.count, 3);
    EXPECT_EQ(_XmGraphNodeListMember(&list, &places[2]), 1);
    EXPECT_EQ(_XmGraphNodeListMember(&list, nullptr), 0);
}

TEST_F(NodeListTest, AnEmptyListIsReadAndFreedWithoutStorage) {
    _XmGraphNodeListRemove(&list, &places[0]);
    EXPECT_EQ(_XmGraphNodeListMember(&list, &places[0]), 0);
    _XmGraphNodeListFree(&list);
    Insert(0);
    _XmGraphNodeListFree(&list);
    EXPECT_EQ(list.items, nullptr);
    EXPECT_EQ(list.count + list.size, 0);
}

} // namespace
