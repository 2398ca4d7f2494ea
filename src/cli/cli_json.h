// tgxcfg's --format=json documents (their shape is documented in docs/tgxcfg.md and kept stable:
// keys are only ever added).
#pragma once

#include "project/project.h"
#include "project/project_check.h"
#include "project/project_diff.h"

#include <string>
#include <vector>

std::string ProjectJson(const Project& project);
std::string ProblemsJson(const std::vector<ProjectProblem>& problems, const wxString& projectFile, const wxString& mapFile);
std::string DifferencesJson(const std::vector<ProjectDifference>& differences);
