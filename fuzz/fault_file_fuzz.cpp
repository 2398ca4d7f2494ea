// The simulator's faults.txt read as the simulator reads it (LoadFaultPlan), then consulted for
// one run as a tool would.
#include "fault_plan.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    sim::FaultPlan plan;
    wxString problem;
    if (!sim::LoadFaultPlan(FuzzFile("faults.txt", data, size), wxSplit("ttbuild ttdevtype pfmux ttvsp", ' '), plan, problem))
        return 0;
    sim::FaultCounters counters;
    sim::DecideFault(plan, "ttbuild", "C:\\TGX\\BUILD -o=\"OUTPUT\" 12", counters);
    sim::DelayFor(plan, "pfmux");
    return 0;
}
