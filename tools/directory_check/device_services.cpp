// Of the services only the screen is asked for here: the element readers take photos by it.

#include "tools/directory_check/device_services.h"

#include "platform/device_services.h"

namespace {

bool s_bPlain = false;

}  // namespace

void SetPlainScreen(bool bPlain)
{
    s_bPlain = bPlain;
}

int IsColorfulScreen()
{
    return s_bPlain ? 0 : 1;
}
