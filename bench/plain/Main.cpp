#include "RatioTable.h"

#include <string>
#include <vector>

/// plain_bench [GOOGLE-BENCHMARK-ARGUMENT...]. The status is 1 when a target is missed.
int main(int argc, char** argv)
{
    // Before the caller's, which so win. Load that comes and goes meets all benchmarks.
    std::vector<std::string> arguments = {argv[0], "--benchmark_enable_random_interleaving=true",
                                          "--benchmark_repetitions=15", "--benchmark_min_time=0.02"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    pointers.push_back(nullptr);

    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return table.Write() ? 0 : 1;
}
