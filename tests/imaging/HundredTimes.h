#pragma once

#include <functional>

// With EXPECT_NO_LEAK, which compares around ten calls, this makes a thousand.
inline void HundredTimes(const std::function<void()>& work)
{
    for (int call = 0; call < 100; ++call)
        work();
}
