#include "support/TestResources.h"

#include <fstream>
#include <iostream>
#include <string>

namespace
{
bool WriteFile(const std::string& path, const Bytes& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.flush();
    return file.good();
}
}

// Writes the computed resource files below the folder that the argument names.
int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::cerr << "usage: make_resources FOLDER\n";
        return 1;
    }
    for (const TestResource& resource : ComputedResources())
    {
        const std::string path = std::string(argv[1]) + "/" + resource.fileName;
        if (!WriteFile(path, resource.bytes))
        {
            std::cerr << "cannot write " << path << '\n';
            return 1;
        }
    }
    return 0;
}
