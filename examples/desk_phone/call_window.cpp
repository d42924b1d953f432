#include "desk_phone/call_window.h"

#include <vector>

#include "desk_phone/screen.h"

namespace desk_phone {

namespace {

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::ContactGeneralItemData;

std::string KindOfNumber(const ContactGeneralItemData& contact, const std::string& strNumber)
{
    if (strNumber == contact.m_strMobileNumber.c_str()) {
        return "mobile";
    }
    return strNumber == contact.m_strOfficeNumber.c_str() ? "office" : "other";
}

// Who calls, in the lines of the screen.
std::vector<std::string> CallerLines(const CContactLocalManager& directory,
                                     const std::string& strNumber, const std::string& strCalling)
{
    ContactGeneralItemData contact;
    if (strNumber.empty()) {
        return {"Caller without a number", strCalling};
    }
    if (directory.GetContactDataByNumber(&contact, strNumber.c_str()) != NS_DIRECTORY::DIR_RET_OK) {
        return {"Unknown caller", strNumber};
    }
    std::vector<std::string> lines = {contact.m_strDisplayName.c_str(),
                                      KindOfNumber(contact, strNumber) + " " + strNumber,
                                      contact.m_strGroupName.c_str()};
    if (!contact.m_strDefaultPhoto.empty()) {
        lines.push_back(std::string("Photo: ") + contact.m_strDefaultPhoto.c_str());
    }
    if (strNumber != strCalling) {
        lines.push_back("Calls as " + strCalling);
    }
    return lines;
}

std::string RingLine(const CContactLocalManager& directory, const std::string& strNumber)
{
    const qz::basic_string<char> strRing =
        directory.GetContactRingByNumber(strNumber.c_str(), nullptr);
    return strRing.empty() ? "Ring: the telephone's own" : std::string("Ring: ") + strRing.c_str();
}

}  // namespace

void PrintCall(const CContactLocalManager& directory, const std::string& strNumber,
               const std::string& strCalling)
{
    const bool bBlocked = directory.IsBlackContactNumber(strNumber.c_str());
    std::vector<std::string> lines = CallerLines(directory, strNumber, strCalling);
    lines.insert(lines.begin(), {bBlocked ? "BLOCKED CALL" : "INCOMING CALL", ""});
    lines.emplace_back();
    lines.push_back(bBlocked ? "The telephone stays silent." : RingLine(directory, strNumber));
    PrintBox(lines);
}

}  // namespace desk_phone
