#include "desk_phone/prompt.h"

#include <csignal>
#include <cstdio>
#include <cwctype>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "desk_phone/screen.h"
#include "desk_phone/text_width.h"

namespace desk_phone {

namespace {

constexpr int MOST_HISTORY_LINES = 500;

// A terminal that knows of pasting marks both ends of what is pasted.
constexpr char MARK_PASTES[] = "\033[?2004h";
constexpr char MARK_NO_PASTES[] = "\033[?2004l";
constexpr wchar_t PASTE_END[] = L"\033[201~";

struct KeyData
{
    const char* m_pKey;
    const char* m_pFunction;
};

constexpr KeyData KEYS[] = {
    {"^I", "complete"},
    {"^C", "give-up"},
    {"^Z", "suspend"},
    {"\\e[200~", "paste"},
    {"^R", "em-inc-search-prev"},
    {"^W", "ed-delete-prev-word"},
    {"\\e[3~", "ed-delete-next-char"},
    {"\\e[H", "ed-move-to-beg"},
    {"\\e[F", "ed-move-to-end"},
    {"\\e[1~", "ed-move-to-beg"},
    {"\\e[4~", "ed-move-to-end"},
    {"\\e[1;5C", "em-next-word"},
    {"\\e[1;5D", "ed-prev-word"},
};

void Send(const char* pText)
{
    (void)std::fputs(pText, stdout);
    (void)std::fflush(stdout);
}

std::size_t CharacterCount(const std::string& strText)
{
    return std::mbstowcs(nullptr, strText.c_str(), 0);
}

// What was pasted, up to its end mark.
std::wstring TakePaste(EditLine* pEditor)
{
    const std::wstring strEnd = PASTE_END;
    std::wstring strText;
    wchar_t c = 0;
    while (el_wgetc(pEditor, &c) == 1) {
        strText += c;
        if (strText.size() >= strEnd.size() &&
            strText.compare(strText.size() - strEnd.size(), strEnd.size(), strEnd) == 0) {
            strText.erase(strText.size() - strEnd.size());
            break;
        }
    }
    return strText;
}

// Without empty ones, and without the keys that may hide in a text.
std::deque<std::wstring> LinesOf(const std::wstring& strText)
{
    std::deque<std::wstring> lines;
    std::wstring strLine;
    for (const wchar_t c : strText + L'\n') {
        if ((c == L'\r' || c == L'\n') && !strLine.empty()) {
            lines.push_back(std::exchange(strLine, {}));
        } else if (c == L'\t') {
            strLine += L' ';
        } else if (std::iswcntrl(static_cast<std::wint_t>(c)) == 0) {
            strLine += c;
        }
    }
    return lines;
}

}  // namespace

CPrompt::CPrompt(std::string strHistoryFile, Completer completer)
    : m_strHistoryFile(std::move(strHistoryFile)),
      m_completer(std::move(completer)),
      m_pHistory(history_init()),
      m_pEditor(el_init("desk_phone", stdin, stdout, stderr))
{
    if (m_pHistory == nullptr || m_pEditor == nullptr) {
        throw std::runtime_error("the terminal cannot be used");
    }
    HistEvent event;
    (void)history(m_pHistory, &event, H_SETSIZE, MOST_HISTORY_LINES);
    (void)history(m_pHistory, &event, H_SETUNIQUE, 1);
    (void)history(m_pHistory, &event, H_LOAD, m_strHistoryFile.c_str());  // none at first
    (void)el_set(m_pEditor, EL_CLIENTDATA, this);
    (void)el_set(m_pEditor, EL_PROMPT, MyPromptOf);
    (void)el_set(m_pEditor, EL_HIST, history, m_pHistory);
    (void)el_set(m_pEditor, EL_SIGNAL, 1);
    (void)el_set(m_pEditor, EL_EDITOR, "emacs");
    (void)el_source(m_pEditor, nullptr);  // what the person prefers, if there is such a file
    (void)el_wset(m_pEditor, EL_ADDFN, L"complete", L"Complete a word", MyComplete);
    (void)el_wset(m_pEditor, EL_ADDFN, L"give-up", L"Give up the line", MyGiveUp);
    (void)el_wset(m_pEditor, EL_ADDFN, L"suspend", L"Suspend the telephone", MySuspend);
    (void)el_wset(m_pEditor, EL_ADDFN, L"paste", L"Show pasted lines", MyPaste);
    for (const KeyData& key : KEYS) {
        (void)el_set(m_pEditor, EL_BIND, key.m_pKey, key.m_pFunction, nullptr);
    }
    (void)el_set(m_pEditor, EL_SETTY, "-d", "-isig", nullptr);  // so Ctrl-C comes as a key
}

CPrompt::~CPrompt()
{
    HistEvent event;
    (void)history(m_pHistory, &event, H_SAVE, m_strHistoryFile.c_str());  // lost if it cannot be
    el_end(m_pEditor);
    history_end(m_pHistory);
}

bool CPrompt::Read(std::string& strLine)
{
    if (!m_pasted.empty()) {
        el_wpush(m_pEditor, m_pasted.front().c_str());
        m_pasted.pop_front();
    }
    if (!MyReadLine("phone> ", strLine) || m_nGiveUps > 1) {
        return false;
    }
    if (m_nGiveUps == 1) {
        PrintText("Ctrl-C once more leaves.");
    } else if (!strLine.empty()) {
        HistEvent event;
        (void)history(m_pHistory, &event, H_ENTER, strLine.c_str());  // not kept is no loss
    }
    return true;
}

bool CPrompt::Ask(const std::string& strQuestion)
{
    PrintText(strQuestion);
    std::string strAnswer;
    return MyReadLine("yes or no> ", strAnswer) && (strAnswer == "yes" || strAnswer == "y");
}

bool CPrompt::MyReadLine(const char* pPrompt, std::string& strLine)
{
    const int nGiveUpsBefore = m_nGiveUps;
    m_strPrompt = pPrompt;
    int nBytes = 0;
    Send(MARK_PASTES);
    const char* pLine = el_gets(m_pEditor, &nBytes);
    Send(MARK_NO_PASTES);
    if (pLine == nullptr || nBytes <= 0) {
        std::cout << '\n';  // what follows starts on a line of its own
        return false;
    }
    strLine.assign(pLine, static_cast<std::size_t>(nBytes));
    strLine.erase(strLine.find_last_not_of('\n') + 1);
    if (m_nGiveUps == nGiveUpsBefore) {
        m_nGiveUps = 0;
    }
    return true;
}

CPrompt& CPrompt::MyOf(EditLine* pEditor)
{
    void* pPrompt = nullptr;
    (void)el_get(pEditor, EL_CLIENTDATA, &pPrompt);
    return *static_cast<CPrompt*>(pPrompt);
}

char* CPrompt::MyPromptOf(EditLine* pEditor)
{
    return MyOf(pEditor).m_strPrompt.data();
}

unsigned char CPrompt::MyComplete(EditLine* pEditor, int /*nKey*/)
{
    const LineInfo* pLine = el_line(pEditor);
    const CompletionData completion =
        MyOf(pEditor).m_completer(std::string(pLine->buffer, pLine->cursor));
    if (completion.m_strText != completion.m_strWord) {
        el_deletestr(pEditor, static_cast<int>(CharacterCount(completion.m_strWord)));
        (void)el_insertstr(pEditor, completion.m_strText.c_str());  // without room it stays short
        return CC_REFRESH;
    }
    if (completion.m_choices.empty()) {
        return CC_REFRESH_BEEP;
    }
    std::cout << '\n';
    PrintChoices(completion.m_choices);
    (void)std::cout.flush();
    return CC_REDISPLAY;
}

// The empty line that is read in its place takes the ordinary way.
unsigned char CPrompt::MyGiveUp(EditLine* pEditor, int /*nKey*/)
{
    CPrompt& prompt = MyOf(pEditor);
    const LineInfoW* pLine = el_wline(pEditor);
    const int nLength = static_cast<int>(pLine->lastchar - pLine->buffer);
    prompt.m_nGiveUps = nLength == 0 ? prompt.m_nGiveUps + 1 : 1;
    prompt.m_pasted.clear();
    (void)el_cursor(pEditor, static_cast<int>(pLine->lastchar - pLine->cursor));
    el_deletestr(pEditor, nLength);
    el_push(pEditor, "\n");
    return CC_REFRESH;
}

unsigned char CPrompt::MySuspend(EditLine* /*pEditor*/, int /*nKey*/)
{
    (void)std::raise(SIGTSTP);  // the editor leaves the terminal in order, and comes back to it
    return CC_REDISPLAY;
}

unsigned char CPrompt::MyPaste(EditLine* pEditor, int /*nKey*/)
{
    std::deque<std::wstring>& pasted = MyOf(pEditor).m_pasted;
    pasted = LinesOf(TakePaste(pEditor));
    if (!pasted.empty()) {
        (void)el_winsertstr(pEditor, pasted.front().c_str());  // without room it stays short
        pasted.pop_front();
    }
    return CC_REFRESH;
}

}  // namespace desk_phone
