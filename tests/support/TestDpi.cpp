#include "support/TestDpi.h"

#include <stdexcept>
#include <string>

std::string EnvironmentValue(const char* name)
{
    char value[MAX_PATH] = {};
    const DWORD length = ::GetEnvironmentVariableA(name, value, MAX_PATH);
    return std::string(value, length < MAX_PATH ? length : 0);
}

UINT TestDpi()
{
    const UINT systemDpi = ::GetDpiForSystem();
    const std::string announced = EnvironmentValue("VX_TEST_DPI");
    if (!announced.empty() && std::to_string(systemDpi) != announced)
    {
        throw std::runtime_error("VX_TEST_DPI is " + announced + ", the system's DPI is " +
                                 std::to_string(systemDpi));
    }
    return systemDpi;
}
