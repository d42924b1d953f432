// Numbers in one form. The directory matches numbers byte for byte, so a host that wants
// "030 / 200-1" to find "+49 30 2001" brings both to the same form: before it stores, and before it
// asks.

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"

using namespace NS_DIRECTORY;

namespace {

// The country of the telephone.
constexpr std::string_view COUNTRY_CODE = "+49";
constexpr std::string_view INTERNATIONAL_PREFIX = "00";
constexpr std::string_view TRUNK_PREFIX = "0";

bool StartsWith(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

// What people put between digits goes; digits, a leading plus, and the star and hash of service
// codes stay.
std::string DialledDigits(std::string_view number)
{
    std::string strDigits;
    for (const char cDigit : number) {
        const bool bPlus = cDigit == '+' && strDigits.empty();
        if (bPlus || (cDigit >= '0' && cDigit <= '9') || cDigit == '*' || cDigit == '#') {
            strDigits += cDigit;
        }
    }
    return strDigits;
}

// International form with a plus. Extensions and service codes, which have no prefix, stay.
std::string Normalise(std::string_view number)
{
    std::string strDigits = DialledDigits(number);
    if (StartsWith(strDigits, INTERNATIONAL_PREFIX)) {
        return "+" + strDigits.substr(INTERNATIONAL_PREFIX.size());
    }
    if (StartsWith(strDigits, TRUNK_PREFIX)) {
        return std::string(COUNTRY_CODE) + strDigits.substr(TRUNK_PREFIX.size());
    }
    return strDigits;
}

void Store(CContactLocalManager& directory, const char* pName, const char* pNumber)
{
    ContactGeneralItemData contact;
    contact.m_strDisplayName = pName;
    contact.m_strOfficeNumber = Normalise(pNumber).c_str();
    (void)directory.AddContact("Company", contact);  // a second run finds it there
}

void Ask(const CContactLocalManager& directory, const char* pNumber)
{
    const std::string strNumber = Normalise(pNumber);
    const auto strName = directory.GetContactNameByPhoneNumber(strNumber.c_str());
    (void)std::printf("%-17s %-10s %s\n", pNumber, strNumber.c_str(),
                      strName.empty() ? "unknown" : strName.c_str());
}

}  // namespace

int main()
{
    std::filesystem::create_directories(NS_DIRECTORY::DATA_DIR);
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return 1;
    }
    Store(*pDirectory, "Anna", "030 / 200-1");
    Store(*pDirectory, "Reception", "11");
    for (const char* pNumber :
         {"+49 30 2001", "0049302001", "(030) 2001", "30 2001", "11", "*11#", "+44 30 2001"}) {
        Ask(*pDirectory, pNumber);
    }
    CContactLocalManager::ReleaseInstance();
    return 0;
}
