#include "foundation/ShortMemory.h"

bool CanMemoryFail()
{
#if defined(__MINGW32__)
    return true;
#else
    return false;
#endif
}
