// The operations of the language, and how a call is made on the directory and on the model.

#include "tests/support/scenario.h"

namespace {

const std::map<std::string, std::string> FILES{{"group", GROUP_FILE},
                                               {"contact", CONTACT_FILE},
                                               {"export", EXPORT_FILE},
                                               {"other.xml", "other.xml"}};

std::string NameOf(const std::string& strPath)
{
    for (const auto& [strName, strKnown] : FILES) {
        if (strKnown == strPath) {
            return strName;
        }
    }
    return strPath;
}
std::map<std::string, std::string> Disk()
{
    std::map<std::string, std::string> files;
    for (const auto& [strName, strPath] : FILES) {
        if (std::filesystem::exists(strPath)) {
            files[strPath] = ReadFile(strPath);
        }
    }
    return files;
}

}  // namespace

// The arguments of a call, whose line has the form of an element but for the brackets.
class CArguments
{
  public:
    explicit CArguments(const CallData& call) : m_strFile(call.m_strFile)
    {
        m_document.load_string(('<' + call.m_strLine + "/>").c_str());
        m_call = m_document.first_child();
    }

    bool Has(const char* p) const { return !m_call.attribute(p).empty(); }
    String Text(const char* p) const { return m_call.attribute(p).value(); }
    const char* Pointer(const char* p) const
    {
        return Has(p) ? m_call.attribute(p).value() : nullptr;
    }
    int Number(const char* p, int nDefault = 0) const
    {
        return m_call.attribute(p).as_int(nDefault);
    }
    ContactGroupData Group() const { return {Text("name"), Text("ring")}; }
    Contact Record() const
    {
        Contact data;
        for (const Field& field : Fields()) {
            field.m_pText != nullptr ? void(data.*field.m_pText = Text(field.m_pWord))
                                     : void(data.*field.m_pNumber = Number(field.m_pWord));
        }
        return data;
    }
    QZList<String>& List(const char* p)  // the texts between commas
    {
        m_list = NameList(Has(p) ? Split(Text(p).append(",").c_str(), ',') : Texts{});
        return m_list;
    }
    std::string File() const
    {
        std::string strText;
        for (const std::string& strLine : Split(m_strFile, '\n')) {
            strText += strLine + (Has("crlf") ? "\r\n" : "\n");
        }
        return strText;
    }

    // What is given to be filled.
    void Prepare(Contact& data) const { data = Record(); }
    void Prepare(ContactGroupData& data) const { data = Group(); }
    template <class TPage>
    auto Prepare(TPage& page) const -> decltype(void(page.m_nIndexFrom))
    {
        page.m_listData.push_back({});  // pages add up
        page.m_nIndexFrom = Number("from");
        page.m_nCountToGet = Number("count", 100);
    }
    String m_strOut = "as before";

  private:
    pugi::xml_document m_document;
    pugi::xml_node m_call;
    std::string m_strFile;
    QZList<String> m_list;
};

namespace {

using Model = CDirectoryModel;

// -- Answers --------------------------------------------------------------------------------------

// The numbers that hosts have built in.
const std::map<int, const char*> CODES{
    {-1, "DIR_RET_GROUP_EXIST"},       {-2, "DIR_RET_CONTACT_EXIST"},
    {-3, "DIR_RET_GROUP_ID_FAIL"},     {-4, "DIR_RET_GROUP_NOT_FOUND"},
    {-5, "DIR_RET_CONTACT_NOT_FOUND"}, {-6, "DIR_RET_GROUP_READ_ONLY"},
    {-7, "DIR_RET_CONTACT_FULL"},      {-8, "DIR_RET_BLACK_FULL"},
    {-9, "DIR_RET_GROUP_FULL"},        {-10, "DIR_RET_ALREADY_BLACK"},
    {-12, "DIR_RET_NOT_BLACK"},        {-13, "DIR_RET_RELOADING"},
    {-15, "DIR_RET_NULL_ARGUMENT"},    {-50, "DIR_RET_NO_MEMORY"},
    {-100, "DIR_RET_EMPTY_KEY"},       {-101, "DIR_RET_INVALID"}};

Texts Code(int nResult)
{
    return {CODES.count(nResult) == 0 ? std::to_string(nResult) : CODES.at(nResult)};
}
Texts Answer(int nResult)
{
    return {std::to_string(nResult)};
}
Texts Answer(bool bResult)
{
    return {bResult ? "yes" : "no"};
}
Texts Answer(const String& strResult)
{
    return {Joined('"', strResult.c_str(), '"')};
}

template <class TRecord>
auto Shown(const TRecord& data) -> decltype(data.m_strDisplayName, Texts())
{
    return {"", EntryOf(data).Text()};
}
template <class TPage>
auto Shown(const TPage& page) -> decltype(page.m_listData, Texts())
{
    Texts entries = TextsOf(page.m_listData, [](auto& entry) { return EntryOf(entry).Text(); });
    entries.at(0) = Joined(", total ", page.m_nTotalCount);
    return entries;
}
template <class TData, class TCall>
Texts Filled(const CArguments& c, TCall call)
{
    TData data;
    c.Prepare(data);
    const Texts before = Shown(data);
    const int nResult = call(c.Has("null") ? nullptr : &data);
    Texts lines = Shown(data) == before ? Texts{""} : Shown(data);
    lines[0] = std::to_string(nResult) + lines[0];
    return lines;
}

// -- Operations -----------------------------------------------------------------------------------

struct Scene
{
    static Texts Restart(Manager& /*d*/) { return DirectoryTest::Restart(), Texts{""}; }
    static Texts Restart(Model& d) { return d.Restart(), Texts{""}; }
};
std::string PathOf(const CArguments& c)
{
    const std::string strName = c.Text("file").c_str();
    return FILES.count(strName) == 0 ? strName : FILES.at(strName);
}
// As a save would write them; without a group in the block the default groups stay.
Texts WriteBothFiles(const CArguments& c)
{
    GroupRows groups;
    std::vector<Contact> contacts;
    for (const std::string& strLine : Split(c.File(), '\n')) {
        CArguments entry(CallData{strLine});
        for (const std::string& strName :
             TextsOf(entry.List("name"), [](auto& str) { return str.c_str(); })) {
            for (int n = 0; n < entry.Number("many", 1); ++n) {
                Contact data = entry.Record();
                data.m_strDisplayName =
                    (strName + (entry.Has("many") ? std::to_string(1001 + n) : "")).c_str();
                if (CallData{strLine}.Name() == "group") {
                    groups.emplace_back(data.m_strDisplayName.c_str(), data.m_strRing.c_str());
                } else {
                    contacts.push_back(data);
                }
            }
        }
    }
    WriteFile(GROUP_FILE,
              GroupFile(groups.empty() ? GroupRows{{"Company"}, {"Family"}, {"Friend"}} : groups));
    WriteFile(CONTACT_FILE, DECLARATION + ContactRoot(contacts, false));
    return Scene::Restart(DirectoryTest::Directory());
}

// For the library alone, or for both by the same words.
OperationData Alone(const char* pName, std::size_t nWeight, const char* pTakes,
                    Texts (*pCall)(Manager& d, CArguments& c))
{
    return {pName, nWeight, pTakes, pCall, nullptr};
}
template <class TCall>
OperationData Both(const char* pName, std::size_t nWeight, const char* pTakes, TCall call)
{
    return {pName, nWeight, pTakes, call, call};
}
#define LIBRARY(Name, nWeight, pTakes, answer) \
    Alone(#Name, nWeight, pTakes,              \
          [](Manager& d, CArguments& c) { return (void)d, (void)c, answer; })
#define BOTH(Name, nWeight, pTakes, answer) \
    Both(#Name, nWeight, pTakes, [](auto& d, CArguments& c) { return (void)c, answer; })
#define CHANGE(Name, nWeight, pTakes, arguments) BOTH(Name, nWeight, pTakes, Code(d.Name arguments))
#define ASK(Name, nWeight, pTakes, arguments) BOTH(Name, nWeight, pTakes, Answer(d.Name arguments))
#define READ(Name, pTakes, arguments) LIBRARY(Name, 1, pTakes, Answer(d.Name arguments))
#define FILL(Name, TData, pTakes, arguments) \
    LIBRARY(Name, 1, pTakes, Filled<TData>(c, [&](auto* p) { return d.Name arguments; }))
#define RECORD \
    "name=contact group office=number mobile=number other=number line=id ring photo selected=id"

}  // namespace

const std::vector<OperationData> OPERATIONS{
    LIBRARY(Start, 0, "", WriteBothFiles(c)),
    BOTH(Restart, 2, "", Scene::Restart(d)),
    LIBRARY(WriteFile, 5, "file", (WriteFile(PathOf(c), c.File()), Texts{""})),
    LIBRARY(RemoveFile, 2, "file", (std::filesystem::remove(PathOf(c)), Texts{""})),
    LIBRARY(ShowFile, 0, "", Split('\n' + ReadFile(PathOf(c)), '\n')),
    LIBRARY(SetScreen, 4, "colour=id", (g_device.m_bColorful = c.Number("colour") != 0, Texts{""})),
    LIBRARY(SetSwitch, 2, "value=id", (g_device.m_nConfigValue = c.Number("value"), Texts{""})),
    LIBRARY(SetReloading, 0, "", (d.m_bReloadByHttp = c.Number("on") != 0, Texts{""})),

    ASK(SetMaxGroupCount, 4, "max=limit", (c.Number("max"))),
    ASK(SetMaxContactCount, 4, "max=limit", (c.Number("max"))),
    ASK(SetMaxBlackCount, 4, "max=limit", (c.Number("max"))),
    READ(GetMaxGroupCount, "", ()),
    READ(GetMaxContactCount, "", ()),
    READ(GetMaxBlackCount, "", ()),
    READ(GetCurrentGroupCount, "", ()),
    READ(GetCurrentContactCount, "", ()),
    READ(GetCurrentBlackCount, "", ()),
    READ(IsReloadGroupAndItemByHttp, "", ()),
    READ(ReloadGroupAndItemByHttp, "", ()),
    READ(SaveGroupToXml, "", ()),
    READ(SaveContactToXml, "", ()),

    READ(IsBlacklistIndex, "index=id", (c.Number("index"))),
    READ(GetGroupIndexByName, "group", (c.Pointer("group"))),
    READ(GetGroupNameByIndex, "index=id", (c.Number("index"), c.m_strOut)),
    READ(GetGroupIdByGroupName, "group", (c.Text("group"))),
    READ(GetGIdByGName, "group", (c.Text("group"))),
    READ(IsGroupExist, "group", (c.Text("group"))),
    LIBRARY(GetBlacklistGroupName, 1, "", (d.GetBlacklistGroupName(c.m_strOut), Texts{""})),
    FILL(GetGroupSimpleList, ContactGroupSimpleListData, "from=id count=id", (p)),
    FILL(GetGroupList, ContactGroupListData, "from=id count=id", (p, c.Has("black"))),
    FILL(GetGroupDataByID, ContactGroupData, "id", (p, c.Number("id"))),
    CHANGE(CreateContactGroupList, 1, "path", (c.Text("path"))),
    CHANGE(ReloadGroupXml, 4, "", ()),
    CHANGE(AddGroup, 12, "name=group ring", (c.Group())),
    CHANGE(UpdateGroupData, 14, "group name=group ring", (c.Text("group"), c.Group())),
    CHANGE(RemoveGroup, 4, "group", (c.Text("group"))),
    CHANGE(RemoveAllGroup, 1, "", ()),

    READ(IsContactExist, "contact", (c.Text("contact"))),
    READ(GetContactGroupId, "contact", (c.Text("contact"))),
    CHANGE(ReloadContactXml, 4, "", ()),
    CHANGE(AddContact, 20, RECORD, (c.Text("group"), c.Record())),
    CHANGE(AddContactById, 14, "id " RECORD, (c.Number("id"), c.Record())),
    CHANGE(AddBlackContact, 8, RECORD, (c.Record())),
    CHANGE(UpdateContactData, 30, "contact " RECORD, (c.Text("contact"), c.Record())),
    BOTH(ChangeContact, 30, "contact " RECORD,
         Code(d.UpdateContactData(c.Text("contact"), c.Record()))),
    CHANGE(RemoveContact, 4, "contact", (c.Text("contact"))),
    CHANGE(RemoveContactList, 2, "contacts=contact", (c.List("contacts"))),
    CHANGE(RemoveAllContacts, 1, "id", (c.Number("id"))),
    CHANGE(IsListCanMove, 3, "contacts=contact group", (c.List("contacts"), c.Text("group"))),
    CHANGE(MoveListToGroup, 5, "contacts=contact group", (c.List("contacts"), c.Text("group"))),
    CHANGE(MoveContactToGroup, 5, "contact group", (c.Text("contact"), c.Text("group"))),
    CHANGE(SetContactGroupId, 8, "contact id", (c.Text("contact"), c.Number("id"))),
    CHANGE(Black2Local, 5, "contact", (c.Text("contact"))),
    CHANGE(Local2Black, 5, "contact", (c.Text("contact"))),
    FILL(GetContactDataByName, Contact, "contact", (p, c.Text("contact"))),
    FILL(GetContactList, ContactGeneralItemListData, "group from=id count=id",
         (p, c.Text("group"))),
    FILL(GetContactListById, ContactGeneralItemListData, "id from=id count=id",
         (p, c.Number("id"))),

    ASK(GetContactNameByPhoneNumber, 1, "number", (c.Pointer("number"))),
    ASK(IsBlackContactNumber, 1, "number", (c.Pointer("number"))),
    FILL(GetContactDataByNumber, Contact, "number", (p, c.Pointer("number"))),
    FILL(GetContactData, Contact, "contact number", (p, c.Text("contact"), c.Text("number"))),
    READ(GetContactRingByNumber, "number second=number",
         (c.Pointer("number"), c.Pointer("second"))),
    READ(GetGroupRingByContact, "contact", (c.Text("contact"))),
    CHANGE(SetDefaultPhoto, 2, "photo", (c.Pointer("photo"))),
    CHANGE(ExportContactAndGroup, 2, "path", (c.Text("path"))),
};

const OperationData& OperationOf(const CallData& call)
{
    static const OperationData UNKNOWN{
        "", 0, "",
        [](Manager& /*d*/, CArguments& /*c*/) { return Texts{"? there is no such operation"}; },
        nullptr};
    const auto isIt = [&](auto& operation) { return operation.m_pName == call.Name(); };
    const auto pos = std::find_if(OPERATIONS.begin(), OPERATIONS.end(), isIt);
    return pos == OPERATIONS.end() ? UNKNOWN : *pos;
}

Texts MakeAlone(const CallData& call)
{
    CArguments arguments(call);
    Texts answer = OperationOf(call).m_pLibrary(DirectoryTest::Directory(), arguments);
    if (!(arguments.m_strOut == "as before")) {
        answer.push_back(Answer(arguments.m_strOut)[0]);
    }
    return answer;
}

namespace {

// The lines of a call: its answer, what it wrote, what it filled and what changed.
Texts Outcome(Texts lines, const Texts& written, const Texts& changes)
{
    for (const std::string& strPath : written) {
        const char* const pBefore = lines[0].empty() ? "writes " : ", writes ";
        lines[0] += (&strPath == written.data() ? pBefore : " ") + NameOf(strPath);
    }
    lines.insert(lines.end(), changes.begin(), changes.end());
    return lines;
}

// Files that differ from those of the model, with the first line that does.
void AddWrongFiles(Texts& wrong, const Model& model)
{
    for (const auto& [strName, strPath] : FILES) {
        if (ReadFile(strPath) == model.FileText(strPath)) {
            continue;
        }
        Texts is = Split(ReadFile(strPath), '\n'), must = Split(model.FileText(strPath), '\n');
        is.resize(std::max(is.size(), must.size()) + 1);
        must.resize(is.size());
        const auto pos = std::mismatch(is.begin(), is.end() - 1, must.begin());
        wrong.push_back(strName + " file: " + *pos.first);
        wrong.push_back("instead of: " + *pos.second);
    }
}

}  // namespace

CReplay::CReplay()
{
    Manager::ReleaseInstance();
    std::filesystem::remove_all("config/data");
    std::filesystem::remove("other.xml");
    std::filesystem::create_directories("config/data");
    g_device = FakeDevice();
    (void)DirectoryTest::Directory();
    m_model.Restart();
    m_entries = DirectoryTest::AllEntries();
}

StepData CReplay::Make(CallData call)
{
    if (call.Name() == "ChangeContact") {  // of two values of a name the first counts
        const std::string strName =
            "contact" + Attribute("name", CArguments(call).Text("contact").c_str());
        for (const Entry& entry : m_entries) {
            call.m_strLine += entry.m_strName == strName ? entry.Text().substr(7) : "";
        }
    }
    m_model.m_written.clear();
    const FileCalls calls;
    const Texts answer = MakeAlone(call);
    const Texts written = calls.Written();
    const auto pModelled = OperationOf(call).m_pModel;
    Texts modelAnswer = answer;
    if (pModelled != nullptr && !DirectoryTest::Directory().m_bReloadByHttp) {
        CArguments arguments(call);
        modelAnswer = pModelled(m_model, arguments);
    } else {
        m_model.m_files = Disk();
    }
    const bool bStart = call.Name() == "Start";
    if (bStart) {  // what it says is what comes of it
        m_model.Restart();
    }
    const Entries after = DirectoryTest::AllEntries(), modelAfter = m_model.AllEntries();
    StepData step{
        Outcome(answer, written, bStart ? Texts{} : Changes(m_entries, after)),
        Outcome(modelAnswer, m_model.m_written, bStart ? Texts{} : Changes(m_entries, modelAfter)),
        DirectoryTest::Troubles()};
    m_entries = after;
    AddWrongFiles(step.m_wrong, m_model);
    return step;
}
