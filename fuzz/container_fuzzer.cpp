// The same steps for String and list and for those of the standard library: both must look the
// same after each one.

#include <fuzzer/FuzzedDataProvider.h>

#include <iterator>
#include <list>
#include <string>

#include "fuzz/own_folder.h"
#include "qzstl/string_like"
#include "tests/support/list_check.h"

namespace {

using String = qz::basic_string<char>;
using List = QZList<String>;
using ModelList = std::list<std::string>;

// What the two lists write in different ways.
struct Links
{
    static List::ListIterator Next(List::ListIterator pos) { return pos->next; }
    static ModelList::const_iterator Next(ModelList::const_iterator pos) { return std::next(pos); }
    static const String& Value(List::ListIterator pos) { return pos->value; }
    static const std::string& Value(ModelList::const_iterator pos) { return *pos; }
    static bool AreSound(const List& list) { return IsSound(list); }
    static bool AreSound(const ModelList& /*list*/) { return true; }
};

template <class TString>
void Change(FuzzedDataProvider& input, TString& str, const TString& other)
{
    const int nKind = input.ConsumeIntegralInRange(0, 7);
    const std::string strText = input.ConsumeRandomLengthString(70);
    const auto nText = static_cast<unsigned int>(strText.size());
    const auto nSize = static_cast<unsigned int>(str.size());
    const auto nFrom = input.ConsumeIntegralInRange(0U, nSize);
    const auto nCount = input.ConsumeIntegralInRange(0U, nSize - nFrom);
    nKind == 0   ? (void)str.assign(strText.c_str(), nText)
    : nKind == 1 ? (void)str.append(strText.c_str(), nText)
    : nKind == 2 ? (void)str.assign(str.c_str() + nFrom, nCount)
    : nKind == 3 ? (void)str.append(str.c_str() + nFrom, nCount)
    : nKind == 4 ? (void)str.append(strText.c_str())
    : nKind == 5 ? (void)(str = strText.c_str())
    : nKind == 6 ? (void)(str = other)
                 : str.clear();
}

template <class TList, class TString>
void Change(FuzzedDataProvider& input, TList& list, const TList& other, const TString& value)
{
    const int nKind = input.ConsumeIntegralInRange(0, 4);
    auto pos = static_cast<const TList&>(list).begin();
    for (auto n = input.ConsumeIntegralInRange<std::size_t>(0, list.size()); n != 0; --n) {
        pos = Links::Next(pos);
    }
    nKind == 0   ? (void)list.insert(pos, value)
    : nKind == 1 ? list.push_back(value)
    : nKind == 2 ? (void)(pos == list.end() ? list.end() : list.erase(pos))
    : nKind == 3 ? (void)(list = other)
                 : list.clear();
}

template <class TString>
std::string Text(const TString& left, const TString& right)
{
    const auto nSize = static_cast<unsigned int>(right.size());
    const int nResult = left.compare(left.size() / 2, nSize, right.c_str(), nSize);
    return std::string(left.c_str(), left.size() + 1) + "empty "[left.empty()] +
           "<=>"[(nResult > 0) - (nResult < 0) + 1] + "ny"[left == right] +
           "ny"[left == right.c_str()];
}

template <class TList>
std::string Text(const TList& list)
{
    std::string strText = std::to_string(list.size()) + "ny"[Links::AreSound(list)];
    for (auto pos = list.begin(); pos != list.end(); pos = Links::Next(pos)) {
        strText += Text(Links::Value(pos), Links::Value(list.begin()));
    }
    return strText;
}

template <class TString, class TList>
struct Containers
{
    TString m_strings[2];
    TList m_lists[2];

    std::string Step(FuzzedDataProvider& input)
    {
        const bool bChanged = input.ConsumeBool();
        const bool bOther = input.ConsumeBool();
        TString& str = m_strings[bChanged];
        TList& list = m_lists[bChanged];
        Change(input, str, m_strings[bOther]);
        Change(input, list, m_lists[bOther], str);
        return Text(str, m_strings[bOther]) + Text(TString(str), str) + Text(list) +
               Text(TList(list));
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    FuzzedDataProvider modelInput(pData, nSize);
    Containers<String, List> containers;
    Containers<std::string, ModelList> models;
    while (input.remaining_bytes() != 0) {
        EXPECT_EQ(containers.Step(input), models.Step(modelInput));
    }
    return 0;
}
