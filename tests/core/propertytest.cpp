#include "viewprogram.h"

#include <random>

TEST(Property, OfRandomPages)
{
    std::mt19937 random; // seeded by default: the same pages everywhere
    for (int iPage = 0; iPage < 3000 && !HasFailure(); ++iPage)
    {
        SCOPED_TRACE(iPage);
        std::vector<std::uint8_t> bytes(200);
        std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<std::uint8_t>(random()); });
        CViewProgram(bytes.data(), bytes.size()).Run();
    }
}
