// Who is calling: one search over the contact list, and the questions that start from a number.
// There is no index. A walk over a thousand contacts takes some microseconds and needs no memory,
// and the first contact in list order is the answer, in whatever order they were added.

#include <cstdint>

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/string_form.h"

namespace NS_DIRECTORY {
namespace {

using String = qz::basic_string<char>;
using Form = qz::string_form<char>;

// Out of line: few contacts get so far, and the walk keeps to its registers.
[[gnu::noinline]] bool HasNumber(const ItemData& item, const String& strNumber)
{
    return item.m_strMobileNumber == strNumber || item.m_strOfficeNumber == strNumber ||
           item.m_strOtherNumber == strNumber;
}

[[gnu::noinline]] bool HasFirstWord(const ItemData& item, std::uint64_t nWord)
{
    return Form::FirstWord(item.m_strMobileNumber) == nWord ||
           Form::FirstWord(item.m_strOfficeNumber) == nWord ||
           Form::FirstWord(item.m_strOtherNumber) == nWord;
}

std::uint64_t JoinedFirstWords(const ItemData& item)
{
    return Form::FirstWord(item.m_strMobileNumber) | Form::FirstWord(item.m_strOfficeNumber) |
           Form::FirstWord(item.m_strOtherNumber);
}

bool HasLongSize(const ItemData& item, unsigned int nSize)
{
    return Form::LongSize(item.m_strMobileNumber) == nSize ||
           Form::LongSize(item.m_strOfficeNumber) == nSize ||
           Form::LongSize(item.m_strOtherNumber) == nSize;
}

// A number that fits inside the String. A contact has it in the short form only with the number's
// first word: if the three first words together lack a bit of that word, the contact does not have
// it. In the long form, which may hold a text of any size, it has the number's size.
class CShortNumber
{
  public:
    explicit CShortNumber(const String& strNumber)
        : m_strNumber(strNumber),  // in the short form, whatever the form of strNumber
          m_nSize(m_strNumber.size()),
          m_nWord(Form::FirstWord(m_strNumber))
    {}

    bool IsIn(const ItemData& item) const
    {
        const std::uint64_t nWords = JoinedFirstWords(item);
        if (Form::IsAnyLong(nWords) && HasLongSize(item, m_nSize)) {
            return HasNumber(item, m_strNumber);
        }
        return (nWords & m_nWord) == m_nWord && HasFirstWord(item, m_nWord) &&
               HasNumber(item, m_strNumber);
    }

  private:
    String m_strNumber;
    unsigned int m_nSize;
    std::uint64_t m_nWord;
};

// A longer number. A contact has it in the long form only, with the same size and the same last
// word: the last, because numbers often begin alike.
class CLongNumber
{
  public:
    explicit CLongNumber(const String& strNumber)
        : m_strNumber(strNumber),
          m_nSize(strNumber.size()),
          m_nLastWord(Form::LastWord(strNumber, m_nSize))
    {}

    bool IsIn(const ItemData& item) const
    {
        return (MayBe(item.m_strMobileNumber) || MayBe(item.m_strOfficeNumber) ||
                MayBe(item.m_strOtherNumber)) &&
               HasNumber(item, m_strNumber);
    }

  private:
    // The size first, whatever the form: it rules out most texts alone.
    bool MayBe(const String& text) const
    {
        return Form::LongSize(text) == m_nSize && Form::IsLong(text) &&
               Form::LastWord(text, m_nSize) == m_nLastWord;
    }

    const String& m_strNumber;
    unsigned int m_nSize;
    std::uint64_t m_nLastWord;
};

// The first contact in the list counts, but the walk goes from both ends at once: each step of a
// walk waits for memory, and two walks wait at the same time. In a list of odd length they meet at
// the contact in the middle.
template <class Number>
ItemData* FindFirst(const ItemDataList& list, const Number& number)
{
    ItemData* pFromBack = nullptr;
    auto posFront = list.begin();
    auto posBack = list.end()->prev;
    for (unsigned int nSteps = (list.size() + 1) / 2; nSteps != 0; --nSteps) {
        if (number.IsIn(*posFront->value)) {
            return posFront->value;
        }
        if (number.IsIn(*posBack->value)) {
            pFromBack = posBack->value;
        }
        posFront = posFront->next;
        posBack = posBack->prev;
    }
    return pFromBack;
}

}  // namespace

CContactLocalManager::ItemData* CContactLocalManager::MyFindContactByNumber(
    const qz::basic_string<char>& strNumber, const qz::basic_string<char>& strSecond) const
{
    (void)strSecond;  // not used
    if (strNumber.empty()) {
        return nullptr;  // or it would match every empty field
    }
    return Form::FitsInside(strNumber) ? FindFirst(m_listContact, CShortNumber(strNumber))
                                       : FindFirst(m_listContact, CLongNumber(strNumber));
}

qz::basic_string<char> CContactLocalManager::GetContactNameByPhoneNumber(const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem == nullptr ? qz::basic_string<char>() : pItem->m_strDisplayName;
}

bool CContactLocalManager::IsBlackContactNumber(const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem != nullptr && IsBlack(pItem->m_nGroupId);
}

int CContactLocalManager::GetContactDataByNumber(ContactGeneralItemData* pData,
                                                 const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem == nullptr ? DIR_RET_NONE : MyID2CGID(pData, *pItem);
}

int CContactLocalManager::GetContactData(ContactGeneralItemData* pData,
                                         const qz::basic_string<char>& strName,
                                         const qz::basic_string<char>& strNumber) const
{
    const ItemData* pItem = MyFindContact(strName);
    if (pItem != nullptr) {
        return MyID2CGID(pData, *pItem);
    }
    // As a text: bytes after a NUL are no part of the number.
    return GetContactDataByNumber(pData, strNumber.c_str());
}

}  // namespace NS_DIRECTORY
