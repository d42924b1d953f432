// The screen and the keyboard, or the pipes in their place.

#ifndef SIP_PHONE_TERMINAL_H
#define SIP_PHONE_TERMINAL_H

#include <functional>
#include <string>

namespace sip_phone {

// Lines of input come from libre's event loop. There is one object for a process.
class CTerminal
{
  public:
    // takeLine gets each line, endInput is called once: at the end of the input, and if the output
    // cannot be written.
    CTerminal(std::function<void(const std::string& strLine)> takeLine,
              std::function<void()> endInput);
    ~CTerminal();
    CTerminal(const CTerminal&) = delete;
    CTerminal& operator=(const CTerminal&) = delete;

    // Takes input from now on. Throws std::runtime_error if it cannot be read.
    void Open();

    // Takes no more input.
    void Close();

    // Runs print, which writes to std::cout, below what is there, and shows the prompt again.
    // From within a print it only runs it.
    void Show(const std::function<void()>& print);

    bool IsPerson() const { return m_bPerson; }
    bool IsOutputBroken() const { return m_bOutputBroken; }

  private:
    static void MyRead(int nFlags, void* pTerminal);
    void MyTake(const char* pBytes, std::size_t nBytes);
    void MyTakeLine();
    void MyEnd();

    std::function<void(const std::string& strLine)> m_takeLine;
    std::function<void()> m_endInput;
    std::string m_strLine;  // what has come of it so far
    bool m_bPerson;         // at a prompt
    bool m_bOpen = false;
    bool m_bPromptShown = false;
    bool m_bShowing = false;
    bool m_bOutputBroken = false;
};

}  // namespace sip_phone

#endif  // SIP_PHONE_TERMINAL_H
