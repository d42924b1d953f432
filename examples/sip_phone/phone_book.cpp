#include "sip_phone/phone_book.h"

#include "desk_phone/call_window.h"
#include "sip_phone/caller_number.h"

namespace sip_phone {

using NS_DIRECTORY::CContactLocalManager;

CPhoneBook::CPhoneBook(CContactLocalManager& directory, NS_DIRECTORY::CSafeCopy& safe,
                       const std::string& strCountry)
    : m_directory(directory),
      m_safe(safe),
      m_strCountry(strCountry),
      m_search(directory, strCountry)
{
    m_search.Refresh();
}

std::string CPhoneBook::Number(const std::string& strText) const
{
    return ToNumber(strText, m_strCountry);
}

bool CPhoneBook::IsBlocked(const std::string& strNumber)
{
    return m_directory.IsBlackContactNumber(MyStored(strNumber).c_str());
}

std::string CPhoneBook::Name(const std::string& strNumber)
{
    return m_directory.GetContactNameByPhoneNumber(MyStored(strNumber).c_str()).c_str();
}

std::string CPhoneBook::Ring(const std::string& strNumber)
{
    return m_directory.GetContactRingByNumber(MyStored(strNumber).c_str(), nullptr).c_str();
}

void CPhoneBook::PrintCall(const std::string& strNumber, const std::string& strAddress)
{
    desk_phone::PrintCall(m_directory, MyStored(strNumber),
                          strNumber.empty() ? strAddress : strNumber);
}

int CPhoneBook::Block(const std::string& strNumber)
{
    const auto strName = m_directory.GetContactNameByPhoneNumber(MyStored(strNumber).c_str());
    m_search.NoteEdit();
    return m_safe.Edit([&](CContactLocalManager& directory) {
        if (!strName.empty()) {
            return directory.Local2Black(strName);
        }
        NS_DIRECTORY::ContactGeneralItemData contact;
        contact.m_strDisplayName = strNumber.c_str();
        contact.m_strOtherNumber = strNumber.c_str();
        return directory.AddBlackContact(contact);
    });
}

std::string CPhoneBook::MyStored(const std::string& strNumber)
{
    return m_search.NumberOfCaller(strNumber);
}

}  // namespace sip_phone
