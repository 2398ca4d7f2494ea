// tgxcfg's --format=json documents (their shape is documented in docs/tgxcfg.md and kept stable:
// keys are only ever added).
#pragma once

#include "base/installation_environment.h"
#include "deploy/configure_device.h"
#include "project/project.h"
#include "project/project_check.h"
#include "project/project_diff.h"

#include <string>
#include <vector>

std::string ProjectJson(const Project& project);
std::string ProblemsJson(const std::vector<ProjectProblem>& problems, const wxString& projectFile, const wxString& mapFile);
std::string DifferencesJson(const std::vector<ProjectDifference>& differences);

// tgxcfg info: what ttdevtype reported and what became of the fetch of the gateway's project.
struct GatewayInfo {
    GatewayVersions versions;
    bool firmwareMatches = false;  // the firmware the installation is built for
    bool projectFetched = false;
    wxString projectProblem;  // the fetch's message when it failed
};
// `project`: the gateway's, when it was fetched.
std::string InfoJson(const GatewayInfo& info, const InstallationEnvironment& env, const Project& project);
