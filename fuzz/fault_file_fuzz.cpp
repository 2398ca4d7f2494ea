// The simulator's faults.txt: its rules and delays, then consulted for one run as a tool would.
#include "fault_plan.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const wxArrayString tools = wxSplit("ttbuild ttdevtype pfmux ttvsp", ' ');
    sim::FaultPlan plan;
    for (const wxString& line : FuzzLines(data, size)) {
        sim::FaultRule rule;
        sim::FaultDelay delay;
        bool isRule = false, isDelay = false;
        wxString problem;
        if (!sim::ParseFaultLine(line, tools, rule, delay, isRule, isDelay, problem))
            return 0;
        if (isRule)
            plan.rules.push_back(rule);
        if (isDelay)
            plan.delays.push_back(delay);
    }
    sim::FaultCounters counters;
    sim::DecideFault(plan, "ttbuild", "C:\\TGX\\BUILD -o=\"OUTPUT\" 12", counters);
    sim::DelayFor(plan, "pfmux");
    return 0;
}
