#include "commands/device_editing.h"

#include "base/app_context.h"
#include "base/number_text.h"
#include "project/project.h"

#include <cstring>

namespace {

const char* const kAddressMessage =
    "The Hart address you have chosen is already in use or is invalid\nPlease use a different address";

// Ten characters make a HART long address, used behind a multiplexer.
constexpr size_t kLongAddressLength = 10;

bool PollAddressInUse(const Project& project, long address, int except)
{
    for (int d = 0; d < project.deviceCount && d < MAX_DEVICES; ++d)
        if (d != except && project.devices[d].pollAddress == address)
            return true;
    return false;
}

DeviceForm FormFor(const AppContext& ctx)
{
    DeviceForm form;
    for (int row = 0; row < ctx.deviceTypes.deviceTypeCount; ++row)
        form.typeNames.Add(ctx.deviceTypes.TypeName(row));
    return form;
}

// Stores what the dialog holds into device `index`; false, after the message, when the address
// is refused. A modified device keeps its own current poll address even when a project file gave
// another device the same one, so that its other settings can still be changed.
bool ApplyDeviceForm(AppContext& ctx, const DeviceForm& form, int index, bool modifying)
{
    Project& project = ctx.project;
    ProjectDevice& device = project.devices[index];
    const bool longAddress = form.address.length() == kLongAddressLength;
    long number = -1;
    const bool parsed = !longAddress && ParseTypedNumber(form.address, number);
    const bool ownAddress = modifying && parsed && number == device.pollAddress;
    const bool valid = parsed && static_cast<unsigned long>(number) <= kMaxPollAddress &&
                       (ownAddress || !PollAddressInUse(project, number, index));
    const bool multiplexer = IsMultiplexerMode(project);
    if (!multiplexer && valid) {
        device.pollAddress = static_cast<int>(number);
    } else if (!longAddress) {
        ctx.ui.ShowMessage(kAddressMessage);
        return false;
    }
    if (multiplexer || longAddress) {
        SetText(device.longAddress, form.address);
        // Entering a ten-character address is how a project becomes a multiplexer project.
        SetText(project.mode, "MULTIPLEXOR");
    }
    if (form.typeSelection >= 0 && form.typeSelection < static_cast<int>(form.typeNames.size()))
        SetText(device.typeName, form.typeNames[form.typeSelection]);
    device.enabled = 2 * (form.autoAddressing ? 1 : 0) + (form.enabledForPolling ? 1 : 0);
    return true;
}

void SetCyclicRead(HartCommandEntry& command, int number, int interval)
{
    command.commandNumber = number;
    command.cycleInterval = interval;
    command.pollEnabled = 1;
    command.writeCommand = 0;
    command.argCount = 0;
}

void GiveDefaultCommands(Project& project, ProjectDevice& device, bool first)
{
    for (HartCommandEntry& command : device.commands) {
        command.commandNumber = -1;
        command.cycleInterval = -1;
        command.pollEnabled = 0;
    }
    device.commandCount = 0;
    if (!first || std::strcmp(project.mode, "GATEWAY") == 0) {
        SetCyclicRead(device.commands[0], 2, 1);
        SetCyclicRead(device.commands[1], 3, 1);
        device.commandCount = 2;
    }
    // A multiplexer project's first device is the multiplexer itself.
    if (first && IsMultiplexerMode(project)) {
        SetCyclicRead(device.commands[0], 0, 5);
        device.commandCount = 1;
    }
}

bool SelectedDeviceValid(const Project& project)
{
    return project.selectedDevice >= 0 && project.selectedDevice < project.deviceCount &&
           project.selectedDevice < MAX_DEVICES;
}

}  // namespace

int FreePollAddress(const Project& project)
{
    for (int address = 0; address <= kMaxPollAddress; ++address)
        if (!PollAddressInUse(project, address, -1))
            return address;
    return -1;
}

void AddDevice(AppContext& ctx)
{
    Project& project = ctx.project;
    if (project.deviceCount >= MAX_DEVICES)
        return;
    DeviceForm form = FormFor(ctx);
    form.address = wxString::Format("%d", FreePollAddress(project));
    form.enabledForPolling = true;
    form.typeSelection = 0;
    const int index = project.deviceCount;
    if (!ctx.ui.EditDevice(form) || !ApplyDeviceForm(ctx, form, index, false)) {
        ctx.ui.RefreshPanel();
        return;
    }
    GiveDefaultCommands(project, project.devices[index], index == 0);
    project.selectedDevice = index;
    ++project.deviceCount;
    project.projectSaved = 0;
    ctx.ui.RefreshPanel();
}

void ModifyDevice(AppContext& ctx)
{
    Project& project = ctx.project;
    if (!SelectedDeviceValid(project))
        return;
    const int index = project.selectedDevice;
    const ProjectDevice& device = project.devices[index];
    DeviceForm form = FormFor(ctx);
    form.enabledForPolling = (device.enabled & 1) != 0;
    form.autoAddressing = (device.enabled & 2) != 0;
    form.typeSelection = form.typeNames.Index(GetText(device.typeName));
    form.address = IsMultiplexerMode(project) ? GetText(device.longAddress) : wxString::Format("%d", device.pollAddress);
    if (ctx.ui.EditDevice(form) && ApplyDeviceForm(ctx, form, index, true))
        project.projectSaved = 0;
    ctx.ui.RefreshPanel();
}

void DeleteDevice(AppContext& ctx)
{
    Project& project = ctx.project;
    if (!SelectedDeviceValid(project))
        return;
    const int deleted = project.selectedDevice;
    for (int j = deleted + 1; j < project.deviceCount && j < MAX_DEVICES; ++j) {
        ProjectDevice& to = project.devices[j - 1];
        const ProjectDevice& from = project.devices[j];
        // Long-standing behaviour kept for projects in the field: the names stay at their
        // index, and each moved command count lands two places lower, not one.
        std::memcpy(to.typeName, from.typeName, sizeof to.typeName);
        to.pollAddress = from.pollAddress;
        std::memcpy(to.longAddress, from.longAddress, sizeof to.longAddress);
        to.enabled = from.enabled;
        std::memcpy(to.commands, from.commands, sizeof to.commands);
        if (j - 2 >= 0)
            project.devices[j - 2].commandCount = from.commandCount;
    }
    --project.deviceCount;
    if (project.deviceCount == 0)
        SetText(project.mode, "GATEWAY");
    else if (deleted == project.deviceCount)
        project.selectedDevice = project.deviceCount - 1;
    project.projectSaved = 0;
    ctx.ui.RefreshPanel();
}

void SelectDevice(AppContext& ctx, int index)
{
    ctx.project.selectedDevice = index;
    ctx.project.selectedCommand = 0;
    ctx.ui.RefreshCommandList();
}

void SetSelectedDeviceEnable(AppContext& ctx, bool checked)
{
    if (!SelectedDeviceValid(ctx.project))
        return;
    // The whole value: the auto-addressing bit goes too, as it always has.
    ctx.project.devices[ctx.project.selectedDevice].enabled = checked ? 1 : 0;
    ctx.project.projectSaved = 0;
    ctx.ui.RefreshPanel();
}
