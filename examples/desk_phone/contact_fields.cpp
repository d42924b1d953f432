#include "desk_phone/contact_fields.h"

#include <climits>

#include "desk_phone/phone.h"
#include "desk_phone/screen.h"

namespace desk_phone {

namespace {

using NS_DIRECTORY::ContactGeneralItemData;

struct TextFieldData
{
    const char* m_pKey;
    qz::basic_string<char> ContactGeneralItemData::*m_pField;
};

struct NumberFieldData
{
    const char* m_pKey;
    int ContactGeneralItemData::*m_pField;
};

constexpr TextFieldData TEXT_FIELDS[] = {
    {"name", &ContactGeneralItemData::m_strDisplayName},
    {"group", &ContactGeneralItemData::m_strGroupName},
    {"mobile", &ContactGeneralItemData::m_strMobileNumber},
    {"office", &ContactGeneralItemData::m_strOfficeNumber},
    {"other", &ContactGeneralItemData::m_strOtherNumber},
    {"ring", &ContactGeneralItemData::m_strRing},
    {"photo", &ContactGeneralItemData::m_strDefaultPhoto},
};

constexpr NumberFieldData NUMBER_FIELDS[] = {
    {"line", &ContactGeneralItemData::m_nLine},
    {"selected", &ContactGeneralItemData::m_nSelectedPhoto},
};

void TakeField(const std::string& strKey, const std::string& strValue,
               ContactGeneralItemData& contact)
{
    for (const TextFieldData& field : TEXT_FIELDS) {
        if (strKey == field.m_pKey) {
            contact.*field.m_pField = ToText(strValue);
            return;
        }
    }
    for (const NumberFieldData& field : NUMBER_FIELDS) {
        if (strKey == field.m_pKey) {
            contact.*field.m_pField = ToNumber(strValue, INT_MIN, strKey);
            return;
        }
    }
    throw CWrongInput("A contact has no such field: " + strKey);
}

}  // namespace

void TakeFields(const Words& words, std::size_t nFrom, ContactGeneralItemData& contact)
{
    for (std::size_t n = nFrom; n < words.size(); ++n) {
        const std::size_t nSign = words[n].find('=');
        if (nSign == std::string::npos) {
            throw CWrongInput(
                "FIELD=VALUE is expected here, in double quotes if it holds blanks: " + words[n]);
        }
        TakeField(words[n].substr(0, nSign), words[n].substr(nSign + 1), contact);
    }
}

std::string FirstNumber(const ContactGeneralItemData& contact)
{
    for (const auto* pNumber :
         {&contact.m_strMobileNumber, &contact.m_strOfficeNumber, &contact.m_strOtherNumber}) {
        if (!pNumber->empty()) {
            return pNumber->c_str();
        }
    }
    return "";
}

void PrintContact(const ContactGeneralItemData& contact)
{
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const TextFieldData& field : TEXT_FIELDS) {
        if (!(contact.*field.m_pField).empty()) {
            pairs.emplace_back(field.m_pKey, (contact.*field.m_pField).c_str());
        }
    }
    for (const NumberFieldData& field : NUMBER_FIELDS) {
        pairs.emplace_back(field.m_pKey, std::to_string(contact.*field.m_pField));
    }
    PrintPairs(pairs);
}

}  // namespace desk_phone
