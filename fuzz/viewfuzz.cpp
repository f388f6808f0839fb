#include "viewprogram.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* in_pBytes, std::size_t in_uSize)
{
    CViewProgram(in_pBytes, in_uSize).Run();
    testing::Test::HasFailure() ? std::abort() : void();
    return 0;
}
