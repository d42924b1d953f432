// The prompt at a terminal: editing, completion, history, and what keeps a person from accidents.

#ifndef DESK_PHONE_PROMPT_H
#define DESK_PHONE_PROMPT_H

#include <histedit.h>

#include <deque>
#include <functional>
#include <string>

#include "desk_phone/completion.h"

namespace desk_phone {

class CPrompt
{
  public:
    using Completer = std::function<CompletionData(const std::string& strBeforeCursor)>;

    // The lines of earlier runs come from the file, and go there at the end. Throws
    // std::runtime_error if the terminal cannot be used.
    CPrompt(std::string strHistoryFile, Completer completer);
    ~CPrompt();

    CPrompt(const CPrompt&) = delete;
    CPrompt& operator=(const CPrompt&) = delete;

    // A line. Of pasted lines each waits for the Enter key. Ctrl-C gives the line up, which is
    // empty then. False at the end of input, and for another Ctrl-C right after that.
    bool Read(std::string& strLine);

    // True for yes. Pasted lines answer nothing.
    bool Ask(const std::string& strQuestion);

  private:
    bool MyReadLine(const char* pPrompt, std::string& strLine);

    static CPrompt& MyOf(EditLine* pEditor);
    static char* MyPromptOf(EditLine* pEditor);
    static unsigned char MyComplete(EditLine* pEditor, int nKey);
    static unsigned char MyGiveUp(EditLine* pEditor, int nKey);
    static unsigned char MySuspend(EditLine* pEditor, int nKey);
    static unsigned char MyPaste(EditLine* pEditor, int nKey);

    std::string m_strHistoryFile;
    Completer m_completer;
    std::string m_strPrompt;
    std::deque<std::wstring> m_pasted;  // lines that wait to be shown
    int m_nGiveUps = 0;                 // by Ctrl-C, one after the other
    History* m_pHistory;
    EditLine* m_pEditor;
};

}  // namespace desk_phone

#endif  // DESK_PHONE_PROMPT_H
