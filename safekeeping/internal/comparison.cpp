// Each entry of a file, group or contact, is an array of texts and numbers; so is each one that the
// directory hands out. The entries of the file are sorted, and each one of memory strikes its
// equal.
//
// What memory does not hand out is not compared: the read-only mark of a group, the names of
// missing groups that contacts keep, photos on a plain screen. Over an empty group list contacts
// are known by name only.

#include "safekeeping/internal/comparison.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>
#include <pugixml.hpp>

#include "platform/device_services.h"
#include "safekeeping/internal/manifest.h"

namespace NS_DIRECTORY {
namespace {

struct FormNamesData
{
    const char* m_pRoot;
    const char* m_pElement;
};

constexpr FormNamesData FORM_NAMES[SAFE_FILE_COUNT] = {{"root_group", "group"},
                                                       {"root_contact", "contact"}};

constexpr int TEXT_COUNT = 7;
constexpr int NUMBER_COUNT = 2;
constexpr int PAGE_SIZE = 64;
constexpr int DECIMAL = 10;

// The places of the texts that the comparison itself looks at.
constexpr int TEXT_NAME = 0;
constexpr int TEXT_RING = 1;
constexpr int TEXT_GROUP = 2;

struct EntryData
{
    const char* m_arrText[TEXT_COUNT] = {"", "", "", "", "", "", ""};
    int m_arrNumber[NUMBER_COUNT] = {};
    bool m_bStruck = false;
};

int Order(const EntryData& left, const EntryData& right)
{
    for (int n = 0; n < TEXT_COUNT; ++n) {
        const int nOrder = std::strcmp(left.m_arrText[n], right.m_arrText[n]);
        if (nOrder != 0) {
            return nOrder;
        }
    }
    for (int n = 0; n < NUMBER_COUNT; ++n) {
        if (left.m_arrNumber[n] != right.m_arrNumber[n]) {
            return left.m_arrNumber[n] < right.m_arrNumber[n] ? -1 : 1;
        }
    }
    return 0;
}

bool IsBefore(const EntryData& left, const EntryData& right)
{
    return Order(left, right) < 0;
}

// The entries of a file. Their texts live as long as the document.
class CEntries
{
  public:
    explicit CEntries(std::size_t nRoom)
        : m_pBegin(new (std::nothrow) EntryData[nRoom + 1]), m_pEnd(m_pBegin)
    {}
    ~CEntries() { delete[] m_pBegin; }
    CEntries(const CEntries&) = delete;
    CEntries& operator=(const CEntries&) = delete;

    bool HasRoom() const { return m_pBegin != nullptr; }
    EntryData& Append() { return *m_pEnd++; }
    void Sort() { std::sort(m_pBegin, m_pEnd, IsBefore); }

    EntryData* begin() const { return m_pBegin; }
    EntryData* end() const { return m_pEnd; }

    // False if no equal one is left.
    bool Strike(const EntryData& entry)
    {
        EntryData* pEntry = std::lower_bound(m_pBegin, m_pEnd, entry, IsBefore);
        while (pEntry != m_pEnd && pEntry->m_bStruck) {
            ++pEntry;
        }
        if (pEntry == m_pEnd || Order(*pEntry, entry) != 0) {
            return false;
        }
        pEntry->m_bStruck = true;
        return true;
    }

  private:
    EntryData* m_pBegin;
    EntryData* m_pEnd;
};

struct TextData
{
    TextData() = default;
    TextData(const TextData&) = delete;
    TextData& operator=(const TextData&) = delete;
    ~TextData() { std::free(m_pText); }

    char* m_pText = nullptr;
};

// A file's document. The text is parsed in place, since a copy would take as much memory again, so
// it must outlive the document.
struct DocumentData
{
    TextData m_text;
    pugi::xml_document m_document;
};

FileForm Parse(const CFolder& folder, const char* pName, int nFile, DocumentData& data)
{
    std::size_t nSize = 0;
    if (!folder.ReadText(pName, &data.m_text.m_pText, nSize)) {
        return FileForm::UNKNOWN;
    }
    if (data.m_text.m_pText == nullptr) {
        return FileForm::ABSENT;
    }
    pugi::xml_document& document = data.m_document;
    const pugi::xml_parse_result status = document.load_buffer_inplace(data.m_text.m_pText, nSize);
    if (status.status == pugi::status_out_of_memory) {
        return FileForm::UNKNOWN;
    }
    const bool bRoot = !document.child(FORM_NAMES[nFile].m_pRoot).empty();
    return status && bRoot ? FileForm::WHOLE : FileForm::BROKEN;
}

std::size_t CountElements(pugi::xml_node root, const char* pElement)
{
    std::size_t nCount = 0;
    for (pugi::xml_node element = root.child(pElement); !element.empty();
         element = element.next_sibling(pElement)) {
        ++nCount;
    }
    return nCount;
}

// -- Groups --

EntryData GroupEntry(const char* pName, const char* pRing)
{
    EntryData entry;
    entry.m_arrText[TEXT_NAME] = pName;
    entry.m_arrText[TEXT_RING] = pRing;
    return entry;
}

// A load makes the fixed groups itself, whatever the file says of them.
bool IsFixedName(const CContactLocalManager& directory, const char* pName)
{
    const int nId = directory.GetGroupIdByGroupName(pName);
    return nId == GROUP_ID_ALL || nId == GROUP_ID_BLACKLIST;
}

// True if the file holds the group at that place of the list.
bool StrikeGroup(const CContactLocalManager& directory, int nIndex, CEntries& entries)
{
    ContactGroupData group;
    (void)directory.GetGroupNameByIndex(nIndex, group.m_strDisplayName);  // it is there
    const int nId = directory.GetGroupIdByGroupName(group.m_strDisplayName);
    (void)directory.GetGroupDataByID(&group, nId);
    const bool bFixed = nId == GROUP_ID_ALL || nId == GROUP_ID_BLACKLIST;
    // The file keeps the ring of a fixed group, and every load loses it.
    return (bFixed && group.m_strRing.empty()) ||
           entries.Strike(GroupEntry(group.m_strDisplayName.c_str(), group.m_strRing.c_str()));
}

void CompareGroups(const CContactLocalManager& directory, pugi::xml_node root, CEntries& entries,
                   ComparisonData& result)
{
    for (const pugi::xml_node element : root.children(FORM_NAMES[SAFE_GROUPS].m_pElement)) {
        entries.Append() = GroupEntry(element.attribute("display_name").value(),
                                      element.attribute("ring").value());
    }
    entries.Sort();
    const int nCount = directory.GetCurrentGroupCount();
    // Without a root a load finds no groups at all, the fixed ones neither.
    result.m_bMemoryAhead = root.empty() && nCount > 0;
    for (int nIndex = 0; nIndex < nCount; ++nIndex) {
        result.m_bMemoryAhead = !StrikeGroup(directory, nIndex, entries) || result.m_bMemoryAhead;
    }
    result.m_bFileAhead = std::any_of(entries.begin(), entries.end(), [&](const EntryData& entry) {
        return !entry.m_bStruck && !IsFixedName(directory, entry.m_arrText[TEXT_NAME]);
    });
}

// -- Contacts --

int ToNumber(const char* pText)
{
    const long nValue = std::strtol(pText, nullptr, DECIMAL);
    return static_cast<int>(
        std::clamp(nValue, static_cast<long>(INT_MIN), static_cast<long>(INT_MAX)));
}

void TakePhoto(EntryData& entry, const char* pPhoto, int nSelected)
{
    if (IsColorfulScreen() != 0) {
        entry.m_arrText[6] = pPhoto;
        entry.m_arrNumber[1] = nSelected;
    }
}

EntryData ContactEntry(pugi::xml_node element)
{
    EntryData entry;
    entry.m_arrText[TEXT_NAME] = element.attribute("display_name").value();
    entry.m_arrText[TEXT_RING] = element.attribute("ring").value();
    entry.m_arrText[TEXT_GROUP] = element.attribute("group_id_name").value();
    entry.m_arrText[3] = element.attribute("office_number").value();
    entry.m_arrText[4] = element.attribute("mobile_number").value();
    entry.m_arrText[5] = element.attribute("other_number").value();
    entry.m_arrNumber[0] = ToNumber(element.attribute("line").value());
    TakePhoto(entry, element.attribute("default_photo").value(),
              ToNumber(element.attribute("selected_photo").value()));
    return entry;
}

EntryData ContactEntry(const ContactGeneralItemData& contact)
{
    EntryData entry;
    entry.m_arrText[TEXT_NAME] = contact.m_strDisplayName.c_str();
    entry.m_arrText[TEXT_RING] = contact.m_strRing.c_str();
    entry.m_arrText[TEXT_GROUP] = contact.m_strGroupName.c_str();
    entry.m_arrText[3] = contact.m_strOfficeNumber.c_str();
    entry.m_arrText[4] = contact.m_strMobileNumber.c_str();
    entry.m_arrText[5] = contact.m_strOtherNumber.c_str();
    entry.m_arrNumber[0] = contact.m_nLine;
    TakePhoto(entry, contact.m_strDefaultPhoto.c_str(), contact.m_nSelectedPhoto);
    return entry;
}

int StrikePage(const ContactGeneralItemListData& page, CEntries& entries)
{
    int nStruck = 0;
    for (auto pos = page.m_listData.begin(); pos != page.m_listData.end(); pos = pos->next) {
        nStruck += entries.Strike(ContactEntry(pos->value)) ? 1 : 0;
    }
    return nStruck;
}

// Strikes the contacts of one list and returns how many matched. By pages, since a page takes
// memory.
int StrikeList(const CContactLocalManager& directory, int nGroupId, CEntries& entries)
{
    int nStruck = 0;
    int nTotal = 1;
    for (int nFrom = 0; nFrom < nTotal; nFrom += PAGE_SIZE) {
        ContactGeneralItemListData page;
        page.m_nIndexFrom = nFrom;
        page.m_nCountToGet = PAGE_SIZE;
        (void)directory.GetContactListById(&page, nGroupId);  // both groups are there
        nStruck += StrikePage(page, entries);
        nTotal = page.m_nTotalCount;
    }
    return nStruck;
}

// A contact that is not handed out has a missing group, which no file names.
bool StrikeAllContacts(const CContactLocalManager& directory, int nCount, CEntries& entries)
{
    return StrikeList(directory, GROUP_ID_ALL, entries) +
               StrikeList(directory, GROUP_ID_BLACKLIST, entries) ==
           nCount;
}

// A contact without a name cannot be asked for: one of them counts as known.
bool StrikeNames(const CContactLocalManager& directory, int nCount, CEntries& entries)
{
    int nKnown = 0;
    const char* pLast = nullptr;
    for (EntryData& entry : entries) {
        const char* pName = entry.m_arrText[TEXT_NAME];
        const bool bSecond = pLast != nullptr && std::strcmp(pName, pLast) == 0;
        entry.m_bStruck = !bSecond && (*pName == '\0' || directory.IsContactExist(pName));
        nKnown += entry.m_bStruck ? 1 : 0;
        pLast = pName;
    }
    return nKnown >= nCount;
}

void CompareContacts(const CContactLocalManager& directory, pugi::xml_node root, CEntries& entries,
                     ComparisonData& result)
{
    qz::basic_string<char> strAll;
    const bool bGroups = directory.GetGroupNameByIndex(0, strAll) == DIR_RET_OK;
    for (const pugi::xml_node element : root.children(FORM_NAMES[SAFE_CONTACTS].m_pElement)) {
        EntryData& entry = entries.Append() = ContactEntry(element);
        if (!directory.IsGroupExist(entry.m_arrText[TEXT_GROUP])) {
            entry.m_arrText[TEXT_GROUP] = strAll.c_str();  // a load puts it there
            ++result.m_nStrays;
        }
    }
    entries.Sort();
    const int nCount = directory.GetCurrentContactCount() + directory.GetCurrentBlackCount();
    result.m_bMemoryAhead = bGroups ? !StrikeAllContacts(directory, nCount, entries)
                                    : !StrikeNames(directory, nCount, entries);
    result.m_bFileAhead = std::any_of(entries.begin(), entries.end(),
                                      [](const EntryData& entry) { return !entry.m_bStruck; });
}

}  // namespace

FileForm ReadForm(const CFolder& folder, const char* pName, int nFile)
{
    DocumentData data;
    return Parse(folder, pName, nFile, data);
}

ComparisonData Compare(const CContactLocalManager& directory, const CFolder& folder,
                       const char* pName, int nFile)
{
    ComparisonData result;
    DocumentData data;
    const FileForm form = Parse(folder, pName, nFile, data);
    const pugi::xml_node root = data.m_document.child(FORM_NAMES[nFile].m_pRoot);
    const std::size_t nCount = CountElements(root, FORM_NAMES[nFile].m_pElement);
    CEntries entries(nCount);
    if (form == FileForm::UNKNOWN || !entries.HasRoom()) {
        return result;
    }
    result.m_form = form;
    result.m_nEntries = static_cast<int>(nCount);
    if (nFile == SAFE_GROUPS) {
        CompareGroups(directory, root, entries, result);
    } else {
        CompareContacts(directory, root, entries, result);
    }
    return result;
}

}  // namespace NS_DIRECTORY
