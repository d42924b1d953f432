// The system under the library: the services of the device, and the calls that a load or a save
// makes, those of the XML library too.

#ifndef NSDIRECTORY_TESTS_SUPPORT_FAKE_SYSTEM_H
#define NSDIRECTORY_TESTS_SUPPORT_FAKE_SYSTEM_H

#include <string>
#include <vector>

using Texts = std::vector<std::string>;  // names or paths

// A test sets the device's answers and sees what it was asked.
struct FakeDevice
{
    bool m_bColorful = true;
    int m_nConfigValue = 0;
    // What it was asked last: a path; "key level". Noted without memory, which may be short.
    char m_szFileAsked[100] = "";
    char m_szConfigAsked[100] = "";
};
inline FakeDevice g_device;

// Watches the calls while it lives, and lets single ones fail. One at a time.
class FileCalls
{
  public:
    enum Kind
    {
        OPEN,
        READ,
        WRITE,
        XML_MEMORY,
        KIND_COUNT
    };

    FileCalls();
    FileCalls(const FileCalls&) = delete;
    ~FileCalls();

    // That call fails, the first being 1, and no other of its kind.
    void Fail(Kind kind, int nCall) { m_arrFailing[kind] = nCall; }
    int Count(Kind kind) const { return m_arrCount[kind]; }
    // The paths opened for writing, in order, failed ones too.
    const Texts& Written() const { return m_listWritten; }

  private:
    int m_arrCount[KIND_COUNT] = {};
    int m_arrFailing[KIND_COUNT] = {};
    Texts m_listWritten;
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_FAKE_SYSTEM_H
