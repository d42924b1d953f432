// A line of input taken apart, and the one way in which wrong input is refused.

#ifndef DESK_PHONE_WORDS_H
#define DESK_PHONE_WORDS_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace desk_phone {

using Words = std::vector<std::string>;

// Input that cannot be followed; what() is the line to show for it.
class CWrongInput : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

// Words are between blanks. Double quotes keep blanks, and "" is an empty word; after a
// backslash a quote or a backslash is itself.
Words SplitWords(const std::string& strLine);

// The word that a line breaks off in, empty after a blank: where it begins, quotes included, and
// the words before it. A quote may be open.
struct LastWordData
{
    std::size_t m_nFrom = 0;
    std::string m_strText;
    Words m_before;
};

LastWordData FindLastWord(const std::string& strLine);

// A text as a word of a line, in quotes if it needs any; OpenQuoted() leaves out the last one.
std::string Quoted(const std::string& strWord);
std::string OpenQuoted(const std::string& strWord);

// A whole number from nLeast up; strWhat names it in the refusal.
int ToNumber(const std::string& strWord, int nLeast, const std::string& strWhat);

}  // namespace desk_phone

#endif  // DESK_PHONE_WORDS_H
