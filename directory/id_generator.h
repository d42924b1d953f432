/// \file
/// Gives the ids of groups that are added.

#ifndef NSDIRECTORY_DIRECTORY_ID_GENERATOR_H
#define NSDIRECTORY_DIRECTORY_ID_GENERATOR_H

#include <climits>

#include "directory/export.h"

namespace NS_DIRECTORY {

class NSDIRECTORY_API CRIdGenerator
{
  public:
    /// Takes n as the id given last, and returns it.
    int SetBegin(int n)
    {
        m_nLast = n;
        return n;
    }

    /// The id after the one given last. It does not look at the ids in use. After the largest int
    /// it goes on with the smallest, and so with ids that no group can take.
    int GenId()
    {
        m_nLast = m_nLast == INT_MAX ? INT_MIN : m_nLast + 1;
        return m_nLast;
    }

  private:
    int m_nLast = -1;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_ID_GENERATOR_H
