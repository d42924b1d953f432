// UTF-8 texts measured in columns of a terminal. A byte that is no UTF-8, a control character and
// one that turns the direction of writing each show as U+FFFD, so that no text from a file can
// upset the terminal. Emoji that are joined to one show side by side, without skin tones. The
// locale decides what is UTF-8: it must be set before.

#ifndef DESK_PHONE_TEXT_WIDTH_H
#define DESK_PHONE_TEXT_WIDTH_H

#include <cstddef>
#include <string>
#include <vector>

namespace desk_phone {

// True for UTF-8 without control characters.
bool IsPlainText(const std::string& strText);

std::size_t Width(const std::string& strText);

// As much of the text as fits, with an ellipsis at its end where something is left out.
std::string Cut(const std::string& strText, std::size_t nWidth);

// The text cut or filled with blanks to exactly this width; bRight puts the blanks in front.
std::string Fit(const std::string& strText, std::size_t nWidth, bool bRight = false);

// The text in lines of at most this width, at blanks where there are any. At least one line.
std::vector<std::string> Wrap(const std::string& strText, std::size_t nWidth);

}  // namespace desk_phone

#endif  // DESK_PHONE_TEXT_WIDTH_H
