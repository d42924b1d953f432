// The searches: what matches and where, in which order and how many, and what they refuse.

#include "search/contact_search.h"

#include "bench/heap_count.h"
#include "tests/support/directory_test.h"
#ifdef NSDIRECTORY_TEST_NUMBER_SEARCH
#include "search/number_search.h"
#endif

namespace {

// The matched text with its places in brackets; of a number the name and the field come first.
std::string Marked(const SearchMatchData& match)
{
    std::string strText = match.m_pText;
    for (int n = match.m_nPlaceCount - 1; n >= 0; --n) {
        const auto [nOffset, nLength] = match.m_places[n];
        strText.insert(static_cast<unsigned>(nOffset + nLength), "]");
        strText.insert(static_cast<unsigned>(nOffset), "[");
    }
    const bool bName = match.m_eField == SEARCH_FIELD_NAME;
    return bName ? strText : Joined(match.m_pDisplayName, ' ', match.m_eField, ' ', strText);
}

// All matches, and how many more there are than fit.
template <class Find>
std::string All(Find find, int nMost = 9)
{
    SearchMatchData matches[9];
    const int nFound = find(matches, nMost);
    std::string strAll = nFound < 0 ? Joined("result ", nFound) : "";
    for (int n = 0; n < std::min(nFound, nMost); ++n) {
        strAll += (n == 0 ? "" : ", ") + Marked(matches[n]);
    }
    return nFound > nMost ? Joined(strAll, " and ", nFound - nMost) : strAll;
}

struct SearchTest : DirectoryTest
{
    // By keys if the text begins with a colon.
    std::string Found(const std::string& strText, int nOptions = SEARCH_PLAIN, int nMost = 9)
    {
        const auto pFind =
            strText[0] == ':' ? &CContactSearch::FindByKeys : &CContactSearch::FindByText;
        const char* const pText = strText.c_str() + (strText[0] == ':' ? 1 : 0);
        return All([&](auto... to) { return (m_search.*pFind)(pText, nOptions, to...); }, nMost);
    }
    void Hold(const ContactRows& rows)
    {
        Start({}, rows);
        ASSERT_EQ(m_search.Refresh(Directory()), static_cast<int>(rows.size()));
    }

    CContactSearch m_search;
};

TEST_F(SearchTest, FindsWordsKeysAndNumbersAndMarksThem)
{
    // The name, the text or the keys after a colon, and the name as it is marked.
    const std::array<const char*, 3> rows[] = {
        // clang-format off
        {"Müller", "mul", "[Mül]ler"}, {"Müller", "MÜL", "[Mül]ler"}, {"Müller", "muel", "[Mül]ler"}, {"Müller", "ull", ""},
        {"Mu\u0308ller", "mu", "[Mu\u0308]ller"}, {"Mu\u0308ller", "muell", "[Mu\u0308ll]er"}, {"Muller", "muel", ""},
        {"Mueller", "mu\u0308l", "[Muel]ler"}, {"Müller", "mullers", ""}, {"Mue Müller", "mue muel", "[Mue] [Mül]ler"},
        {"Straße", "STRASS", "[Straß]e"}, {"Maß", "mas", "[Maß]"}, {"e\u0301\u0323\u200dx", "e", "[e\u0301\u0323\u200d]x"},
        {"İzmir", "izm", "[İzm]ir"}, {"Işık", "isik", "[Işık]"}, {"Isik", "ışı", "[Isi]k"}, {"Ёлка", "ел", "[Ёл]ка"},
        {"Σίσυφος", "σισυφοσ", "[Σίσυφος]"}, {"ΣΊΣΥΦΟΣ", "Σίσυφος", "[ΣΊΣΥΦΟΣ]"}, {"ﬁlm Ａb ①", "fil 1 a", "[ﬁl]m [Ａ]b [①]"},
        {"Łukasz Ørn Æbi", "orn lu ae", "[Łu]kasz [Ørn] [Æ]bi"}, {"Anna Maria (Köln)", "ko an", "[An]na Maria ([Kö]ln)"},
        {"O'Neill-Berg", "berg, neil", "O'[Neil]l-[Berg]"}, {"Anna", "an an", ""}, {"Muel Muell", "muell mül", "[Muel] [Muell]"},
        {"Anna", "55 57-0", "Anna 2 +49 [555/70]0"}, {"Anna", "+495", "Anna 2 [+49 5]55/700"}, {"7001", "700", "[700]1"},
        {"Anna", "(", ""}, {"Anna", "", ""}, {"", "5557", " 2 +49 [555/7]00"}, {"山田 太郎", "郎", "山田 太[郎]"}, {"٣x", "3", "[٣]x"}, {"שָׁלוֹם", "שלו", "[שָׁלוֹ]ם"},
        {"Müller", ":6855", "[Müll]er"}, {"Müller", ":68355", "[Müll]er"}, {"Straße", ":787277", "[Straß]e"}, {"abc", ":2222", ""},
        {"abc def ghi jkl", ":2220333", "[abc def] ghi jkl"}, {"mno pqrs tuv wxyz", ":77771888", "mno [pqrs tuv] wxyz"},
        {"Ωψχ Ός", ":999067", "[Ωψχ Ός]"}, {"Їжак", ":4324", "[Їжак]"}, {"山", ":1", ""},
        {"абвгдежзийклмнопрстуфхцчшщъыьэюя", ":22223333444455556666777788889999", "[абвгдежзийклмнопрстуфхцчшщъыьэюя]"},
        {"Müller Ann", ":685537026", "[Müller An]n"}, {"Anna - (Bö)", ":2662026", "[Anna - (Bö])"}, {"Anna Bö", ":266200", ""}, {"Anna Bö", ":26620", "[Anna ]Bö"},
        {"Room 101", ":76660101", "[Room 101]"}, {"Anna", ":5570", "Anna 2 +49 5[55/70]0"}, {"Anna", ":2a", "result -101"}};
    // clang-format on
    for (const auto& [pName, pWanted, pMarked] : rows) {
        Hold({{pName, "All Contacts", "+49 555/700"}});
        EXPECT_EQ(Found(pWanted), pMarked) << pName << pWanted;
    }
}

TEST_F(SearchTest, ListsInOrderUpToTheLimit)
{
    Hold({{"Bert Ann", "Blacklist"},
          {"ann"},
          {"Dora", "Blacklist", "4"},
          {"Carl Ann", "", "", "4"}});
    EXPECT_EQ(Found("an"), "[an]n, Bert [An]n, Carl [An]n");
    EXPECT_EQ(Found("an", SEARCH_PLAIN, 2), "[an]n, Bert [An]n and 1");
    EXPECT_EQ(Found("an", SEARCH_WITHOUT_BLACKLIST, 0), " and 2");
    EXPECT_EQ(Found("4"), "Carl Ann 1 [4], Dora 2 [4]");
    Hold({{"Bo 4", "", "4"},
          {"A", "Blacklist", "34"},
          {"C", "", "1", "34", "43"},
          {"4"},
          {"B", "", "4"}});
    EXPECT_EQ(Found("4", SEARCH_BEST_FIRST), "[4], Bo [4], B 2 [4], A 2 3[4], C 1 3[4]");
    EXPECT_EQ(Found(":4", SEARCH_BEST_FIRST | SEARCH_WITHOUT_BLACKLIST, 1), "[4] and 3");
    EXPECT_EQ(Found("1 2 3 4 5 6 7 8") + Found("1 2 3 4 5 6 7 8 9"), "result -101");
    EXPECT_EQ(Found(":" + std::string(64, '2')) + Found(":" + std::string(65, '2')), "result -101");
    ContactRows rows;  // more than a page
    for (int n = 100; n < 300; ++n) {
        rows.push_back({Joined(n)});
    }
    Hold(rows);
    EXPECT_EQ(Found("1", SEARCH_PLAIN, 1) + Found("2", SEARCH_BEST_FIRST, 1),
              "[1]00 and 99[2]00 and 99");
    EXPECT_EQ(m_search.FindByText(nullptr, 0, nullptr, 0), DIR_RET_NULL_ARGUMENT);
    EXPECT_EQ(m_search.FindByKeys("2", 0, nullptr, 1), DIR_RET_NULL_ARGUMENT);
    EXPECT_EQ(CContactSearch().FindByText("a", 0, nullptr, 0), 0);
}

TEST_F(SearchTest, HoldsWhatTheLastRefreshFound)
{
    Hold({{"Anna"}});
    ASSERT_GE(Directory().UpdateContactData("Anna", ContactRow("Äni", "Blacklist", "22")), 0);
    EXPECT_EQ(Found("an"), "[An]na");
    ASSERT_EQ(m_search.Refresh(Directory()), 1);
    EXPECT_EQ(Found("aen") + Found("22"), "[Än]iÄni 2 [22]");
    if (IsHeapCounted()) {
        Start({}, {{std::string(5000, 'a')}});
        g_heap.m_nLargest = 6000;  // above what the directory's page takes
        EXPECT_EQ(m_search.Refresh(Directory()), DIR_RET_NO_MEMORY);
        g_heap.m_nLargest = 0;
        const int nFound = m_search.FindByText("an", 0, nullptr, 0);
        g_heap.m_nLargest = SIZE_MAX;
        EXPECT_EQ(nFound, DIR_RET_NO_MEMORY);
        EXPECT_EQ(Found("an"), "[Än]i");
    }
}

#ifdef NSDIRECTORY_TEST_NUMBER_SEARCH
TEST_F(SearchTest, NumbersOfOneLineAreTheSame)
{
    CNumberSearch search;
    const auto find = [&](const char* pNumber) {
        return All([&](auto... to) { return search.FindByNumber(pNumber, to...); });
    };
    // clang-format off
    Start({}, {{"Anna", "", "+49 555 700000", "200", "*11#"}, {"Bert", "Blacklist", "0555/70000-0"},
               {"Carl", "", "sip:carl@home", "+1 555 0100", "\xFF" "7"}, {"Dora", "", "0555 700000 ext. 7"}});
    // clang-format on
    EXPECT_EQ(find("200"), "");
    EXPECT_EQ(search.Refresh(Directory(), "de"), DIR_RET_INVALID);
    EXPECT_EQ(search.Refresh(Directory(), nullptr), DIR_RET_NULL_ARGUMENT);
    ASSERT_EQ(search.Refresh(Directory(), "DE"), 4);
    const std::string strBoth = "Anna 2 [+49 555 700000], Bert 2 [0555/70000-0]";
    // clang-format off
    const std::pair<const char*, std::string> rows[] = {
        {"0049555700000", strBoth}, {"tel:+49-555-700000", strBoth}, {"+4955570000", ""}, {"+495557000007", ""},
        {"0555700000;ext=7", "Dora 2 [0555 700000 ext. 7]"}, {"200", "Anna 1 [200]"}, {"+49200", ""}, {"*11#", "Anna 3 [*11#]"},
        {"0015550100", "Carl 1 [+1 555 0100]"}, {"SIP:carl@home", "Carl 2 [sip:carl@home]"}, {"", ""}, {"\xFE" "7", "Carl 3 [\xFF" "7]"}};
    // clang-format on
    for (const auto& [pNumber, strFound] : rows) {
        EXPECT_EQ(find(pNumber), strFound) << pNumber;
    }
    ASSERT_EQ(search.Refresh(Directory(), "FR"), 4);
    EXPECT_EQ(find("0049555700000"), "Anna 2 [+49 555 700000]");
}
#endif

}  // namespace
