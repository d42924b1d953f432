// Watches the calls that a load or a save makes, those of the XML library too, while it lives, and
// lets single ones fail. One at a time.

#ifndef NSDIRECTORY_TESTS_SUPPORT_FILE_CALLS_H
#define NSDIRECTORY_TESTS_SUPPORT_FILE_CALLS_H

#include <cstddef>
#include <string>
#include <vector>

class FileCalls
{
  public:
    // clang-format off
    enum Kind { OPEN, READ, WRITE, FLUSH, CLOSE, SEEK, TELL, XML_MEMORY, KIND_COUNT };
    // clang-format on

    FileCalls();
    FileCalls(const FileCalls&) = delete;
    ~FileCalls();

    // That call fails, the first being 1, and no other of its kind.
    void Fail(Kind kind, int nCall) { m_arrFailing[kind] = nCall; }
    // The next object of that size gets no memory from new (std::nothrow), whoever watches.
    static void FailRecord(std::size_t nBytes) { s_nFailingRecord = nBytes; }
    // The process is killed in the middle of that write call.
    void DieInWrite(int nCall) { m_nLastWrite = nCall; }

    int Count(Kind kind) const { return m_arrCount[kind]; }
    // The paths opened for writing, in order, failed ones too.
    const std::vector<std::string>& Written() const { return m_listWritten; }
    std::size_t BytesWritten() const { return m_nBytesWritten; }

    static inline std::size_t s_nFailingRecord = 0;

  private:
    int m_arrCount[KIND_COUNT] = {};
    int m_arrFailing[KIND_COUNT] = {};
    int m_nLastWrite = 0;
    std::size_t m_nBytesWritten = 0;
    std::vector<std::string> m_listWritten;
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_FILE_CALLS_H
