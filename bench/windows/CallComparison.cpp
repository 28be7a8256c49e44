#include "CallComparison.h"

#include "Modules.h"

#include <support/CallTrace.h>

#include <algorithm>
#include <cstdio>

namespace
{
CallNames CallsOf(const std::function<void()>& body)
{
    const CallTrace trace({LibraryModule(), ProgramModule()});
    body();
    return trace.Calls();
}

const char* NameAt(const CallNames& calls, std::size_t index)
{
    return index < calls.size() ? calls[index].c_str() : "nothing";
}
} // namespace

bool ReportCalls(const Pair& pair)
{
    pair.library(); // what is made once only is made now
    pair.byHand();
    const CallNames library = CallsOf(pair.library);
    const CallNames byHand = CallsOf(pair.byHand);
    const std::size_t common = (std::min)(library.size(), byHand.size());
    std::size_t same = 0;
    while (same < common && library[same] == byHand[same])
        ++same;
    const bool areSame = library == byHand;
    if (areSame)
        std::printf("%s: the same %zu calls\n", pair.name, same);
    else
        std::printf("%s: call %zu of %zu is %s in the library, %s of %zu by hand\n", pair.name, same + 1,
                    library.size(), NameAt(library, same), NameAt(byHand, same), byHand.size());
    std::fflush(stdout);
    return areSame && same > 0;
}
