#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "fakes/tb601_cases.h"
#include "tb601_transient/tb601_solver.h"

namespace {
thread_local int allocations = 0;
}

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace zel {
namespace {

TEST(Tb601Solver, allocates_nothing) {
    CalcCase c = line_264_34();
    TB601Records r;
    const int before = allocations;
    bool failed = static_cast<bool>(ST_00_CigreTB601_temp_strom_steady_state(c, 90, r));
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db.value = 99999;
    const bool refused = static_cast<bool>(ST_00_CigreTB601_temp_strom_steady_state(c, 90, r));
    EXPECT_EQ(allocations, before);
    EXPECT_FALSE(failed);
    EXPECT_TRUE(refused);
}

}  // namespace
}  // namespace zel
