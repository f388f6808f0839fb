/// Runs a fuzz target on the files given, without a fuzzer: what was found once stays found.
/// \file

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* in_pBytes, std::size_t in_uSize);

int main(int in_iCount, char** in_pArguments)
{
    for (int iFile = 1; iFile < in_iCount; ++iFile)
    {
        std::ifstream file(in_pArguments[iFile], std::ios::binary);
        const std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        std::fprintf(stderr, "%s: %zu bytes\n", in_pArguments[iFile], bytes.size()); // the last one named is at fault
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    return in_iCount > 1 ? 0 : 1;
}
