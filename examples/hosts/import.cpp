// An import that puts every row somewhere or says why not, and tells a full directory from a bad
// row: after some refusals the next row may still fit, after others nothing will.

#include <cstdio>
#include <filesystem>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"

using namespace NS_DIRECTORY;

namespace {

struct Row
{
    const char* m_pName;
    const char* m_pGroup;
    const char* m_pNumber;
};

constexpr Row ROWS[] = {
    {"Anna", "Family", "201"},      // as it should be
    {"", "Family", "202"},          // no name: no later call could select it
    {"Bob", "Choir", "203"},        // a new group
    {"Carl", "COMPANY", "204"},     // there is a group "Company", and that is the one meant
    {"ANNA", "Family", "205"},      // differs from "Anna" in case only
    {"Spammer", "Blacklist", "1"},  // blocked from now on
    {"Scammer", "Blacklist", "2"},  // no room in the blacklist, but the rest goes on
    {"Dora", "", "206"},            // no group
    {"Eve", "Chess", "207"},        // no room for the group
    {"Frank", "Family", "208"},     // no room for the contact: the end
    {"Gina", "Family", "209"}};

constexpr char NO_GROUP[] = "All Contacts";

enum class Outcome
{
    TAKEN,
    SKIPPED,
    STOP
};

Outcome Skip(const Row& row, const char* pReason)
{
    (void)std::printf("\"%s\" left out: %s\n", row.m_pName, pReason);
    return Outcome::SKIPPED;
}

Outcome Stop(const Row& row, const char* pReason)
{
    (void)std::printf("stopped at \"%s\": %s\n", row.m_pName, pReason);
    return Outcome::STOP;
}

// Names of groups that differ in case only cannot both exist: the one that is there is meant.
qz::basic_string<char> FindAlike(const CContactLocalManager& directory, const char* pGroup)
{
    const auto strWanted = commonAPI_StringConvert(pGroup, STRING_CONVERT_TO_LOWER);
    qz::basic_string<char> strName;
    for (int nIndex = 0; directory.GetGroupNameByIndex(nIndex, strName) == DIR_RET_OK; ++nIndex) {
        if (commonAPI_StringConvert(strName, STRING_CONVERT_TO_LOWER) == strWanted) {
            return strName;
        }
    }
    return {};
}

const char* ReasonOf(int nRefusal)
{
    switch (nRefusal) {
        case DIR_RET_GROUP_FULL:
            return "there are too many groups";
        case DIR_RET_RELOADING:
            return "the directory takes no changes now";
        case DIR_RET_NO_MEMORY:
            return "no memory";
        default:  // a name that exists or is empty does not come this far
            return "no id for it";
    }
}

// The name of the group in which the row can stand; it is made where it is missing.
qz::basic_string<char> GroupFor(CContactLocalManager& directory, const Row& row)
{
    if (*row.m_pGroup == '\0') {
        return NO_GROUP;
    }
    const qz::basic_string<char> strAlike = FindAlike(directory, row.m_pGroup);
    if (!strAlike.empty()) {
        return strAlike;
    }
    ContactGroupData group;
    group.m_strDisplayName = row.m_pGroup;
    const int nAdded = directory.AddGroup(group);
    if (nAdded < 0) {
        (void)std::printf("no group \"%s\" for \"%s\": %s\n", row.m_pGroup, row.m_pName,
                          ReasonOf(nAdded));
        return NO_GROUP;
    }
    return row.m_pGroup;
}

Outcome Import(CContactLocalManager& directory, const Row& row)
{
    if (*row.m_pName == '\0') {
        return Skip(row, "it has no name");
    }
    ContactGeneralItemData contact;
    contact.m_strDisplayName = row.m_pName;
    contact.m_strMobileNumber = row.m_pNumber;
    // Adding the group first: it renumbers the groups, so the contact goes in by the group's name.
    switch (directory.AddContact(GroupFor(directory, row), contact)) {
        case DIR_RET_CONTACT_EXIST:
            return Skip(row, "a contact has this name but for case");
        case DIR_RET_BLACK_FULL:
            return Skip(row, "the blacklist is full");
        case DIR_RET_CONTACT_FULL:
            return Stop(row, "the directory is full");
        case DIR_RET_NO_MEMORY:
            return Stop(row, "no memory");
        case DIR_RET_RELOADING:
            return Stop(row, "the directory takes no changes now");
        case DIR_RET_GROUP_NOT_FOUND:  // the group list is empty: its file was broken
        case DIR_RET_GROUP_ID_FAIL:
            return Stop(row, "the groups are missing");
        default:
            return Outcome::TAKEN;
    }
}

void ImportAll(CContactLocalManager& directory)
{
    int nTaken = 0;
    for (const Row& row : ROWS) {
        const Outcome outcome = Import(directory, row);
        nTaken += outcome == Outcome::TAKEN ? 1 : 0;
        if (outcome == Outcome::STOP) {
            break;
        }
    }
    (void)std::printf("%d of %d rows taken; \"Bob\" stands in \"%s\", \"Carl\" in \"%s\"\n", nTaken,
                      static_cast<int>(sizeof(ROWS) / sizeof(ROWS[0])),
                      directory.GetGroupRingByContact("Bob").c_str(),
                      directory.GetGroupRingByContact("Carl").c_str());
}

}  // namespace

int main()
{
    std::filesystem::create_directories(NS_DIRECTORY::DATA_DIR);
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return 1;
    }
    // Small limits, so that a few rows meet them all.
    (void)pDirectory->SetMaxGroupCount(6);
    (void)pDirectory->SetMaxContactCount(5);
    (void)pDirectory->SetMaxBlackCount(1);
    ImportAll(*pDirectory);
    CContactLocalManager::ReleaseInstance();
    return 0;
}
