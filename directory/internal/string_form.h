// What the storage of a String shows without a look at its form, for walks over many Strings.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_STRING_FORM_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_STRING_FORM_H

#include <cstdint>

#include "qzstl/string_like"

namespace qz {

template <class Char>
struct string_form
{
    using String = basic_string<Char>;

    // True if a fresh String with this text is in the short form.
    static bool FitsInside(const String& text) noexcept
    {
        return text.size() <= String::SHORT_CAPACITY;
    }

    // Strings in the short form with the same text have the same first word.
    static std::uint64_t FirstWord(const String& text) noexcept { return text.MyFirstWord(); }

    // True if one of the Strings whose first words were joined with | is in the long form.
    static bool IsAnyLong(std::uint64_t nWords) noexcept { return String::MyIsLongWord(nWords); }

    static bool IsLong(const String& text) noexcept { return text.MyIsLong(); }

    // Characters in the short form.
    static unsigned int LongSize(const String& text) noexcept { return text.MyLongSize(); }

    // The last characters of a text of nSize, which is at least eight.
    static std::uint64_t LastWord(const String& text, unsigned int nSize) noexcept
    {
        return String::MyLoadWord(text.c_str() + nSize - String::WORD_SIZE);
    }
};

}  // namespace qz

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_STRING_FORM_H
