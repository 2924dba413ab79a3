#include <algorithm>
#include <memory>

#include <Xm/Text.h>

#include <corvidlmw/scrollbar/SvScrollBar.h>
#include <tests/support/Harness.h>

#include <MarkedText.h>

namespace marked_scrollbar {
namespace {

constexpr Pixel mark = 0xd4380d;

TEST(MarkedLines, AreFoundByPosition) {
    const Lines lines(L"ab\n\ncd\n");
    EXPECT_EQ(lines.Count(), 4);
    std::vector<int> at;
    for (size_t i = 0; i <= 7; i++)
        at.push_back(lines.LineAt(i));
    EXPECT_EQ(at, (std::vector<int>{0, 0, 0, 1, 2, 2, 2, 3}));
    EXPECT_EQ(lines.StartOf(2), 4u);
    EXPECT_EQ(lines.StartOf(9), 7u);
    EXPECT_EQ(Occurrences(L"aAa aa", L"aa"), (std::vector<size_t>{0, 4}));
    EXPECT_TRUE(Occurrences(L"aa", L"").empty());
    EXPECT_EQ(TextOf(std::string("a\0b\xff", 4)), L"a?b?");
}

class MarkedTextTest : public corvidlmw::test::DisplayTest {
protected:
    // A hundred lines, "word" in those with these numbers.
    void MakeText(const std::vector<int> &numbers) {
        std::wstring content;
        for (int i = 0; i < 100; i++) {
            const bool marked = std::find(numbers.begin(), numbers.end(), i) != numbers.end();
            content += marked ? L"a Word\n" : L"nothing\n";
        }
        content.pop_back();
        text = std::make_unique<MarkedText>(shell, mark);
        text->SetText(content);
        Show();
        RunWorkProcs();
    }

    int Marks() { return corvidlmw::test::Picture::Of(text->Bar()).Count(mark); }

    int BarValue() {
        int value = 0;
        SvScrollBarGetValues(text->Bar(), &value, nullptr, nullptr, nullptr);
        return value;
    }

    void TearDown() override {
        XtDestroyWidget(shell);
        text.reset();
        DisplayTest::TearDown();
    }

    std::unique_ptr<MarkedText> text;
};

TEST_F(MarkedTextTest, MarksFollowTheWordAndTheText) {
    MakeText({50, 80});
    EXPECT_EQ(Marks(), 0);
    text->SetWord(L"word");
    Pump();
    const int both = Marks();
    EXPECT_GT(both, 0);
    EXPECT_EQ(text->NumMarkedLines(), 2);
    text->SetWord(L"wordy");
    Pump();
    EXPECT_EQ(Marks(), 0);
    text->SetWord(L"word");
    XmTextReplace(text->Text(), 0, 0, const_cast<char *>("\n word"));
    RunWorkProcs();
    EXPECT_EQ(text->NumOccurrences(), 3);
    EXPECT_GT(Marks(), both);
}

// Lines without the word move the marks of the others.
TEST_F(MarkedTextTest, MarksStandAtTheirShareOfTheText) {
    MakeText({50});
    text->SetWord(L"word");
    int told = 0;
    text->WhenSearched([&] { told = text->NumMarkedLines(); });
    std::string more(300, '\n');
    XmTextReplace(text->Text(), XmTextGetLastPosition(text->Text()),
                  XmTextGetLastPosition(text->Text()), more.data());
    RunWorkProcs();
    EXPECT_EQ(told, 1);
    const auto shown = corvidlmw::test::Picture::Of(text->Bar());
    SvScrollBarRedisplay(text->Bar());
    EXPECT_TRUE(SamePicture(corvidlmw::test::Picture::Of(text->Bar()), shown));
}

TEST_F(MarkedTextTest, BarAndTextScrollOneAnother) {
    MakeText({90});
    text->SetWord(L"word");
    EXPECT_EQ(BarValue(), 0);
    SvScrollBarSetValues(text->Bar(), 40, 20, 0, 0, True);
    EXPECT_EQ(XmTextGetTopCharacter(text->Text()), 40 * 8);
    text->GoToNext();
    RunWorkProcs();
    EXPECT_GT(BarValue(), 40);
}

} // namespace
} // namespace marked_scrollbar
