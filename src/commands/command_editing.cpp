#include "commands/command_editing.h"

#include "base/app_context.h"
#include "base/number_text.h"
#include "project/project.h"

#include <algorithm>
#include <cstdint>

namespace {

ProjectDevice* SelectedDevice(Project& project)
{
    const int d = project.selectedDevice;
    if (d < 0 || d >= project.deviceCount || d >= MAX_DEVICES)
        return nullptr;
    return &project.devices[d];
}

bool SelectedCommandValid(const Project& project, const ProjectDevice& device)
{
    return project.selectedCommand >= 0 && project.selectedCommand < device.commandCount &&
           project.selectedCommand < MAX_COMMANDS;
}

void FillFromDialog(const CommandForm& form, HartCommandEntry& command)
{
    command.pollEnabled = form.enabledForPolling ? 1 : 0;
    command.writeCommand = form.writeCommand ? 1 : 0;
}

}  // namespace

bool ParseCommandEntry(const wxString& numberText, const wxString& intervalText, HartCommandEntry& command)
{
    HartCommandEntry parsed = command;
    long number = -1;
    long interval = 0;
    const bool numberRead = ParseTypedNumber(numberText.BeforeFirst(':'), number);
    const bool intervalRead = ParseTypedNumber(intervalText, interval);
    if (!numberRead || static_cast<unsigned long>(number) > kMaxCommandNumber || !intervalRead || interval <= 0)
        return false;
    parsed.commandNumber = static_cast<int>(number);
    parsed.cycleInterval = static_cast<int>(std::min<long>(interval, INT32_MAX));
    parsed.argCount = 0;
    wxString rest = numberText.Contains(":") ? numberText.AfterFirst(':') : wxString();
    while (!rest.empty() && parsed.argCount < MAX_COMMAND_ARGS) {
        long value = 0;
        ParseTypedNumber(rest.BeforeFirst(','), value);
        parsed.args[parsed.argCount++] = static_cast<int>(value);
        rest = rest.AfterFirst(',');
    }
    command = parsed;
    return true;
}

wxString CommandNumberText(const HartCommandEntry& command)
{
    const int count = std::clamp(command.argCount, 0, MAX_COMMAND_ARGS);
    if (count == 0)
        return wxString::Format("%d", command.commandNumber);
    wxString text = wxString::Format("%d:", command.commandNumber);
    for (int a = 0; a < count; ++a)
        text << (a ? "," : "") << command.args[a];
    return text;
}

void AddCommand(AppContext& ctx)
{
    ProjectDevice* device = SelectedDevice(ctx.project);
    if (device == nullptr || device->commandCount < 0 || device->commandCount >= MAX_COMMANDS)
        return;
    CommandForm form;
    form.commandNumber = "1";
    form.cycleInterval = "1";
    form.enabledForPolling = true;
    if (ctx.ui.EditCommand(form)) {
        HartCommandEntry& slot = device->commands[device->commandCount];
        if (ParseCommandEntry(form.commandNumber, form.cycleInterval, slot)) {
            FillFromDialog(form, slot);
            ctx.project.selectedCommand = device->commandCount;
            ++device->commandCount;
        }
        // A refused entry is dropped without a word, but the project still counts as edited.
        ctx.project.projectSaved = 0;
    }
    ctx.ui.RefreshPanel();
}

void ModifyCommand(AppContext& ctx)
{
    ProjectDevice* device = SelectedDevice(ctx.project);
    if (device == nullptr || !SelectedCommandValid(ctx.project, *device))
        return;
    HartCommandEntry& slot = device->commands[ctx.project.selectedCommand];
    CommandForm form;
    form.commandNumber = CommandNumberText(slot);
    form.cycleInterval = wxString::Format("%d", slot.cycleInterval);
    form.enabledForPolling = slot.pollEnabled != 0;
    form.writeCommand = slot.writeCommand != 0;
    if (ctx.ui.EditCommand(form)) {
        if (ParseCommandEntry(form.commandNumber, form.cycleInterval, slot))
            FillFromDialog(form, slot);
        ctx.project.projectSaved = 0;
    }
    ctx.ui.RefreshPanel();
}

void DeleteCommand(AppContext& ctx)
{
    ProjectDevice* device = SelectedDevice(ctx.project);
    if (device == nullptr || !SelectedCommandValid(ctx.project, *device))
        return;
    const int deleted = ctx.project.selectedCommand;
    const int count = std::min(device->commandCount, MAX_COMMANDS);
    std::copy(device->commands + deleted + 1, device->commands + count, device->commands + deleted);
    --device->commandCount;
    if (deleted == device->commandCount && device->commandCount > 0)
        ctx.project.selectedCommand = device->commandCount - 1;
    ctx.project.projectSaved = 0;
    ctx.ui.RefreshPanel();
}

void SelectCommand(AppContext& ctx, int index)
{
    ctx.project.selectedCommand = index;
}
