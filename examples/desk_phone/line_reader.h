// The lines of a script or a pipe.

#ifndef DESK_PHONE_LINE_READER_H
#define DESK_PHONE_LINE_READER_H

#include <cstddef>
#include <istream>
#include <string>

namespace desk_phone {

inline constexpr std::size_t MOST_LINE_BYTES = 1000;

// A line. Of one that is too long the first MOST_LINE_BYTES + 1 bytes are
// kept, whatever its length. False at the end of input, and if it cannot be read: stream.bad()
// then.
bool ReadFromStream(std::istream& stream, std::string& strLine);

}  // namespace desk_phone

#endif  // DESK_PHONE_LINE_READER_H
