#include "desk_phone/phone_search.h"

#include <stdexcept>

namespace desk_phone {

void CPhoneSearch::Refresh()
{
    if (!m_bOld) {
        return;
    }
    const int nNumbers = m_numbers.Refresh(m_directory, m_strCountry.c_str());
    if (nNumbers == NS_DIRECTORY::DIR_RET_INVALID) {
        throw std::runtime_error(m_strCountry +
                                 ": no such country is known; two capital letters are, such as DE");
    }
    if (nNumbers < 0 || m_contacts.Refresh(m_directory) < 0) {
        throw std::runtime_error("there is no memory for the search");
    }
    m_bOld = false;
}

std::string CPhoneSearch::NumberOfCaller(const std::string& strNumber)
{
    if (!m_directory.GetContactNameByPhoneNumber(strNumber.c_str()).empty()) {
        return strNumber;
    }
    Refresh();
    NS_DIRECTORY::SearchMatchData match;
    return m_numbers.FindByNumber(strNumber.c_str(), &match, 1) > 0 ? match.m_pText : strNumber;
}

}  // namespace desk_phone
