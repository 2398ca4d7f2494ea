#include "remote/options_editing.h"

#include "base/app_context.h"
#include "project/project.h"

#include <algorithm>
#include <climits>

namespace {

// The six port settings in the order of the dialog's rows.
int* PortFields(Project& project, int index)
{
    int* const fields[] = {&project.vcpPort,    &project.modbusTcpPort, &project.mencapPort,
                           &project.intercomPort, &project.syslogPort,  &project.hartIpTcpPort};
    return fields[index];
}

void DefaultEmptyTimeServer(Project& project)
{
    if (project.timeServerAddress[0] == '\0')
        SetText(project.timeServerAddress, kDefaultTimeServer);
}

}  // namespace

void EditOptions(AppContext& ctx)
{
    Project& project = ctx.project;
    OptionsForm form;
    for (int i = 0; i < 6; ++i)
        form.ports[i] = wxString::Format("%d", *PortFields(project, i));
    DefaultEmptyTimeServer(project);
    form.timeServerAddress = wxString::Format("%s", GetText(project.timeServerAddress));
    form.useTimeServer = project.timeServerEnable == 1;

    if (ctx.ui.EditOptions(form)) {
        for (int i = 0; i < 6; ++i) {
            // Whether the text was a number is deliberately not asked: the value the conversion
            // leaves counts ("80x" gives 80), and only above 0. No upper bound, on purpose; a value
            // beyond the field is held at its largest. Converted in 64 bits, so that every platform
            // (long has 32 bits on Windows) takes the same value.
            wxLongLong_t value = 0;
            form.ports[i].ToLongLong(&value, 10);
            if (value > 0)
                *PortFields(project, i) = static_cast<int>(std::min<wxLongLong_t>(value, INT_MAX));
        }
        // Copied whole, untrimmed and unchecked; longer than the field, it is cut to fit.
        SetText(project.timeServerAddress, form.timeServerAddress);
        project.timeServerEnable = form.useTimeServer ? 1 : 0;
    }
    DefaultEmptyTimeServer(project);
}
