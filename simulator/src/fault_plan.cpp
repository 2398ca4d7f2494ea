#include "fault_plan.h"

#include "text_io.h"

#include <wx/filefn.h>

#include <cmath>

namespace sim {

namespace {

bool ParseInteger(const wxString& text, long min, long max, long& value)
{
    return !text.empty() && text.ToLong(&value) && value >= min && value <= max;
}

}  // namespace

bool SplitWords(const wxString& line, wxArrayString& words, wxString& problem)
{
    words.Clear();
    wxString word;
    bool inWord = false, quoted = false;
    for (auto it = line.begin(); it != line.end(); ++it) {
        const wxUniChar c = *it;
        if (quoted) {
            if (c == '"') {
                quoted = false;
            } else if (c == '\\') {
                auto next = it;
                ++next;
                if (next != line.end() && (*next == '"' || *next == '\\')) {
                    word += *next;
                    it = next;
                } else {
                    word += c;
                }
            } else {
                word += c;
            }
        } else if (c == ' ' || c == '\t') {
            if (inWord)
                words.Add(word);
            word.clear();
            inWord = false;
        } else {
            inWord = true;
            if (c == '"')
                quoted = true;
            else
                word += c;
        }
    }
    if (quoted) {
        problem = "a double quote is not closed";
        return false;
    }
    if (inWord)
        words.Add(word);
    return true;
}

wxString QuoteWord(const wxString& word)
{
    if (!word.empty() && word.find_first_of(" \t\"\\") == wxString::npos)
        return word;
    wxString quoted = "\"";
    for (const wxUniChar c : word) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

bool ParseFaultLine(const wxString& line, const wxArrayString& knownTools, FaultRule& rule, FaultDelay& delay,
    bool& isRule, bool& isDelay, wxString& problem)
{
    isRule = isDelay = false;
    const wxString trimmed = wxString(line).Trim().Trim(false);
    if (trimmed.empty() || trimmed.StartsWith("#") || trimmed.StartsWith(";"))
        return true;
    wxArrayString words;
    if (!SplitWords(trimmed, words, problem))
        return false;

    auto knownTool = [&](const wxString& name) {
        if (name == "*" || knownTools.Index(name) != wxNOT_FOUND)
            return true;
        problem = "no simulated tool named '" + name + "'";
        return false;
    };

    if (words[0] == "delay") {
        if (words.size() != 3) {
            problem = "a delay is written 'delay TOOL SECONDS'";
            return false;
        }
        if (!knownTool(words[1]))
            return false;
        double seconds = 0;
        if (!words[2].ToCDouble(&seconds) || !std::isfinite(seconds) || seconds < 0 || seconds > 3600) {
            problem = "'" + words[2] + "' is not a number of seconds between 0 and 3600";
            return false;
        }
        delay = FaultDelay{words[1], seconds};
        isDelay = true;
        return true;
    }

    if (!knownTool(words[0]))
        return false;
    rule = FaultRule();
    rule.tool = words[0];
    rule.text = trimmed;
    for (size_t i = 1; i < words.size(); ++i) {
        const wxString key = words[i].BeforeFirst('=');
        const wxString value = words[i].AfterFirst('=');
        if (!words[i].Contains("=")) {
            problem = "'" + words[i] + "' is not KEY=VALUE";
            return false;
        }
        long number = 0;
        if (key == "match") {
            rule.pattern = value;
        } else if (key == "exit") {
            if (!ParseInteger(value, 0, 255, number)) {
                problem = "exit must be a number from 0 to 255";
                return false;
            }
            rule.exitCode = static_cast<int>(number);
        } else if (key == "fails") {
            if (!ParseInteger(value, 0, 1000000, number)) {
                problem = "fails must be a number from 0 (always) upwards";
                return false;
            }
            rule.fails = number;
        } else if (key == "output") {
            rule.output.Add(value);
        } else if (key == "repeat") {
            if (!ParseInteger(value, 1, 100000000, number)) {
                problem = "repeat must be a number from 1 to 100000000";
                return false;
            }
            rule.repeat = number;
        } else {
            problem = "unknown key '" + key + "' (match, exit, fails, output, repeat)";
            return false;
        }
    }
    isRule = true;
    return true;
}

bool LoadFaultPlan(const wxString& path, const wxArrayString& knownTools, FaultPlan& plan, wxString& problem)
{
    plan = FaultPlan();
    wxArrayString lines;
    if (!wxFileExists(path))
        return true;
    if (!ReadLines(path, lines)) {
        problem = "cannot read " + path;
        return false;
    }
    for (size_t i = 0; i < lines.size(); ++i) {
        FaultRule rule;
        FaultDelay delay;
        bool isRule = false, isDelay = false;
        wxString lineProblem;
        if (!ParseFaultLine(lines[i], knownTools, rule, delay, isRule, isDelay, lineProblem)) {
            problem = wxString::Format("%s, line %zu: %s", path, i + 1, lineProblem);
            return false;
        }
        if (isRule) {
            rule.lineNumber = static_cast<int>(i + 1);
            plan.rules.push_back(rule);
        }
        if (isDelay)
            plan.delays.push_back(delay);
    }
    return true;
}

bool PatternMatches(const wxString& pattern, const wxString& argumentLine)
{
    if (pattern.empty())
        return true;
    if (pattern.find_first_of("*?") != wxString::npos)
        return argumentLine.Matches(pattern);
    return argumentLine.Contains(pattern);
}

const FaultRule* DecideFault(
    const FaultPlan& plan, const wxString& tool, const wxString& argumentLine, FaultCounters& counters)
{
    for (const FaultRule& rule : plan.rules) {
        if ((rule.tool != "*" && rule.tool != tool) || !PatternMatches(rule.pattern, argumentLine))
            continue;
        long& met = counters[rule.text];
        if (rule.fails == 0 || met < rule.fails) {
            ++met;
            return &rule;
        }
        if (met == rule.fails) {
            ++met;  // the run that succeeds; the rule is spent from now on
            return nullptr;
        }
    }
    return nullptr;
}

double DelayFor(const FaultPlan& plan, const wxString& tool)
{
    for (const FaultDelay& delay : plan.delays)
        if (delay.tool == "*" || delay.tool == tool)
            return delay.seconds;
    return 0;
}

// One line per rule: the count, a tab, the rule's text (which may hold anything but a line end).
bool LoadFaultCounters(const wxString& path, FaultCounters& counters)
{
    counters.clear();
    wxArrayString lines;
    if (!wxFileExists(path))
        return true;
    if (!ReadLines(path, lines))
        return false;
    for (const wxString& line : lines) {
        long count = 0;
        if (line.Contains("\t") && line.BeforeFirst('\t').ToLong(&count))
            counters[line.AfterFirst('\t')] = count;
    }
    return true;
}

bool SaveFaultCounters(const wxString& path, const FaultCounters& counters)
{
    wxArrayString lines;
    for (const auto& [text, count] : counters)
        lines.Add(wxString::Format("%ld\t%s", count, text));
    return WriteLines(path, lines);
}

}  // namespace sim
