#include "tests/support/directory_calls.h"

#include <iterator>

#include "tests/support/directory_model.h"

std::map<std::string, std::map<int, unsigned long>> g_results;

namespace {

using Model = CDirectoryModel;

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
    return Text(Model::Group{-1, g.m_strDisplayName, g.m_strRing, false});
}
std::string Text(const ContactGroupSimpleData& g)
{
    return Text(Model::Group{g.m_nId, g.m_strDisplayName, "", false});
}
template <class TPage>
auto Text(const TPage& page) -> decltype(page.m_listData, std::string())
{
    std::string strText = std::to_string(page.m_nTotalCount) + '\n';
    (void)TextsOf(page.m_listData, [&](auto& entry) { return strText += Text(entry); });
    return strText;
}

// What the call fills; without the flag it gets none to fill.
template <class TData, class TCall>
ResultData Filled(const CallData& c, TData data, TCall call)
{
    const int nCode = call(c.m_bFlag ? &data : nullptr);
    return {nCode, Text(data)};
}
template <class TPage>
TPage PageOf(const CallData& c)
{
    TPage page;
    page.m_listData.push_back({});  // pages add up
    page.m_nIndexFrom = c.m_nFrom;
    page.m_nCountToGet = c.m_nCount;
    return page;
}

// The same from the model.
ResultData Filled(const Model& m, const CallData& c, const Model::Item& item)
{
    return {c.m_bFlag && m.HasGroup(item),
            Text(c.m_bFlag ? m.Shown(item, c.m_contact) : c.m_contact)};
}
ResultData Page(const CallData& c, bool bAnswered, const std::string& strFirst,
                const Texts& entries, int nTotal)
{
    std::string strText = std::to_string(bAnswered ? nTotal : 0) + '\n' + strFirst;
    for (long long n = 0; bAnswered && n < static_cast<long long>(entries.size()); ++n) {
        const bool bOn = n >= c.m_nFrom && n - c.m_nFrom < c.m_nCount;
        strText += bOn ? entries[static_cast<std::size_t>(n)] : "";
    }
    return {bAnswered, strText};
}
ResultData GroupPage(const Model& m, const CallData& c, bool bIds, bool bBlack)
{
    Texts entries;
    for (const Model::Group& g : m.m_groups) {
        const Model::Group shown = {bIds ? g.m_nId : -1, g.m_strDisplayName,
                                    bIds ? "" : g.m_strRing};
        bBlack || g.m_nId != 1 ? entries.push_back(Text(shown)) : void();
    }
    return Page(c, c.m_bFlag, Text(Model::Group()), entries, m.GroupCount() - !bBlack);
}
ResultData ContactPage(const Model& m, const CallData& c, int nId)
{
    Texts entries;
    for (const Model::Item& item : m.m_items) {
        const bool bIn = nId == 0 ? item.m_nGroupId != 1 : item.m_nGroupId == nId;
        // Without its group it is only counted.
        bIn ? entries.push_back(m.HasGroup(item) ? Text(m.Shown(item, {})) : "") : void();
    }
    return Page(c, c.m_bFlag && m.GroupOf(nId).m_nId >= 0, Text(Model::Contact()), entries,
                static_cast<int>(entries.size()));
}

// The record as it stands, but for one field.
Model::Contact WithOneOf(const CallData& c, Model::Contact data)
{
    const auto [pName, pText, pNumber] = Fields(true)[c.m_nField];
    pText ? void(data.*pText = c.m_contact.*pText) : void(data.*pNumber = c.m_contact.*pNumber);
    return data;
}
Model::Contact Stored(const Manager& d, const CallData& c)
{
    Model::Contact data;
    (void)d.GetContactDataByName(&data, c.m_strName);
    return data;
}

struct OperationData
{
    std::size_t m_nWeight;
    const char* m_pName;
    ResultData (*m_pReal)(Manager& d, CallData c, QZList<String> list);
    ResultData (*m_pModel)(Model& m, CallData c);
};

// clang-format off
#define DO(nWeight, Name, real, expected)                                                                                \
    {nWeight, #Name,                                                                                                     \
     [](auto& d, CallData c, QZList<String> list) -> ResultData { return (void)d, (void)c, (void)list, real; },          \
     [](auto& m, CallData c) -> ResultData { return (void)m, (void)c, expected; }}
#define ASK(Name, arguments, expected) DO(2, Name, d.Name arguments, expected)
#define CHANGE(nWeight, Name, arguments, expected) \
    DO(nWeight, Name, d.Name arguments, (m.Refuse(m.m_bReloadByHttp, DIR_RET_RELOADING), expected))
#define FILL(Name, data, arguments, expected) \
    DO(2, Name, Filled(c, data, [&](auto* p) { return d.Name arguments; }), expected)

const OperationData OPERATIONS[] = {
    DO(2, Restart, (DirectoryTest::Restart(), 1), m.Start()),
    DO(5, PlantFile, (WriteFile(c.m_strPath.c_str(), c.m_strFile), 0), (m.m_files[c.m_strPath.c_str()] = c.m_strFile, 0)),
    DO(2, RemoveFile, std::filesystem::remove(c.m_strPath.c_str()), m.m_files.erase(c.m_strPath.c_str()) != 0),
    DO(4, SetColorful, g_device.m_bColorful = c.m_bFlag, c.m_bFlag),
    DO(4, SetSwitch, g_device.m_nConfigValue = c.m_nCount, c.m_nCount),
    DO(6, SetReloading, d.m_bReloadByHttp = c.m_nId > 4 && !c.m_bFlag, m.m_bReloadByHttp = c.m_nId > 4 && !c.m_bFlag),
    DO(4, SetMaxGroupCount, d.SetMaxGroupCount(c.m_nLimit), std::exchange(m.m_nMaxGroup, c.m_nLimit)),
    DO(4, SetMaxContactCount, d.SetMaxContactCount(c.m_nLimit), std::exchange(m.m_nMaxContact, c.m_nLimit)),
    DO(4, SetMaxBlackCount, d.SetMaxBlackCount(c.m_nLimit), std::exchange(m.m_nMaxBlack, c.m_nLimit)),
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

    ASK(IsBlacklistIndex, (c.m_nFrom), c.m_nFrom == m.GroupCount() - 1),
    ASK(GetGroupIndexByName, (c.Pointer(c.m_strGroup)), c.m_bFlag && m.GroupId(c.m_strGroup) >= 0 ? m.GroupAt(c.m_strGroup) : 0),
    DO(2, GetGroupNameByIndex, (ResultData{d.GetGroupNameByIndex(c.m_nFrom, c.m_strName), c.m_strName.c_str()}),
       c.m_nFrom >= 0 && c.m_nFrom < m.GroupCount() ? ResultData(1, m.m_groups.begin()[c.m_nFrom].m_strDisplayName.c_str())
                                                    : ResultData(0, c.m_strName.c_str())),
    ASK(GetGroupIdByGroupName, (c.m_strGroup), m.GroupId(c.m_strGroup)),
    ASK(GetGIdByGName, (c.m_strGroup), m.GroupId(c.m_strGroup)),
    ASK(IsGroupExist, (c.m_strGroup), m.GroupId(c.m_strGroup) >= 0),
    DO(2, GetBlacklistGroupName, (d.GetBlacklistGroupName(c.m_strName), c.m_strName), m.GroupName(1)),
    ASK(CreateContactGroupList, (c.m_strPath), m.WriteDefaults(c.m_strPath.c_str())),
    DO(4, ReloadGroupXml, d.ReloadGroupXml(), m.ReloadGroups()),
    CHANGE(12, AddGroup, (c.m_group), m.AddGroup(c.m_group)),
    CHANGE(14, UpdateGroupData, (c.m_strGroup, c.m_group), m.UpdateGroup(c.m_strGroup, c.m_group)),
    CHANGE(4, RemoveGroup, (c.m_strGroup), m.RemoveGroup(c.m_strGroup)),
    CHANGE(1, RemoveAllGroup, (), m.RemoveAllGroups()),
    FILL(GetGroupSimpleList, PageOf<ContactGroupSimpleListData>(c), (p), GroupPage(m, c, true, g_device.m_nConfigValue == 1)),
    FILL(GetGroupList, PageOf<ContactGroupListData>(c), (p, c.m_nId > 1), GroupPage(m, c, false, false)),
    FILL(GetGroupDataByID, c.m_group, (p, c.m_nId),
         !c.m_bFlag || m.GroupOf(c.m_nId).m_nId < 0 ? ResultData(0, Text(c.m_group))
         : ResultData(1, Text(ContactGroupData{m.GroupName(c.m_nId), m.GroupOf(c.m_nId).m_strRing}))),

    ASK(IsContactExist, (c.m_strName), m.GroupIdOf(c.m_strName) >= 0),
    ASK(GetContactGroupId, (c.m_strName), m.GroupIdOf(c.m_strName)),
    DO(4, ReloadContactXml, d.ReloadContactXml(), m.ReloadContacts()),
    CHANGE(20, AddContact, (c.m_strGroup, c.m_contact),
           m.GroupId(c.m_strGroup) < 0 ? DIR_RET_GROUP_NOT_FOUND : m.Add(m.GroupId(c.m_strGroup), c.m_contact)),
    CHANGE(14, AddContactById, (c.m_nId, c.m_contact), m.Add(c.m_nId, c.m_contact)),
    CHANGE(8, AddBlackContact, (c.m_contact), m.Add(1, c.m_contact)),
    CHANGE(30, UpdateContactData, (c.m_strName, c.m_contact), m.Update(c.m_strName, c.m_contact)),
    DO(30, UpdateOneField, d.UpdateContactData(c.m_strName, WithOneOf(c, Stored(d, c))),
       (m.Refuse(m.m_bReloadByHttp, DIR_RET_RELOADING), m.Update(c.m_strName, WithOneOf(c, m.Shown(m.Find(c.m_strName), {}))))),
    CHANGE(4, RemoveContact, (c.m_strName), m.Remove(m.Named(c.m_strName)) ? 1 : DIR_RET_CONTACT_NOT_FOUND),
    CHANGE(2, RemoveContactList, (list), (m.Remove(m.NamedIn(c.m_names)), 1)),
    DO(1, RemoveAllContacts, d.RemoveAllContacts(c.m_nId), m.m_bReloadByHttp ? 0 : (m.Remove(m.In(c.m_nId)), 1)),
    CHANGE(3, IsListCanMove, (list, c.m_strGroup), m.TestMove(c.m_names, c.m_strGroup)),
    CHANGE(5, MoveListToGroup, (list, c.m_strGroup), m.MoveNamed(c.m_names, c.m_strGroup)),
    CHANGE(5, MoveContactToGroup, (c.m_strName, c.m_strGroup),
           c.m_strName.empty() ? m.TestMove({""}, c.m_strGroup) : m.MoveNamed({c.m_strName.c_str()}, c.m_strGroup)),
    DO(8, SetContactGroupId, d.SetContactGroupId(c.m_strName, c.m_nId), m.SetGroup(c.m_strName, c.m_nId)),
    DO(5, Black2Local, d.Black2Local(c.m_strName),
       m.GroupIdOf(c.m_strName) != 1 ? DIR_RET_NOT_BLACK : m.SetGroup(c.m_strName, 0)),
    DO(5, Local2Black, d.Local2Black(c.m_strName),
       m.Count(1) == m.m_nMaxBlack ? DIR_RET_BLACK_FULL
       : m.GroupIdOf(c.m_strName) == 1 ? DIR_RET_ALREADY_BLACK : m.SetGroup(c.m_strName, 1)),
    FILL(GetContactDataByName, c.m_contact, (p, c.m_strName), Filled(m, c, m.Find(c.m_strName))),
    FILL(GetContactList, PageOf<ContactGeneralItemListData>(c), (p, c.m_strGroup), ContactPage(m, c, m.GroupId(c.m_strGroup))),
    FILL(GetContactListById, PageOf<ContactGeneralItemListData>(c), (p, c.m_nId), ContactPage(m, c, c.m_nId)),
    ASK(GetContactNameByPhoneNumber, (c.Pointer(c.m_strNumber)), m.FindNumber(c.Pointer(c.m_strNumber)).m_strDisplayName),
    ASK(IsBlackContactNumber, (c.Pointer(c.m_strNumber)), m.FindNumber(c.Pointer(c.m_strNumber)).m_nGroupId == 1),
    FILL(GetContactDataByNumber, c.m_contact, (p, c.m_strNumber.c_str()), Filled(m, c, m.FindNumber(c.m_strNumber))),
    FILL(GetContactData, c.m_contact, (p, c.m_strName, c.m_strNumber),
         Filled(m, c, m.GroupIdOf(c.m_strName) < 0 ? m.FindNumber(c.m_strNumber) : m.Find(c.m_strName))),
    ASK(GetContactRingByNumber, (c.m_strNumber.c_str(), c.Pointer(c.m_strName)), m.Ring(m.FindNumber(c.m_strNumber))),
    ASK(GetGroupRingByContact, (c.m_strName), m.GroupName(m.GroupIdOf(c.m_strName))),
    ASK(SetDefaultPhoto, (c.Pointer(c.m_contact.m_strDefaultPhoto)),
        c.m_bFlag ? m.SetDefaultPhoto(c.m_contact.m_strDefaultPhoto) : DIR_RET_NULL_ARGUMENT),
    ASK(ExportContactAndGroup, (c.m_strPath),
        m.Export(c.m_strPath.empty() ? EXPORT_FILE : c.m_strPath.c_str())),
};

// Few values for each argument, so that they meet often.
constexpr const char* NAMES[] = {"", "Anna", "anna", "Bob", "bob", "Bob", "Carl", "Dora", "J\xC3\xB6rg", "<&\"'\t>\n",
                                 "of 31 bytes and one more, at last"};
constexpr const char* GROUPS[] = {"All Contacts", "all contacts", "Blacklist", "Blacklist", "Company", "company", "Company",
                                  "Family", "Friend", "<\"&>", ""};
constexpr const char* NUMBERS[] = {"", "1", "10", "a1", "A1", "+49 30 123456789012"};
constexpr const char* RINGS[] = {"", "absent.wav", "other.xml", CONTACT_FILE};
constexpr const char* PHOTOS[] = {"", "a.png", "A.png", "Default:default_contact_image.png"};
constexpr const char* PATHS[] = {"", "other.xml", GROUP_FILE, CONTACT_FILE};
constexpr const char* DECIMALS[] = {"0", "1", "-1", " 12x", "x", "99999999999", "-99999999999"};
constexpr int IDS[] = {-1, 0, 1, 1, 2, 3, 4, 5, 7, INT_MAX, INT_MIN};
constexpr int LIMITS[] = {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 1000, INT_MAX};
// clang-format on

template <class T, std::size_t nCount>
T Pick(const Choice& below, const T (&values)[nCount])
{
    return values[below(nCount)];
}

// A file as a stranger may leave it: without its root, cut, over the limits.
std::string MakeFile(const Choice& below, const std::string& strElement)
{
    const bool bMany = below(30) == 0;
    std::string strElements;
    for (std::size_t n = bMany ? 70 : below(8); n != 0; --n) {
        const char* pName = strElement == "group" ? Pick(below, GROUPS) : Pick(below, NAMES);
        const auto put = [&](const char* pAttribute, const std::string& strValue) {
            strElements += below(10) == 0 ? "" : Attribute(pAttribute, strValue);
        };
        strElements += '<' + (below(20) == 0 ? "other" : strElement);
        put("display_name", bMany ? Joined('n', n) : pName);
        put("mobile_number", Pick(below, NUMBERS));
        put("line", Pick(below, DECIMALS));
        put("selected_photo", Pick(below, DECIMALS));
        put("default_photo", Pick(below, PHOTOS));
        put("read_only", Pick(below, DECIMALS));
        put("ring", Pick(below, RINGS));
        put("group_id_name", bMany && below(4) != 0 ? "Blacklist" : Pick(below, GROUPS));
        put("name_index", "x");
        strElements += "/>";
    }
    const std::string strFile = Root(below(5) == 0 ? "other" : "root_" + strElement, strElements);
    const std::string strCut = strFile.substr(0, below(strFile.size()));
    return Pick<std::string>(below, {strFile, strFile, strFile, strCut, "", "no XML"});
}

std::string Text(const CallData& c)
{
    const auto quoted = [](const String& str) { return Joined(" '", str.c_str(), '\''); };
    return Joined(OPERATIONS[c.m_nOperation].m_pName, ": id ", c.m_nId, " limit ", c.m_nLimit,
                  " page ", c.m_nFrom, ',', c.m_nCount, " field ", c.m_nField, " flag ", c.m_bFlag,
                  quoted(c.m_strName), quoted(c.m_strGroup), quoted(c.m_strNumber),
                  quoted(c.m_strPath), " names ", testing::PrintToString(c.m_names), "\n    group ",
                  Text(c.m_group), "    contact ", Text(c.m_contact), "    file ", c.m_strFile,
                  '\n');
}

// Makes the call on both. What differs then.
std::string Difference(Model& model, const CallData& c)
{
    const OperationData& operation = OPERATIONS[c.m_nOperation];
    model.m_writes.clear();
    model.m_nBytes = 0;
    Manager& directory = DirectoryTest::Directory();
    const FileCalls files;
    const ResultData actual = operation.m_pReal(directory, c, NameList(c.m_names));
    const Texts written = files.Written();
    const std::size_t nBytes = files.BytesWritten();
    ResultData expected(DIR_RET_NONE);
    try {
        expected = operation.m_pModel(model, c);
    } catch (int nRefusal) {
        expected = nRefusal;
    }
    ++g_results[operation.m_pName][actual.m_nCode];
    std::string strWrong;
    const auto compare = [&](const std::string& strWhat, const auto& was, const auto& must) {
        using testing::PrintToString;
        strWrong += was == must ? ""
                                : Joined(strWhat, ":\n", PrintToString(was), "\nmust be:\n",
                                         PrintToString(must), '\n');
    };
    compare("result", actual.m_nCode, expected.m_nCode);
    compare("answer", actual.m_strText, expected.m_strText);
    compare("order of writes", written, model.m_writes);
    compare("bytes written", nBytes, model.m_nBytes);
    compare("memory", DirectoryTest::Memory(), model.Memory());
    DirectoryTest::ExpectSound();
    for (const char* pPath : {GROUP_FILE, CONTACT_FILE, EXPORT_FILE, "other.xml"}) {
        compare(pPath, ReadFile(pPath), model.FileText(pPath));
    }
    return strWrong;
}

}  // namespace

CallData MakeCall(const Choice& below)
{
    static const std::vector<std::size_t> WEIGHTED = [] {
        std::vector<std::size_t> all;
        for (std::size_t n = 0; n < std::size(OPERATIONS); ++n) {
            all.insert(all.end(), OPERATIONS[n].m_nWeight, n);
        }
        return all;
    }();
    const auto pick = [&](auto& values) { return Pick(below, values); };
    // clang-format off
    CallData c = {WEIGHTED[below(WEIGHTED.size())], pick(NAMES), pick(GROUPS), pick(NUMBERS), pick(PATHS),
                  pick(IDS), pick(LIMITS), pick(IDS), pick(IDS), below(Fields(true).size()), below(6) != 0};
    c.m_group = {below(4) == 0 ? c.m_strGroup : pick(GROUPS), pick(RINGS)};
    c.m_contact = {below(2) == 0 ? c.m_strName : pick(NAMES), below(3) == 0 ? "All Contacts" : pick(GROUPS),
                   pick(NUMBERS), pick(NUMBERS), pick(NUMBERS), pick(PHOTOS), pick(RINGS), pick(IDS), pick(IDS)};
    // clang-format on
    std::generate_n(std::back_inserter(c.m_names), below(5), [&] { return pick(NAMES); });
    if (OPERATIONS[c.m_nOperation].m_pName == std::string("PlantFile")) {
        const bool bGroups = below(2) == 0;
        c.m_strPath = bGroups ? GROUP_FILE : CONTACT_FILE;
        c.m_strFile = MakeFile(below, bGroups ? "group" : "contact");
    }
    return c;
}

std::string Replay(const Calls& calls)
{
    Manager::ReleaseInstance();
    std::filesystem::remove_all("config/data");
    std::filesystem::remove("other.xml");
    std::filesystem::create_directories("config/data");
    g_device = FakeDevice();
    Model model;
    model.Start();
    std::string strCalls, strWrong;
    for (auto pos = calls.begin(); pos != calls.end() && strWrong.empty(); ++pos) {
        strWrong = Difference(model, *pos);
        strCalls += Text(*pos);
    }
    return strWrong.empty() ? "" : "after these calls:\n" + strCalls + strWrong;
}
