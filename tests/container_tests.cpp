#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "qzstl/list_like"
#include "qzstl/string_like"
#include "tests/support/list_check.h"

namespace {

using namespace std::string_literals;
using String = qz::basic_string<char>;
using StringList = QZList<String>;

constexpr const char* NONE = nullptr;
constexpr unsigned int NPOS = 0xFFFFFFFF;  // as hosts have it built in
const char* volatile g_pText = "x";        // as long as the compiler knows, long enough

std::string Abc(std::size_t nSize)
{
    return "abcdefghijklmnopqrstuvwxyzabcdefghijklmn"s.substr(0, nSize);
}

void Assign(String& str, const std::string& strText)
{
    str.assign(strText.data(), static_cast<unsigned int>(strText.size()));
}

// Reads the storage without the type's help. Capacity 14 is the short form.
void ExpectForm(const String& str, unsigned int nCapacity, const std::string& strText)
{
    const char* const pBytes = reinterpret_cast<const char*>(&str);
    const char* pData = pBytes + 1;
    unsigned int words[2] = {};
    if (nCapacity == 14) {
        EXPECT_EQ(int{pBytes[0]}, static_cast<int>(strText.size() * 2));
    } else {
        std::memcpy(words, pBytes, sizeof(words));
        std::memcpy(&pData, pBytes + sizeof(words), sizeof(pData));
        ASSERT_EQ(words[0], nCapacity + 2) << "the allocation, with the mark of the long form";
        EXPECT_EQ(words[1], strText.size());
    }
    EXPECT_EQ(str.c_str(), pData);
    EXPECT_EQ(std::string(pData, strText.size() + 1), strText + '\0');
    EXPECT_EQ(str.size(), strText.size());
    EXPECT_EQ(str.empty(), strText.empty());
}

TEST(String, TakesTheFormAndTheCapacityOfItsRules)
{
    const struct
    {
        const char* m_pName;
        std::size_t m_nBuilt;
        void (*m_pChange)(String& s);
        unsigned int m_nCapacity, m_nCopyCapacity;
        std::string m_strText;
    } rows[] = {
        {"14", 14, [](String&) {}, 14, 14, Abc(14)},
        {"15", 15, [](String&) {}, 15, 15, Abc(15)},
        {"32", 32, [](String&) {}, 47, 47, Abc(32)},
        {"14 + 1", 14, [](String& s) { s.append("x"); }, 31, 15, Abc(14) + "x"},
        {"30 + 1", 30, [](String& s) { s.append("x"); }, 31, 31, Abc(30) + "x"},
        {"31 + 1", 31, [](String& s) { s.append("x"); }, 63, 47, Abc(31) + "x"},
        {"3 + 29", 3, [](String& s) { s.append(Abc(29).c_str()); }, 47, 47, "abc" + Abc(29)},
        {"14 + 0", 14, [](String& s) { s.append("").append(NONE, 0); }, 14, 14, Abc(14)},
        {"7 + own", 7, [](String& s) { s.append(s.c_str(), 7); }, 14, 14, Abc(7) + Abc(7)},
        {"20 + own", 20, [](String& s) { s.append(s.c_str(), 20); }, 63, 47, Abc(20) + Abc(20)},
        {"14 to 15", 14, [](String& s) { s = Abc(15).c_str(); }, 31, 15, Abc(15)},
        {"31 to 1", 31, [](String& s) { s = "x"; }, 31, 14, "x"},
        {"31 to null", 31, [](String& s) { s = NONE; }, 31, 14, ""},
        {"31 to itself", 31, [](String& s) { s = *&s; }, 31, 31, Abc(31)},
        {"a long part", 40, [](String& s) { s.assign(s.c_str() + 2, 5); }, 47, 14, "cdefg"},
        {"a NUL", 3, [](String& s) { Assign(s, "a\0b"s); }, 14, 14, "a\0b"s},
        {"append too much", 14, [](String& s) { s.append(g_pText, 0xFFFFFFE0U); }, 14, 14, Abc(14)},
        {"assign too much", 31, [](String& s) { s.assign(g_pText, 0xFFFFFFEEU); }, 31, 31, Abc(31)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.m_pName);
        String str(Abc(row.m_nBuilt).c_str());
        row.m_pChange(str);
        ExpectForm(str, row.m_nCapacity, row.m_strText);
        const String copy(str);
        str.clear();
        ExpectForm(str, row.m_nCapacity, "");
        EXPECT_EQ(&(str = copy), &str);
        ExpectForm(str, row.m_nCapacity, row.m_strText);
        ExpectForm(copy, row.m_nCopyCapacity, row.m_strText);
    }
    ExpectForm(String(), 14, "");
    ExpectForm(String(NONE), 14, "");
    String middle("0123456789");
    middle.__grow_by_and_replace(14, 17, 10, 2, 3, 2, "xy");
    ExpectForm(middle, 31, "01xy56789");
    StringList list;
    list.push_back(Abc(15).c_str());
    ExpectForm(list.begin()->value, 15, Abc(15));
    ExpectForm(StringList(list).begin()->value, 31, Abc(15));  // assigned to, so it has grown
}

TEST(String, ComparesAllItsBytesAsUnsigned)
{
    const struct
    {
        std::string m_strLeft, m_strRight;
        int m_nCompared;
        bool m_bEqualText;  // with the right one read up to its first NUL
    } rows[] = {
        // clang-format off
        {"abc", "abz", -23, false},   {"abc", "bac", -1, false}, {"abc", "abcd", -1, false},
        {"abc", "ab", 1, false},      {"a", "A", 32, false},     {"\xff", "\x01", 254, false},
        {Abc(31), Abc(31), 0, true},  {"", "", 0, true},         {"a\0c"s, "a\0b"s, 1, false},
        {"a\0b"s, "a\0b"s, 0, false}, {"a\0b"s, "a", 1, false},  {"a", "a\0b"s, -1, true},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.m_strLeft + " with " + row.m_strRight);
        String left(Abc(20).c_str());  // long, whatever the size
        String right;
        Assign(left, row.m_strLeft);
        Assign(right, row.m_strRight);
        EXPECT_EQ(left.compare(0, NPOS, right.c_str(), right.size()), row.m_nCompared);
        EXPECT_EQ(left == right, row.m_nCompared == 0);
        EXPECT_EQ(left == right.c_str(), row.m_bEqualText);
    }
    // Words and blocks of them are compared at once: the one difference may lie anywhere in them.
    const std::string strLong(200, 'l');
    for (std::size_t n = 0; n < strLong.size(); ++n) {
        const String other((strLong.substr(0, n) + 'n' + strLong.substr(n + 1)).c_str());
        EXPECT_EQ(other.compare(0, NPOS, strLong.c_str(), 200), 2) << n;
    }
    const String str("xabc");
    EXPECT_EQ(str.compare(1, NPOS, "abc", 3), 0);
    EXPECT_EQ(str.compare(1, 2, "abc", 3), -1) << "only two characters of the left are compared";
    EXPECT_EQ(str.compare(4, NPOS, NONE, 0), 0);
}

TEST(StringDeathTest, NamesTheBrokenPrecondition)
{
#ifdef NDEBUG
    GTEST_SKIP() << "assertions are off";
#endif
    String str("abc");
    EXPECT_DEATH(str.assign(NONE, 1), "`__n == 0 \\|\\| __s != __null'");
    EXPECT_DEATH(str.append(NONE, 1), "`__n == 0 \\|\\| __s != __null'");
    EXPECT_DEATH(str.append(NONE), "`__s != __null'");
    EXPECT_DEATH((void)str.compare(4, 1, NONE, 1), "`__n2 == 0 \\|\\| __s != __null'");
    EXPECT_DEATH((void)str.compare(4, 1, "a", 1), "`__pos1 <= __sz && __n2 != npos'");
    EXPECT_DEATH((void)str.compare(0, 1, "a", NPOS), "`__pos1 <= __sz && __n2 != npos'");
    EXPECT_DEATH((void)(str == NONE), "`__rhs != __null'");
}

TEST(List, KeepsItsLinksThroughEveryStep)
{
    const struct
    {
        const char* m_pName;
        void (*m_pStep)(StringList& l);
        std::string m_strExpected;
    } steps[] = {
        {"init where the sentinels are there", [](auto& l) { l.init(); }, ""},
        {"erase of nothing", [](auto& l) { EXPECT_EQ(l.erase(l.begin()->prev), l.end()); }, ""},
        {"push", [](auto& l) { l.push_back("b"); }, "b"},
        {"erase of the only one", [](auto& l) { EXPECT_EQ(l.erase(l.begin()), l.end()); }, ""},
        {"push again", [](auto& l) { l.push_back("c"); }, "c"},
        {"insert at the front", [](auto& l) { l.insert(l.begin(), "a"); }, "ac"},
        {"insert between", [](auto& l) { l.insert(l.begin()->next, "b"); }, "abc"},
        {"insert at the head sentinel", [](auto& l) { l.insert(l.begin()->prev, "d"); }, "abc"},
        {"erase of the end", [](auto& l) { EXPECT_EQ(l.erase(l.end()), l.end()); }, "abc"},
        {"erase", [](auto& l) { EXPECT_EQ(l.erase(l.begin()->next), l.end()->prev); }, "ac"},
        {"assign of itself", [](auto& l) { l = *&l; }, "ac"},
        {"clear", [](auto& l) { l.clear(); }, ""},
    };
    StringList list;
    for (const auto& step : steps) {
        SCOPED_TRACE(step.m_pName);
        step.m_pStep(list);
        ASSERT_TRUE(IsSound(list));
        const StringList copy(list);
        ASSERT_TRUE(IsSound(copy));
        std::string strText;
        for (auto pos = copy.begin(); pos != copy.end(); pos = pos->next) {
            strText += pos->value.c_str();
        }
        EXPECT_EQ(strText, step.m_strExpected);
        EXPECT_EQ(list.size(), step.m_strExpected.size());
    }
}

struct Recorder
{
    ~Recorder() { m_strEnded += m_cName; }
    char m_cName = '-';
    static inline std::string m_strEnded;
};

TEST(List, DestroysFromTheBackAndSentinelsLast)
{
    const Recorder names[] = {{'1'}, {'2'}, {'3'}};
    {
        QZList<Recorder> list;
        for (const Recorder& name : names) {
            list.push_back(name);
        }
        list.insert(list.begin()->prev, names[1]);
        EXPECT_EQ(Recorder::m_strEnded, "2") << "a refused element is destroyed again";
        const QZList<Recorder> cleared(list);
        list.clear();
        EXPECT_EQ(Recorder::m_strEnded, "2321");
        list.push_back(names[0]);
        list = cleared;
        list.begin()->prev->value.m_cName = 'h';
        list.end()->value.m_cName = 't';
        Recorder::m_strEnded.clear();
    }
    EXPECT_EQ(Recorder::m_strEnded, "321--321ht");
}

}  // namespace
