// Objects of libre, which counts references, in the form of C++.

#ifndef SIP_PHONE_RE_POINTER_H
#define SIP_PHONE_RE_POINTER_H

#include <re.h>

#include <memory>

namespace sip_phone {

struct ReDereference
{
    template <class T>
    void operator()(T* pObject) const
    {
        (void)mem_deref(pObject);
    }
};

template <class T>
using RePointer = std::unique_ptr<T, ReDereference>;

}  // namespace sip_phone

#endif  // SIP_PHONE_RE_POINTER_H
