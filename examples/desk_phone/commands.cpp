#include "desk_phone/commands.h"

#include <climits>

#include "desk_phone/line_reader.h"
#include "desk_phone/screen.h"
#include "desk_phone/text_width.h"

namespace desk_phone {

namespace {

constexpr std::size_t ANY = INT_MAX;

void Help(PhoneData& phone, const Words& words);
void Quit(PhoneData& phone, const Words& words);

struct CommandData
{
    const char* m_pName;
    const char* m_pArguments;
    std::size_t m_nLeast;  // words behind the name
    std::size_t m_nMost;
    void (*m_pRun)(PhoneData& phone, const Words& words);
    const char* m_pHelp;
};

constexpr CommandData COMMANDS[] = {
    {"call", "NUMBER", 1, 1, Call,
     "A call from NUMBER comes in: who it is, and the ring or BLOCKED. Numbers match digit for "
     "digit."},
    {"groups", "", 0, 0, ListGroups, "The groups with their contacts counted and their rings."},
    {"contacts", "GROUP [FROM COUNT]", 1, 3, ListContacts,
     "A page of a group's contacts: COUNT of them (10) from place FROM (1) on."},
    {"show", "NAME", 1, 1, Show, "All that is stored for a contact."},
    {"add", "NAME [FIELD=VALUE ...]", 1, ANY, AddContact,
     "Adds a contact, to \"All Contacts\" where no group is given. Fields: group, mobile, office, "
     "other, ring, photo, line, selected."},
    {"update", "NAME FIELD=VALUE ...", 2, ANY, UpdateContact,
     "Changes fields of a contact: those of add, and name."},
    {"remove", "NAME ...", 1, ANY, RemoveContacts,
     "Removes contacts. Of several names those of no contact are passed over."},
    {"remove-all", "GROUP", 1, 1, RemoveAllContacts,
     "Removes the contacts of a group; of \"All Contacts\" every contact, blacklisted ones too."},
    {"move", "NAME ... GROUP", 2, ANY, MoveContacts,
     "Moves contacts to a group, all or none. Names of no contact are passed over."},
    {"block", "NAME", 1, 1, Block, "Puts a contact into the blacklist."},
    {"unblock", "NAME", 1, 1, Unblock, "Takes a contact out of the blacklist."},
    {"add-group", "NAME [RING]", 1, 2, AddGroup, "Adds a group."},
    {"rename-group", "NAME NEWNAME", 2, 2, RenameGroup, "Renames a group; its contacts stay."},
    {"ring", "GROUP RING", 2, 2, SetGroupRing, "Gives a group a ring; \"\" takes it away."},
    {"remove-group", "NAME", 1, 1, RemoveGroup,
     "Removes a group; its contacts go to \"All Contacts\"."},
    {"remove-all-groups", "", 0, 0, RemoveAllGroups, "Removes all groups but the two fixed ones."},
    {"export", "PATH", 1, 1, Export,
     "Writes groups and contacts into one file; \"\" is the usual place."},
    {"files", "[LINES]", 0, 1, ShowFiles, "The two files of the directory: size and first lines."},
    {"summary", "", 0, 0, ShowSummary, "Counts, limits, and how long the start took."},
    {"help", "[COMMAND]", 0, 1, Help, "What a command does."},
    {"quit", "", 0, 0, Quit, "Ends the program, as the end of input does."},
    {"exit", "", 0, 0, Quit, "The same."},
};

std::string Usage(const CommandData& command)
{
    const std::string strName = command.m_pName;
    return *command.m_pArguments == '\0' ? strName : strName + " " + command.m_pArguments;
}

std::string FirstSentence(const std::string& strText)
{
    const std::size_t nEnd = strText.find(". ");
    return nEnd == std::string::npos ? strText : strText.substr(0, nEnd + 1);
}

const CommandData& FindCommand(const std::string& strName)
{
    for (const CommandData& command : COMMANDS) {
        if (strName == command.m_pName) {
            return command;
        }
    }
    throw CWrongInput("There is no command " + strName + ". Commands are listed by: help");
}

void Help(PhoneData&, const Words& words)
{
    if (words.size() > 1) {
        const CommandData& command = FindCommand(words[1]);
        PrintText(Usage(command));
        PrintText(command.m_pHelp);
        return;
    }
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const CommandData& command : COMMANDS) {
        pairs.emplace_back(command.m_pName, FirstSentence(command.m_pHelp));
    }
    PrintPairs(pairs);
    PrintText("Names with blanks stand in double quotes. More on one: help COMMAND");
}

void Quit(PhoneData& phone, const Words&)
{
    phone.m_bOn = false;
}

void RunWords(PhoneData& phone, const Words& words)
{
    const CommandData& command = FindCommand(words.front());
    const std::size_t nArguments = words.size() - 1;
    if (nArguments < command.m_nLeast || nArguments > command.m_nMost) {
        throw CWrongInput("This is written: " + Usage(command));
    }
    command.m_pRun(phone, words);
}

// The words of a line; none for a blank line and for a comment.
Words ToWords(const std::string& strLine)
{
    if (strLine.size() > MOST_LINE_BYTES) {
        throw CWrongInput("The line is longer than " + std::to_string(MOST_LINE_BYTES) +
                          " bytes and is passed over.");
    }
    if (strLine.compare(0, 1, "#") == 0) {
        return {};
    }
    Words words = SplitWords(strLine);
    for (const std::string& strWord : words) {
        if (!IsPlainText(strWord)) {
            throw CWrongInput("The line is no plain UTF-8 text and is passed over.");
        }
    }
    return words;
}

}  // namespace

void RunLine(PhoneData& phone, const std::string& strLine)
{
    try {
        const Words words = ToWords(strLine);
        if (!words.empty()) {
            RunWords(phone, words);
        }
    } catch (const CWrongInput& wrong) {
        PrintText(wrong.what());
        phone.m_bFailed = true;
    }
}

}  // namespace desk_phone
