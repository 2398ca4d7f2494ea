// The tool runner of the desktop tool: while a tool runs, the windows keep answering the desktop
// (repaint, no "not responding") but take no input, so no second command can start.
#pragma once

#include "platform/wx_tool_runner.h"

class DesktopToolRunner : public WxToolRunner {
public:
    long RunCaptured(const ToolCommand& command, wxArrayString& output) override;
    // Still blocking and hidden, but with the toolkit's events processed meanwhile.
    long RunBlockingHidden(const ToolCommand& command) override;
};

// True while a DesktopToolRunner waits for a tool.
bool ToolRunInProgress();
