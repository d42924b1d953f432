// The one rule of every paged list: which positions of the listed entries a host asked for.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_PAGE_WINDOW_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_PAGE_WINDOW_H

namespace NS_DIRECTORY {

class CPageWindow
{
  public:
    // The bounds are added in 64 bits: a count of INT_MAX asks for all that follows.
    CPageWindow(int nIndexFrom, int nCountToGet)
        : m_nFrom(nIndexFrom), m_nEnd(static_cast<long long>(nIndexFrom) + nCountToGet)
    {}

    bool Holds(int nIndex) const { return nIndex >= m_nFrom && nIndex < m_nEnd; }

  private:
    long long m_nFrom;
    long long m_nEnd;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_PAGE_WINDOW_H
