// Random calls, for whoever has choices to make them from, and what is left of them if they fail.

#include "tests/support/scenario.h"

namespace {

// Few values for each argument, so that they meet often.
const std::map<std::string, Texts> VALUES{
    {"contact",
     {"", "Anna", "anna", "Bob", "bob", "Bob", "Carl", "Dora", "J\xC3\xB6rg",
      "<&\"'\t>\n\r\1\x1B\x7F\xFF", "of 31 bytes and one more at last"}},
    {"group",
     {"All Contacts", "All Contacts", "all contacts", "Blacklist", "Blacklist", "Company",
      "company", "Company", "Family", "Friend", "<\"&>", ""}},
    {"number", {"", "1", "10", "a1", "A1", "+49 30 123456789012"}},
    {"ring", {"", "absent.wav", "other.xml", CONTACT_FILE}},
    {"photo", {"", "a.png", "A.png", "Default:default_contact_image.png"}},
    {"path", {"", "other.xml", GROUP_FILE, CONTACT_FILE}},
    {"file", {"group", "contact"}},
    {"decimal", {"0", "1", "-1", " 12x", "x", "99999999999", "-99999999999"}},
    {"id", {"-1", "0", "1", "1", "2", "3", "4", "5", "7", "2147483647", "-2147483648"}},
    {"limit",
     {"-2147483648", "-1", "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "12", "1000",
      "2147483647"}}};

const std::string& Pick(const Choice& below, const std::string& strValues)
{
    const Texts& values = VALUES.at(strValues);
    return values[below(values.size())];
}

// A file as a stranger may leave it: without its root, cut, over the limits.
std::string RandomFile(const Choice& below, const std::string& strElement)
{
    const bool bMany = below(30) == 0;
    std::string strElements;
    for (std::size_t n = bMany ? 70 : below(8); n != 0; --n) {
        const auto put = [&](const char* pAttribute, const std::string& strValue) {
            strElements += below(10) == 0 ? "" : Attribute(pAttribute, strValue);
        };
        strElements += '<' + (below(20) == 0 ? "other" : strElement);
        put("display_name", bMany ? Joined('n', n) : Pick(below, strElement));
        put("mobile_number", Pick(below, "number"));
        put("line", Pick(below, "decimal"));
        put("selected_photo", Pick(below, "decimal"));
        put("default_photo", Pick(below, "photo"));
        put("read_only", Pick(below, "decimal"));
        put("ring", Pick(below, "ring"));
        put("group_id_name", bMany && below(4) != 0 ? "Blacklist" : Pick(below, "group"));
        put("name_index", "x");
        strElements += "/>";
    }
    const std::string strFile = Root(below(5) == 0 ? "other" : "root_" + strElement, strElements);
    const std::string strCut = strFile.substr(0, below(strFile.size())) + '\n';
    const Texts files{strFile, strFile, strFile, strCut, "", "no XML\n"};
    return files[below(files.size())];
}

std::string Replay(const Calls& calls)
{
    CReplay replay;
    std::string strScenario;
    for (const CallData& call : calls) {
        const StepData step = replay.Make(call);
        strScenario += ScenarioText(call, step.m_model);
        const std::string strDifference = DifferenceText(call, step.m_model, step);
        if (!strDifference.empty()) {
            return strDifference + "The scenario:\n" + strScenario;
        }
    }
    return "";
}

// Takes out calls that the failure does not need, in ever smaller pieces.
Calls CutDown(Calls calls)
{
    for (std::size_t nPiece = calls.size() / 2; nPiece != 0; nPiece /= 2) {
        for (std::size_t n = 0; n + nPiece <= calls.size();) {
            Calls fewer = calls;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(n);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(nPiece));
            const bool bFails = !Replay(fewer).empty();
            calls = bFails ? fewer : calls;
            n += bFails ? 0 : nPiece;
        }
    }
    return calls;
}

}  // namespace

CallData RandomCall(const Choice& below)
{
    static const std::vector<const OperationData*> WEIGHTED = [] {
        std::vector<const OperationData*> all;
        for (const OperationData& operation : OPERATIONS) {
            all.insert(all.end(), operation.m_nWeight, &operation);
        }
        return all;
    }();
    const OperationData& operation = *WEIGHTED[below(WEIGHTED.size())];
    CallData call{operation.m_pName};
    std::map<std::string, std::string> last;
    for (const std::string& strArgument : Split(operation.m_pTakes, ' ')) {
        const std::string strName = Split(strArgument, '=').front();
        const std::string strKind = Split(strArgument, '=').back();
        if (last.count(strKind) == 0 || below(3) != 0) {  // or the same again
            last[strKind] = Pick(below, strKind);
        }
        const bool bGiven = call.Name() == "ChangeContact" ? below(6) == 0 : below(8) != 0;
        const bool bNeeded = strArgument == "file" || call.m_strLine == "ChangeContact";
        call.m_strLine += bGiven || bNeeded ? Attribute(strName.c_str(), last[strKind]) : "";
    }
    if (call.Name() == "WriteFile") {
        call.m_strFile = RandomFile(below, last["file"]);
    }
    return call;
}

std::string FailureOf(const Calls& calls, bool bCutDown)
{
    const std::string strFailure = Replay(calls);
    return strFailure.empty() || !bCutDown ? strFailure : Replay(CutDown(calls));
}
