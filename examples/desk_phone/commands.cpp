#include "desk_phone/commands.h"

#include <algorithm>
#include <climits>
#include <iterator>

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
    std::size_t m_nLeast;  // words after the name
    std::size_t m_nMost;
    Expected m_first;  // what the first argument is
    Expected m_other;
    void (*m_pRun)(PhoneData& phone, const Words& words);
    const char* m_pHelp;
    const char* m_pQuestion = nullptr;  // asked at a prompt before it is run
    bool m_bOneText = false;            // what follows is one argument, blanks and all
};

constexpr CommandData COMMANDS[] = {
    {"call", "NUMBER", 1, 1, Expected::NOTHING, Expected::NOTHING, Call,
     "A call from NUMBER comes in: who it is, and the ring or BLOCKED. If nobody has the number "
     "digit for digit, whoever has the same line answers to it.",
     nullptr, true},
    {"find", "TEXT", 1, 1, Expected::NOTHING, Expected::NOTHING, Find,
     "Contacts by the beginnings of words, or by a part of a number. Case and accents do not "
     "matter, nor does the order.",
     nullptr, true},
    {"keys", "DIGITS", 1, 1, Expected::NOTHING, Expected::NOTHING, FindByKeys,
     "Contacts by the keys that their letters are on, or by a part of a number. 0 or 1 is for a "
     "blank."},
    {"groups", "", 0, 0, Expected::NOTHING, Expected::NOTHING, ListGroups,
     "The groups with their contacts counted and their rings."},
    {"contacts", "GROUP [FROM COUNT]", 1, 3, Expected::GROUPS, Expected::NOTHING, ListContacts,
     "A page of a group's contacts: COUNT of them (10) from place FROM (1) on."},
    {"show", "NAME", 1, 1, Expected::NAMES, Expected::NOTHING, Show,
     "All that is stored for a contact."},
    {"add", "NAME [FIELD=VALUE ...]", 1, ANY, Expected::NOTHING, Expected::FIELDS, AddContact,
     "Adds a contact, to \"All Contacts\" if no group is given. Fields: group, mobile, office, "
     "other, ring, photo, line, selected."},
    {"update", "NAME FIELD=VALUE ...", 2, ANY, Expected::NAMES, Expected::FIELDS, UpdateContact,
     "Changes fields of a contact: those of add, and name."},
    {"remove", "NAME ...", 1, ANY, Expected::NAMES, Expected::NAMES, RemoveContacts,
     "Removes contacts. Of several names those of no contact are passed over."},
    {"remove-all", "GROUP", 1, 1, Expected::GROUPS, Expected::NOTHING, RemoveAllContacts,
     "Removes the contacts of a group; of \"All Contacts\" every contact, blacklisted ones too.",
     "All contacts of this group are to be removed?"},
    {"move", "NAME ... GROUP", 2, ANY, Expected::NAMES, Expected::NAMES_AND_GROUPS, MoveContacts,
     "Moves contacts to a group, all or none. Names of no contact are passed over."},
    {"block", "NAME", 1, 1, Expected::NAMES, Expected::NOTHING, Block,
     "Puts a contact into the blacklist."},
    {"unblock", "NAME", 1, 1, Expected::NAMES, Expected::NOTHING, Unblock,
     "Takes a contact out of the blacklist."},
    {"add-group", "NAME [RING]", 1, 2, Expected::NOTHING, Expected::NOTHING, AddGroup,
     "Adds a group."},
    {"rename-group", "NAME NEWNAME", 2, 2, Expected::GROUPS, Expected::NOTHING, RenameGroup,
     "Renames a group; its contacts stay."},
    {"ring", "GROUP RING", 2, 2, Expected::GROUPS, Expected::NOTHING, SetGroupRing,
     "Gives a group a ring; \"\" takes it away."},
    {"remove-group", "NAME", 1, 1, Expected::GROUPS, Expected::NOTHING, RemoveGroup,
     "Removes a group; its contacts go to \"All Contacts\"."},
    {"remove-all-groups", "", 0, 0, Expected::NOTHING, Expected::NOTHING, RemoveAllGroups,
     "Removes all groups but the two fixed ones.",
     "All groups but the two fixed ones are to be removed?"},
    {"export", "[PATH]", 0, 1, Expected::NOTHING, Expected::NOTHING, Export,
     "Writes groups and contacts into one file. PATH counts from the working folder; without it "
     "the export goes into the data folder."},
    {"files", "[LINES]", 0, 1, Expected::NOTHING, Expected::NOTHING, ShowFiles,
     "The two files of the directory: size and first lines."},
    {"summary", "", 0, 0, Expected::NOTHING, Expected::NOTHING, ShowSummary,
     "Counts, limits, and how long the start took."},
    {"help", "[COMMAND]", 0, 1, Expected::COMMANDS, Expected::NOTHING, Help,
     "What a command does."},
    {"quit", "", 0, 0, Expected::NOTHING, Expected::NOTHING, Quit,
     "Ends the program, as the end of input does."},
    {"exit", "", 0, 0, Expected::NOTHING, Expected::NOTHING, Quit, "The same."},
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
        pairs.emplace_back(Usage(command), FirstSentence(command.m_pHelp));
    }
    PrintPairs(pairs);
    PrintText("Names with blanks stand in double quotes. More on one: help COMMAND");
}

void Quit(PhoneData& phone, const Words&)
{
    phone.m_bOn = false;
}

// All words after the first in one.
Words WithOneText(const Words& words)
{
    std::string strText;
    for (std::size_t n = 1; n < words.size(); ++n) {
        strText += (n == 1 ? "" : " ") + words[n];
    }
    return {words.front(), strText};
}

void RunWords(PhoneData& phone, Words words)
{
    const CommandData& command = FindCommand(words.front());
    if (command.m_bOneText && words.size() > 2) {
        words = WithOneText(words);
    }
    const std::size_t nArguments = words.size() - 1;
    if (nArguments < command.m_nLeast || nArguments > command.m_nMost) {
        const bool bBlanks = nArguments > command.m_nMost && command.m_nMost > 0;
        throw CWrongInput("This is written: " + Usage(command) +
                          (bBlanks ? ". What holds blanks stands in double quotes." : ""));
    }
    if (command.m_pQuestion != nullptr && phone.m_ask && !phone.m_ask(command.m_pQuestion)) {
        PrintText("Nothing is changed.");
        return;
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

Words CommandNames()
{
    Words names;
    for (const CommandData& command : COMMANDS) {
        names.emplace_back(command.m_pName);
    }
    return names;
}

Expected ExpectedAfter(const Words& words)
{
    if (words.empty()) {
        return Expected::COMMANDS;
    }
    const auto* pCommand = std::find_if(
        std::begin(COMMANDS), std::end(COMMANDS),
        [&words](const CommandData& command) { return words.front() == command.m_pName; });
    if (pCommand == std::end(COMMANDS) || words.size() > pCommand->m_nMost) {
        return Expected::NOTHING;
    }
    return words.size() == 1 ? pCommand->m_first : pCommand->m_other;
}

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
