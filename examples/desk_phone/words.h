// A line of input taken apart, and the one way in which wrong input is refused.

#ifndef DESK_PHONE_WORDS_H
#define DESK_PHONE_WORDS_H

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

// Words stand between blanks. Double quotes keep blanks, and "" is an empty word; behind a
// backslash a quote or a backslash stands for itself.
Words SplitWords(const std::string& strLine);

// A whole number from nLeast up; strWhat names it in the refusal.
int ToNumber(const std::string& strWord, int nLeast, const std::string& strWhat);

}  // namespace desk_phone

#endif  // DESK_PHONE_WORDS_H
