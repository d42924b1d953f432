// The keys of a telephone that have letters.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_KEY_PAD_H
#define NSDIRECTORY_SEARCH_INTERNAL_KEY_PAD_H

namespace NS_DIRECTORY {

// The key, '0' to '9', of the first character of a folded text that is not empty, or NO_KEY. pForm
// moves past the character.
char TakeKey(const char*& pForm);

inline constexpr char NO_KEY = ' ';

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_KEY_PAD_H
