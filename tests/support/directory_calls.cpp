#include "tests/support/directory_calls.h"

#include <iterator>

namespace {

struct ResultData
{
    int m_nCode;
    std::string m_strText;

    ResultData(int nCode, const std::string& str = "") : m_nCode(nCode), m_strText(str) {}
    ResultData(const String& str) : ResultData(str.empty() ? 0 : 1, str.c_str()) {}
};

using ::Text;
std::string Text(const ContactGroupData& g)
{
    return Text(CDirectoryModel::Group{-1, g.m_strDisplayName, g.m_strRing, false});
}
std::string Text(const ContactGroupSimpleData& g)
{
    return Text(CDirectoryModel::Group{g.m_nId, g.m_strDisplayName, "", false});
}

template <class TPage, class TCall>
ResultData Page(const CallData& c, TCall call)
{
    TPage page;
    page.m_nIndexFrom = c.m_nFrom;
    page.m_nCountToGet = c.m_nCount;
    const int nCode = call(c.m_bFlag ? &page : nullptr);
    std::string strText = std::to_string(page.m_nTotalCount) + '\n';
    for (auto pos = page.m_listData.begin(); pos != page.m_listData.end(); pos = pos->next) {
        strText += Text(pos->value);
    }
    return {nCode, strText};
}
ResultData Page(const CallData& c, const Texts& entries, int nTotal)
{
    std::string strText = std::to_string(c.m_bFlag ? nTotal : 0) + '\n';
    long long n = 0;
    for (const std::string& strEntry : entries) {
        const bool bOn = n >= c.m_nFrom && n - c.m_nFrom < c.m_nCount;
        strText += c.m_bFlag && bOn ? strEntry : "";
        ++n;
    }
    return {c.m_bFlag, strText};
}
ResultData GroupPage(const CDirectoryModel& model, const CallData& c, bool bIds, bool bBlack)
{
    Texts entries;
    for (const CDirectoryModel::Group& g : model.m_groups) {
        if (bBlack || g.m_nId != 1) {
            entries.push_back(bIds ? Text(ContactGroupSimpleData{g.m_strDisplayName, g.m_nId})
                                   : Text(ContactGroupData{g.m_strDisplayName, g.m_strRing}));
        }
    }
    return Page(c, entries, model.GroupCount() - !bBlack);
}
ResultData ContactPage(const CDirectoryModel& model, const CallData& c, int nId)
{
    Texts entries;
    for (const CDirectoryModel::Item& item : model.m_items) {
        if (nId == 0 ? item.m_nGroupId != 1 : item.m_nGroupId == nId) {
            entries.push_back(model.Shown(item, {}));
        }
    }
    return model.GroupOf(nId) ? Page(c, entries, static_cast<int>(entries.size()))
                              : ResultData(0, "0\n");
}

template <class TData, class TCall>
ResultData Filled(const CallData& c, TData data, TCall call)
{
    const int nCode = call(c.m_bFlag ? &data : nullptr);
    return {nCode, Text(data)};
}
ResultData Filled(const CDirectoryModel& model, const CallData& c,
                  const CDirectoryModel::Item* pItem)
{
    const std::string strText = pItem && c.m_bFlag ? model.Shown(*pItem, c.m_contact) : "";
    return {!strText.empty(), strText.empty() ? Text(c.m_contact) : strText};
}

QZList<String> List(const Texts& names)
{
    QZList<String> list;
    std::for_each(names.begin(), names.end(), [&](auto& str) { list.push_back(str.c_str()); });
    return list;
}

int StartOver()
{
    CContactLocalManager::ReleaseInstance();
    return CContactLocalManager::GetInstance() == CContactLocalManager::GetInstance();
}

// A file as a stranger leaves it; one without text is absent.
int Plant(const char* pPath, const std::string& strText)
{
    WriteFile(pPath, strText);
    return strText.empty() && std::filesystem::remove(pPath);
}
int Plant(CDirectoryModel& model, const char* pPath, const std::string& strText)
{
    model.m_files[pPath] = strText;
    return strText.empty() && model.m_files.erase(pPath);
}

struct OperationData
{
    std::size_t m_nWeight;
    const char* m_pName;
    ResultData (*m_pReal)(CContactLocalManager& d, CallData c, QZList<String> list);
    ResultData (*m_pModel)(CDirectoryModel& m, CallData c);
};

#define DO(nWeight, Name, real, expected)                                                \
    {                                                                                    \
        nWeight, #Name,                                                                  \
            [](auto& d, CallData c, QZList<String> list) -> ResultData {                 \
                return (void)d, (void)c, (void)list, real;                               \
            },                                                                           \
            [](auto& m, CallData c) -> ResultData { return (void)m, (void)c, expected; } \
    }
#define ASK(Name, arguments, expected) DO(2, Name, d.Name arguments, expected)
#define CHANGE(nWeight, Name, arguments, expected) \
    DO(nWeight, Name, d.Name arguments, m.m_bReloadByHttp ? DIR_RET_RELOADING : expected)
#define FILL(Name, record, arguments, expected) \
    DO(2, Name, Filled(c, c.record, [&](auto* p) { return d.Name arguments; }), expected)
#define PAGE(Name, Record, arguments, expected) \
    DO(2, Name, Page<Record>(c, [&](auto* p) { return d.Name arguments; }), expected)

const OperationData OPERATIONS[] = {
    DO(2, Restart, StartOver(), m.Start()),
    DO(4, PlantGroupFile, Plant(GROUP_FILE, c.m_strFile), Plant(m, GROUP_FILE, c.m_strFile)),
    DO(1, PlantContactFile, Plant(CONTACT_FILE, c.m_strFile), Plant(m, CONTACT_FILE, c.m_strFile)),
    DO(4, SetColorful, g_device.m_bColorful = c.m_bFlag, c.m_bFlag),
    DO(4, SetSwitch, g_device.m_nConfigValue = c.m_nCount, c.m_nCount),
    DO(6, SetReloading, d.m_bReloadByHttp = c.m_nId > 4 && !c.m_bFlag,
       m.m_bReloadByHttp = c.m_nId > 4 && !c.m_bFlag),
    ASK(GetMaxGroupCount, (), m.m_nMaxGroup),
    ASK(GetMaxContactCount, (), m.m_nMaxContact),
    ASK(GetMaxBlackCount, (), m.m_nMaxBlack),
    ASK(GetCurrentGroupCount, (), m.GroupCount()),
    ASK(GetCurrentContactCount, (), m.Count(0) - m.Count(1)),
    ASK(GetCurrentBlackCount, (), m.Count(1)),
    ASK(IsReloadGroupAndItemByHttp, (), m.m_bReloadByHttp),
    ASK(ReloadGroupAndItemByHttp, (), 0),
    ASK(SaveGroupToXml, (), 1),
    ASK(SaveContactToXml, (), 1),
    DO(4, SetMaxGroupCount, d.SetMaxGroupCount(c.m_nLimit),
       std::exchange(m.m_nMaxGroup, c.m_nLimit)),
    DO(4, SetMaxContactCount, d.SetMaxContactCount(c.m_nLimit),
       std::exchange(m.m_nMaxContact, c.m_nLimit)),
    DO(4, SetMaxBlackCount, d.SetMaxBlackCount(c.m_nLimit),
       std::exchange(m.m_nMaxBlack, c.m_nLimit)),
    ASK(IsBlacklistIndex, (c.m_nFrom), c.m_nFrom == m.GroupCount() - 1),
    ASK(GetGroupIndexByName, (c.Pointer(c.m_strGroup)),
        c.m_bFlag ? std::max(m.GroupAt(c.m_strGroup), 0) : 0),
    DO(2, GetGroupNameByIndex,
       (ResultData{d.GetGroupNameByIndex(c.m_nFrom, c.m_strName), c.m_strName.c_str()}),
       c.m_nFrom < 0 || c.m_nFrom >= m.GroupCount()
           ? ResultData(0, c.m_strName.c_str())
           : ResultData(1, m.m_groups.begin()[c.m_nFrom].m_strDisplayName.c_str())),
    ASK(GetGroupIdByGroupName, (c.m_strGroup), m.GroupId(c.m_strGroup)),
    ASK(GetGIdByGName, (c.m_strGroup), m.GroupId(c.m_strGroup)),
    ASK(IsGroupExist, (c.m_strGroup), m.GroupAt(c.m_strGroup) >= 0),
    DO(2, GetBlacklistGroupName, (d.GetBlacklistGroupName(c.m_strName), c.m_strName),
       m.GroupName(1)),
    ASK(CreateContactGroupList, (c.m_strPath), m.Write(c.m_strPath.c_str(), &m.DEFAULTS, false)),
    DO(4, ReloadGroupXml, d.ReloadGroupXml(), m.ReloadGroups()),
    CHANGE(12, AddGroup, (c.m_group), m.AddGroup(c.m_group)),
    CHANGE(14, UpdateGroupData, (c.m_strGroup, c.m_group), m.UpdateGroup(c.m_strGroup, c.m_group)),
    CHANGE(4, RemoveGroup, (c.m_strGroup), m.RemoveGroup(c.m_strGroup)),
    CHANGE(1, RemoveAllGroup, (), m.RemoveAllGroups()),
    PAGE(GetGroupSimpleList, ContactGroupSimpleListData, (p),
         GroupPage(m, c, true, g_device.m_nConfigValue == 1)),
    PAGE(GetGroupList, ContactGroupListData, (p, c.m_nId > 1), GroupPage(m, c, false, false)),
    FILL(GetGroupDataByID, m_group, (p, c.m_nId),
         !c.m_bFlag || !m.GroupOf(c.m_nId)
             ? ResultData(0, Text(c.m_group))
             : ResultData(
                   1, Text(ContactGroupData{m.GroupName(c.m_nId), m.GroupOf(c.m_nId)->m_strRing}))),
    ASK(IsContactExist, (c.m_strName), m.Find(c.m_strName) != nullptr),
    ASK(GetContactGroupId, (c.m_strName), m.GroupIdOf(c.m_strName)),
    DO(4, ReloadContactXml, d.ReloadContactXml(), m.ReloadContacts()),
    CHANGE(20, AddContact, (c.m_strGroup, c.m_contact),
           m.GroupAt(c.m_strGroup) < 0 ? DIR_RET_GROUP_NOT_FOUND
                                       : m.Add(m.GroupId(c.m_strGroup), c.m_contact)),
    CHANGE(14, AddContactById, (c.m_nId, c.m_contact), m.Add(c.m_nId, c.m_contact)),
    CHANGE(8, AddBlackContact, (c.m_contact), m.Add(1, c.m_contact)),
    CHANGE(30, UpdateContactData, (c.m_strName, c.m_contact), m.Update(c.m_strName, c.m_contact)),
    CHANGE(4, RemoveContact, (c.m_strName),
           m.Remove([&](auto& i) { return i.m_strDisplayName == c.m_strName; })
               ? 1
               : DIR_RET_CONTACT_NOT_FOUND),
    CHANGE(2, RemoveContactList, (list),
           (m.Remove([&](auto& i) { return m.IsIn(c.m_names, i); }), 1)),
    DO(1, RemoveAllContacts, d.RemoveAllContacts(c.m_nId),
       m.m_bReloadByHttp
           ? 0
           : (m.Remove([&](auto& i) { return c.m_nId == 0 || i.m_nGroupId == c.m_nId; }), 1)),
    CHANGE(3, IsListCanMove, (list, c.m_strGroup), m.TestMove(c.m_names, c.m_strGroup)),
    CHANGE(5, MoveListToGroup, (list, c.m_strGroup), m.MoveNamed(c.m_names, c.m_strGroup)),
    CHANGE(5, MoveContactToGroup, (c.m_strName, c.m_strGroup),
           c.m_strName.empty() ? m.TestMove({""}, c.m_strGroup)
                               : m.MoveNamed({c.m_strName.c_str()}, c.m_strGroup)),
    DO(8, SetContactGroupId, d.SetContactGroupId(c.m_strName, c.m_nId),
       m.SetGroup(c.m_strName, c.m_nId)),
    DO(5, Black2Local, d.Black2Local(c.m_strName),
       m.GroupIdOf(c.m_strName) != 1 ? DIR_RET_NOT_BLACK : m.SetGroup(c.m_strName, 0)),
    DO(5, Local2Black, d.Local2Black(c.m_strName),
       m.Count(1) == m.m_nMaxBlack     ? DIR_RET_BLACK_FULL
       : m.GroupIdOf(c.m_strName) == 1 ? DIR_RET_ALREADY_BLACK
                                       : m.SetGroup(c.m_strName, 1)),
    FILL(GetContactDataByName, m_contact, (p, c.m_strName), Filled(m, c, m.Find(c.m_strName))),
    PAGE(GetContactList, ContactGeneralItemListData, (p, c.m_strGroup),
         ContactPage(m, c, m.GroupId(c.m_strGroup))),
    PAGE(GetContactListById, ContactGeneralItemListData, (p, c.m_nId), ContactPage(m, c, c.m_nId)),
    ASK(GetContactNameByPhoneNumber, (c.Pointer(c.m_strNumber)),
        m.FindNumber(c.Pointer(c.m_strNumber)) ? m.FindNumber(c.m_strNumber)->m_strDisplayName
                                               : String()),
    ASK(IsBlackContactNumber, (c.Pointer(c.m_strNumber)),
        m.FindNumber(c.Pointer(c.m_strNumber)) && m.FindNumber(c.m_strNumber)->m_nGroupId == 1),
    FILL(GetContactDataByNumber, m_contact, (p, c.m_strNumber.c_str()),
         Filled(m, c, m.FindNumber(c.m_strNumber))),
    FILL(GetContactData, m_contact, (p, c.m_strName, c.m_strNumber),
         Filled(m, c, m.Find(c.m_strName) ? m.Find(c.m_strName) : m.FindNumber(c.m_strNumber))),
    ASK(GetContactRingByNumber, (c.m_strNumber.c_str(), c.Pointer(c.m_strName)),
        m.Ring(m.FindNumber(c.m_strNumber))),
    ASK(GetGroupRingByContact, (c.m_strName), m.GroupName(m.GroupIdOf(c.m_strName))),
    ASK(SetDefaultPhoto, (c.Pointer(c.m_contact.m_strDefaultPhoto)),
        c.m_bFlag ? m.SetDefaultPhoto(c.m_contact.m_strDefaultPhoto) : DIR_RET_NULL_ARGUMENT),
    ASK(ExportContactAndGroup, (c.m_strPath),
        m.Write(c.m_strPath.empty() ? EXPORT_FILE : c.m_strPath.c_str(), &m.m_groups, true)),
};

// Few values for each argument, so that they meet often.
constexpr const char* NAMES[] = {"",
                                 "Anna",
                                 "anna",
                                 "Bob",
                                 "bob",
                                 "Bob",
                                 "Carl",
                                 "Dora",
                                 "J\xC3\xB6rg",
                                 "<&\"'\t>\n",
                                 "of 31 bytes and one more, at last"};
constexpr const char* GROUPS[] = {"All Contacts", "all contacts", "Blacklist", "Blacklist",
                                  "Company",      "company",      "Company",   "Family",
                                  "Friend",       "<\"&>",        ""};
constexpr const char* NUMBERS[] = {"", "1", "10", "a1", "A1", "+49 30 123456789012"};
constexpr const char* RINGS[] = {"", "absent.wav", "other.xml", CONTACT_FILE};
constexpr const char* PHOTOS[] = {"", "a.png", "A.png", "Default:default_contact_image.png"};
constexpr const char* PATHS[] = {"", "other.xml", GROUP_FILE, CONTACT_FILE};
constexpr const char* DECIMALS[] = {"0", "1", "-1", " 12x", "x", "99999999999", "-99999999999"};
constexpr int IDS[] = {-1, 0, 1, 1, 2, 3, 4, 5, 7, INT_MAX, INT_MIN};
constexpr int LIMITS[] = {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 1000, INT_MAX};

class CallMaker
{
  public:
    explicit CallMaker(const Choice& below) : m_below(below) {}

    CallData Make()
    {
        static const std::vector<std::size_t> WEIGHTED = Weighted();
        const std::size_t nOperation = WEIGHTED[Below(WEIGHTED.size())];
        CallData c = {nOperation, Name(),       Group(),   Number(),  Pick(PATHS),
                      Pick(IDS),  Pick(LIMITS), Pick(IDS), Pick(IDS), Below(6) != 0};
        c.m_group = {Group(), Pick(RINGS)};
        c.m_contact = {Name(),       Group(),     Number(),  Number(), Number(),
                       Pick(PHOTOS), Pick(RINGS), Pick(IDS), Pick(IDS)};
        c.m_contact.m_strDisplayName = Below(2) == 0 ? c.m_strName : c.m_contact.m_strDisplayName;
        c.m_contact.m_strGroupName = Below(3) == 0 ? "All Contacts" : c.m_contact.m_strGroupName;
        c.m_group.m_strDisplayName = Below(4) == 0 ? c.m_strGroup : c.m_group.m_strDisplayName;
        std::generate_n(std::back_inserter(c.m_names), Below(5), [&] { return Name(); });
        const std::string strOperation = OPERATIONS[c.m_nOperation].m_pName;
        c.m_strFile = strOperation == "PlantGroupFile"     ? File("root_group", "group")
                      : strOperation == "PlantContactFile" ? File("root_contact", "contact")
                                                           : "";
        return c;
    }

  private:
    // Each operation as often as it weighs.
    static std::vector<std::size_t> Weighted()
    {
        std::vector<std::size_t> all;
        for (std::size_t n = 0; n < std::size(OPERATIONS); ++n) {
            all.insert(all.end(), OPERATIONS[n].m_nWeight, n);
        }
        return all;
    }

    std::size_t Below(std::size_t n) { return m_below(n); }
    template <class T, std::size_t nCount>
    T Pick(const T (&values)[nCount])
    {
        return values[Below(nCount)];
    }
    const char* Name() { return Pick(NAMES); }
    const char* Group() { return Pick(GROUPS); }
    const char* Number() { return Pick(NUMBERS); }

    // A file as a stranger may leave it: absent, without its root, cut, over the limits.
    std::string File(const char* pRoot, const char* pElement)
    {
        const bool bMany = Below(30) == 0;
        pugi::xml_document document;
        pugi::xml_node root = document.append_child(Below(5) == 0 ? "other" : pRoot);
        for (std::size_t n = bMany ? 70 : Below(8); n != 0; --n) {
            const std::string strName = pElement == std::string("group") ? Group() : Name();
            pugi::xml_node node = root.append_child(Below(20) == 0 ? "other" : pElement);
            for (const auto& [pName, strValue] :
                 std::initializer_list<std::pair<const char*, std::string>>{
                     {"display_name", bMany ? "n" + std::to_string(n) : strName},
                     {"mobile_number", Number()},
                     {"line", Pick(DECIMALS)},
                     {"selected_photo", Pick(DECIMALS)},
                     {"default_photo", Pick(PHOTOS)},
                     {"read_only", Pick(DECIMALS)},
                     {"ring", Pick(RINGS)},
                     {"group_id_name", bMany && Below(4) != 0 ? "Blacklist" : Group()},
                     {"name_index", "x"}}) {
                Below(10) == 0 || (node.append_attribute(pName) = strValue.c_str());
            }
        }
        std::ostringstream text;
        document.save(text);
        const std::string strCut = text.str().substr(0, Below(text.str().size()));
        return Pick<std::string>({text.str(), text.str(), text.str(), strCut, "", "no XML"});
    }

    const Choice& m_below;
};

}  // namespace

CallData MakeCall(const Choice& below)
{
    return CallMaker(below).Make();
}

std::string Text(const CallData& c)
{
    std::ostringstream text;
    text << OPERATIONS[c.m_nOperation].m_pName << ": name '" << c.m_strName.c_str() << "' group '"
         << c.m_strGroup.c_str() << "' number '" << c.m_strNumber.c_str() << "' path '"
         << c.m_strPath.c_str() << "' id " << c.m_nId << " limit " << c.m_nLimit << " page "
         << c.m_nFrom << ',' << c.m_nCount << " flag " << c.m_bFlag << " names "
         << testing::PrintToString(c.m_names) << "\n    group " << Text(c.m_group) << "    contact "
         << Text(c.m_contact) << "    file " << c.m_strFile << '\n';
    return text.str();
}

std::string CCallReplay::Run(Calls& calls)
{
    CContactLocalManager::ReleaseInstance();
    std::filesystem::remove_all("config/data");
    std::filesystem::remove("other.xml");
    std::filesystem::create_directories("config/data");
    g_device = FakeDevice();
    CDirectoryModel model;
    model.Start();
    std::string strWrong;
    for (std::size_t n = 0; n < calls.size() && strWrong.empty(); ++n) {
        strWrong = Compare(model, calls[n]);
        calls.resize(strWrong.empty() ? calls.size() : n + 1);
    }
    return strWrong;
}

std::string CCallReplay::Compare(CDirectoryModel& model, const CallData& call)
{
    const OperationData& operation = OPERATIONS[call.m_nOperation];
    model.m_writes.clear();
    CContactLocalManager& directory = DirectoryTest::Directory();
    const FileCalls files;
    const ResultData actual = operation.m_pReal(directory, call, List(call.m_names));
    const Texts written = files.Written();
    const ResultData expected = operation.m_pModel(model, call);
    ++m_results[operation.m_pName][actual.m_nCode];
    std::string strWrong;
    const auto compare = [&](const std::string& strWhat, const auto& was, const auto& must) {
        strWrong += was == must ? ""
                                : strWhat + ":\n" + testing::PrintToString(was) + "\nmust be:\n" +
                                      testing::PrintToString(must) + '\n';
    };
    compare("result", actual.m_nCode, expected.m_nCode);
    compare("answer", actual.m_strText, expected.m_strText);
    compare("order of writes", written, model.m_writes);
    compare("memory", DirectoryTest::Memory(), model.Memory());
    for (const char* pPath : {GROUP_FILE, CONTACT_FILE, EXPORT_FILE, "other.xml"}) {
        const bool bThere = model.m_files.count(pPath) != 0;
        compare(pPath, ReadFile(pPath), bThere ? model.m_files.at(pPath) : "(no file)");
    }
    return strWrong;
}
