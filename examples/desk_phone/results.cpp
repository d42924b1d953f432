#include "desk_phone/results.h"

#include "desk_phone/screen.h"
#include "directory/contact_records.h"
#include "safekeeping/safe_copy.h"

namespace desk_phone {

namespace {

struct RefusalData
{
    int m_nCode;
    const char* m_pName;
    const char* m_pMeaning;
};

#define REFUSAL(code, meaning)             \
    {                                      \
        NS_DIRECTORY::code, #code, meaning \
    }
constexpr RefusalData REFUSALS[] = {
    REFUSAL(DIR_RET_GROUP_EXIST, "a group of that name exists already"),
    REFUSAL(DIR_RET_CONTACT_EXIST, "a contact of that name exists already"),
    REFUSAL(DIR_RET_GROUP_ID_FAIL, "there is no usable group id"),
    REFUSAL(DIR_RET_GROUP_NOT_FOUND, "there is no such group"),
    REFUSAL(DIR_RET_CONTACT_NOT_FOUND, "there is no contact of that name"),
    REFUSAL(DIR_RET_GROUP_READ_ONLY, "a fixed group stays"),
    REFUSAL(DIR_RET_CONTACT_FULL, "there is no room for more contacts"),
    REFUSAL(DIR_RET_BLACK_FULL, "the blacklist is full"),
    REFUSAL(DIR_RET_GROUP_FULL, "there is no room for more groups"),
    REFUSAL(DIR_RET_ALREADY_BLACK, "the contact is in the blacklist already"),
    REFUSAL(DIR_RET_NOT_BLACK, "there is no such contact in the blacklist"),
    REFUSAL(DIR_RET_RELOADING, "the directory takes no changes now"),
    REFUSAL(DIR_RET_NULL_ARGUMENT, "something needed was not given"),
    REFUSAL(DIR_RET_NO_MEMORY, "there is no memory for the new entry"),
    REFUSAL(DIR_RET_EMPTY_KEY, "the name is empty"),
    REFUSAL(DIR_RET_INVALID, "the name is empty, or there is no such group"),
    REFUSAL(SAFE_RET_NO_COPY, "no safe copy can be made, so nothing was changed"),
    REFUSAL(SAFE_RET_NOT_WRITTEN, "the disk did not take the change; all is as before"),
    REFUSAL(SAFE_RET_NOT_UNDONE,
            "the disk took a part of a change; the copy is put back with the next edit or start"),
};
#undef REFUSAL

std::string NameAndMeaning(const std::string& strName, int nResult, const std::string& strMeaning)
{
    return strName + " (" + std::to_string(nResult) + "): " + strMeaning;
}

}  // namespace

bool IsOfGuard(int nResult)
{
    return nResult == NS_DIRECTORY::SAFE_RET_NO_COPY ||
           nResult == NS_DIRECTORY::SAFE_RET_NOT_WRITTEN ||
           nResult == NS_DIRECTORY::SAFE_RET_NOT_UNDONE;
}

void PrintResult(int nResult, const std::string& strSuccessName, const std::string& strSuccess)
{
    if (nResult >= 0) {
        PrintText(NameAndMeaning(strSuccessName, nResult, strSuccess));
        return;
    }
    for (const RefusalData& refusal : REFUSALS) {
        if (refusal.m_nCode == nResult) {
            PrintText(NameAndMeaning(refusal.m_pName, nResult, refusal.m_pMeaning));
            return;
        }
    }
    PrintText(NameAndMeaning("result", nResult, "a refusal that this telephone does not know"));
}

}  // namespace desk_phone
