#include "support/TestDpi.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

UINT TestDpi()
{
    const UINT systemDpi = ::GetDpiForSystem();
    const char* const announced = std::getenv("VX_TEST_DPI");
    if (announced != nullptr && std::to_string(systemDpi) != announced)
    {
        throw std::runtime_error(std::string("VX_TEST_DPI is ") + announced + ", the system's DPI is " +
                                 std::to_string(systemDpi));
    }
    return systemDpi;
}
