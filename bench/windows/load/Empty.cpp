extern "C" __declspec(dllexport) void DoNothing() {}
