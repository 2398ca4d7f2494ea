// Faults injected by the file faults.txt in the state folder, so that tests and a curious user
// can make any step of a workflow fail. One rule or delay per line; '#' or ';' starts a comment.
//
//   TOOL [match=PATTERN] [exit=CODE] [fails=N] [output=LINE]...
//   delay TOOL SECONDS
//
// TOOL is a tool name or "*" for every tool. PATTERN is tested against the tool's arguments
// joined by single blanks: with '*' or '?' in it a glob over the whole line, otherwise a
// substring. exit defaults to 1. fails=0 (the default) fails every matching run; fails=N fails
// the first N matching runs, lets the next one succeed and is then spent. Each output= is one
// line printed on standard output instead of the tool's own; without any, a note goes to
// standard error; repeat=N prints them N times. Values with blanks are written in double quotes (\" and \\ inside).
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <map>
#include <vector>

namespace sim {

struct FaultRule {
    wxString tool;
    wxString pattern;
    int exitCode = 1;
    long fails = 0;
    wxArrayString output;
    long repeat = 1;  // how many times the output lines are printed
    wxString text;  // the rule as written: the key of its counter
    int lineNumber = 0;
};

struct FaultDelay {
    wxString tool;
    double seconds = 0;
};

struct FaultPlan {
    std::vector<FaultRule> rules;
    std::vector<FaultDelay> delays;
};

// How often each rule (by its text) has been met; kept in fault-counters.txt.
using FaultCounters = std::map<wxString, long>;

// Splits a line into blank-separated words; double quotes group, \" and \\ escape inside them.
bool SplitWords(const wxString& line, wxArrayString& words, wxString& problem);
// Quotes a word when it needs it, so that SplitWords gives it back unchanged.
wxString QuoteWord(const wxString& word);

// One line of the fault file. `isRule`/`isDelay` say which it was; neither for blank and comment lines.
bool ParseFaultLine(const wxString& line, const wxArrayString& knownTools, FaultRule& rule, FaultDelay& delay,
    bool& isRule, bool& isDelay, wxString& problem);
// The whole file; a problem names the line. A missing file is an empty plan.
bool LoadFaultPlan(const wxString& path, const wxArrayString& knownTools, FaultPlan& plan, wxString& problem);

bool PatternMatches(const wxString& pattern, const wxString& argumentLine);

// The rule that makes this run fail, or nullptr. At most one rule is consulted per run: the
// first that matches and is not spent. Counts the run against it in `counters`.
const FaultRule* DecideFault(
    const FaultPlan& plan, const wxString& tool, const wxString& argumentLine, FaultCounters& counters);
// The delay of the first delay line for the tool (or "*"), 0 when there is none.
double DelayFor(const FaultPlan& plan, const wxString& tool);

bool LoadFaultCounters(const wxString& path, FaultCounters& counters);
bool SaveFaultCounters(const wxString& path, const FaultCounters& counters);

}  // namespace sim
