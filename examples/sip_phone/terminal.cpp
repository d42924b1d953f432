#include "sip_phone/terminal.h"

#include <re.h>
#include <unistd.h>

#include <array>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "desk_phone/line_reader.h"
#include "desk_phone/screen.h"

namespace sip_phone {

CTerminal::CTerminal(std::function<void(const std::string& strLine)> takeLine,
                     std::function<void()> endInput)
    : m_takeLine(std::move(takeLine)),
      m_endInput(std::move(endInput)),
      m_bPerson(isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0)
{}

CTerminal::~CTerminal()
{
    Close();
}

void CTerminal::Open()
{
    m_bOpen = fd_listen(STDIN_FILENO, FD_READ, MyRead, this) == 0;
    if (!m_bOpen) {
        throw std::runtime_error("the input cannot be read");
    }
    Show([] {});
}

void CTerminal::Close()
{
    if (std::exchange(m_bOpen, false)) {
        fd_close(STDIN_FILENO);
    }
}

void CTerminal::Show(const std::function<void()>& print)
{
    if (m_bShowing) {
        print();  // the prompt follows all of it
        return;
    }
    if (std::exchange(m_bPromptShown, false)) {
        std::cout << '\n';
    }
    m_bShowing = true;
    print();
    m_bShowing = false;
    if (m_bPerson && m_bOpen) {
        std::cout << "phone> ";
        m_bPromptShown = true;
    }
    if (!std::cout.flush() && !std::exchange(m_bOutputBroken, true)) {
        MyEnd();
    }
}

void CTerminal::MyRead(int /*nFlags*/, void* pTerminal)
{
    CTerminal& terminal = *static_cast<CTerminal*>(pTerminal);
    std::array<char, 4096> bytes{};
    const ssize_t nRead = read(STDIN_FILENO, bytes.data(), bytes.size());
    if (nRead > 0) {
        terminal.MyTake(bytes.data(), static_cast<std::size_t>(nRead));
    } else if (nRead == 0 || errno != EINTR) {
        terminal.MyEnd();
    }
}

// Of a line that is too long only so much is kept as shows that.
void CTerminal::MyTake(const char* pBytes, std::size_t nBytes)
{
    for (std::size_t n = 0; n < nBytes && m_bOpen; ++n) {
        if (pBytes[n] == '\n') {
            MyTakeLine();
        } else if (m_strLine.size() <= desk_phone::MOST_LINE_BYTES) {
            m_strLine += pBytes[n];
        }
    }
}

void CTerminal::MyTakeLine()
{
    const std::string strLine = std::exchange(m_strLine, {});
    m_bPromptShown = false;  // a person has ended that line
    Show([this, &strLine] {
        if (!m_bPerson) {
            desk_phone::PrintText(strLine, "> ");
        }
        m_takeLine(strLine);
    });
}

void CTerminal::MyEnd()
{
    Close();
    if (!m_strLine.empty()) {
        MyTakeLine();  // the last one has no end
    }
    Show([] {});
    m_endInput();
}

}  // namespace sip_phone
